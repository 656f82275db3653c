#include "console/routines/routine.h"

#include <fmt/format.h>
#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "console/command_line/file_error.h"
#include "console/command_line/help.h"
#include "console/command_line/input_file.h"
#include "console/command_line/path_text.h"
#include "console/command_line/report_name.h"
#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "console/ini/ini_file.h"
#include "console/routines/day_words.h"
#include "console/routines/file_name.h"
#include "values/utf8.h"

namespace kodra::console::routines {
namespace {

namespace fs = std::filesystem;
using reports::ReportMethod;
using values::FromUtf8;
using values::ToUtf8;

constexpr std::size_t kLargestFile = std::size_t{1} << 20;

constexpr const char* kDefaults = "rotina";
constexpr const char* kReport = "relatorio";
constexpr const char* kFile = "arquivo";
constexpr const char* kFolder = "pasta";
constexpr const char* kPeriod = "periodo";
constexpr const char* kProfile = "perfil";
constexpr const char* kTimeLimit = "tempo-limite";

// These options are of the command line: the file and the progress are the routine's business.
bool IsOfCommandLine(const CLI::Option& option) {
  return option.check_lname("saida") || option.check_lname("progresso");
}

bool IsFlag(const CLI::Option& option) { return option.get_items_expected_max() == 0; }
bool IsFile(const CLI::Option& option) { return option.get_option_text() == "ARQUIVO"; }

std::string NameOf(const CLI::Option& option) { return option.get_lnames().front(); }

// The property of the report's parameters with that name, or null.
const frame::Property* PropertyOf(const ReportMethod& method, const std::string& name) {
  const auto properties = frame::ParameterClassNamed(method.parameterClass).properties;
  const auto property = std::ranges::find(properties, FromUtf8(name), &frame::Property::name);
  return property == properties.end() ? nullptr : &*property;
}

// Values by key, as Folded() returns it.
using Entries = std::map<std::string, IniEntry>;

std::string ValueOf(const Entries& entries, const char* key) {
  const auto entry = entries.find(key);
  return entry == entries.end() ? std::string() : entry->second.value;
}

}  // namespace

RoutineOutput::RoutineOutput() = default;
RoutineOutput::~RoutineOutput() = default;

class RoutineReader {
 public:
  RoutineReader(Program& program, const fs::path& file, const RoutineSurroundings& surroundings)
      : program_(program), folder_(file.parent_path()), surroundings_(surroundings) {}

  Routine Read(const IniFile& ini) {
    const std::vector<IniSection> sections = ini.Sections();
    for (const IniSection& section : sections)
      if (Folded(section.name) == kDefaults) ReadDefaults(section);
    for (const IniSection& section : sections)
      if (Folded(section.name) != kDefaults) ReadOutput(section);
    const bool isEmpty = routine_.outputs.empty() && routine_.problems.empty();
    if (isEmpty) routine_.problems.emplace_back("não há nenhuma saída: falta uma seção, como [documentos]");
    return std::move(routine_);
  }

 private:
  void Add(const IniSection& section, const std::string& problem) {
    routine_.problems.push_back(section.name.empty() ? problem : fmt::format("[{}] {}", section.name, problem));
  }

  // The entries of a section. What is repeated or empty is a problem.
  Entries EntriesOf(const IniSection& section) {
    Entries entries;
    for (const IniEntry& entry : section.entries) {
      if (entry.value.empty()) Add(section, entry.key + " não tem valor");
      if (!entries.try_emplace(Folded(entry.key), entry).second)
        Add(section, entry.key + " aparece mais de uma vez: deixe só uma");
    }
    return entries;
  }

  void ReadDefaults(const IniSection& section) {
    defaults_ = EntriesOf(section);
    for (const auto& [key, entry] : defaults_) {
      if (key == kProfile || key == kFolder || key == kTimeLimit) continue;
      Add(section, fmt::format("{} não existe aqui{}; há perfil, pasta e tempo-limite", entry.key,
                               DidYouMean(key, {kProfile, kFolder, kTimeLimit})));
    }
  }

