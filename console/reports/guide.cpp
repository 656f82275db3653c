#include "console/reports/guide.h"

#include <vector>

#include "console/reports/families.h"

namespace kodra::console::guide {

std::span<const Report> Reports() {
  static const std::vector<Report> reports = [] {
    std::vector<Report> all;
    for (const auto family : {Catalogs(), Documents(), ModuleLabels(), ModuleListings(), Containers(), Statistics()})
      all.insert(all.end(), family.begin(), family.end());
    return all;
  }();
  return reports;
}

const Report& About(const reports::ReportMethod& method) {
  return Reports()[static_cast<std::size_t>(&method - reports::ReportMethods().data())];
}

std::string NameOf(const Report& report) { return std::string(report.className) + "." + std::string(report.method); }

}  // namespace kodra::console::guide
