// The program's help and CLI11's complaints in Brazilian Portuguese.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace kodra::console {

// The group of the options that are a report's parameters; the help shows it in one line.
inline constexpr const char* kParameterGroup = "Parâmetros do relatório";

// CLI11's layout with Portuguese labels and with columns that count characters, not bytes.
class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter();

 protected:
  std::string make_group(std::string group, bool isPositional, std::vector<const CLI::Option*> options) const override;
  std::string make_option(const CLI::Option* option, bool isPositional) const override;
  std::string make_subcommand(const CLI::App* command) const override;
};

// The exit codes and where to read on, below the list of commands.
extern const char* const kProgramFooter;

// What is wrong with the command line, for the user.
std::string InPortuguese(const CLI::ParseError& error);

}  // namespace kodra::console
