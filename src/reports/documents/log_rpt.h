// The event log: who did what, where and when, in a recordset made in memory.
#pragma once

#include "frame/report_class.h"

namespace kodra::reports {

class CLogRpt : public frame::ReportClass {
 public:
  explicit CLogRpt(platform::Surroundings& surroundings) : ReportClass(L"CLogRpt", surroundings) {}

  // Reads MaquinaOrigem, Operador, Acao, Evento (its first three characters), CodDocto, DataInicial and DataFinal and
  // hands them to the event-log component, which decides what they mean. An action text is cut into fields of 250
  // characters, ACAO1 to ACAO32. Null when the component gives no collection.
  frame::ReportRows RelatorioLog(AutomationObject* obj);

 private:
  ObjectRef NewFilter(AutomationObject& parameters) const;
  ObjectRef NewReader() const;
  frame::ReportRows Fill(AutomationObject& events) const;
};

}  // namespace kodra::reports
