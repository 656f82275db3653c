#include "console/run/time_limit.h"

#include <CLI/CLI.hpp>

#include "console/command_line/usage_error.h"
#include "console/formats/cell_text.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

constexpr int kDay = 24 * 60 * 60;

}  // namespace

void TimeLimit::AddTo(CLI::App& command, const std::string& what) {
  command
      .add_option_function<int>(
          "--tempo-limite",
          [this](int seconds) {
            seconds_ = seconds;
            isGiven_ = true;
          },
          "Interrompe " + what + " depois de tantos segundos, também no banco (sem esta opção, nunca)")
      ->option_text("SEGUNDOS");
}

std::chrono::seconds TimeLimit::Get() const {
  if (isGiven_ && (seconds_ < 1 || seconds_ > kDay))
    throw UsageError("--tempo-limite vai de 1 a " + values::ToUtf8(CountText(kDay)) + " segundos, um dia");
  return std::chrono::seconds(seconds_);
}

}  // namespace kodra::console
