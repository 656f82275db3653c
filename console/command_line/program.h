// kodrarpt apart from its process: the commands, the help and the messages.
//
//   Program program(std::cout, std::cerr);
//   AddLista(program);
//   return static_cast<int>(program.Run({"lista"}));
//
// All text is UTF-8. Commands write results to Out() and everything else to Err().
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "console/command_line/exit_codes.h"

namespace CLI {
class App;
class Success;
}  // namespace CLI

namespace kodra::console {

// The option of commands that run reports: their errors come with the component's whole message.
inline constexpr const char* kDetailsOption = "--detalhes";

struct CommandText {
  std::string name;
  std::string description;
  // The text below the options in the command's help. It contains an example.
  std::string footer;
  // Prints the help on the first argument, if the command has a help of its own on it.
  std::function<void(std::ostream& out, const std::string& argument)> helpOn = {};
};

class Program {
 public:
  // Both streams must outlive the program.
  Program(std::ostream& out, std::ostream& err);
  ~Program();

  std::ostream& Out() const { return out_; }
  std::ostream& Err() const { return err_; }

  // Adds a command, to which the caller adds options. `action` runs after the command line was read without errors.
  CLI::App& Add(const CommandText& text, std::function<ExitCode()> action);

  // The commands added so far.
  std::vector<const CLI::App*> Commands() const;

  // Writes a message to Err(), after "kodrarpt: ", without the control characters that it may have from a database.
  void Say(const std::string& message) const;

  // Whether the command that runs was asked for the details of errors.
  bool WantsDetails() const;

  // Runs the command that the arguments (without the program's name) ask for. An error becomes a message and an exit
  // code; nothing is thrown.
  ExitCode Run(const std::vector<std::string>& arguments) noexcept;

 private:
  ExitCode Parse(std::vector<std::string> arguments);
  // The help that was asked for: of the program, of a command, or of a command's argument.
  void Help(const std::vector<std::string>& arguments, const CLI::Success& answer) const;
  void CheckCommandName(const std::vector<std::string>& arguments) const;

  std::ostream& out_;
  std::ostream& err_;
  std::unique_ptr<CLI::App> app_;
  std::vector<CommandText> texts_;  // of the commands
  ExitCode result_ = ExitCode::kOk;
};

}  // namespace kodra::console
