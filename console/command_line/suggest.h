// Names as people type them: without regard to letter case and accents, and with the nearest right one for a wrong one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::console {

// The text in lower case and without accents; what is no Latin letter stays as it is. UTF-8 in, UTF-8 out.
std::string Folded(std::string_view text);

// The candidate with the fewest letters to put in, take out, replace or swap, the first of equals; nothing when even
// that one is hardly alike.
std::optional<std::string> Nearest(std::string_view wrong, const std::vector<std::string>& candidates);

// The end of a message about a wrong name: ` (quis dizer "lista"?)`, or nothing without a near candidate.
std::string DidYouMean(std::string_view wrong, const std::vector<std::string>& candidates);

}  // namespace kodra::console
