// The list of report methods, as the IDL has them.
#include "console/reports/report_methods.h"

#include <algorithm>
#include <array>

#include "reports/catalog/cd_rpt.h"
#include "reports/catalog/deposito_rpt.h"
#include "reports/catalog/depto_rpt.h"
#include "reports/catalog/dicionario_rpt.h"
#include "reports/catalog/grupo_operador_rpt.h"
#include "reports/catalog/grupo_rpt.h"
#include "reports/catalog/modelo_rpt.h"
#include "reports/catalog/operador_rpt.h"
#include "reports/catalog/serie_rpt.h"
#include "reports/catalog/subgrupo_rpt.h"
#include "reports/catalog/suporte_rpt.h"
#include "reports/catalog/tipo_caixa_rpt.h"
#include "reports/catalog/tipo_midia_rpt.h"
#include "reports/documents/documento_rpt.h"
#include "reports/documents/log_rpt.h"
#include "reports/documents/solicitacao_rpt.h"
#include "reports/modules/caixa_rpt.h"
#include "reports/modules/container_rpt.h"
#include "reports/statistics/estat_img_rpt.h"
#include "reports/statistics/estat_index_rpt.h"
#include "reports/statistics/estat_serie_rpt.h"
#include "reports/statistics/estat_subgrupo_rpt.h"
#include "reports/statistics/estat_suporte_rpt.h"

namespace kodra::reports {
namespace {

template <class Report, frame::ReportRows (Report::*kMethod)(AutomationObject*)>
frame::ReportRows CallOn(platform::Surroundings& surroundings, const std::wstring& connectionString,
                         AutomationObject* obj) {
  Report report(surroundings);
  report.SetStringConexao(connectionString);
  return (report.*kMethod)(obj);
}

// A report's parameter class is named after the report.
constexpr auto kMethods = [] {
  auto methods = std::to_array<ReportMethod>({
#define KODRA_REPORT_CLASS(NAME, METHODS) METHODS
#define KODRA_REPORT_METHOD(CLASS, NAME) {L## #CLASS, L## #NAME, L## #CLASS L"Obj", &CallOn<CLASS, &CLASS::NAME>},
#include "idl/public_classes.def"
  });
  // People read about modules before containers; the IDL has CCaixaRpt last.
  const auto containers = std::ranges::find(methods, L"CContainerRpt", &ReportMethod::className);
  const auto modules = std::ranges::find(methods, L"CCaixaRpt", &ReportMethod::className);
  const auto rest = std::find_if(modules, methods.end(),
                                 [&](const ReportMethod& method) { return method.className != modules->className; });
  std::rotate(containers, modules, rest);
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
