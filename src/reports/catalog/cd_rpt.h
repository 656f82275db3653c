// The media that hold digital copies (table CD): all of them, or those whose validity has run out.
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CCDRpt : public CatalogReport {
 public:
  explicit CCDRpt(platform::Surroundings& surroundings) : CatalogReport(L"CCDRpt", surroundings) {}

  // Reads TipoRpt: "V" lists the media recorded longer ago than their type's validity in years, anything else all.
  frame::ReportRows RelatorioMidias(AutomationObject* obj);
};

}  // namespace kodra::reports
