#include "data/connection_string.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

#include "values/erro.h"
#include "values/upper.h"

namespace kodra::data {
namespace {

constexpr std::wstring_view kSource = L"modADO::PreAbreCn";

bool Contains(std::wstring_view text, std::wstring_view word) { return text.find(word) != std::wstring_view::npos; }

bool ContainsAny(std::wstring_view text, std::initializer_list<std::wstring_view> words) {
  return std::any_of(words.begin(), words.end(), [&](std::wstring_view word) { return Contains(text, word); });
}

DatabaseSystem SystemOf(std::wstring_view upperCased) {
  if (ContainsAny(upperCased, {L"ORACLE", L"MSDAORA"})) return DatabaseSystem::kOracle;
  if (ContainsAny(upperCased, {L"IBMDADB2", L"ISERIES", L"IBM I", L"IBM DB2"})) return DatabaseSystem::kDB2;
  return Contains(upperCased, L"SQLITE") ? DatabaseSystem::kSQLite : DatabaseSystem::kOther;
}

// Positions in a connection string are 16-bit numbers, counted from 1.
std::size_t CheckPosition(std::size_t index) {
  if (index >= static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max()))
    throw MakeRuntimeError(RuntimeError::kOverflow);
  return index;
}

// The value of the pair in which a key was found.
std::wstring ValueAt(std::wstring_view pairs, std::size_t key) {
  if (key == std::wstring_view::npos) return {};
  const std::size_t end = CheckPosition(std::min(pairs.find(L';', key + 1), pairs.size()));
  const std::wstring_view pair = pairs.substr(key, end - key);
  const std::size_t equals = pair.find(L'=');
  return equals == std::wstring_view::npos ? std::wstring() : std::wstring(pair.substr(equals + 1));
}

void CheckSQLiteFile(const std::wstring& path, platform::Surroundings& surroundings) {
  const auto length = surroundings.FileLength(path);
  const auto raise = [&](std::int32_t number, std::wstring_view what) {
    throw Erro(kErrBase + number, std::wstring(kSource), L"Banco de dados \"" + path + L"\" " + std::wstring(what));
  };
  if (!length) raise(1, L"não encontrado.");
  if (*length < 1) raise(2, L"danificado.");
}

}  // namespace

DatabaseSystem PreAbreCn(std::wstring& connectionString, platform::Surroundings& surroundings) {
  // Every search is made in the client's own text, also after something was added: an addition begins behind a ";" and
  // contains none of the words.
  const std::wstring upper = values::UpperCase(connectionString);
  const auto appendUnlessPresent = [&](std::wstring_view upperWord, std::wstring_view pairs) {
    if (!Contains(upper, upperWord)) connectionString += pairs;
  };

  if (!connectionString.ends_with(L';')) connectionString += L';';
  appendUnlessPresent(L"PERSIST SECURITY INFO", L"Persist Security Info=True;");
  const DatabaseSystem system = SystemOf(upper);
  switch (system) {
    case DatabaseSystem::kOracle:
      surroundings.SetEnvironment(L"NLS_LANG", L"BRAZILIAN PORTUGUESE_BRAZIL.WE8MSWIN1252");
      appendUnlessPresent(L"MIN POOL SIZE", L"Min Pool Size=5;Incr Pool Size=3;Decr Pool Size=3;");
      break;
    case DatabaseSystem::kDB2:
      appendUnlessPresent(L"IGNOREWARNLIST", L"IgnoreWarnList=\"'02000'\";");
      appendUnlessPresent(L"PATCH1", L"Patch1=1024;");
      break;
    case DatabaseSystem::kSQLite:
      CheckSQLiteFile(ReadKey(connectionString, L"Database"), surroundings);
      connectionString += L"OEMCP=1;";  // also when the client has set one: a second does no harm
      appendUnlessPresent(L"FKSUPPORT", L"FKSupport=true;");
      break;
    case DatabaseSystem::kOther:
      break;
  }
  return system;
}

std::wstring ReadKey(std::wstring_view connectionString, std::wstring_view key) {
  return ValueAt(connectionString, values::UpperCase(connectionString).find(values::UpperCase(key)));
}

std::wstring ReplaceAll(std::wstring text, std::wstring_view find, std::wstring_view replacement) {
  for (std::size_t at = text.find(find); at != std::wstring::npos; at = text.find(find, at + replacement.size()))
    text.replace(at, find.size(), replacement);
  return text;
}

}  // namespace kodra::data
