// What a PDF file contains, as the tools of Poppler read it.
#pragma once

#include <array>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace kodra::tests {

// What a command prints about a file; `-` as its second argument is its standard output.
inline std::string AnswerOf(const std::string& tool, const std::filesystem::path& pdf) {
  const std::string command = tool + " '" + pdf.string() + "'" + (tool.starts_with("pdftotext") ? " -" : "");
  FILE* const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("cannot run " + command);
  std::string answer;
  std::array<char, 4096> buffer;
  while (const std::size_t size = fread(buffer.data(), 1, buffer.size(), pipe)) answer.append(buffer.data(), size);
  if (pclose(pipe) != 0) throw std::runtime_error(command + " failed");
  return answer;
}

// The texts of a page in the order in which they are read, in lines.
inline std::string TextOfPdf(const std::filesystem::path& pdf) { return AnswerOf("pdftotext -layout", pdf); }

}  // namespace kodra::tests
