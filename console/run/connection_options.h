// The options of a command that connects to a database: the connection string or a profile that contains it and,
// separately, the password; and --detalhes, which Program reads.
//
//   ConnectionOptions connection;
//   connection.AddTo(command);                       // before the command line is read
//   const std::wstring text = connection.Text();     // in the command, after everything else was checked
#pragma once

#include <string>
#include <string_view>

#include "console/profiles/profiles.h"

namespace CLI {
class App;
}

namespace kodra::console {

// The environment variable that contains the password unless something else says where it is.
inline constexpr const char* kPasswordVariable = "KODRARPT_SENHA";
// The environment variable that names the profile of a command with neither --conexao nor --perfil.
inline constexpr const char* kProfileVariable = "KODRARPT_PERFIL";

class ConnectionOptions {
 public:
  // REQUIRES: the command outlives the object.
  void AddTo(CLI::App& command);

  // Returns the connection string with a password: its own, or else the one that the options, the profile or the
  // environment provide, in this order. May ask the user. Raises UsageError when no database is named, when it is named
  // twice, when there is a second source of the password, and what Profiles and PasswordFrom raise.
  std::wstring Text() const;
  // Whether there is --conexao.
  bool HasConnection() const;
  // The profile of the command line; empty for none. Raises UsageError if there is --conexao too.
  std::string ChosenProfile() const;
  // The profile of the command line or, without a connection there, of the environment; empty for none.
  std::string ProfileName() const;
  // The options that name the source of the password. Raises UsageError for more than one.
  PasswordSource Password() const;

 private:
  const CLI::App* command_ = nullptr;
  std::string text_;
  std::string profile_;
  PasswordSource password_;
  bool details_ = false;
};

// Returns the connection string of a profile with its password, which comes from another source than the profile's if
// there is one. May ask the user. Raises what PasswordFrom raises, and for a name what Profiles::Find raises.
std::wstring ConnectionOf(const Profile& profile, const PasswordSource& instead);
std::wstring ConnectionOfProfile(const std::string& name, const PasswordSource& instead);

// Returns the connection string with the password appended, in quotes if it needs them.
std::wstring WithPassword(std::wstring connectionString, std::wstring_view password);

}  // namespace kodra::console
