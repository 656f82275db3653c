// What a piece of code raised, as a value that a test compares and GoogleTest prints.
//
//   EXPECT_EQ(RaisedBy([&] { report.RelatorioDeptos(nullptr); }),
//             (Raised{frame::kReportError, "KodraRpt.CDeptoRpt::RelatorioDeptos", "Erro ao …"}));
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

#include "values/erro.h"
#include "values/utf8.h"

namespace kodra::tests {

struct Raised {
  Raised() = default;
  Raised(std::int32_t number, std::wstring source, std::wstring description)
      : number(number), source(std::move(source)), description(std::move(description)) {}
  // From texts in UTF-8.
  Raised(std::int32_t number, std::string_view source, std::string_view description)
      : Raised(number, values::FromUtf8(source), values::FromUtf8(description)) {}
  explicit Raised(const Erro& erro) : Raised(erro.Number(), erro.Source(), erro.Description()) {}
  bool operator==(const Raised&) const = default;

  std::int32_t number = 0;  // 0 when nothing was raised
  std::wstring source;
  std::wstring description;
};

inline std::ostream& operator<<(std::ostream& out, const Raised& raised) {
  if (raised == Raised()) return out << "nothing was raised";
  return out << raised.number << " from \"" << values::ToUtf8(raised.source)
             << "\": " << values::ToUtf8(raised.description);
}

// Returns Raised() for code that raises nothing. Any exception but an Erro goes on to the test.
template <class Body>
Raised RaisedBy(Body&& body) {
  try {
    body();
  } catch (const Erro& erro) {
    return Raised(erro);
  }
  return {};
}

}  // namespace kodra::tests
