// What a person needs to schedule a routine: the lines to use, and what the account must have.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "console/profiles/profiles.h"
#include "console/routines/schedule.h"

namespace kodra::console::routines {

struct ScheduledRoutine {
  std::filesystem::path program, file;    // absolute
  std::vector<std::string> options = {};  // of the command line: "--perfil", "acervo"
  std::vector<Profile> profiles = {};     // all that it uses
  std::string passwordVariable = {};      // of the command line, in place of the sources of the profiles
  std::string profileFromVariable = {};   // the profile that only KODRARPT_PERFIL names
};

// The text. The line for the system of this program has the paths of this machine, the other one has placeholders.
std::string ScheduleText(const Schedule& schedule, const ScheduledRoutine& routine);

}  // namespace kodra::console::routines
