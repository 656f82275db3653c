// Rewriting a connection string, reading a key from it, and replacing in it.
//
// Input: the connection string, a key, a text to find, its replacement, one per line.
#include <array>
#include <optional>

#include "data/abre_cn.h"
#include "data/connection_string.h"
#include "tests/fuzz/target.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"
#include "values/upper.h"

namespace kodra::fuzz {
namespace {

using recorder::FakeSurroundings;
using recorder::Lines;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Utf8;

constexpr std::wstring_view kPassword = L"s3gr3d0-do-teste";

std::wstring Lower(std::wstring text) {
  for (wchar_t& c : text) {
    if (c >= L'A' && c <= L'Z') c += L'a' - L'A';
  }
  return text;
}

// Ignores letter case. The component's words are plain ASCII.
bool ContainsAny(const std::wstring& text, std::initializer_list<const wchar_t*> words) {
  for (const wchar_t* word : words) {
    if (Lower(text).find(Lower(word)) != std::wstring::npos) return true;
  }
  return false;
}

enum class System { kOracle, kDB2, kSQLite, kOther };

System SystemOf(const std::wstring& text) {
  if (ContainsAny(text, {L"ORACLE", L"MSDAORA"})) return System::kOracle;
  if (ContainsAny(text, {L"IBMDADB2", L"ISERIES", L"IBM I", L"IBM DB2"})) return System::kDB2;
  return ContainsAny(text, {L"SQLITE"}) ? System::kSQLite : System::kOther;
}

// The lengths of a file: none when it is absent, empty, or one byte.
constexpr std::array<std::optional<std::uint64_t>, 3> kFileLengths = {std::nullopt, 0, 1};

void Place(FakeSurroundings& around, const std::wstring& path, std::optional<std::uint64_t> length) {
  if (length) around.files[path] = *length;
}

Raised FileError(const std::wstring& path, bool exists) {
  return {kErrBase + (exists ? 2 : 1), "modADO::PreAbreCn",
          "Banco de dados \"" + Utf8(path) + (exists ? "\" danificado." : "\" não encontrado.")};
}

// The additions to a connection string must be these pairs, in this order, each at most once.
void RequireKnownAdditions(std::wstring_view added, System system) {
  const auto take = [&](std::wstring_view pairs, bool allowed) {
    if (allowed && added.starts_with(pairs)) added.remove_prefix(pairs.size());
  };
  take(L";", true);
  take(L"Persist Security Info=True;", true);
  take(L"Min Pool Size=5;Incr Pool Size=3;Decr Pool Size=3;", system == System::kOracle);
  take(L"IgnoreWarnList=\"'02000'\";", system == System::kDB2);
  take(L"Patch1=1024;", system == System::kDB2);
  take(L"OEMCP=1;", system == System::kSQLite);
  take(L"FKSupport=true;", system == System::kSQLite);
  RequireEqual(added, L"", "only the pairs of its database are added to a connection string, each at most once");
}

void CheckRewritten(const std::wstring& given, const std::wstring& rewritten, System system) {
  Require(rewritten.starts_with(given), "a rewritten string starts with the client's");
  RequireKnownAdditions(std::wstring_view(rewritten).substr(given.size()), system);
  Require(rewritten.ends_with(L';'), "a rewritten string ends with a semicolon");
  Require(ContainsAny(rewritten, {L"Persist Security Info"}), "every string contains Persist Security Info");
  Require(system != System::kOracle || ContainsAny(rewritten, {L"Min Pool Size"}),
          "an Oracle string contains the pool's size");
  Require(
      system != System::kDB2 || (ContainsAny(rewritten, {L"IgnoreWarnList"}) && ContainsAny(rewritten, {L"Patch1"})),
      "a DB2 string contains IgnoreWarnList and Patch1");
  Require(
      system != System::kSQLite || (ContainsAny(rewritten, {L"OEMCP=1;"}) && ContainsAny(rewritten, {L"FKSupport"})),
      "an SQLite string contains OEMCP and FKSupport");
}

void CheckPreAbreCn(const std::wstring& given, std::optional<std::uint64_t> fileLength) {
  const System system = SystemOf(given);
  const std::wstring path = data::ReadKey(given, L"Database");
  FakeSurroundings around;
  Place(around, path, fileLength);
  std::wstring rewritten = given;
  const Raised raised = RaisedBy([&] { data::PreAbreCn(rewritten, around); });
  if (system == System::kSQLite && fileLength.value_or(0) == 0) {
    Require(raised == FileError(path, fileLength.has_value()),
            "a missing or empty SQLite file is an error that names it");
    return;
  }
  Require(raised.number == 0, "every other string is accepted");
  CheckRewritten(given, rewritten, system);
  const bool setsLanguage =
      around.journal.Calls() == Lines({R"(SetEnvironment("NLS_LANG", "BRAZILIAN PORTUGUESE_BRAZIL.WE8MSWIN1252"))"});
  Require(setsLanguage == (system == System::kOracle),
          "NLS_LANG is set once for Oracle, and never for another database");

  std::wstring again = rewritten;
  data::PreAbreCn(again, around);
  RequireEqual(again, rewritten + (system == System::kSQLite ? L"OEMCP=1;" : L""),
               "rewriting a rewritten string adds only SQLite's OEMCP");
}

void CheckPasswordIsKeptSecret(const std::wstring& given) {
  if (given.find(kPassword) != std::wstring::npos) return;
  for (const std::wstring& text :
       {given + L";Password=" + std::wstring(kPassword), L"Password=" + std::wstring(kPassword) + L";" + given}) {
    FakeSurroundings around;
    const Raised raised = RaisedBy([&] { data::AbreCn(text, 0, 0, around); });
    Require(raised.description.find(kPassword) == std::wstring::npos, "no error contains the password");
  }
}

// Replaces while going through the text, character by character.
std::wstring ReplacedInOrder(std::wstring_view text, std::wstring_view find, std::wstring_view by) {
  std::wstring replaced;
  while (!text.empty()) {
    if (text.starts_with(find)) {
      replaced += by;
      text.remove_prefix(find.size());
    } else {
      replaced += text.front();
      text.remove_prefix(1);
    }
  }
  return replaced;
}

void CheckAbreCn(const std::wstring& given) {
  const std::wstring path = data::ReadKey(given, L"Database");
  FakeSurroundings around;
  Place(around, path, 1);
  const auto connection = data::AbreCn(given, 0, 0, around);
  Require((connection == nullptr) == given.empty(), "only the empty string opens no connection");
  if (!connection) return;
  std::wstring rewritten = given;
  data::PreAbreCn(rewritten, around);
  RequireEqual(connection->ConnectionString(), ReplacedInOrder(ReplacedInOrder(rewritten, L";;", L";"), L"; ;", L";"),
               "the rewritten string is opened without its empty pairs");
  const bool setsSession = around.journal.Calls().find("\nConnection1.Execute(") != std::string::npos;
  Require(setsSession == (SystemOf(given) == System::kOracle), "the session's settings are sent to Oracle only");

  if (SystemOf(given) != System::kSQLite) return;
  FakeSurroundings without;
  const Raised cause = FileError(path, false);
  Require(RaisedBy([&] { data::AbreCn(given, 0, 0, without); }) ==
              Raised{cause.number, L"modADO.AbreCn", L"[" + cause.source + L"]: " + cause.description},
          "AbreCn adds one layer to the error of PreAbreCn");
}

void CheckReadKey(const std::wstring& text, const std::wstring& key, const std::wstring& written) {
  if (key.empty() || key.find(L';') != key.npos) return;  // no key of a pair
  const std::wstring value = data::ReadKey(text, key);
  Require(value.find(L';') == std::wstring::npos, "a value ends before the semicolon");
  Require(text.find(value) != std::wstring::npos, "a value is a part of the string");
  const bool present = values::UpperCase(text).find(values::UpperCase(key)) != std::wstring::npos;
  Require(present || value.empty(), "a missing key has no value");
  if (key.find(L'=') != key.npos || written.find(L';') != written.npos) return;
  RequireEqual(data::ReadKey(key + L"=" + written + L";" + text, key), written, "the first pair with a key is read");
}

void CheckReplaceAll(const std::wstring& text, const std::wstring& find, const std::wstring& by) {
  if (find.empty()) return;
  RequireEqual(data::ReplaceAll(text, find, by), ReplacedInOrder(text, find, by), "each match is replaced once");
}

}  // namespace
}  // namespace kodra::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kodra::fuzz;
  const auto fields = Fields(TextOf(data, size), 4);
  for (const auto& length : kFileLengths) CheckPreAbreCn(fields[0], length);
  CheckPasswordIsKeptSecret(fields[0]);
  CheckAbreCn(fields[0]);
  CheckReadKey(fields[0], fields[1], fields[3]);
  CheckReplaceAll(fields[0], fields[2], fields[3]);
  return 0;
}
