// The program's help and CLI11's error messages in Brazilian Portuguese.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace kodra::console {

// The group of the options that are a report's parameters; the help shows it in one line.
inline constexpr const char* kParameterGroup = "Parâmetros do relatório";

// CLI11's layout with Portuguese labels, and with column widths in characters instead of bytes.
class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter();

 protected:
  std::string make_group(std::string group, bool isPositional, std::vector<const CLI::Option*> options) const override;
  std::string make_option(const CLI::Option* option, bool isPositional) const override;
  std::string make_subcommand(const CLI::App* command) const override;
};

// The text below the list of commands: the exit codes, and how to get the help of a command.
extern const char* const kProgramFooter;

// The message of an error of CLI11.
std::string InPortuguese(const CLI::ParseError& error);

}  // namespace kodra::console
