// The supports that documents come on (paper, film, digital).
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CSuporteRpt : public CatalogReport {
 public:
  explicit CSuporteRpt(platform::Surroundings& surroundings) : CatalogReport(L"CSuporteRpt", surroundings) {}

  frame::ReportRows RelatorioSuportes(AutomationObject* obj);
};

}  // namespace kodra::reports
