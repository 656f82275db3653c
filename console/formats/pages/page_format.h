// The formats of pages to print.
#pragma once

#include <string>

namespace kodra::console::pages {

enum class PageFormat { kPdf, kHtml };

// The format that the user named, in any letter case. Raises UsageError for another name.
PageFormat PageFormatNamed(const std::string& name);

}  // namespace kodra::console::pages
