// kodrarpt as a process, for the tests of what only a process has: signals, a terminal, streams, its memory.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>
#include <string>
#include <vector>

#include "testbed/mariadb/child_process.h"
#include "tests/db/sqlite_file.h"
#include "tests/db/temporary_folder.h"

namespace kodra::tests {

// A database with a table of supports. The index has the order of the report, so that SQLite does not sort in memory.
class Supports {
 public:
  explicit Supports(int rows);
  std::string Connection() const;

 private:
  SqliteFile file_;
};

// A hundred thousand of them, numbered with eight digits.
const Supports& ManySupports();

// A database whose parameter table never ends. A run of a report that reads it unsorted ends only when it is
// interrupted.
std::string EndlessConnection();

// A database that looks for its first support for ever, and has one class.
std::string SlowSqlite();

class KodrarptProcess : public testing::Test {
 protected:
  KodrarptProcess();
  ~KodrarptProcess() override;

  // Starts "kodrarpt executa" with a report and its arguments, and writes to "destino.csv" or "destino.json". A wrapper
  // is a command that runs kodrarpt; it may be empty.
  pid_t Start(const std::vector<std::string>& wrapper, const std::vector<std::string>& report,
              const std::string& format) const;
  pid_t StartEndlessCsv(const std::vector<std::string>& under = {}) const;

  // Starts a command, with its output in "saida.txt".
  pid_t StartCommand(const std::vector<std::string>& command) const;
  // Runs a command to its end, with its output in "saida.txt". Returns its exit code.
  int CodeOf(const std::vector<std::string>& command) const;
  // What a process has written to "saida.txt".
  std::string Said() const;

  std::vector<std::string> Names() const { return folder_.Names(); }

  // Whether the test may mount file systems that only its own processes see.
  static bool MayMount();

  // The exit code of a process that was interrupted; -1 if it was ended by a signal, or killed here after a minute.
  static int ExitCodeOf(pid_t process);

  // Waits until the unfinished file of the process has bytes.
  bool HasBegun(pid_t process) const;

  const TemporaryFolder folder_;

 private:
  sighandler_t previousHandler_;
};

}  // namespace kodra::tests
