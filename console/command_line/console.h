// The process's arguments and its console, in UTF-8 on every system.
#pragma once

#include <string>
#include <vector>

namespace kodra::console {

// While it lives, what is written to the standard streams arrives as it was written: UTF-8, and line ends of one
// character. The console gets its former character set back, as it belongs to the user's session.
class Utf8Console {
 public:
  Utf8Console();
  ~Utf8Console();  // NOLINT(performance-trivially-destructible): on Windows it restores the character set
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;

#ifdef _WIN32
 private:
  unsigned int formerCodePage_;
#endif
};

// The arguments of this process behind the program's name, from those that main was given.
std::vector<std::string> Arguments(int count, char** values);

// Whether what goes to the standard error appears on a terminal.
bool PersonIsWatching();

}  // namespace kodra::console
