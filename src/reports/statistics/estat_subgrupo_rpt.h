// Production by subgroup: the documents stored in a period.
#pragma once

#include "frame/report_class.h"

namespace kodra::reports {

class CEstatSubgrupoRpt : public frame::ReportClass {
 public:
  explicit CEstatSubgrupoRpt(platform::Surroundings& surroundings) : ReportClass(L"CEstatSubgrupoRpt", surroundings) {}

  // Reads DataInicial, DataFinal and TipoRpt: "F" gives front pages, "P" front and back pages, anything else the
  // document code. The title has the installation's own name for a subgroup.
  frame::ReportRows RelatorioEstatisticas(AutomationObject* obj);
};

}  // namespace kodra::reports
