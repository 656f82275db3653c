// The kinds of media with their validity in years and capacity.
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CTipo_MidiaRpt : public CatalogReport {
 public:
  explicit CTipo_MidiaRpt(platform::Surroundings& surroundings) : CatalogReport(L"CTipo_MidiaRpt", surroundings) {}

  frame::ReportRows RelatorioTiposMidia(AutomationObject* obj);
};

}  // namespace kodra::reports
