// The papers about one module: the authorisation to discard its documents, and the sheet that lies in it.
#include "console/command_line/usage_error.h"
#include "console/formats/pages/number_text.h"
#include "console/papers/papers.h"
#include "console/reports/guide.h"
#include "reports/modules/module_code.h"
#include "values/utf8.h"

namespace kodra::console::papers {
namespace {

using pages::PageHead;
using pages::Printout;
using pages::RowStyle;
using pages::TableRow;

// Codes are printed side by side.
constexpr std::size_t kCodesPerRow = 7;

// The module's place and dates, as the report on one module has them.
PageHead HeadOf(const std::wstring& title, const Source& source) {
  const ReportTable header = source.read(L"CCaixaRpt", L"DocsNoModulo");
  if (header.rows.empty())
    throw UsageError("nenhum módulo tem o código \"" + values::ToUtf8(source.subject) + "\"; confira Modulo1");
  PageHead head = {.title = title};
  for (const guide::Column& column : guide::Find(L"CCaixaRpt", L"DocsNoModulo")->columns) {
    if (column.name == "NUM_CAIXA") continue;  // in the title
    if (std::wstring text = header.Row(0).Text(column.name); !text.empty())
      head.facts.push_back({values::FromUtf8(column.caption), std::move(text)});
  }
  return head;
}

// The codes of documents that are not blank.
std::vector<std::wstring> CodesIn(const ReportTable& table) {
  std::vector<std::wstring> codes;
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    if (std::wstring code = table.Row(i).Text("COD_DOCTO"); !code.empty()) codes.push_back(std::move(code));
  }
  return codes;
}

void PrintCodes(const std::vector<std::wstring>& codes, const std::wstring& total, Printout& printout) {
  printout.OpenTable(std::vector<pages::TableColumn>(kCodesPerRow));
  printout.Row({.cells = {{L"Documentos"}}, .style = RowStyle::kBlock});
  for (std::size_t from = 0; from < codes.size(); from += kCodesPerRow) {
    TableRow row;
    for (std::size_t i = from; i < from + kCodesPerRow; ++i)
      row.cells.push_back({.text = i < codes.size() ? codes[i] : L"", .isWhole = true});
    printout.Row(row);
  }
  printout.Row({.cells = {{total}}, .style = RowStyle::kTotal});
  printout.CloseTable();
}

std::wstring Counted(const std::wstring& count, const wchar_t* one, const wchar_t* several) {
  return count + L" " + (count == L"1" ? one : several);
}

// A number of the report with points between thousands.
std::wstring NumberText(const Value& value) { return pages::NumberForPeople(NumberIn(value).value_or(0)); }

}  // namespace

void PrintDiscardAuthorisation(const Source& source, Printout& printout) {
  if (!reports::NamesMainModule(source.subject))
    throw UsageError("a autorização de descarte é de um módulo principal: Modulo1 tem 5 caracteres");
  const PageHead head = HeadOf(L"Autorização de descarte do módulo " + source.subject, source);
  const ReportTable documents = source.read(L"CCaixaRpt", L"AutorizacaoDescarteModuloSubRpt");
  const std::vector<std::wstring> codes = CodesIn(documents);
  printout.Begin(head.title, false);
  printout.Head(head);
  if (codes.empty()) {
    printout.Paragraph(L"O módulo não tem documentos.");
  } else {
    const RowReader first = documents.Row(0);
    printout.Paragraph(L"Autorizo o descarte dos documentos deste módulo, relacionados abaixo.");
    PrintCodes(codes,
               Counted(NumberText(first.Get("TOTAL_DOCS")), L"documento", L"documentos") + L", " +
                   Counted(NumberText(first.Get("TOTAL_PAGINAS")), L"página", L"páginas"),
               printout);
    printout.Signatures({L"Conferido por", L"Autorizado por", L"Data"});
  }
  printout.End();
}

void PrintModuleSheet(const Source& source, Printout& printout) {
  const PageHead head = HeadOf(L"Módulo " + source.subject, source);
  const std::vector<std::wstring> codes = CodesIn(source.read(L"CCaixaRpt", L"DocsNoModuloSubRpt"));
  printout.Begin(head.title, false);
  printout.Head(head);
  if (codes.empty())
    printout.Paragraph(L"O módulo não tem documentos.");
  else
    PrintCodes(codes, Counted(CountText(codes.size()), L"documento", L"documentos"), printout);
  if (!reports::NamesMainModule(source.subject))
    printout.Note({L"Nota", L"a relação é a dos documentos do módulo principal."});
  printout.End();
}

}  // namespace kodra::console::papers
