// Requests for original documents: the slip for the originals that leave the archive, and the list of those that are
// out.
#include <vector>

#include "frame/parameter_reader.h"
#include "reports/documents/slip_text.h"
#include "reports/output_dataset.h"
#include "reports/reports.h"
#include "values/format_date.h"

namespace kodra::reports {
namespace {

// What the documents of a slip have in common, and a line for each of them.
struct Slip {
  std::wstring returnDate;  // of the last document read
  std::vector<std::wstring> lines;
};

Slip ReadDocuments(const Call& call, const std::wstring& requests, AutomationObject& conversions) {
  const frame::ReportRows rows = call.Open(
      L"SELECT d.COD_DOCTO, d.NUM_CAIXA, s.DT_DEVOLUCAO, "
      L"c.COORD_X AS FILEIRA, c.COORD_Y AS ESTANTE, c.COORD_Z AS PRATELEIRA "
      L"FROM SOLICITACAO s "
      L"INNER JOIN DOCUMENTO d ON s.COD_DOCTO = d.COD_DOCTO "
      L"INNER JOIN CAIXA c ON d.NUM_CAIXA = c.NUM_CAIXA "
      L"WHERE s.COD_SOLICIT IN (" +
      requests +
      L") "
      L"ORDER BY d.NUM_CAIXA");
  SourceField date(*rows, L"DT_DEVOLUCAO");
  SourceField document(*rows, L"COD_DOCTO");
  SourceField module(*rows, L"NUM_CAIXA");
  SourceField row(*rows, L"FILEIRA");
  SourceField bookcase(*rows, L"ESTANTE");
  SourceField shelf(*rows, L"PRATELEIRA");
  Slip slip;
  for (; !rows->Eof(); rows->MoveNext()) {
    const Value dateText = date.Text();
    slip.returnDate = values::FormatDate(values::ToDate(conversions.Call(L"ToDate", {&dateText, 1})), L"dd/mm/yyyy");
    // Read one after the other: the compiler chooses the order in which a call's arguments are evaluated.
    const std::wstring documentCode = document.Text();
    const std::wstring moduleCode = module.Text();
    const std::wstring inRow = row.Text();
    const std::wstring inBookcase = bookcase.Text();
    const std::wstring onShelf = shelf.Text();
    slip.lines.push_back(DocumentLine(documentCode, moduleCode, PlaceText(inRow, inBookcase, onShelf)));
  }
  rows->Close();
  // A request without documents has no slip: its list was never made.
  if (slip.lines.empty()) throw MakeRuntimeError(RuntimeError::kObjectNotSet);
  return slip;
}

// The return sentence by the mode of the request, for one document or several.
std::wstring ReturnSentences(const Slip& slip) {
  if (slip.lines.size() >= 2)
    return L"WHEN 'P' THEN 'Os documentos serão retirados permanentemente.' "
           L"WHEN 'I' THEN 'As devoluções não têm data determinada para ocorrer.' "
           L"WHEN 'D' THEN 'As devoluções destes documentos deverão ser realizadas em " +
           slip.returnDate + L".' ";
  return L"WHEN 'P' THEN 'O documento será retirado permanentemente.' "
         L"WHEN 'I' THEN 'A devolução não tem data determinada para ocorrer.' "
         L"WHEN 'D' THEN 'A devolução deste documento deverá ser realizada em " +
         slip.returnDate + L".' ";
}

frame::ReportRows FillSlip(const Call& call, const std::wstring& requests, const Slip& slip) {
  const frame::ReportRows rows = call.Open(
      L"SELECT DISTINCT "
      L"CASE "
      L"WHEN o.NOME_COMPLETO IS NULL OR o.NOME_COMPLETO='' THEN o.DESCR_OPERADOR "
      L"ELSE o.NOME_COMPLETO "
      L"END AS OPERADOR, "
      L"CASE s.DEVOLVIDO " +
      ReturnSentences(slip) +
      L"END AS DEVOLUCAO, "
      L"s.OBS_SOLICIT "
      L"FROM SOLICITACAO s "
      L"INNER JOIN OPERADOR o ON s.COD_OPERADOR = o.COD_OPERADOR "
      L"WHERE s.COD_SOLICIT IN (" +
      requests + L")");
  SourceField operador(*rows, L"OPERADOR");
  SourceField devolucao(*rows, L"DEVOLUCAO");
  SourceField remark(*rows, L"OBS_SOLICIT");
  OutputDataset output(call.Around());
  output.AppendText(L"OPERADOR", 1000);
  output.AppendText(L"DOCUMENTOS", 4000);
  output.AppendText(L"DEVOLUCAO", 1000);
  output.AppendText(L"OBS_SOLICIT", 4000);
  output.Open();
  for (const std::wstring& line : slip.lines) {
    output.AddNew();
    output.Let(L"OPERADOR", operador.Text());
    output.Let(L"DOCUMENTOS", line);
    output.Let(L"DEVOLUCAO", devolucao.Text());
    const std::wstring text = remark.Text();
    output.Let(L"OBS_SOLICIT", text.empty() ? L"-" : text);
    output.Update();
  }
  rows->Close();
  return output.Release();
}

}  // namespace

std::wstring PlaceText(std::wstring_view row, std::wstring_view bookcase, std::wstring_view shelf) {
  std::wstring place;
  const auto append = [&](std::wstring_view what, std::wstring_view value) {
    if (!value.empty()) place.append(what).append(value).append(L", ");
  };
  append(L"fileira ", row);
  append(L"estante ", bookcase);
  append(L"prateleira ", shelf);
  if (!place.empty()) place.resize(place.size() - 2);
  return place;
}

std::wstring DocumentLine(std::wstring_view document, std::wstring_view module, std::wstring_view place) {
  std::wstring line = L"* ";
  line.append(document).append(L", no módulo de guarda ").append(module);
  if (!place.empty()) line.append(L" (").append(place).append(L")");
  return line;
}

// Reads CodSolicit: one request code or several separated by commas. One row per document, made in memory, with the
// operator, the return sentence and the remark of the request that the database returns first.
frame::ReportRows CSolicitacaoRpt::RelatorioRetiradaOriginal(Call& call) {
  call.InicializaPS();
  const ObjectRef conversions = call.Around().CreateObject(L"VantLib.Conversoes");
  const std::wstring requests = frame::ReadText(call.Parameters(), L"CodSolicit");
  return FillSlip(call, requests, ReadDocuments(call, requests, *conversions));
}

// Reads ListarJaDevolvidos: false leaves out what has been returned.
frame::ReportRows CSolicitacaoRpt::RelatorioDevolucaoOriginal(Call& call) {
  call.InicializaPS();
  const bool returnedToo = frame::ReadFlag(call.Parameters(), L"ListarJaDevolvidos");
  std::wstring statement = returnedToo ? L"SELECT 'Listagem De Originais Retirados E Originais Devolvidos' AS TITULO, "
                                       : L"SELECT 'Listagem De Originais Retirados' AS TITULO, ";
  statement +=
      L"s.COD_DOCTO, "
      L"CASE "
      L"WHEN o.NOME_COMPLETO IS NULL OR o.NOME_COMPLETO='' THEN o.DESCR_OPERADOR "
      L"ELSE o.NOME_COMPLETO "
      L"END AS DESCR_OPERADOR, " +
      call.Sql().ToChar(L"s.DT_RETIRADA", L"DD/MM/YYYY") +
      L" AS DT_RETIRADA, "
      L"s.DEVOLVIDO, " +
      call.Sql().ToChar(L"s.DT_DEVOLUCAO", L"DD/MM/YYYY") +
      L" AS DT_DEVOLUCAO "
      L"FROM SOLICITACAO s "
      L"INNER JOIN OPERADOR o ON s.COD_OPERADOR = o.COD_OPERADOR";
  if (!returnedToo) statement += L" WHERE s.DEVOLVIDO <> 'S'";
  return call.Open(statement);
}

}  // namespace kodra::reports
