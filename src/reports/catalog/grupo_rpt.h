// The groups, the top level of the taxonomy (table CLASSE).
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CGrupoRpt : public CatalogReport {
 public:
  explicit CGrupoRpt(platform::Surroundings& surroundings) : CatalogReport(L"CGrupoRpt", surroundings) {}

  frame::ReportRows RelatorioGrupos(AutomationObject* obj);
};

}  // namespace kodra::reports
