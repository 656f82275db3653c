#include "console/run/interruption.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>

#ifdef _WIN32
#include <windows.h>
#else
#include <unistd.h>
#endif

#include "console/command_line/exit_codes.h"

namespace kodra::console {
namespace {

#ifdef _WIN32
constexpr std::array kSignals = {SIGINT, SIGTERM, SIGBREAK};
#else
constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP};
#endif

using Handler = void (*)(int);
using PathUnit = std::filesystem::path::value_type;

// All that the signal handler may read and write.
std::atomic<int> requested{0};  // the signal; zero: none
std::atomic<bool> unfinished{false};
std::array<PathUnit, 4096> unfinishedPath{};
std::array<Handler, kSignals.size()> former{};

static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

#ifdef _WIN32
// Windows deletes an open file when the last program that has it open ends. The library that completes a spreadsheet
// opens the file without permitting that, for a few seconds.
void RemoveOpenFile(const wchar_t* path) {
  constexpr int kMostAttempts = 100;
  constexpr DWORD kPause = 100;  // milliseconds
  for (int i = 0; i < kMostAttempts && !DeleteFileW(path) && GetLastError() == ERROR_SHARING_VIOLATION; ++i)
    Sleep(kPause);
}
#endif

void Answer(int signal) {
  // Windows resets the handler at each signal.
  std::signal(signal, &Answer);
  int none = 0;
  if (!requested.compare_exchange_strong(none, signal)) Interruption::EndNow(Interruption::Code());
}

}  // namespace

Interruption::Interruption() {
  requested = 0;
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    former[i] = std::signal(kSignals[i], &Answer);
    // A signal that is ignored from the start (nohup, a job in the background) stays ignored.
    if (former[i] == SIG_IGN) std::signal(kSignals[i], SIG_IGN);
  }
}

Interruption::~Interruption() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) std::signal(kSignals[i], former[i]);
}

bool Interruption::Requested() noexcept { return requested != 0; }

ExitCode Interruption::Code() noexcept { return requested == SIGTERM ? ExitCode::kTerminated : ExitCode::kInterrupted; }

void Interruption::EndNow(ExitCode code) noexcept {
#ifdef _WIN32
  if (unfinished) RemoveOpenFile(unfinishedPath.data());
  // Without the end of the DLLs: the thread that waits for the database is inside one of them.
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(code));
#else
  if (unfinished) unlink(unfinishedPath.data());
#endif
  std::_Exit(static_cast<int>(code));
}

void Interruption::RemoveAtOnce(const std::filesystem::path& path) noexcept {
  unfinished = false;
  const auto& text = path.native();
  if (text.empty() || text.size() >= unfinishedPath.size()) return;
  *std::copy(text.begin(), text.end(), unfinishedPath.begin()) = 0;
  unfinished = true;
}

}  // namespace kodra::console
