#include "console/command_line/program.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "console/command_line/failure.h"
#include "console/command_line/help.h"
#include "console/command_line/suggest.h"
#include "console/command_line/terminal_text.h"
#include "console/command_line/usage_error.h"
#include "frame/version.h"
#include "values/password.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

constexpr const char* kHelpFlags = "-h,--help";
constexpr const char* kHelpText = "Mostra esta ajuda";

bool IsOption(const std::string& argument) { return argument.size() > 1 && argument.front() == '-'; }

// Raises UsageError for an argument that the command does not have: the first such option, or else the first argument.
void CheckExtras(const CLI::App& command) {
  const std::vector<std::string> extras = command.remaining();
  if (extras.empty()) return;
  const auto option = std::ranges::find_if(extras, IsOption);
  if (option == extras.end()) throw ExtraArgument(extras.front());
  const std::string name = option->substr(0, option->find('='));
  std::vector<std::string> known;
  for (const CLI::Option* candidate : command.get_options())
    if (candidate->nonpositional()) known.push_back(candidate->get_name());
  throw UsageError("\"" + command.get_name() + "\" não tem a opção \"" + name + "\"" + DidYouMean(name, known));
}

// A message about the command line, or a file that it names, may quote an argument, and an argument may be a connection
// string.
std::string WithoutPasswords(const std::string& message, const std::vector<std::string>& arguments) {
  std::wstring shown = values::FromUtf8(message);
  for (const std::string& argument : arguments) shown = values::HidePassword(shown, values::FromUtf8(argument));
  return values::ToUtf8(shown);
}

}  // namespace

Program::Program(std::ostream& out, std::ostream& err)
    : out_(out),
      err_(err),
      app_(std::make_unique<CLI::App>("Gera os relatórios do arquivo sem o programa que os imprime.", "kodrarpt")) {
  app_->option_defaults()->group("Opções");
  app_->set_help_flag(kHelpFlags, kHelpText);
  app_->set_version_flag("--version", "kodrarpt " KODRA_VERSION_TEXT, "Mostra a versão");
  app_->formatter(std::make_shared<HelpFormatter>());
  app_->require_subcommand(1);
  app_->footer(kProgramFooter);
}

Program::~Program() = default;

std::vector<const CLI::App*> Program::Commands() const {
  const CLI::App& app = *app_;
  return app.get_subcommands({});
}

CLI::App& Program::Add(const CommandText& text, std::function<ExitCode()> action) {
  texts_.push_back(text);
  CLI::App* command = app_->add_subcommand(text.name, text.description);
  command->group("Comandos");
  command->set_help_flag(kHelpFlags, kHelpText);
  command->footer(text.footer);
  command->allow_extras();
  command->callback([this, command, action = std::move(action)] {
    CheckExtras(*command);
    result_ = action();
  });
  return *command;
}

ExitCode Program::Run(const std::vector<std::string>& arguments) noexcept {
  try {
    return Parse(arguments);
  } catch (...) {
    const Failure failure = CurrentFailure(WantsDetails());
    const bool quotes = failure.code == ExitCode::kUsage || failure.code == ExitCode::kFile;
    Say(quotes ? WithoutPasswords(failure.message, arguments) : failure.message);
    return failure.code;
  }
}

ExitCode Program::Parse(std::vector<std::string> arguments) {
  if (arguments.empty()) {
    err_ << app_->help();
    return ExitCode::kUsage;
  }
  // "ajuda" and "ajuda COMANDO" are what people try first.
  if (arguments.front() == "ajuda") {
    arguments.erase(arguments.begin());
    arguments.emplace_back("--help");
  }
  CheckCommandName(arguments);
  try {
    app_->parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));  // CLI11 takes them in reverse order
  } catch (const CLI::Success& answer) {
    Help(arguments, answer);
    return ExitCode::kOk;
  } catch (const CLI::ParseError& error) {
    for (const CLI::App* command : app_->get_subcommands()) CheckExtras(*command);
    CheckExtras(*app_);
    throw UsageError(InPortuguese(error));
  }
  return result_;
}

void Program::Help(const std::vector<std::string>& arguments, const CLI::Success& answer) const {
  const auto text = std::ranges::find(texts_, arguments.front(), &CommandText::name);
  const bool hasArgument = arguments.size() > 1 && !IsOption(arguments[1]);
  const bool isHelp = dynamic_cast<const CLI::CallForHelp*>(&answer) != nullptr;
  if (isHelp && hasArgument && text != texts_.end() && text->helpOn)
    text->helpOn(out_, arguments[1]);
  else
    app_->exit(answer, out_, err_);
}

void Program::CheckCommandName(const std::vector<std::string>& arguments) const {
  const std::string& name = arguments.front();
  std::vector<std::string> known;
  for (const CLI::App* command : Commands()) known.push_back(command->get_name());
  if (IsOption(name) || std::ranges::find(known, name) != known.end()) return;
  throw UsageError("o comando \"" + name + "\" não existe" + DidYouMean(name, known));
}

bool Program::WantsDetails() const {
  return std::ranges::any_of(app_->get_subcommands(), [](const CLI::App* command) {
    const CLI::Option* const details = command->get_option_no_throw(kDetailsOption);
    return details != nullptr && details->count() > 0;
  });
}

void Program::Say(const std::string& message) const { err_ << "kodrarpt: " << ForTerminal(message) << "\n"; }

}  // namespace kodra::console
