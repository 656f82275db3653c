// The connections that the page may use: the one of the command line, and the user's profiles.
//
// The page knows them by name. Connection strings and passwords stay in the program, also what a profile has in its
// file.
#pragma once

#include <string>
#include <vector>

namespace kodra::console::panel {

class Connections {
 public:
  struct Choice {
    std::string name;     // by which a request names it; empty for the connection of the command line
    std::string profile;  // the name of its profile; empty for --conexao
    std::string problem;  // why it cannot be used, as the end of a sentence; empty if it can
  };
  struct List {
    std::vector<Choice> choices;
    std::string problem;  // why the profiles cannot be read; empty if they can
  };

  // The connection string of the command line, with its password, and the name of the profile that it comes from. Both
  // may be empty.
  Connections(std::wstring own, std::string profile) : own_(std::move(own)), profile_(std::move(profile)) {}

  // The connection of the command line, if there is one, then the profiles in the order of their file. The file is read
  // each time, so that the page shows a profile that was added meanwhile.
  List All() const;
  // The connection string by its name, with its password, for which the command of a profile may run. Raises UsageError
  // for an unknown name, for a profile that cannot be used, and what Profiles and PasswordFrom raise.
  std::wstring Text(const std::string& name) const;

 private:
  std::wstring own_;
  std::string profile_;
};

}  // namespace kodra::console::panel
