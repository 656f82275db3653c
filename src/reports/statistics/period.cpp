#include "reports/statistics/period.h"

#include "frame/parameter_reader.h"

namespace kodra::reports {

Period ReadPeriod(AutomationObject& parameters) {
  const Date first = frame::ReadDate(parameters, L"DataInicial");
  return {first, frame::ReadDate(parameters, L"DataFinal")};
}

}  // namespace kodra::reports
