// kodra_engines: runs the tests, or with --write-page rewrites docs/dialects.md from the run.
#include <gtest/gtest.h>

#include <string_view>

#include "tests/engines/page.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc > 1 && std::string_view(argv[1]) == "--write-page") {
    kodra::engines::WritePage();
    return 0;
  }
  return RUN_ALL_TESTS();
}
