#include "data/connection_string.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

#include "platform/erro.h"
#include "text/upper.h"

namespace kodra::data {
namespace {

constexpr std::wstring_view kSource = L"modADO::PreAbreCn";

bool ContainsAnyUpper(std::wstring_view upperCased, std::initializer_list<std::wstring_view> words) {
  return std::any_of(words.begin(), words.end(),
                     [&](std::wstring_view word) { return upperCased.find(word) != std::wstring_view::npos; });
}

bool Contains(std::wstring_view connectionString, std::wstring_view word) {
  return ContainsAnyUpper(text::UpperCase(connectionString), {text::UpperCase(word)});
}

bool NamesDB2(std::wstring_view connectionString) {
  return ContainsAnyUpper(text::UpperCase(connectionString), {L"IBMDADB2", L"ISERIES", L"IBM I", L"IBM DB2"});
}

bool NamesSQLite(std::wstring_view connectionString) { return Contains(connectionString, L"SQLITE"); }

void AppendUnlessPresent(std::wstring& connectionString, std::wstring_view word, std::wstring_view pairs) {
  if (!Contains(connectionString, word)) connectionString += pairs;
}

// Positions in a connection string are 16-bit numbers, counted from 1.
std::size_t CheckPosition(std::size_t index) {
  if (index >= static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max()))
    throw platform::MakeRuntimeError(platform::RuntimeError::kOverflow);
  return index;
}

void CheckSQLiteFile(const std::wstring& path, platform::Surroundings& surroundings) {
  const auto length = surroundings.FileLength(path);
  const auto raise = [&](std::int32_t number, std::wstring_view what) {
    throw platform::Erro(platform::kErrBase + number, std::wstring(kSource),
                         L"Banco de dados \"" + path + L"\" " + std::wstring(what));
  };
  if (!length) raise(1, L"não encontrado.");
  if (*length < 1) raise(2, L"danificado.");
}

}  // namespace

bool NamesOracle(std::wstring_view connectionString) {
  return ContainsAnyUpper(text::UpperCase(connectionString), {L"ORACLE", L"MSDAORA"});
}

void PreAbreCn(std::wstring& connectionString, platform::Surroundings& surroundings) {
  if (!connectionString.ends_with(L';')) connectionString += L';';
  AppendUnlessPresent(connectionString, L"Persist Security Info", L"Persist Security Info=True;");
  if (NamesOracle(connectionString)) {
    surroundings.SetEnvironment(L"NLS_LANG", L"BRAZILIAN PORTUGUESE_BRAZIL.WE8MSWIN1252");
    AppendUnlessPresent(connectionString, L"Min Pool Size", L"Min Pool Size=5;Incr Pool Size=3;Decr Pool Size=3;");
  } else if (NamesDB2(connectionString)) {
    AppendUnlessPresent(connectionString, L"IgnoreWarnList", L"IgnoreWarnList=\"'02000'\";");
    AppendUnlessPresent(connectionString, L"Patch1", L"Patch1=1024;");
  } else if (NamesSQLite(connectionString)) {
    CheckSQLiteFile(ReadKey(connectionString, L"Database"), surroundings);
    connectionString += L"OEMCP=1;";  // also when the client gave one: a second does no harm
    AppendUnlessPresent(connectionString, L"FKSupport", L"FKSupport=true;");
  }
}

std::wstring ReadKey(std::wstring_view connectionString, std::wstring_view key) {
  if (connectionString.empty()) return {};
  std::wstring pairs(connectionString);
  if (!pairs.ends_with(L';')) pairs += L';';
  const std::size_t start = text::UpperCase(pairs).find(text::UpperCase(key));
  if (start == std::wstring::npos) return {};
  const std::size_t end = CheckPosition(pairs.find(L';', start + 1));
  const std::wstring pair = pairs.substr(start, end - start);
  const std::size_t equals = pair.find(L'=');
  return equals == std::wstring::npos ? std::wstring() : pair.substr(equals + 1);
}

std::wstring Replace(std::wstring_view expression, std::wstring_view find, std::wstring_view replacement,
                     std::int32_t start, std::int32_t maximum, Comparison comparison) {
  if (find.empty() || find == replacement) return std::wstring(expression);
  const auto searched = [&](std::wstring_view text) {
    return comparison == Comparison::kText ? text::UpperCase(text) : std::wstring(text);
  };
  const std::wstring haystack = searched(expression);
  const std::wstring needle = searched(find);
  std::wstring result;
  std::size_t copied = 0;
  std::size_t match = haystack.find(needle, static_cast<std::size_t>(std::max<std::int32_t>(start, 1)) - 1);
  for (std::int32_t left = maximum; match != std::wstring::npos && left != 0; --left) {
    result.append(expression, copied, match - copied).append(replacement);
    copied = match + find.size();
    match = haystack.find(needle, copied);
  }
  return result.append(expression, copied);
}

}  // namespace kodra::data
