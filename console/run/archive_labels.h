// The labels of an archive, from the reports of labels: they take up to three codes a call, these functions any number.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "console/formats/labels/label_content.h"
#include "console/run/report_reader.h"

namespace kodra::console {

enum class LabelKind { kOpening, kClosing, kSubordinates, kDividers, kContainers };

// The codes to look for: those from `first` to `last`, without bounds where these are empty.
struct CodeRange {
  std::wstring first, last;
  // Of modules: the department's code; empty for all departments.
  std::wstring department;
};

class ArchiveLabels {
 public:
  // Reading ends early when `goesOn` returns false; what is found is then incomplete. REQUIRES: the surroundings
  // outlive the object. Its functions raise what the reports raise, and ConnectionError.
  ArchiveLabels(platform::Surroundings& surroundings, std::wstring connection, std::function<bool()> goesOn)
      : reader_(surroundings, std::move(connection), std::move(goesOn)) {}

  // The codes in the range, sorted: of containers, or of modules that are as long as the bounds, five letters without
  // any. REQUIRES: both bounds are equally long if they are modules and not empty.
  std::vector<std::wstring> CodesIn(LabelKind kind, const CodeRange& range);

  // The labels of each code, in the order of the codes; dividers and subordinates may have several, and a code that
  // the archive does not have has none.
  std::vector<std::vector<labels::Label>> LabelsOf(LabelKind kind, const std::vector<std::wstring>& codes);

  // The organisation's name, from the closing label of one of the first modules; empty if there is none.
  std::wstring Organisation(const std::vector<std::wstring>& modules);

  // Where a module is; a subordinate module is where its main module is.
  std::wstring PlaceOf(std::wstring_view module);

 private:
  // Calls a report with up to three of the codes at a time.
  void ForEachRowOf(std::wstring_view className, std::wstring_view method, const std::wstring& parameter,
                    const std::vector<std::wstring>& codes, const std::wstring& type,
                    const std::function<void(const RowReader&)>& visit);

  labels::ContainerModules ModulesOf(const std::vector<std::wstring>& containers);
  // Whether there is such a main module.
  bool Exists(const std::wstring& module);
  std::vector<labels::Label> SubordinatesOf(const std::wstring& module);
  std::vector<labels::Label> DividersOf(const std::wstring& module);

  ReportReader reader_;
};

}  // namespace kodra::console
