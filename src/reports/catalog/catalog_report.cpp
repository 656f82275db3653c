#include "reports/catalog/catalog_report.h"

namespace kodra::reports {

frame::ReportRows CatalogReport::ListWhole(std::wstring_view method, const AutomationObject* obj,
                                           std::wstring_view statement) {
  return Report(method, [&] {
    InicializaPS(obj);
    return Open(statement);
  });
}

}  // namespace kodra::reports
