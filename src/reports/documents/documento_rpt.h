// The listings of the archive's documents, by storage period and department.
#pragma once

#include "frame/report_class.h"

namespace kodra::reports {

class CDocumentoRpt : public frame::ReportClass {
 public:
  explicit CDocumentoRpt(platform::Surroundings& surroundings) : ReportClass(L"CDocumentoRpt", surroundings) {}

  // Each reads DataArmazenamento2 (a date other than zero switches the period on, from DataArmazenamento1) and CodDepto
  // (a text other than empty switches the department on).

  // One line a document, also of those not classified yet.
  frame::ReportRows RelatorioSintetico(AutomationObject* obj);
  // Classified documents with their taxonomy, index keys and operator.
  frame::ReportRows RelatorioAnalitico(AutomationObject* obj);
  // Documents registered as inventory entries (extension "#INV"), with the captions of their series' keys.
  frame::ReportRows RelatorioInventarios(AutomationObject* obj);

 private:
  struct Listing;
  frame::ReportRows List(std::wstring_view method, AutomationObject* obj, const Listing& listing);
};

}  // namespace kodra::reports
