#include "console/run/interruption.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>

#ifndef _WIN32
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

// All that the signal handler may read and write.
std::atomic<int> requested{0};  // the signal; zero: none
std::atomic<bool> unfinished{false};
std::array<char, 4096> unfinishedPath{};
std::array<Handler, kSignals.size()> former{};

static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

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
#ifndef _WIN32
  if (unfinished) unlink(unfinishedPath.data());
#endif
  std::_Exit(static_cast<int>(code));
}

void Interruption::RemoveAtOnce(const std::string& path) noexcept {
  unfinished = false;
  if (path.empty() || path.size() >= unfinishedPath.size()) return;
  std::memcpy(unfinishedPath.data(), path.c_str(), path.size() + 1);
  unfinished = true;
}

}  // namespace kodra::console