  // Takes a step; what is wrong with an option, or with the file that it names, is a problem of the section.
  template <class Step>
  void Attempt(const IniSection& section, Step step) {
    try {
      step();
    } catch (const CLI::ParseError& error) {
      Add(section, InPortuguese(error));
    } catch (const UsageError& error) {
      Add(section, error.what());
    } catch (const FileError& error) {
      Add(section, error.what());
    }
  }

  void ReadOutput(const IniSection& section) {
    if (section.name.empty()) return Add(section, "há linhas antes da primeira seção");
    const std::size_t before = routine_.problems.size();
    const Entries entries = EntriesOf(section);
    for (const char* const key : {kReport, kFile})
      if (!entries.contains(key)) Add(section, fmt::format("falta {}", key));
    auto output = std::make_unique<RoutineOutput>();
    output->name = section.name;
    output->options.report = ValueOf(entries, kReport);
    output->options.origin = "[" + section.name + "] ";
    output->app_ = std::make_unique<CLI::App>();
    output->app_->set_help_flag();
    output->options.AddTo(*output->app_);
    method_ = nullptr;
    period_.reset();
    Attempt(section, [&] {
      if (!output->options.report.empty()) method_ = &FindReport(output->options.report);
      if (method_ != nullptr) period_ = PeriodOf(entries);
    });
    Attempt(section, [&] { output->profile = ProfileOf(entries); });
    Attempt(section, [&] { output->file = FileOf(*output, entries); });
    if (!files_.insert(output->file).second && !output->file.empty())
      Add(section, fmt::format("outra saída já grava \"{}\"", TextOf(output->file)));
    Attempt(section, [&] { ReadOptions(section, entries, *output); });
    if (routine_.problems.size() > before) return;
    Attempt(section, [&] { ReportRun(program_, output->options); });  // checks the options
    if (routine_.problems.size() == before) routine_.outputs.push_back(std::move(output));
  }

  std::optional<Period> PeriodOf(const Entries& entries) const {
    if (!entries.contains(kPeriod)) return std::nullopt;
    const std::optional<PeriodNames> names = console::PeriodOf(*method_);
    if (!names) throw UsageError(fmt::format("{} não tem período", console::NameOf(*method_)));
    for (const std::wstring_view name : {names->first, names->last}) {
      const std::string parameter = ToUtf8(name);
      if (entries.contains(Folded(parameter)))
        throw UsageError(fmt::format("periodo e {} não podem ser usados juntos", parameter));
    }
    const std::string words = ValueOf(entries, kPeriod);
    const std::optional<Period> period = PeriodNamed(words, surroundings_.today);
    if (!period) throw UsageError(fmt::format("periodo não pode ser \"{}\"; há {}", words, kPeriodExamples));
    return period;
  }

  std::string ProfileOf(const Entries& entries) {
    if (surroundings_.hasConnection) return {};
    if (!surroundings_.chosenProfile.empty()) return surroundings_.chosenProfile;
    if (entries.contains(kProfile)) return ValueOf(entries, kProfile);
    if (defaults_.contains(kProfile)) return ValueOf(defaults_, kProfile);
    if (surroundings_.usualProfile.empty()) throw UsageError("falta o perfil, aqui, em [rotina] ou com --perfil");
    routine_.usesUsualProfile = true;
    return surroundings_.usualProfile;
  }

  // Empty if the section does not name one.
  fs::path FileOf(const RoutineOutput& output, const Entries& entries) const {
    const std::string pattern = ValueOf(entries, kFile);
    if (pattern.empty()) return {};
    const std::string date = DayText(surroundings_.today);
    std::map<std::string, std::string> texts = {{"data", date},
                                                {"ano", date.substr(0, 4)},
                                                {"mes", date.substr(5, 2)},
                                                {"dia", date.substr(8)},
                                                {"relatorio", method_ == nullptr ? "" : console::NameOf(*method_)},
                                                {"saida", output.name}};
    if (!surroundings_.hasConnection) texts["perfil"] = output.profile;
    if (entries.contains(kPeriod)) texts["periodo"] = period_ ? PeriodText(*period_) : "";
    const fs::path folder = folder_ / PathOf(Filled(ValueOf(defaults_, kFolder), texts));
    return (folder / PathOf(Filled(pattern, texts))).lexically_normal();
  }

