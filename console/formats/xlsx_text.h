// Texts as the parts of a spreadsheet contain them, in UTF-8, without the escapes of XML.
#pragma once

#include <string>
#include <string_view>

namespace kodra::console {

// The text of a cell. A character that XML cannot contain is written as "_xHHHH_", and so is the "_" at the beginning
// of such a form in the text itself. This includes the carriage return, which XML turns into a line feed.
std::string CellText(std::wstring_view text);

// A text of the file's properties. They know no such form: a character that XML cannot contain becomes a blank.
std::string PropertyText(std::wstring text);

// A text in the head or foot of a printed page. There "&" begins a command unless it is doubled.
std::string PageText(std::wstring_view text);

}  // namespace kodra::console
