#include "console/routines/file_name.h"

#include <fmt/format.h>
#include <vector>

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"

namespace kodra::console::routines {
namespace {

std::string ForFileName(std::string text) {
  for (char& letter : text) {
    constexpr std::string_view kForbidden = "/\\:*?\"<>|";
    if (static_cast<unsigned char>(letter) < 0x20 || kForbidden.find(letter) != kForbidden.npos) letter = '-';
  }
  return text;
}

}  // namespace

std::string Filled(std::string_view pattern, const std::map<std::string, std::string>& texts) {
  std::string filled;
  for (std::size_t at = 0; at < pattern.size();) {
    const std::size_t open = std::min(pattern.find_first_of("{}", at), pattern.size());
    filled += pattern.substr(at, open - at);
    if (open == pattern.size()) break;
    const std::size_t close = pattern.find('}', open);
    if (pattern[open] == '}' || close == pattern.npos)
      throw UsageError(fmt::format("\"{}\" tem uma chave sem o seu par", pattern));
    const std::string word(pattern.substr(open + 1, close - open - 1));
    const auto text = texts.find(Folded(word));
    if (text == texts.end()) {
      std::vector<std::string> known;
      known.reserve(texts.size());
      for (const auto& [name, value] : texts) known.push_back(name);
      throw UsageError(
          fmt::format("{{{}}} não existe aqui{}; há {{{}}}", word, DidYouMean(word, known), fmt::join(known, "}, {")));
    }
    filled += ForFileName(text->second);
    at = close + 1;
  }
  return filled;
}

}  // namespace kodra::console::routines
