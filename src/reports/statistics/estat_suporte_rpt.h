// Production by support: the documents stored in a period.
#pragma once

#include "frame/report_class.h"

namespace kodra::reports {

class CEstatSuporteRpt : public frame::ReportClass {
 public:
  explicit CEstatSuporteRpt(platform::Surroundings& surroundings) : ReportClass(L"CEstatSuporteRpt", surroundings) {}

  // Reads DataInicial, DataFinal and TipoRpt: "F" gives front pages with a back count of 0, "P" front and back pages,
  // anything else neither.
  frame::ReportRows RelatorioEstatisticas(AutomationObject* obj);
};

}  // namespace kodra::reports
