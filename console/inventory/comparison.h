// Compares the codes that were read on the shelf with what the archive says is there.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::console::inventory {

// A document in its module or a module in its container, as the archive records it.
struct Item {
  std::wstring code;
  std::wstring place;     // the code of the module or container; empty if the archive names none
  std::wstring location;  // where the place is: "fileira 1, estante 2"; empty if the archive does not say
  bool operator==(const Item&) const = default;
};

// A document that was handed out, in the words of the report.
struct Loan {
  std::wstring operatorName;
  std::wstring since;  // "31/12/2023"; empty if the archive does not say
  std::wstring until;  // "31/12/2023", "sem data" or "permanente"
  bool operator==(const Loan&) const = default;
};
// By the code of the document.
using Loans = std::map<std::wstring, Loan>;

enum class Situation {
  kPresent,
  kLent,
  kMissing,
  kElsewhere,  // read here, but recorded in another place
  kUnknown,    // read here, and not recorded in the archive
};

// "presente", "emprestado", "ausente", "em outro lugar", "desconhecido".
std::wstring_view WordFor(Situation situation);

struct Finding {
  Item item;  // only its code is known if the situation is kUnknown
  Situation situation;
  bool operator==(const Finding&) const = default;
};

// One finding for each expected item, in their order, then one for each other code that was read, in the order of the
// reading. `elsewhere` has the items of other places that the archive knows, in any order.
std::vector<Finding> Compare(std::span<const Item> expected, std::span<const std::wstring> scanned,
                             std::span<const Item> elsewhere, const Loans& loans);

// Whether everything is in its place: what was lent out need not be there.
bool AllInPlace(std::span<const Finding> findings);

// How often each situation was found: "5 presentes, 1 emprestado, 2 ausentes, 1 em outro lugar, 0 desconhecidos".
std::wstring Summary(std::span<const Finding> findings);

}  // namespace kodra::console::inventory
