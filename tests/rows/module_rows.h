// The rows of the eleven module reports, computed from the records.
#pragma once

#include <set>
#include <string>

#include "tests/rows/driver.h"
#include "tests/rows/sample.h"

namespace kodra::rows {

// The 7-character code of a subordinate.
testbed::Text CodeOf(const testbed::CaixaSubordinada& subordinate);
// The module with a number and the subordinate with a code; null when there is none.
const testbed::Caixa* ModuleOf(const testbed::MaybeText& number);
const testbed::CaixaSubordinada* SubordinateOf(const testbed::Text& code);
// A code holds only two digits: the code of a row with a larger number names another row.
inline bool IsDouble(const testbed::CaixaSubordinada& subordinate) { return subordinate.numSeq > 99; }

// How often a module has an opening label: twice over a connection string, once over a client's connection.
inline constexpr int kOverAString = 2;
inline constexpr int kOverAConnection = 1;

Table OpeningLabels(const std::set<testbed::Text>& modules, int copies);
Table OpeningLabelsOfSubordinates(const std::set<testbed::Text>& codes, int copies);
Table ClosingLabels(const std::set<testbed::Text>& modules);
Table ClosingLabelsOfSubordinates(const testbed::Text& parent);

// The documents of a module.
Table DocumentsOf(const testbed::Text& module);
// The same with their totals, or one blank row for a module without documents, for a subordinate and for no module.
Table DiscardOf(const testbed::Text& module);
// The header of a module, and of a subordinate: its places are empty, the dates and the depository its parent's.
Table HeaderOf(const testbed::Caixa& module);
Table HeaderOf(const testbed::CaixaSubordinada& subordinate);

// A filter of the listings: a department (any when empty), the back-catalogue, existing modules only.
struct ModuleFilter {
  testbed::Text department = {};
  bool backCatalogue = false;
  bool existingOnly = false;

  bool Department(const testbed::Caixa& module) const { return department.empty() || module.codDepto == department; }
  bool BackCatalogue(const testbed::Caixa& module) const { return !backCatalogue || module.docsPregressos == 1; }
};
inline Properties PropertiesOf(const ModuleFilter& filter) {
  return {{L"CodDepto", filter.department},
          {L"ModoPregresso", filter.backCatalogue},
          {L"SomenteExistentes", filter.existingOnly}};
}

// A listing has main and subordinate modules over a connection string, only the main ones over a client's connection.
enum class Listed { kMainAndSubordinate, kMainOnly };

Table DiscardedModules(const ModuleFilter& filter, Listed listed = Listed::kMainAndSubordinate);
Table DueModules(const ModuleFilter& filter, Listed listed = Listed::kMainAndSubordinate);
Table AllModules(const ModuleFilter& filter, Listed listed = Listed::kMainAndSubordinate);
// How many documents of each module are not classified.
Table UnclassifiedDocuments(const ModuleFilter& filter);

}  // namespace kodra::rows
