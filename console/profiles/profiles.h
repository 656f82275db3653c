// The user's connections by name. They are in one file, which contains no password:
//
//   [acervo]
//   conexao = DSN=Acervo;UID=ana
//   senha-de = ACERVO_SENHA
//
// The file is perfis.ini in the folder kodrarpt of the user's settings: $XDG_CONFIG_HOME or ~/.config, or %APPDATA% on
// Windows.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "console/ini/ini_file.h"
#include "console/profiles/password_source.h"

namespace kodra::console {

struct Profile {
  std::string name;
  std::string connection;
  PasswordSource password;
  // Why the profile cannot be used, in a message; empty for a good one.
  std::string problem = {};
};

// Raises UsageError if the environment does not say where the user's settings are.
std::filesystem::path ProfilesPath();

class Profiles {
 public:
  // Reads the user's profiles; a file that is missing contains none. Raises UsageError for a file that is no INI file,
  // and what ReadPrivateFile raises.
  Profiles();

  // In the order of the file, those with a problem too.
  const std::vector<Profile>& All() const { return profiles_; }
  // In any letter case and without regard to accents. Raises UsageError for an unknown name, and for a profile that has
  // a problem.
  const Profile& Find(const std::string& name) const;

  // Changes and writes the file. Add raises UsageError for a name or a connection that a profile cannot have, and, if
  // it does not replace, for a name that exists; Remove raises it for an unknown name.
  void Add(const Profile& profile, bool replaces);
  // Returns the name as the file has it.
  std::string Remove(const std::string& name);

 private:
  const Profile* Named(const std::string& name) const;
  [[noreturn]] void RaiseUnknown(const std::string& name) const;

  std::filesystem::path path_;
  std::unique_ptr<IniFile> file_;
  std::vector<Profile> profiles_;
};

}  // namespace kodra::console
