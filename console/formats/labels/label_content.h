// The content of a label: the opening, closing and divider labels of modules, and the labels of containers.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "console/formats/row_reader.h"

namespace kodra::console::labels {

struct Label {
  std::wstring kind;               // "ABERTURA DE MÓDULO"
  std::wstring organisation = {};  // may be empty
  std::wstring number;             // the largest text, and what a scanner reads
  std::wstring description = {};
  std::wstring facts = {};  // documents, retention or module
  std::wstring place = {};  // where the module is; may be empty
};

// The modules in each container, for the labels of containers.
using ContainerModules = std::map<std::wstring, std::vector<std::wstring>>;

Label OpeningLabel(const RowReader& row);
Label ClosingLabel(const RowReader& row);
// `module` is the module in which the divider is put, whose number is not among the columns.
Label DividerLabel(const RowReader& row, const std::wstring& module);
Label ContainerLabel(const RowReader& row, const ContainerModules& modules);

// "fileira 1, estante 2, prateleira 3, depósito Central", from the one-module report; what is empty is left out.
std::wstring PlaceText(const RowReader& row);

// Makes a label from a row. LabelMakerOf returns null for a report without labels. For labels of containers it calls
// `containerModules` once, unless it is empty.
using LabelMaker = std::function<Label(const RowReader& row)>;
LabelMaker LabelMakerOf(const Heading& heading, const std::function<ContainerModules()>& containerModules);

// The text about a module's retention: its kind (one letter), the date until which it is kept (zero or null: none) and
// the number of years.
std::wstring RetentionText(std::wstring_view kind, const Value& until, std::wstring_view years);

}  // namespace kodra::console::labels
