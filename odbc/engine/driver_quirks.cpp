#include "odbc/engine/driver_quirks.h"

#include <algorithm>

#include "values/upper.h"

namespace kodra::odbc {
namespace {

bool Contains(const std::wstring& folded, std::wstring_view word) { return folded.find(word) != std::wstring::npos; }

}  // namespace

std::wstring WithStreaming(const std::wstring& odbcConnectionString) {
  const std::wstring folded = values::UpperCase(odbcConnectionString);
  const std::size_t driver = folded.find(L"DRIVER=");
  if (driver == std::wstring::npos || Contains(folded, L"STEPAPI=")) return odbcConnectionString;
  const bool sqlite = Contains(folded.substr(driver, folded.find(L';', driver) - driver), L"SQLITE");
  return sqlite ? odbcConnectionString + L"StepAPI=1;" : odbcConnectionString;
}

bool TypesVaryByRow(const std::wstring& driverName) { return Contains(values::UpperCase(driverName), L"SQLITE"); }

bool TextIsUtf8(const std::wstring& driverName, const std::wstring& odbcConnectionString) {
  return Contains(values::UpperCase(driverName), L"MAODBC") &&
         !Contains(values::UpperCase(odbcConnectionString), L"CHARSET=");
}

bool CanBeCancelled(const std::wstring& driverName) { return !Contains(values::UpperCase(driverName), L"SQLITE"); }

std::size_t UnitsReadBeyond(std::u16string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char16_t unit) { return (unit & 0xFC) == 0xD8; }));
}

bool OnlyReads(const std::wstring& statement) {
  const std::wstring folded = values::UpperCase(statement);
  const std::size_t start = folded.find_first_not_of(L" \t\r\n(");
  if (start == std::wstring::npos) return false;
  if (folded.compare(start, 6, L"SELECT") == 0 || folded.compare(start, 6, L"VALUES") == 0) return true;
  if (folded.compare(start, 4, L"WITH") != 0) return false;
  return !Contains(folded, L"INSERT") && !Contains(folded, L"UPDATE") && !Contains(folded, L"DELETE") &&
         !Contains(folded, L"REPLACE");
}

}  // namespace kodra::odbc
