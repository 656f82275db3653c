// The runs of the panel by name. Their cancellation is tested with real reports in panel_test.cpp.
#include "console/panel/runs.h"

#include <gtest/gtest.h>

#include "tests/console/failing.h"

namespace kodra::console::panel {
namespace {

TEST(PanelRuns, RefuseANameThatARunHas) {
  Runs runs(std::chrono::seconds(0));
  const auto isGone = [] { return false; };
  std::string refusal;
  bool again = false;
  runs.Do("1", isGone, [&](Machine&, const panel::Run&) {
    refusal = RefusalOf([&] { runs.Do("1", isGone, [](Machine&, const panel::Run&) {}); });
  });
  EXPECT_EQ(refusal, "já há uma execução com este nome; recarregue a página");
  // The name is free again.
  runs.Do("1", isGone, [&](Machine&, const panel::Run&) { again = true; });
  EXPECT_TRUE(again);
}

}  // namespace
}  // namespace kodra::console::panel
