// What the archive says about the places of documents and modules, read through the reports.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console/inventory/comparison.h"
#include "console/run/report_reader.h"

namespace kodra::console::inventory {

// All members raise what a report raises. Reading ends early when `goesOn` returns false; the result is then
// incomplete.
class Archive {
 public:
  // REQUIRES: the surroundings outlive the object.
  Archive(platform::Surroundings& surroundings, std::wstring connection, std::function<bool()> goesOn)
      : reader_(surroundings, std::move(connection), std::move(goesOn)) {}

  // The documents of these modules, module by module, in the order of their codes. Raises UsageError for a module that
  // is not listed, and for a subordinate one, because the archive does not record which documents are in it.
  std::vector<Item> DocumentsOf(std::span<const std::wstring> modules);
  // The modules of these containers, container by container, in the order of their codes. Raises UsageError for a
  // container that does not exist.
  std::vector<Item> ModulesOf(std::span<const std::wstring> containers);

  // The documents and the modules of these codes that the archive has.
  std::vector<Item> FindDocuments(const std::set<std::wstring>& codes);
  std::vector<Item> FindModules(const std::set<std::wstring>& codes);

  // The code of the main module for that of a subordinate, which is kept with it; another code unchanged.
  std::wstring MainModuleOf(const std::wstring& code);

  // The documents that are lent out. Of several requests for one document the first that the database returns counts.
  Loans ReadLoans();

 private:
  // The modules of three containers at most, which may be the same, as the report asks for them.
  void ForEachModule(const std::wstring& first, const std::wstring& second, const std::wstring& third,
                     const std::function<void(const Item&)>& visit);
  // Where each module is, by its code: main and subordinate ones. Read once.
  const std::map<std::wstring, std::wstring>& Locations();
  std::wstring LocationOf(const std::wstring& module);
  std::vector<std::wstring> ContainerCodes();

  ReportReader reader_;
  std::optional<std::map<std::wstring, std::wstring>> locations_;
};

}  // namespace kodra::console::inventory
