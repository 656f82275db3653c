// Imaging production: the documents stored in a period, for the layout to count and sum.
#pragma once

#include "frame/report_class.h"

namespace kodra::reports {

class CEstatImgRpt : public frame::ReportClass {
 public:
  explicit CEstatImgRpt(platform::Surroundings& surroundings) : ReportClass(L"CEstatImgRpt", surroundings) {}

  // Reads Owner, DataInicial, DataFinal, CodOperador and CodDepto (empty: all) and TipoRpt: "P" gives front and back
  // pages, "F" front pages, anything else the document code. The placeholder module AA000 and the born-digital support
  // are not production and never listed.
  frame::ReportRows RelatorioEstatisticas(AutomationObject* obj);
};

}  // namespace kodra::reports
