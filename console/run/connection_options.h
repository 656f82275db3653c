// The options by which a command is told its database: the connection string, and the password apart from it.
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

// The environment variable that holds the password when no other is named.
inline constexpr const char* kPasswordVariable = "KODRARPT_SENHA";

class ConnectionOptions {
 public:
  void AddTo(CLI::App& command);

  // The connection string, with the password of the environment unless it has its own. Raises UsageError when a
  // variable that was named is not set, or the string has a password and a variable was named too.
  std::wstring Text() const;

 private:
  std::string text_;
  std::string passwordVariable_;
};

// A connection string with a password after it, in quotes where it needs them.
std::wstring WithPassword(std::wstring connectionString, std::wstring_view password);

}  // namespace kodra::console
