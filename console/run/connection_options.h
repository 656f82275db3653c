// The options of a command that connects to a database: the connection string and, separately, the password; and
// --detalhes, which Program reads.
//
//   ConnectionOptions connection;
//   connection.AddTo(command);                       // before the command line is read
//   const std::wstring text = connection.Text();     // in the command
#pragma once

#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace kodra::console {

// The environment variable that contains the password unless --senha-de names another.
inline constexpr const char* kPasswordVariable = "KODRARPT_SENHA";

class ConnectionOptions {
 public:
  void AddTo(CLI::App& command);

  // Returns the connection string with a password: its own, or else the one of the environment. Raises UsageError when
  // --senha-de names a variable that is not set, or is given although the string has a password.
  std::wstring Text() const;

 private:
  std::string text_;
  std::string passwordVariable_;
  bool details_ = false;
};

// Returns the connection string with the password appended, in quotes if it needs them.
std::wstring WithPassword(std::wstring connectionString, std::wstring_view password);

}  // namespace kodra::console
