#include "reports/modules/module_code.h"

#include <algorithm>

#include "values/numbers.h"

namespace kodra::reports {

std::wstring MainModule(std::wstring_view code) { return std::wstring(code.substr(0, kModuleCodeSize)); }

std::wstring SubordinateNumber(std::wstring_view code) {
  constexpr std::size_t kDigits = 2;
  return values::NumberToText(values::LeadingNumber(code.substr(code.size() - std::min(code.size(), kDigits))));
}

bool NamesMainModule(std::wstring_view code) { return code.size() == kModuleCodeSize; }

}  // namespace kodra::reports
