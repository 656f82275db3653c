#include "console/formats/pages/report_words.h"

#include <algorithm>

#include "console/formats/cell_text.h"
#include "values/upper.h"
#include "values/utf8.h"

namespace kodra::console::pages {
namespace {

using values::FromUtf8;

// The text of a parameter; empty if it was not given.
std::wstring GivenText(std::string_view name, const Heading& heading) {
  for (const auto& [given, text] : heading.parameters) {
    if (given == FromUtf8(name)) return text;
  }
  return {};
}

// "departamento 001"; empty for a flag that is not set.
std::wstring InWords(std::string_view words, const std::wstring& text) {
  std::wstring filter = FromUtf8(words);
  const std::size_t place = filter.find(L"{}");
  if (place == filter.npos) return text == BrazilianText(true, ColumnKind::kFlag) ? filter : std::wstring();
  return filter.replace(place, 2, text);
}

bool IsFor(std::string_view kinds, const std::wstring& kind) {
  if (kinds.empty()) return true;
  const bool isListed = !kind.empty() && FromUtf8(kinds).find(kind) != std::wstring::npos;
  return isListed != kinds.starts_with('!');
}

}  // namespace

std::wstring FilterText(const guide::Report& report, const Heading& heading) {
  std::wstring filters;
  for (const guide::Parameter& parameter : report.parameters) {
    const std::wstring text = GivenText(parameter.name, heading);
    if (text.empty() || parameter.words.empty()) continue;
    const std::wstring filter = InWords(parameter.words, text);
    if (!filter.empty()) filters += (filters.empty() ? L"" : L" · ") + filter;
  }
  return filters.empty() ? filters : values::UpperCase(filters.substr(0, 1)) + filters.substr(1);
}

std::wstring RowCountText(std::uint64_t rows) {
  if (rows == 0) return L"Nenhum registro";
  return CountText(rows) + (rows == 1 ? L" registro" : L" registros");
}

std::vector<Fact> NotesOf(const guide::Report& report, const Heading& heading) {
  std::vector<Fact> notes;
  for (const guide::Column& column : report.columns) {
    if (!column.legend.empty()) notes.push_back({FromUtf8(column.caption), FromUtf8(column.legend)});
  }
  const std::wstring kind = GivenText("TipoRpt", heading);
  for (const guide::Note& note : report.page.notes) {
    if (IsFor(note.kinds, kind)) notes.push_back({L"Nota", FromUtf8(note.text)});
  }
  return notes;
}

}  // namespace kodra::console::pages
