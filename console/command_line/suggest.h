// Names as people type them: letter case and accents do not matter, and a wrong name brings a suggestion.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::console {

// The text in lower case and without accents; only Latin letters change. UTF-8 in, UTF-8 out.
std::string Folded(std::string_view text);

// The candidate with the fewest letters to insert, delete, replace or swap; of several, the first. Nothing if even that
// one takes more than two edits and more than a third of the letters.
std::optional<std::string> Nearest(std::string_view wrong, const std::vector<std::string>& candidates);

// The end of a message about a wrong name: ` (quis dizer "lista"?)`, or nothing if no candidate is near.
std::string DidYouMean(std::string_view wrong, const std::vector<std::string>& candidates);

}  // namespace kodra::console
