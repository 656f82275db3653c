#include "console/run/time_limit.h"

#include <CLI/CLI.hpp>

#include "console/command_line/usage_error.h"

namespace kodra::console {
namespace {

constexpr int kDay = 24 * 60 * 60;

}  // namespace

void TimeLimit::AddTo(CLI::App& command) {
  command
      .add_option_function<int>(
          "--tempo-limite",
          [this](int seconds) {
            seconds_ = seconds;
            isGiven_ = true;
          },
          "Interrompe o relatório depois de tantos segundos, também no banco (sem esta opção, nunca)")
      ->option_text("SEGUNDOS");
}

std::chrono::seconds TimeLimit::Get() const {
  if (isGiven_ && (seconds_ < 1 || seconds_ > kDay))
    throw UsageError("--tempo-limite vai de 1 a " + std::to_string(kDay) + " segundos");
  return std::chrono::seconds(seconds_);
}

}  // namespace kodra::console
