#include "console/formats/html/page_style.h"

#include <fmt/format.h>

#include "console/formats/cell_text.h"
#include "console/formats/html/html.h"

namespace kodra::console::html {

std::string SheetStyle(bool landscape, std::wstring_view title, std::wstring_view issued) {
  const std::string foot = "font:7.5pt Arial,'Liberation Sans',Helvetica,sans-serif;color:#47525c";
  const std::wstring left = std::wstring(title) + (issued.empty() ? L"" : L" · emitido em " + std::wstring(issued));
  return fmt::format(
      "@page{{size:A4 {0};margin:14mm 12mm 16mm;"
      "@bottom-left{{content:{1};{2}}}"
      "@bottom-right{{content:\"Página \" counter(page) \" de \" counter(pages);{2}}}}}"
      "h1{{margin:0 0 1mm;font-size:14pt;color:#1f4e5f}}"
      "p{{margin:0 0 1mm}}"
      "@media screen{{body{{background:#d8dce0}}"
      "main{{max-width:{3}mm;margin:6mm auto;padding:14mm 12mm;background:#fff;box-shadow:0 1px 4px #0005}}}}",
      landscape ? "landscape" : "portrait", StyleText(left), foot, landscape ? 297 : 210);
}

std::string ParametersHtml(const Heading& heading) {
  std::string html;
  for (const auto& [name, value] : heading.parameters) {
    if (value.empty()) continue;
    html += fmt::format("{}{}: {}", html.empty() ? "" : " · ", Escaped(name), Escaped(value));
  }
  return html.empty() ? html : "<p class=\"detalhe\">" + html + "</p>";
}

std::wstring RowCountText(std::uint64_t rows) {
  if (rows == 0) return L"Nenhum registro";
  return CountText(rows) + (rows == 1 ? L" registro" : L" registros");
}

}  // namespace kodra::console::html
