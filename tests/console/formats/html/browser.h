// A headless Chromium that the tests show pages to: what it lays out, and what it prints.
#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/db/temporary_folder.h"

namespace kodra::tests {

class Browser {
 public:
  // Shows the pages side by side and evaluates a JavaScript function, `(document) => value`, on each; returns the
  // values.
  nlohmann::json Evaluate(const std::vector<std::string>& pages, const std::string& function);

  // A page printed.
  struct Print {
    int pages = 0;
    std::string size;                   // "594.96 x 841.92 pts (A4)"
    std::vector<std::string> texts;     // of each page
    std::vector<std::string> barcodes;  // that a scanner reads on all pages, in no order
  };
  Print PrintToPdf(const std::string& page, bool scan = false);

 private:
  std::string Run(const std::string& command) const;
  std::string RunChromium(const std::string& arguments) const;
  std::filesystem::path Write(const std::string& name, const std::string& text) const;

  const TemporaryFolder folder_;
};

}  // namespace kodra::tests
