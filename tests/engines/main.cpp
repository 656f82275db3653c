// kodra_engines: runs the tests, or with --write-page rewrites docs/dialects.md from the run.
#include <gtest/gtest.h>

#include <exception>
#include <iostream>
#include <string_view>

#include "tests/engines/page.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc > 1 && std::string_view(argv[1]) == "--write-page") {
    try {
      kodra::engines::WritePage();
      return 0;
    } catch (const std::exception& error) {
      std::cerr << "kodra_engines: " << error.what() << "\n";
      return 1;
    }
  }
  return RUN_ALL_TESTS();
}
