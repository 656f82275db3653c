#include "console/run/waiting.h"

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <mutex>

#include "console/command_line/file_error.h"

namespace kodra::console {
namespace {

using Style = Progress::Style;

// Collects what another thread writes.
class SharedOutput final : public Output {
 public:
  void Write(std::string_view bytes) override {
    const std::lock_guard turn(mutex_);
    text_ += bytes;
    written_.notify_one();
  }
  void WaitForText() {
    std::unique_lock turn(mutex_);
    written_.wait(turn, [this] { return !text_.empty(); });
  }
  std::string Text() {
    const std::lock_guard turn(mutex_);
    return text_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable written_;
  std::string text_;
};

TEST(Waiting, SaysHowLongOnOneLineAndRemovesIt) {
  SharedOutput errors;
  Waiting waiting(errors, Style::kOneLine);
  errors.WaitForText();
  waiting.End();
  EXPECT_TRUE(errors.Text().starts_with("esperando o banco de dados há 1 s\r")) << errors.Text();
  EXPECT_TRUE(errors.Text().ends_with("\r                                 \r")) << errors.Text();
}

TEST(Waiting, SaysHowLongOnALineOfItsOwnInALog) {
  SharedOutput errors;
  Waiting waiting(errors, Style::kOwnLines);
  errors.WaitForText();
  waiting.End();
  EXPECT_TRUE(errors.Text().starts_with("esperando o banco de dados há 1 s\n")) << errors.Text();
  EXPECT_EQ(errors.Text().find(" \r"), std::string::npos);
}

TEST(Waiting, GoesOnWithoutAnOutput) {
  struct Full final : Output {
    void Write(std::string_view) override {
      isTried = true;
      isTried.notify_one();
      throw FileError(L"cheio");
    }
    std::atomic<bool> isTried = false;
  };
  Full errors;
  Waiting waiting(errors, Style::kOneLine);
  errors.isTried.wait(false);
  waiting.End();
  EXPECT_TRUE(errors.isTried);
}

}  // namespace
}  // namespace kodra::console
