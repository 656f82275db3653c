// The options of a command that prints pages: who issues them.
#pragma once

#include <string>

#include "console/formats/pages/printout.h"

namespace CLI {
class App;
}

namespace kodra::console::pages {

class LetterheadOptions {
 public:
  void AddTo(CLI::App& command);

  // The letterhead, with the present time as the time of issue. Raises FileError for a logo that cannot be read, and
  // UsageError for one that cannot be used.
  Letterhead Get() const;

 private:
  std::string organisation_, logo_;
};

}  // namespace kodra::console::pages
