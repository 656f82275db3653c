// What the listings of modules say of a module or a subordinate, computed from the records.
#pragma once

#include <string>

#include "db/reports_on.h"

namespace kodra::tests {

// The 7-character code of a subordinate.
inline support::demo::Text CodeOf(const support::demo::CaixaSubordinada& module) {
  return module.numCaixa + (module.numSeq < 10 ? L"0" : L"") + std::to_wstring(module.numSeq);
}

// The module of a number; null when there is none.
inline const support::demo::Caixa* ModuleOf(const support::demo::MaybeText& number) {
  return Reports::Find(&support::demo::Caixa::numCaixa, number);
}

// A filter of the listings: a department (none when empty), the back-catalogue, what still exists.
struct ModuleFilter {
  support::demo::Text department = {};
  bool backCatalogue = false;
  bool existingOnly = false;

  bool Department(const support::demo::Caixa& module) const {
    return department.empty() || module.codDepto == department;
  }
  bool BackCatalogue(const support::demo::Caixa& module) const { return !backCatalogue || module.docsPregressos == 1; }
};

}  // namespace kodra::tests
