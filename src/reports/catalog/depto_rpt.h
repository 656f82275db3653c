// The departments with their addresses.
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CDeptoRpt : public CatalogReport {
 public:
  explicit CDeptoRpt(platform::Surroundings& surroundings) : CatalogReport(L"CDeptoRpt", surroundings) {}

  frame::ReportRows RelatorioDeptos(AutomationObject* obj);
};

}  // namespace kodra::reports
