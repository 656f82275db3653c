// What the listings of modules say of a module or a subordinate, computed from the records.
#pragma once

#include <string>

#include "tests/db/reports_on.h"

namespace kodra::tests {

// The 7-character code of a subordinate.
inline testbed::Text CodeOf(const testbed::CaixaSubordinada& module) {
  return module.numCaixa + (module.numSeq < 10 ? L"0" : L"") + std::to_wstring(module.numSeq);
}

// The module of a number; null when there is none.
inline const testbed::Caixa* ModuleOf(const testbed::MaybeText& number) {
  return Reports::Find(&testbed::Caixa::numCaixa, number);
}

// A filter of the listings: a department (none when empty), the back-catalogue, what still exists.
struct ModuleFilter {
  testbed::Text department = {};
  bool backCatalogue = false;
  bool existingOnly = false;

  bool Department(const testbed::Caixa& module) const { return department.empty() || module.codDepto == department; }
  bool BackCatalogue(const testbed::Caixa& module) const { return !backCatalogue || module.docsPregressos == 1; }
};

}  // namespace kodra::tests
