// The settings of a user who has none yet.
#pragma once

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "tests/db/temporary_folder.h"

namespace kodra::console {

// For the lifetime of the object, the user's settings are in a new folder, and no variable of the program is set.
class UserSettings {
 public:
  UserSettings() {
    setenv("XDG_CONFIG_HOME", folder_.Path().c_str(), 1);
    Unset();
  }
  ~UserSettings() {
    unsetenv("XDG_CONFIG_HOME");
    Unset();
  }
  UserSettings(const UserSettings&) = delete;
  UserSettings& operator=(const UserSettings&) = delete;

  const std::filesystem::path& Folder() const { return folder_.Path(); }
  std::filesystem::path File() const { return folder_.Path() / "kodrarpt" / "perfis.ini"; }
  std::string Text() const {
    std::ostringstream text;
    text << std::ifstream(File()).rdbuf();
    return text.str();
  }
  // Makes the file, which only the user may change.
  void Write(const std::string& text) const {
    std::filesystem::create_directory(File().parent_path());
    std::filesystem::permissions(File().parent_path(), std::filesystem::perms::owner_all);
    std::ofstream(File()) << text;
    std::filesystem::permissions(File(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  }
  // The connection string without its password, which an environment variable then contains; one that Unset knows.
  std::string WithoutPassword(const std::string& connection, const char* variable) const {
    const std::size_t at = connection.find("Pwd=");
    const std::size_t end = connection.find(';', at);
    setenv(variable, connection.substr(at + 4, end - at - 4).c_str(), 1);
    return connection.substr(0, at) + connection.substr(end + 1);
  }

 private:
  static void Unset() {
    for (const char* const name : {"KODRARPT_PERFIL", "KODRARPT_SENHA", "ACERVO_SENHA"}) unsetenv(name);
  }

  tests::TemporaryFolder folder_;
};

}  // namespace kodra::console
