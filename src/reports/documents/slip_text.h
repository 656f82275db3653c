// The words of the slip that goes with originals when they leave the archive.
#pragma once

#include <string>
#include <string_view>

namespace kodra::reports {

// The place of an original: "fileira 1, estante 2, prateleira 3" without the parts that are empty.
std::wstring PlaceText(std::wstring_view row, std::wstring_view bookcase, std::wstring_view shelf);

// A document's line on the slip: its code, its module and, in parentheses, its place unless that is empty.
std::wstring DocumentLine(std::wstring_view document, std::wstring_view module, std::wstring_view place);

}  // namespace kodra::reports
