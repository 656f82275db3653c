#include "console/formats/pages/number_text.h"

#include "values/numbers.h"

namespace kodra::console::pages {

std::wstring WithThousands(std::wstring text) {
  if (text.find(L'E') != text.npos) return text;
  const std::size_t sign = text.starts_with(L'-') ? 1 : 0;
  for (std::size_t at = std::min(text.find(L','), text.size()); at > sign + 3;) text.insert(at -= 3, 1, L'.');
  return text;
}

std::wstring NumberForPeople(double number) { return WithThousands(values::NumberToText(number)); }

}  // namespace kodra::console::pages
