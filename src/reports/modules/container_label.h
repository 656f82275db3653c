// The content of a container's label about the modules in the container, gathered module by module.
#pragma once

#include <string>
#include <string_view>

#include "values/value.h"

namespace kodra::reports {

struct ContainerLabel {
  Date latest;        // the latest retention date; zero when no module has one
  std::wstring kind;  // "T" as soon as a module has a retention date, otherwise the retention kind of the last module
  std::wstring company;

  // Adds a module: its retention date (zero: none), its retention kind and the company's name.
  void Add(Date date, std::wstring_view moduleKind, std::wstring_view companyName);
};

}  // namespace kodra::reports
