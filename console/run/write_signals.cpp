#include "console/run/write_signals.h"

#include <csignal>

namespace kodra::console {

#ifdef _WIN32

IgnoredWriteSignals::IgnoredWriteSignals() = default;
IgnoredWriteSignals::~IgnoredWriteSignals() = default;

#else

namespace {

constexpr std::array kSignals = {SIGPIPE, SIGXFSZ};

}  // namespace

IgnoredWriteSignals::IgnoredWriteSignals() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) former_[i] = std::signal(kSignals[i], SIG_IGN);
}

IgnoredWriteSignals::~IgnoredWriteSignals() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) std::signal(kSignals[i], former_[i]);
}

#endif

}  // namespace kodra::console
