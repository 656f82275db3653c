// The subgroups, the middle level of the taxonomy (table GRUPO), under their groups.
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CSubgrupoRpt : public CatalogReport {
 public:
  explicit CSubgrupoRpt(platform::Surroundings& surroundings) : CatalogReport(L"CSubgrupoRpt", surroundings) {}

  frame::ReportRows RelatorioSubgrupos(AutomationObject* obj);
};

}  // namespace kodra::reports
