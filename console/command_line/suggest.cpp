#include "console/command_line/suggest.h"

#include <algorithm>
#include <numeric>

#include "values/upper.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

struct AccentedLetters {
  std::wstring_view accented;
  wchar_t plain;
};
constexpr AccentedLetters kAccentedLetters[] = {
    {L"ÁÀÂÃÄ", L'A'}, {L"Ç", L'C'}, {L"ÉÈÊË", L'E'}, {L"ÍÌÎÏ", L'I'}, {L"Ñ", L'N'}, {L"ÓÒÔÕÖ", L'O'}, {L"ÚÙÛÜ", L'U'},
};

wchar_t WithoutAccent(wchar_t upper) {
  for (const auto& [accented, plain] : kAccentedLetters)
    if (accented.find(upper) != accented.npos) return plain;
  return upper;
}

// The number of edits between two texts; a swap of neighbours is one edit (optimal string alignment).
std::size_t Distance(std::string_view one, std::string_view other) {
  std::vector<std::size_t> beforeLast(other.size() + 1);
  std::vector<std::size_t> last(other.size() + 1);
  std::vector<std::size_t> current(other.size() + 1);
  std::iota(last.begin(), last.end(), 0U);
  for (std::size_t i = 1; i <= one.size(); ++i) {
    current[0] = i;
    for (std::size_t j = 1; j <= other.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (one[i - 1] == other[j - 1] ? 0 : 1);
      current[j] = std::min({last[j] + 1, current[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1])
        current[j] = std::min(current[j], beforeLast[j - 2] + 1);
    }
    beforeLast.swap(last);
    last.swap(current);
  }
  return last[other.size()];
}

}  // namespace

std::string Folded(std::string_view text) {
  std::wstring wide = values::FromUtf8(text);
  for (wchar_t& character : wide) {
    character = WithoutAccent(values::UpperCase(character));
    if (character >= L'A' && character <= L'Z') character = static_cast<wchar_t>(character - L'A' + L'a');
  }
  return values::ToUtf8(wide);
}

std::optional<std::string> Nearest(std::string_view wrong, const std::vector<std::string>& candidates) {
  const std::string folded = Folded(wrong);
  const std::size_t maximum = std::max<std::size_t>(2, folded.size() / 3);
  const std::string* nearest = nullptr;
  std::size_t least = maximum + 1;
  for (const std::string& candidate : candidates) {
    const std::size_t distance = Distance(folded, Folded(candidate));
    if (distance >= least) continue;
    least = distance;
    nearest = &candidate;
  }
  return nearest == nullptr ? std::nullopt : std::optional(*nearest);
}

std::string DidYouMean(std::string_view wrong, const std::vector<std::string>& candidates) {
  const std::optional<std::string> nearest = Nearest(wrong, candidates);
  return nearest ? " (quis dizer \"" + *nearest + "\"?)" : "";
}

}  // namespace kodra::console
