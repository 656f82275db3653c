// Production by series within a subgroup, counted by the database.
#pragma once

#include "frame/report_class.h"

namespace kodra::reports {

class CEstatSerieRpt : public frame::ReportClass {
 public:
  explicit CEstatSerieRpt(platform::Surroundings& surroundings) : ReportClass(L"CEstatSerieRpt", surroundings) {}

  // Reads DataInicial, DataFinal, CodGrupo and TipoRpt: "N" counts documents, anything else sums front pages; "F" and
  // "P" differ in the subtitle only. Title and subgroup have the installation's own names.
  frame::ReportRows RelatorioEstatisticas(AutomationObject* obj);
};

}  // namespace kodra::reports
