// A report with the parameters that a person gave it, to be run once.
//
//   ReportTask task(method, {{L"CodDepto", "7"}});
//   task.Write(surroundings, connection, writer, [] { return true; });
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "console/formats/labels/label_content.h"
#include "console/formats/row_writer.h"
#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"

namespace kodra::console {

class ReportTask {
 public:
  // The names of parameters with their values as typed. Raises UsageError for a parameter that the report does not
  // have, for a value that is not a date or a flag as ParameterValue requires, and for a text that would be more than a
  // value in the statements.
  ReportTask(const reports::ReportMethod& method, const std::vector<std::pair<std::string, std::string>>& given);

  const reports::ReportMethod& Method() const { return method_; }
  frame::ParameterObject& Parameters() { return parameters_; }

  // Runs the report and passes its rows to the writer while `goesOn` is true. Returns whether all rows were written.
  // Raises what the report and the writer raise, and ConnectionError.
  bool Write(platform::Surroundings& surroundings, const std::wstring& connection, RowWriter& writer,
             const std::function<bool()>& goesOn);

 private:
  const reports::ReportMethod& method_;
  frame::ParameterObject parameters_;
  Heading heading_;
};

// The modules of each container that the parameters name, for its label. Raises what the report of their modules
// raises.
labels::ContainerModules ModulesOfContainers(frame::ParameterObject& containers, platform::Surroundings& surroundings,
                                             const std::wstring& connection);

}  // namespace kodra::console
