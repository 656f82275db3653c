// The process's arguments and its console, in UTF-8 on every system.
#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace kodra::console {

// While an object exists, the standard streams pass UTF-8 and line ends of one character on unchanged. The destructor
// restores the console's character set, because the console belongs to the user's session.
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

// The arguments of this process after the program's name. Takes the arguments of main.
std::vector<std::string> Arguments(int count, char** values);

// The file of this program.
std::filesystem::path ProgramPath();

// Whether the stream is std::cout, and that is a terminal. A program inside of another process, as in a test, has a
// stream of its own.
bool IsTerminal(const std::ostream& output);
bool StandardErrorIsTerminal();

}  // namespace kodra::console
