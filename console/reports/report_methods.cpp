// The list of report methods, generated from the IDL.
#include "console/reports/report_methods.h"

#include <algorithm>
#include <array>

#include "reports/reports.h"

namespace kodra::reports {
namespace {

// Runs a report method of a new object.
template <class Call>
frame::ReportRows RunNew(std::wstring_view className, std::wstring_view method, frame::ReportRows (*report)(Call&),
                         platform::Surroundings& surroundings, const std::wstring& connectionString,
                         AutomationObject* obj) {
  typename Call::Object object(className, surroundings);
  object.SetStringConexao(connectionString);
  return frame::Run(object, method, report, obj);
}

// A report's parameter class is named after the report.
constexpr auto kMethods = [] {
  auto methods = std::to_array<ReportMethod>({
#define KODRA_REPORT_CLASS(NAME, METHODS) METHODS
#define KODRA_REPORT_METHOD(CLASS, NAME)                                                             \
  {L## #CLASS, L## #NAME, L## #CLASS L"Obj",                                                         \
   [](platform::Surroundings& surroundings, const std::wstring& connection, AutomationObject* obj) { \
     return RunNew(L## #CLASS, L## #NAME, &CLASS::NAME, surroundings, connection, obj);              \
   }},
#include "idl/public_classes.def"
  });
  // People read about modules before containers; in the IDL CCaixaRpt is the last report class.
  const auto containers = std::ranges::find(methods, L"CContainerRpt", &ReportMethod::className);
  const auto modules = std::ranges::find(methods, L"CCaixaRpt", &ReportMethod::className);
  std::rotate(containers, modules, methods.end());
  return methods;
}();

}  // namespace

std::span<const ReportMethod> ReportMethods() { return kMethods; }

const ReportMethod* FindReportMethod(std::wstring_view className, std::wstring_view method) {
  const auto found = std::ranges::find_if(
      kMethods, [&](const ReportMethod& entry) { return entry.className == className && entry.method == method; });
  return found == kMethods.end() ? nullptr : &*found;
}

}  // namespace kodra::reports
