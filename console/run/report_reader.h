// Calls reports by name and passes on their rows.
//
//   const ReportReader reader(surroundings, connection, [] { return true; });
//   reader.ForEachRow(L"CCaixaRpt", L"DocsNoModulo", {{L"Modulo1", L"AA001"}}, [&](const RowReader& row) { … });
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console/formats/row_reader.h"
#include "platform/surroundings.h"

namespace kodra::console {

class ReportReader {
 public:
  // The properties of a report's parameter object, by name.
  using Parameters = std::vector<std::pair<std::wstring, std::wstring>>;

  // Reading ends early when `goesOn` returns false. REQUIRES: the surroundings outlive the object.
  ReportReader(platform::Surroundings& surroundings, std::wstring connection, std::function<bool()> goesOn)
      : surroundings_(surroundings), connection_(std::move(connection)), goesOn_(std::move(goesOn)) {}

  bool GoesOn() const { return goesOn_(); }

  // Calls a report method and then `visit` for each row. Raises what the report raises, and ConnectionError. REQUIRES:
  // the method exists.
  void ForEachRow(std::wstring_view className, std::wstring_view method, const Parameters& parameters,
                  const std::function<void(const RowReader&)>& visit) const;

 private:
  platform::Surroundings& surroundings_;
  std::wstring connection_;
  std::function<bool()> goesOn_;
};

}  // namespace kodra::console
