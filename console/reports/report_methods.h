// Every report method by name, for callers that choose the report at run time.
//
//   const ReportMethod* method = FindReportMethod(L"CDeptoRpt", L"RelatorioDeptos");
//   frame::ParameterObject parameters(frame::ParameterClassNamed(method->parameterClass));
//   frame::ReportRows rows = method->call(surroundings, connectionString, &parameters);
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "frame/report_call.h"

namespace kodra::reports {

struct ReportMethod {
  std::wstring_view className;
  std::wstring_view method;
  // The class of the parameter object that the method reads.
  std::wstring_view parameterClass;
  // Calls the method of a new report object with that connection string; raises what the method raises.
  frame::ReportRows (*call)(platform::Surroundings& surroundings, const std::wstring& connectionString,
                            AutomationObject* obj);
};

// The methods of all report classes: catalogs, operators, documents, requests, log, modules, containers, statistics.
std::span<const ReportMethod> ReportMethods();
// The method with exactly these names, or null.
const ReportMethod* FindReportMethod(std::wstring_view className, std::wstring_view method);

}  // namespace kodra::reports
