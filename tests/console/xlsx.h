// Reads the parts of a spreadsheet file.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace kodra::console {

// A file inside the spreadsheet, such as xl/worksheets/sheet1.xml.
inline std::string PartOf(const std::filesystem::path& spreadsheet, const std::string& name) {
  const std::string command = "unzip -p '" + spreadsheet.string() + "' '" + name + "'";
  std::string text;
  std::FILE* const pipe = popen(command.c_str(), "r");
  for (char buffer[4096]; const std::size_t read = std::fread(buffer, 1, sizeof buffer, pipe);)
    text.append(buffer, read);
  EXPECT_EQ(pclose(pipe), 0);
  return text;
}

}  // namespace kodra::console
