// The depositories where containers stand, with their addresses.
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CDepositoRpt : public CatalogReport {
 public:
  explicit CDepositoRpt(platform::Surroundings& surroundings) : CatalogReport(L"CDepositoRpt", surroundings) {}

  frame::ReportRows RelatorioDepositos(AutomationObject* obj);
};

}  // namespace kodra::reports