  // Has the options of `executa` read what the section says.
  void ReadOptions(const IniSection& section, const Entries& entries, RoutineOutput& output) {
    const std::vector<const CLI::Option*> options = std::as_const(*output.app_).get_options();
    std::vector<std::string> arguments = {"--saida=" + TextOf(output.file), "--progresso=auto"};
    if (period_) {
      const std::optional<PeriodNames> names = console::PeriodOf(*method_);
      arguments.push_back("--" + ToUtf8(names->first) + "=" + DayText(period_->first));
      arguments.push_back("--" + ToUtf8(names->last) + "=" + DayText(period_->last));
    }
    if (!entries.contains(kTimeLimit) && defaults_.contains(kTimeLimit))
      arguments.push_back(fmt::format("--{}={}", kTimeLimit, ValueOf(defaults_, kTimeLimit)));
    for (const auto& [key, entry] : entries) {
      if (key == kReport || key == kFile || key == kPeriod || key == kProfile || entry.value.empty()) continue;
      const CLI::Option* const option = OptionNamed(key, options);
      if (option == nullptr)
        Add(section, fmt::format("{} não existe aqui{}", entry.key, DidYouMean(key, KeysOf(options))));
      else if (const auto argument = ArgumentOf(section, *option, entry.value))
        arguments.push_back(*argument);
    }
    std::ranges::reverse(arguments);  // CLI11 takes them in reverse order
    output.app_->parse(std::move(arguments));
  }

  // The option of that key, or null.
  static const CLI::Option* OptionNamed(const std::string& key, const std::vector<const CLI::Option*>& options) {
    const auto option = std::ranges::find_if(options, [&](const CLI::Option* candidate) {
      return !IsOfCommandLine(*candidate) && Folded(NameOf(*candidate)) == key;
    });
    return option == options.end() ? nullptr : *option;
  }

  // All keys that an output can have.
  std::vector<std::string> KeysOf(const std::vector<const CLI::Option*>& options) const {
    std::vector<std::string> keys = {kReport, kFile, kPeriod, kProfile};
    for (const CLI::Option* option : options) {
      const bool isOther = option->get_group() == kParameterGroup && method_ != nullptr &&
                           PropertyOf(*method_, NameOf(*option)) == nullptr;
      if (!isOther && !IsOfCommandLine(*option)) keys.push_back(NameOf(*option));
    }
    return keys;
  }

  // The argument of the command line that does what the value says, if one is needed.
  std::optional<std::string> ArgumentOf(const IniSection& section, const CLI::Option& option, std::string value) {
    const std::string name = NameOf(option);
    if (IsFlag(option)) {
      const std::string folded = Folded(value);
      if (folded != "sim" && folded != "nao") Add(section, fmt::format("{} deve ser sim ou não", name));
      return folded == "sim" ? std::optional("--" + name) : std::nullopt;
    }
    if (IsFile(option)) value = TextOf((folder_ / PathOf(value)).lexically_normal());
    const frame::Property* const property = method_ == nullptr ? nullptr : PropertyOf(*method_, name);
    const bool isDate = property != nullptr && property->rule == frame::PropertyRule::kDate;
    if (isDate && value.find_first_of("/-") == value.npos) {
      const std::optional<std::int32_t> day = DayNamed(value, surroundings_.today);
      if (!day)
        Add(section,
            fmt::format("{} não pode ser \"{}\"; há {}, ou uma data como 01/02/2024", name, value, kDayExamples));
      value = DayText(day.value_or(surroundings_.today));
    }
    return fmt::format("--{}={}", name, value);
  }

  Program& program_;
  fs::path folder_;
  const RoutineSurroundings& surroundings_;
  Routine routine_;
  Entries defaults_;
  std::set<fs::path> files_;
  // Of the section that is being read.
  const ReportMethod* method_ = nullptr;
  std::optional<Period> period_;
};

Routine ReadRoutine(Program& program, const fs::path& file, const RoutineSurroundings& surroundings) {
  const std::string name = TextOf(file);
  const IniFile ini(ReadInputFile(FromUtf8(name), kLargestFile), name);
  return RoutineReader(program, fs::absolute(file), surroundings).Read(ini);
}

}  // namespace kodra::console::routines
