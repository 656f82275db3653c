#include "console/run/report_reader.h"

#include "console/run/open_report.h"
#include "console/run/row_source.h"

namespace kodra::console {

void ReportReader::ForEachRow(std::wstring_view className, std::wstring_view method, const Parameters& parameters,
                              const std::function<void(const RowReader&)>& visit) const {
  const reports::ReportMethod& report = *reports::FindReportMethod(className, method);
  frame::ParameterObject object(frame::ParameterClassNamed(report.parameterClass));
  for (const auto& [name, value] : parameters) object.Let(name, value);
  RowSource source(OpenReport(report, connection_, object, surroundings_), report);
  std::vector<Value> values;
  while (goesOn_() && source.Next(values)) visit(RowReader(source.Columns(), values));
}

}  // namespace kodra::console
