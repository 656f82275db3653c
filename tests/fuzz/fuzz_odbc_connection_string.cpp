// Converting an OLE DB connection string to the ODBC driver's.
//
// Input: a user, a password, the connection string, one per line.
#include <utility>

#include "odbc/engine/connection_string.h"
#include "tests/fuzz/target.h"
#include "tests/recorder/raised.h"
#include "values/erro.h"

namespace kodra::fuzz {
namespace {

using odbc::ToOdbcConnectionString;
using recorder::Raised;
using recorder::RaisedBy;

constexpr std::wstring_view kPassword = L"s3gr3d0-do-teste";

// The only error, which does not repeat the string.
const Raised kRefused = {static_cast<std::int32_t>(0x80040E73), "Microsoft OLE DB Service Components",
                         "Format of the initialization string does not conform to the OLE DB specification."};

std::wstring InBraces(const std::wstring& value) { return L"{" + FilledIn(value, L'}', L"}}") + L"}"; }

// Reads a value in braces from the front of a text, as an ODBC driver reads it; returns false when it is not closed.
bool TakeBraced(std::wstring_view& text, std::wstring& value) {
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == L'}') {
      if (i + 1 == text.size() || text[i + 1] != L'}') {
        text.remove_prefix(i + 1);
        return true;
      }
      ++i;
    }
    value += text[i];
  }
  return false;
}

bool IsBraced(std::wstring_view text) {
  std::wstring value;
  return text.starts_with(L'{') && TakeBraced(text, value) && text.empty();
}

using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;

// The pairs of a string, as an ODBC driver reads them.
Pairs ReadByDriver(std::wstring_view text) {
  Pairs pairs;
  while (!text.empty()) {
    const std::size_t equals = text.find(L'=');
    Require(equals < text.find(L';'), "every pair has an equals sign");
    auto& [key, value] = pairs.emplace_back(text.substr(0, equals), L"");
    text.remove_prefix(equals + 1);
    if (text.starts_with(L'{')) {
      Require(TakeBraced(text, value), "braces are closed");
    } else {
      value = text.substr(0, text.find(L';'));
      text.remove_prefix(value.size());
    }
    Require(text.starts_with(L';'), "every value ends with a semicolon");
    text.remove_prefix(1);
  }
  return pairs;
}

void CheckConverted(const std::wstring& converted) {
  const Pairs pairs = ReadByDriver(converted);
  std::wstring again;
  for (const auto& [key, value] : pairs) again += L" ; " + key + L" = " + InBraces(value) + L" ; ";
  Require(ReadByDriver(ToOdbcConnectionString(again, L"", L"")) == pairs,
          "converting the driver's pairs again returns the same pairs");
}

void CheckCredentials(const std::wstring& text, const std::wstring& given) {
  const std::wstring user = given.empty() ? L"ana" : given;
  const std::wstring password(kPassword);
  const std::wstring converted = ToOdbcConnectionString(text, user, password);
  const Pairs pairs = ReadByDriver(converted);
  Require(pairs.back() == std::pair<std::wstring, std::wstring>(L"PWD", password),
          "a password passed separately is in the last pair");
  RequireEqual(ToOdbcConnectionString(L"User ID=x;Password=y;" + text, user, password), converted,
               "a user and a password passed separately replace those in the string");
}

// Any value is kept in quotes; a value in braces keeps the braces for the driver.
void CheckValue(const std::wstring& value) {
  if (IsBraced(value)) return;
  for (const auto& [quote, doubled] : {std::pair(L'"', L"\"\""), std::pair(L'\'', L"''")}) {
    const std::wstring text = std::wstring(L"Opção=") + quote + FilledIn(value, quote, doubled) + quote;
    Require(ReadByDriver(ToOdbcConnectionString(text, L"", L"")) == Pairs{{L"Opção", value}},
            "a quoted value is passed on unchanged");
  }
}

}  // namespace
}  // namespace kodra::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kodra::fuzz;
  const auto fields = Fields(TextOf(data, size), 3);
  std::wstring converted;
  const Raised raised = RaisedBy([&] { converted = ToOdbcConnectionString(fields[2], L"", L""); });
  if (raised.number == 0) {
    CheckConverted(converted);
    CheckCredentials(fields[2], fields[0]);
  } else {
    Require(raised == kRefused, "a malformed string is refused with an error that does not repeat it");
  }
  CheckValue(fields[1]);
  return 0;
}
