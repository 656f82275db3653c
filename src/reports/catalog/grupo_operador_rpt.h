// The groups of operators.
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CGrupoOperadorRpt : public CatalogReport {
 public:
  explicit CGrupoOperadorRpt(platform::Surroundings& surroundings)
      : CatalogReport(L"CGrupoOperadorRpt", surroundings) {}

  frame::ReportRows RelatorioGruposOperadores(AutomationObject* obj);
};

}  // namespace kodra::reports
