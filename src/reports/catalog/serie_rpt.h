// The series (table ASSUNTO) with their group, subgroup, index keys and owner.
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CSerieRpt : public CatalogReport {
 public:
  explicit CSerieRpt(platform::Surroundings& surroundings) : CatalogReport(L"CSerieRpt", surroundings) {}

  // OBRIGATORIA1 to OBRIGATORIA5 tell whether a key must be filled: 'S' or 'N', empty for a key without description.
  // Key 1 is always mandatory.
  frame::ReportRows RelatorioSeries(AutomationObject* obj);
};

}  // namespace kodra::reports
