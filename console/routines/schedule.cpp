#include "console/routines/schedule.h"

#include <fmt/format.h>
#include <algorithm>
#include <array>
#include <regex>
#include <sstream>

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"

namespace kodra::console::routines {
namespace {

struct Weekday {
  std::string_view name, cron, windows;
};

constexpr auto kWeekdays = std::to_array<Weekday>({
    {"seg", "1", "MON"},
    {"ter", "2", "TUE"},
    {"qua", "3", "WED"},
    {"qui", "4", "THU"},
    {"sex", "5", "FRI"},
    {"sab", "6", "SAT"},
    {"dom", "0", "SUN"},
});

// Every month has this day.
constexpr int kLastDayOfMonth = 28;

// One word for the shell, as a line of a crontab has it: there, a percent sign ends the command unless a backslash
// precedes it, in quotes too.
std::string ForCron(const std::string& word) {
  static const std::regex plain("[A-Za-z0-9_/.:=@+,-]+");
  const std::string quoted =
      std::regex_match(word, plain) ? word : "'" + std::regex_replace(word, std::regex("'"), "'\\''") + "'";
  return std::regex_replace(quoted, std::regex("%"), "\\%");
}

std::string ForWindows(const std::string& word) {
  return word.find_first_of(" &()^;,=") == word.npos ? word : "\\\"" + word + "\\\"";
}

std::string Joined(const Schedule& schedule, std::string_view Weekday::*name) {
  std::vector<std::string_view> names;
  for (const int day : schedule.weekdays) names.push_back(kWeekdays[static_cast<std::size_t>(day)].*name);
  return fmt::format("{}", fmt::join(names, ","));
}

[[noreturn]] void RaiseWrongDays(const std::string& days) {
  throw UsageError(fmt::format(
      "--dias deve ser todos, dias da semana como seg,qua,sex, ou um dia do mês, e não pode ser \"{}\"", days));
}

}  // namespace

Schedule ScheduleOf(const std::string& time, const std::string& days) {
  static const std::regex clock("([01]?[0-9]|2[0-3]):([0-5][0-9])");
  std::smatch match;
  if (!std::regex_match(time, match, clock))
    throw UsageError(fmt::format("--as deve ser uma hora como 06:30, e não pode ser \"{}\"", time));
  Schedule schedule = {.hour = std::stoi(match[1].str()), .minute = std::stoi(match[2].str()), .weekdays = {}};
  const std::string folded = Folded(days);
  if (folded == "todos") return schedule;
  static const std::regex number("[0-9]{1,2}");
  if (std::regex_match(folded, number)) {
    schedule.dayOfMonth = std::stoi(folded);
    if (schedule.dayOfMonth >= 1 && schedule.dayOfMonth <= kLastDayOfMonth) return schedule;
    throw UsageError("o dia do mês, em --dias, vai de 1 a 28, que todos os meses têm");
  }
  std::istringstream words(folded);
  for (std::string word; std::getline(words, word, ',');) {
    const auto day = std::ranges::find(kWeekdays, word, &Weekday::name);
    if (day == kWeekdays.end()) RaiseWrongDays(days);
    schedule.weekdays.push_back(static_cast<int>(day - kWeekdays.begin()));
  }
  if (schedule.weekdays.empty()) RaiseWrongDays(days);
  return schedule;
}

std::string CronLine(const Schedule& schedule, const std::vector<std::string>& command) {
  std::string line = fmt::format("{} {} {} * {}", schedule.minute, schedule.hour,
                                 schedule.dayOfMonth == 0 ? "*" : std::to_string(schedule.dayOfMonth),
                                 schedule.weekdays.empty() ? "*" : Joined(schedule, &Weekday::cron));
  for (const std::string& word : command) line += " " + ForCron(word);
  return line;
}

std::string TaskLine(const Schedule& schedule, const std::vector<std::string>& command, const std::string& name) {
  std::string often = "DAILY";
  if (!schedule.weekdays.empty()) often = "WEEKLY /D " + Joined(schedule, &Weekday::windows);
  if (schedule.dayOfMonth != 0) often = fmt::format("MONTHLY /D {}", schedule.dayOfMonth);
  std::string run;
  for (const std::string& word : command) run += (run.empty() ? "" : " ") + ForWindows(word);
  return fmt::format("schtasks /Create /TN \"{}\" /SC {} /ST {:02}:{:02} /TR \"{}\"", name, often, schedule.hour,
                     schedule.minute, run);
}

}  // namespace kodra::console::routines
