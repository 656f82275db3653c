// The types of storage module with their limits of documents and sheets.
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CTipo_CaixaRpt : public CatalogReport {
 public:
  explicit CTipo_CaixaRpt(platform::Surroundings& surroundings) : CatalogReport(L"CTipo_CaixaRpt", surroundings) {}

  frame::ReportRows RelatorioTiposModulo(AutomationObject* obj);
};

}  // namespace kodra::reports
