// The containers that storage modules stand in: their list, their opening label and the modules on it.
#pragma once

#include <string>

#include "frame/report_class.h"

namespace kodra::reports {

// What a container's label says of its modules, gathered module by module.
struct ContainerLabel {
  Date latest;        // the latest retention date; zero when no module has one
  std::wstring kind;  // "T" as soon as a module has a retention date, else the retention kind of the last module
  std::wstring company;

  // Takes a module in: its retention date (zero: none), its retention kind and the company's name.
  void Add(Date date, std::wstring_view moduleKind, std::wstring_view companyName);
};

class CContainerRpt : public frame::ReportClass {
 public:
  explicit CContainerRpt(platform::Surroundings& surroundings) : ReportClass(L"CContainerRpt", surroundings) {}

  // Every container.
  frame::ReportRows RelatorioContainers(AutomationObject* obj);
  // Reads Container1 to Container3: one row, made in memory, for each that holds a module. The first
  // row is the current one.
  frame::ReportRows EtiquetaAbertura(AutomationObject* obj);
  // Reads Container1 to Container3: their modules.
  frame::ReportRows EtiquetaAberturaSubRpt(AutomationObject* obj);
};

}  // namespace kodra::reports
