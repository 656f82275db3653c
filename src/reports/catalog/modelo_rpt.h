// The document models: what a series' index keys are filled with in advance, and until when.
#pragma once

#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

class CModeloRpt : public CatalogReport {
 public:
  explicit CModeloRpt(platform::Surroundings& surroundings) : CatalogReport(L"CModeloRpt", surroundings) {}

  // Reads CodModelo: empty lists every model, else the one with that code, in any letter case. The code travels as a
  // parameter of the command, at most 128 characters long. The rows stand at the client and survive their connection.
  frame::ReportRows RelatorioModelos(AutomationObject* obj);
};

}  // namespace kodra::reports
