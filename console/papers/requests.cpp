// The papers about requests for originals: the slip for those that leave the archive, and the list of those that are
// out.
#include <map>

#include "console/formats/pages/report_words.h"
#include "console/papers/papers.h"
#include "values/dates.h"
#include "values/format_date.h"

namespace kodra::console::papers {
namespace {

using pages::PageHead;
using pages::Printout;
using pages::RowStyle;
using pages::TableRow;

// A document and its place, without the mark of a list before it.
std::wstring DocumentText(const RowReader& row) {
  std::wstring text = row.Text("DOCUMENTOS");
  return text.starts_with(L"* ") ? text.substr(2) : text;
}

void PrintCopy(const Source& source, const ReportTable& slip, const std::wstring& copy, Printout& printout) {
  const RowReader first = slip.Row(0);
  const bool isOne = source.subject.find(L',') == source.subject.npos;
  PageHead head = {.title = L"Comprovante de retirada de originais", .lines = {copy}};
  head.facts = {{isOne ? L"Solicitação" : L"Solicitações", source.subject},
                {L"Retirado por", first.Text("OPERADOR")},
                {L"Emitido em", values::FormatDate(source.today, L"dd/mm/yyyy")}};
  printout.Head(head);
  printout.OpenTable({{slip.rows.size() == 1 ? L"Documento" : L"Documentos"}});
  for (std::size_t i = 0; i < slip.rows.size(); ++i) printout.Row({.cells = {{DocumentText(slip.Row(i))}}});
  printout.CloseTable();
  if (const std::wstring sentence = first.Text("DEVOLUCAO"); !sentence.empty()) printout.Paragraph(sentence);
  if (const std::wstring remark = first.Text("OBS_SOLICIT"); remark != L"-")
    printout.Paragraph(L"Observação: " + remark);
  if (!isOne) printout.Note({L"Nota", L"quem retirou, a devolução e a observação são os de uma das solicitações."});
  printout.Signatures({L"Entregue por", L"Recebido por", L"Devolvido em"});
}

// What a request's mode of return means for the list of originals.
enum class State { kOverdue, kOut, kReturned };

// The heading above the requests in a state, in the order of the list.
struct NamedState {
  State state;
  const wchar_t* name;
};
constexpr NamedState kStates[] = {
    {State::kOverdue, L"Vencidos"},
    {State::kOut, L"Fora do arquivo"},
    {State::kReturned, L"Devolvidos"},
};

State StateOf(const RowReader& row, Date today) {
  const std::wstring mode = row.Text("DEVOLVIDO");
  if (mode == L"S") return State::kReturned;
  const std::optional<Date> due = values::ParseDate(row.Text("DT_DEVOLUCAO"));
  return mode == L"D" && due && due->days < today.days ? State::kOverdue : State::kOut;
}

std::wstring ReturnText(const RowReader& row, State state) {
  const std::wstring mode = row.Text("DEVOLVIDO"), date = row.Text("DT_DEVOLUCAO");
  if (state == State::kOverdue) return L"VENCIDO em " + date;
  if (state == State::kReturned) return date.empty() ? L"devolvido" : L"devolvido em " + date;
  if (mode == L"P") return L"retirado permanentemente";
  if (mode == L"I") return L"sem data para voltar";
  return date.empty() ? mode : L"até " + date;
}

}  // namespace

void PrintWithdrawalSlip(const Source& source, Printout& printout) {
  // Without documents the report raises an error: there is at least one row.
  const ReportTable slip = source.read(L"CSolicitacaoRpt", L"RelatorioRetiradaOriginal");
  printout.Begin(L"Comprovante de retirada de originais", false);
  PrintCopy(source, slip, L"1ª via: fica no arquivo", printout);
  printout.NextCopy();
  PrintCopy(source, slip, L"2ª via: acompanha os originais", printout);
  printout.End();
}

void PrintOriginals(const Source& source, Printout& printout) {
  const ReportTable list = source.read(L"CSolicitacaoRpt", L"RelatorioDevolucaoOriginal");
  std::map<State, std::vector<TableRow>> rows;
  for (std::size_t i = 0; i < list.rows.size(); ++i) {
    const RowReader row = list.Row(i);
    const State state = StateOf(row, source.today);
    rows[state].push_back({.cells = {{row.Text("COD_DOCTO"), false, true},
                                     {row.Text("DESCR_OPERADOR")},
                                     {row.Text("DT_RETIRADA"), false, true},
                                     {ReturnText(row, state)}}});
  }
  const std::wstring title =
      rows.contains(State::kReturned) ? L"Originais retirados e devolvidos" : L"Originais retirados";
  printout.Begin(title, false);
  printout.Head({.title = title, .lines = {L"Situação em " + values::FormatDate(source.today, L"dd/mm/yyyy")}});
  printout.OpenTable({{L"Documento"}, {L"Retirado por"}, {L"Retirada"}, {L"Devolução"}});
  for (const auto& [state, name] : kStates) {
    const std::vector<TableRow>& those = rows[state];
    if (those.empty()) continue;
    printout.Row({.cells = {{std::wstring(name) + L" (" + CountText(those.size()) + L")"}}, .style = RowStyle::kBlock});
    for (const TableRow& row : those) printout.Row(row);
  }
  printout.Row({.cells = {{pages::RowCountText(list.rows.size())}}, .style = RowStyle::kTotal});
  printout.CloseTable();
  printout.End();
}

}  // namespace kodra::console::papers
