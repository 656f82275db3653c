// Indexing production: the documents indexed in a period, and counts by index key.
#pragma once

#include "frame/report_class.h"

namespace kodra::reports {

class CEstatIndexRpt : public frame::ReportClass {
 public:
  explicit CEstatIndexRpt(platform::Surroundings& surroundings) : ReportClass(L"CEstatIndexRpt", surroundings) {}

  // Reads Owner, DataInicial, DataFinal, CodOperador (the one who indexed) and CodDepto (empty: all): one row a
  // document.
  frame::ReportRows RelatorioEstatisticasPorDocumento(AutomationObject* obj);
  // Reads Owner, DataInicial, DataFinal, DescrOperador, DescrDepto, NumeroPC1 to NumeroPC5 and NumeroObs: one row with
  // the counts that the client made, which stand in the statement as they are given.
  frame::ReportRows RelatorioEstatisticasPorPalavrasChave(AutomationObject* obj);
};

}  // namespace kodra::reports
