#include "console/run/progress.h"

#include <gtest/gtest.h>

#include "console/command_line/file_error.h"

namespace kodra::console {
namespace {

using Style = Progress::Style;

// A report whose rows come at the times that the test sets.
struct Watched {
  explicit Watched(Style style) : progress(errors, style, [this] { return now; }) {}
  void Rows(int count) {
    for (int i = 0; i < count; ++i) progress.Row();
  }

  double now = 100;
  TextOutput errors;
  Progress progress;
};

TEST(Progress, ShowsNothingOfARunShorterThanASecond) {
  Watched run(Style::kOneLine);
  run.now = 100.99;
  run.Rows(5000);
  run.progress.End();
  EXPECT_EQ(run.errors.Text(), "");
}

TEST(Progress, ShowsCountAndRateTwiceASecondAfterTheFirst) {
  Watched run(Style::kOneLine);
  run.Rows(999);
  run.now = 101;
  run.Rows(2);  // at the same moment
  EXPECT_EQ(run.errors.Text(), "\r1.000 linhas, 1.000 por segundo");
  run.now = 101.4;
  run.Rows(1);
  EXPECT_EQ(run.errors.Text(), "\r1.000 linhas, 1.000 por segundo");
  run.now = 101.5;
  run.Rows(1);
  EXPECT_EQ(run.errors.Text(), "\r1.000 linhas, 1.000 por segundo\r1.003 linhas, 668 por segundo  ");
}

TEST(Progress, EndsWithTheTotalInPlaceOfTheCount) {
  Watched run(Style::kOneLine);
  run.now = 101;
  run.Rows(1);
  EXPECT_EQ(run.errors.Text(), "\r1 linha, 1 por segundo");
  run.Rows(1999999);
  run.now = 108.04;
  run.progress.End();
  EXPECT_EQ(run.errors.Text(), "\r1 linha, 1 por segundo\r2.000.000 linhas em 8 s (248.756 por segundo)\n");
}

TEST(Progress, PutsEachCountOnItsOwnLineInALog) {
  Watched run(Style::kOwnLines);
  run.now = 102;
  run.Rows(10);
  run.now = 102.25;
  run.progress.End();
  EXPECT_EQ(run.errors.Text(), "1 linha, 0 por segundo\n10 linhas em 2,3 s (4 por segundo)\n");
}

TEST(Progress, EndsItsLineBeforeAnotherMessage) {
  TextOutput errors;
  {
    const Progress progress(errors, Style::kOneLine, [] { return 100.0; });
  }
  EXPECT_EQ(errors.Text(), "");
  {
    double now = 100;
    Progress progress(errors, Style::kOneLine, [&] { return now; });
    now = 101;
    progress.Row();
  }
  EXPECT_EQ(errors.Text(), "\r1 linha, 1 por segundo\n");
}

// An output that fails, like standard error on a full disk.
class FullOutput final : public Output {
 public:
  void Write(std::string_view /*bytes*/) override {
    ++writes;
    throw FileError(L"cheio");
  }
  int writes = 0;
};

TEST(Progress, DoesNotStopAReportWhenItCannotBeShown) {
  FullOutput errors;
  {
    double now = 100;
    Progress progress(errors, Style::kOneLine, [&] { return now; });
    now = 101;
    progress.Row();
    now = 102;
    progress.Row();
    progress.End();
    EXPECT_EQ(progress.Rows(), 2U);
  }
  EXPECT_EQ(errors.writes, 1);
}

TEST(Progress, CountsWithoutShowing) {
  Watched run(Style::kNone);
  run.now = 200;
  run.Rows(3);
  run.progress.End();
  EXPECT_EQ(run.errors.Text(), "");
  EXPECT_EQ(run.progress.Rows(), 3U);
}

}  // namespace
}  // namespace kodra::console
