// The lines that run a routine again and again: for cron, and for the task scheduler of Windows.
#pragma once

#include <string>
#include <vector>

namespace kodra::console::routines {

struct Schedule {
  int hour, minute;
  // Indices of days, Monday being zero; empty for every day, or for the day of the month.
  std::vector<int> weekdays = {};
  int dayOfMonth = 0;  // zero for none
};

// A schedule from a time as 06:30, and from days as "todos", "seg,qua,sex", or "1" for the first day of each month.
// Raises UsageError for another text.
Schedule ScheduleOf(const std::string& time, const std::string& days);

// A line of a crontab that runs the command. REQUIRES: no word of the command has a line end.
std::string CronLine(const Schedule& schedule, const std::vector<std::string>& command);
// The command line that makes a task of that name, for the command interpreter of Windows.
std::string TaskLine(const Schedule& schedule, const std::vector<std::string>& command, const std::string& name);

}  // namespace kodra::console::routines
