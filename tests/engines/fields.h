// Lines of fields separated by tabs, which are sent to the Java runner and returned by it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kodra::engines {

inline std::string Escaped(std::string_view text) {
  std::string field;
  for (const char c : text) {
    switch (c) {
      case '\\':
        field += "\\\\";
        break;
      case '\t':
        field += "\\t";
        break;
      case '\n':
        field += "\\n";
        break;
      case '\r':
        field += "\\r";
        break;
      default:
        field += c;
    }
  }
  return field;
}

// The fields of a line, unchanged.
inline std::vector<std::string> Fields(std::string_view line) {
  std::vector<std::string> fields;
  for (std::size_t tab = line.find('\t'); tab != std::string_view::npos; tab = line.find('\t')) {
    fields.emplace_back(line.substr(0, tab));
    line.remove_prefix(tab + 1);
  }
  fields.emplace_back(line);
  return fields;
}

}  // namespace kodra::engines
