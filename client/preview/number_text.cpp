#include "client/preview/number_text.h"

#include "text/numbers.h"

namespace kodra::client::preview {

std::wstring NumberForPeople(double number) {
  std::wstring text = text::NumberToText(number);
  if (text.find(L'E') != text.npos) return text;
  const std::size_t sign = text.starts_with(L'-') ? 1 : 0;
  for (std::size_t at = std::min(text.find(L','), text.size()); at > sign + 3;) text.insert(at -= 3, 1, L'.');
  return text;
}

}  // namespace kodra::client::preview
