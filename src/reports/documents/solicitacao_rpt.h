// Requests for original documents: the slip that goes with what leaves the archive, and the list of what is out.
#pragma once

#include "frame/report_class.h"

namespace kodra::reports {

// Where an original stands, as the slip says it: "fileira 1, estante 2, prateleira 3" without the parts that are empty.
std::wstring PlaceText(std::wstring_view row, std::wstring_view bookcase, std::wstring_view shelf);

// A document's line on the slip: its code, its module and, in parentheses, its place unless that is empty.
std::wstring DocumentLine(std::wstring_view document, std::wstring_view module, std::wstring_view place);

class CSolicitacaoRpt : public frame::ReportClass {
 public:
  explicit CSolicitacaoRpt(platform::Surroundings& surroundings) : ReportClass(L"CSolicitacaoRpt", surroundings) {}

  // Reads CodSolicit: one request code or several with commas between them. One row a document, made in memory, with
  // the operator, the return sentence and the remark of the request that the database gives first.
  frame::ReportRows RelatorioRetiradaOriginal(AutomationObject* obj);
  // Reads ListarJaDevolvidos: false leaves out what has come back.
  frame::ReportRows RelatorioDevolucaoOriginal(AutomationObject* obj);

 private:
  struct Slip;
  Slip ReadDocuments(const std::wstring& requests, AutomationObject& conversions) const;
  frame::ReportRows FillSlip(const std::wstring& requests, const Slip& slip) const;
};

}  // namespace kodra::reports
