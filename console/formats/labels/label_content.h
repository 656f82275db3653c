// The content of a label: the opening, closing and divider labels of modules, and the labels of containers.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "console/formats/html/preview_row.h"

namespace kodra::console::labels {

using html::RowReader;

struct Label {
  std::wstring kind;         // "ABERTURA DE MÓDULO"
  std::wstring company;      // beside the kind, may be empty
  std::wstring number;       // the largest text
  std::wstring description;  // may wrap over lines
  std::wstring facts;        // one line: documents, retention or module
  std::wstring barcode;      // the number that a scanner reads
};

// The modules in each container, for the labels of containers.
using ContainerModules = std::map<std::wstring, std::vector<std::wstring>>;

// Makes a label from a row. LabelMakerOf returns null for a report without labels. For labels of containers it calls
// `containerModules` once, unless it is empty.
using LabelMaker = std::function<Label(const RowReader& row)>;
LabelMaker LabelMakerOf(const Heading& heading, const std::function<ContainerModules()>& containerModules);

// The text about a module's retention: its kind (one letter), the date until which it is kept (zero or null: none) and
// the number of years.
std::wstring RetentionText(std::wstring_view kind, const Value& until, std::wstring_view years);

}  // namespace kodra::console::labels
