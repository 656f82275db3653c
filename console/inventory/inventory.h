// What was scanned on the shelves, compared with the archive once.
//
//   Inventory inventory(Inventory::Of::kDocuments, {L"AA001"}, scanned);
//   inventory.Compare(surroundings, connection, [] { return true; });
//   inventory.Write(writer);
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "console/formats/row_writer.h"
#include "console/inventory/archive.h"
#include "console/reports/guide.h"

namespace kodra::console::inventory {

class Inventory {
 public:
  enum class Of { kDocuments, kModules };

  // `places` are the codes of the modules whose documents were scanned, or of the containers whose modules were. A
  // place counts once, and its own code is none of the scanned ones: its label is read, too.
  Inventory(Of of, const std::vector<std::wstring>& places, std::vector<std::wstring> scanned);

  // Reads the archive while `goesOn` returns true; the findings are incomplete otherwise. Raises what a report raises,
  // and UsageError for a place that the archive does not have.
  void Compare(platform::Surroundings& surroundings, const std::wstring& connection,
               const std::function<bool()>& goesOn);

  const std::vector<Finding>& Findings() const { return findings_; }
  // A sentence for the user about what could not be read, in Brazilian Portuguese; empty if there is none.
  const std::string& Warning() const { return warning_; }

  // Writes the first findings as the rows of a listing.
  void Write(RowWriter& writer, std::uint64_t mostRows = std::numeric_limits<std::uint64_t>::max()) const;

 private:
  void CompareDocuments(Archive& archive, const std::wstring& connection, const std::function<bool()>& goesOn);
  void CompareModules(Archive& archive);
  Loans ReadLoans(Archive& archive, const std::wstring& connection, const std::function<bool()>& goesOn);
  std::vector<Value> Cells(const Finding& finding) const;

  Of of_;
  const guide::Report& listing_;
  std::vector<std::wstring> places_;
  std::vector<std::wstring> scanned_;
  std::vector<Finding> findings_;
  Loans loans_;
  std::string warning_;
};

}  // namespace kodra::console::inventory
