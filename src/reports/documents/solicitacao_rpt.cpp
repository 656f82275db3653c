#include "reports/documents/solicitacao_rpt.h"

#include <vector>

#include "frame/parameter_reader.h"
#include "reports/output_dataset.h"
#include "sql/tradutor_sql.h"
#include "values/format_date.h"

namespace kodra::reports {
namespace {

// Room for a statement with some requests.
using Statement = values::LocalText<800>;

Statement DocumentsStatement(const std::wstring& requests) {
  return Statement(
      L"SELECT d.COD_DOCTO, d.NUM_CAIXA, s.DT_DEVOLUCAO, "
      L"c.COORD_X AS FILEIRA, c.COORD_Y AS ESTANTE, c.COORD_Z AS PRATELEIRA "
      L"FROM SOLICITACAO s "
      L"INNER JOIN DOCUMENTO d ON s.COD_DOCTO = d.COD_DOCTO "
      L"INNER JOIN CAIXA c ON d.NUM_CAIXA = c.NUM_CAIXA "
      L"WHERE s.COD_SOLICIT IN (",
      requests,
      L") "
      L"ORDER BY d.NUM_CAIXA");
}

// The return sentence by the mode of the request, for one document or several.
auto ReturnSentences(bool several, std::wstring_view date) {
  return values::Written([several, date](values::Writer& out) {
    if (several)
      out.Append(
          L"WHEN 'P' THEN 'Os documentos serão retirados permanentemente.' "
          L"WHEN 'I' THEN 'As devoluções não têm data determinada para ocorrer.' "
          L"WHEN 'D' THEN 'As devoluções destes documentos deverão ser realizadas em ",
          date, L".' ");
    else
      out.Append(
          L"WHEN 'P' THEN 'O documento será retirado permanentemente.' "
          L"WHEN 'I' THEN 'A devolução não tem data determinada para ocorrer.' "
          L"WHEN 'D' THEN 'A devolução deste documento deverá ser realizada em ",
          date, L".' ");
  });
}

Statement RequestStatement(const std::wstring& requests, const values::Fragment auto& sentences) {
  return Statement(
      L"SELECT DISTINCT "
      L"CASE "
      L"WHEN o.NOME_COMPLETO IS NULL OR o.NOME_COMPLETO='' THEN o.DESCR_OPERADOR "
      L"ELSE o.NOME_COMPLETO "
      L"END AS OPERADOR, "
      L"CASE s.DEVOLVIDO ",
      sentences,
      L"END AS DEVOLUCAO, "
      L"s.OBS_SOLICIT "
      L"FROM SOLICITACAO s "
      L"INNER JOIN OPERADOR o ON s.COD_OPERADOR = o.COD_OPERADOR "
      L"WHERE s.COD_SOLICIT IN (",
      requests, L")");
}

}  // namespace

// What the documents of a slip have in common and one by one.
struct CSolicitacaoRpt::Slip {
  std::wstring returnDate;  // of the last document read
  std::vector<std::wstring> lines;
};

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

frame::ReportRows CSolicitacaoRpt::RelatorioRetiradaOriginal(AutomationObject* obj) {
  return Report(L"RelatorioRetiradaOriginal", [&] {
    InicializaPS(obj);
    const ObjectRef conversions = Around().CreateObject(L"VantLib.Conversoes");
    const std::wstring requests = frame::ReadText(*obj, L"CodSolicit");
    return FillSlip(requests, ReadDocuments(requests, *conversions));
  });
}

CSolicitacaoRpt::Slip CSolicitacaoRpt::ReadDocuments(const std::wstring& requests,
                                                     AutomationObject& conversions) const {
  const frame::ReportRows rows = Open(DocumentsStatement(requests));
  SourceField date(*rows, L"DT_DEVOLUCAO");
  SourceField document(*rows, L"COD_DOCTO");
  SourceField module(*rows, L"NUM_CAIXA");
  SourceField row(*rows, L"FILEIRA");
  SourceField bookcase(*rows, L"ESTANTE");
  SourceField shelf(*rows, L"PRATELEIRA");
  Slip slip;
  for (; !rows->Eof(); rows->MoveNext()) {
    const Value dateText = date.Text();
    slip.returnDate = values::FormatDate<L"dd/mm/yyyy">(values::ToDate(conversions.Call(L"ToDate", {&dateText, 1})));
    // Read one after the other: the order of a call's arguments is the compiler's.
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

frame::ReportRows CSolicitacaoRpt::FillSlip(const std::wstring& requests, const Slip& slip) const {
  const auto sentences = ReturnSentences(slip.lines.size() >= 2, slip.returnDate);
  const frame::ReportRows rows = Open(RequestStatement(requests, sentences));
  SourceField operador(*rows, L"OPERADOR");
  SourceField devolucao(*rows, L"DEVOLUCAO");
  SourceField remark(*rows, L"OBS_SOLICIT");
  OutputDataset output(Around());
  output.AppendText(L"OPERADOR", 1000);
  output.AppendText(L"DOCUMENTOS", 4000);
  output.AppendText(L"DEVOLUCAO", 1000);
  output.AppendText(L"OBS_SOLICIT", 4000);
  output.Open();
  for (const std::wstring& line : slip.lines) {
    output.AddNew();
    output[0].Let(operador.Text());
    output[1].Let(line);
    output[2].Let(devolucao.Text());
    const std::wstring text = remark.Text();
    output[3].Let(text.empty() ? L"-" : text);
    output.Update();
  }
  rows->Close();
  return output.Release();
}

frame::ReportRows CSolicitacaoRpt::RelatorioDevolucaoOriginal(AutomationObject* obj) {
  return Report(L"RelatorioDevolucaoOriginal", [&] {
    InicializaPS(obj);
    data::SelectBuilder builder = NewBuilder();
    const bool returnedToo = frame::ReadFlag(*obj, L"ListarJaDevolvidos");
    if (returnedToo)
      builder.SetColumns(L"'Listagem De Originais Retirados E Originais Devolvidos' AS TITULO, ");
    else
      builder.SetColumns(L"'Listagem De Originais Retirados' AS TITULO, ");
    builder.AddToColumns(
        L"s.COD_DOCTO, "
        L"CASE "
        L"WHEN o.NOME_COMPLETO IS NULL OR o.NOME_COMPLETO='' THEN o.DESCR_OPERADOR "
        L"ELSE o.NOME_COMPLETO "
        L"END AS DESCR_OPERADOR, ",
        sql::SQLToChar(L"s.DT_RETIRADA", L"DD/MM/YYYY"),
        L" AS DT_RETIRADA, "
        L"s.DEVOLVIDO, ",
        sql::SQLToChar(L"s.DT_DEVOLUCAO", L"DD/MM/YYYY"), L" AS DT_DEVOLUCAO");
    builder.SetFrom(L"SOLICITACAO s");
    builder.AddJoin(0, data::JoinKind::kInner, L"OPERADOR o", L"s.COD_OPERADOR = o.COD_OPERADOR");
    if (!returnedToo) builder.SetWhere(L"s.DEVOLVIDO <> 'S'");
    return Open(builder.SQL());
  });
}

}  // namespace kodra::reports
