#include "console/formats/pages/report_words.h"

#include "console/formats/cell_text.h"

namespace kodra::console::pages {

std::wstring FilterText(const Heading& heading) {
  std::wstring text;
  for (const auto& [name, value] : heading.parameters) {
    if (!value.empty()) text += (text.empty() ? L"" : L" · ") + name + L": " + value;
  }
  return text;
}

std::wstring RowCountText(std::uint64_t rows) {
  if (rows == 0) return L"Nenhum registro";
  return CountText(rows) + (rows == 1 ? L" registro" : L" registros");
}

}  // namespace kodra::console::pages
