// The controlled terms of each series' index keys.
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CDicionarioRpt : public CatalogReport {
 public:
  explicit CDicionarioRpt(platform::Surroundings& surroundings) : CatalogReport(L"CDicionarioRpt", surroundings) {}

  frame::ReportRows RelatorioTermosControlados(AutomationObject* obj);
};

}  // namespace kodra::reports
