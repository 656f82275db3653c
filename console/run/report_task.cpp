#include "console/run/report_task.h"

#include <fmt/format.h>
#include <algorithm>

#include "console/command_line/parameter_value.h"
#include "console/command_line/parameters.h"
#include "console/command_line/report_name.h"
#include "console/command_line/usage_error.h"
#include "console/formats/cell_text.h"
#include "console/formats/row_reader.h"
#include "console/reports/guide.h"
#include "console/run/open_report.h"
#include "console/run/row_source.h"
#include "values/utf8.h"

namespace kodra::console {

ReportTask::ReportTask(const reports::ReportMethod& method,
                       const std::vector<std::pair<std::string, std::string>>& given)
    : method_(method),
      parameters_(frame::ParameterClassNamed(method.parameterClass)),
      heading_{std::wstring(method.className), std::wstring(method.method),
               values::FromUtf8(guide::About(method).purpose)} {
  const auto properties = frame::ParameterClassNamed(method.parameterClass).properties;
  for (const auto& [name, text] : given) {
    const std::wstring wide = values::FromUtf8(name);
    const auto property = std::ranges::find(properties, wide, &frame::Property::name);
    if (property == properties.end()) throw UsageError(NameOf(method) + " não tem o parâmetro \"" + name + "\"");
    if (const std::string wrong = WrongWithText(*property, text, method); !wrong.empty())
      throw UsageError(fmt::format("{}: o valor {}; os relatórios passam os valores ao SQL como estão", name, wrong));
    parameters_.Let(wide, ParameterValue(*property, text));
    heading_.parameters.emplace_back(wide, BrazilianText(parameters_.Get(wide), ColumnKind::kText));
  }
}

bool ReportTask::Write(platform::Surroundings& surroundings, const std::wstring& connection, RowWriter& writer,
                       const std::function<bool()>& goesOn) {
  RowSource source(OpenReport(method_, connection, parameters_, surroundings), method_);
  writer.Begin(heading_, source.Columns());
  std::vector<Value> values;
  while (source.Next(values)) {
    if (!goesOn()) return false;
    writer.Row(values);
  }
  if (!goesOn()) return false;
  writer.End();
  return true;
}

labels::ContainerModules ModulesOfContainers(frame::ParameterObject& containers, platform::Surroundings& surroundings,
                                             const std::wstring& connection) {
  const reports::ReportMethod& modules = *reports::FindReportMethod(L"CContainerRpt", L"EtiquetaAberturaSubRpt");
  RowSource source(modules.call(surroundings, connection, &containers), modules);
  labels::ContainerModules found;
  std::vector<Value> values;
  while (source.Next(values)) {
    const RowReader row(source.Columns(), values);
    found[row.Text("CONTAINER")].push_back(row.Text("NUM_CAIXA"));
  }
  return found;
}

}  // namespace kodra::console
