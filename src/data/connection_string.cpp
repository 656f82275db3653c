#include "data/connection_string.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

#include "values/erro.h"
#include "values/piece.h"
#include "values/upper.h"
#include "values/writer.h"

namespace kodra::data {
namespace {

constexpr std::wstring_view kSource = L"modADO::PreAbreCn";

// Room for the upper-case form of nearly every connection string.
using UpperCased = values::LocalText<500>;

bool Contains(std::wstring_view text, std::wstring_view word) { return text.find(word) != std::wstring_view::npos; }

bool ContainsAny(std::wstring_view text, std::initializer_list<values::Piece> words) {
  return std::any_of(words.begin(), words.end(), [&](values::Piece word) { return Contains(text, word); });
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

// The value of the pair that a key was found in.
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
  // The client's text answers every search, also after something was added: that begins behind a ";" and has none of
  // the words.
  const UpperCased upper(values::InUpperCase{connectionString});
  const auto appendUnlessPresent = [&](values::Piece upperWord, values::Piece pairs) {
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
      CheckSQLiteFile(ValueAt(connectionString, upper.View().find(L"DATABASE")), surroundings);
      connectionString += L"OEMCP=1;";  // also when the client gave one: a second does no harm
      appendUnlessPresent(L"FKSUPPORT", L"FKSupport=true;");
      break;
    case DatabaseSystem::kOther:
      break;
  }
  return system;
}

std::wstring ReadKey(std::wstring_view connectionString, std::wstring_view key) {
  const UpperCased upper(values::InUpperCase{connectionString});
  return ValueAt(connectionString, upper.View().find(values::UpperCase(key)));
}

std::wstring Replace(std::wstring expression, std::wstring_view find, std::wstring_view replacement, std::int32_t start,
                     std::int32_t maximum, Comparison comparison) {
  if (find.empty() || find == replacement) return expression;
  std::wstring upperExpression;
  std::wstring upperFind;
  std::wstring_view haystack = expression;
  std::wstring_view needle = find;
  if (comparison == Comparison::kText) {
    haystack = upperExpression = values::UpperCase(expression);
    needle = upperFind = values::UpperCase(find);
  }
  std::size_t match = haystack.find(needle, static_cast<std::size_t>(std::max<std::int32_t>(start, 1)) - 1);
  if (match == std::wstring_view::npos) return expression;
  std::wstring result;
  std::size_t copied = 0;
  for (std::int32_t left = maximum; match != std::wstring_view::npos && left != 0; --left) {
    result.append(expression, copied, match - copied).append(replacement);
    copied = match + find.size();
    match = haystack.find(needle, copied);
  }
  return result.append(expression, copied);
}

}  // namespace kodra::data
