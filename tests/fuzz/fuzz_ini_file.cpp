// Reading a settings file: its encoding, its sections and keys.
//
// Input: the bytes of the file.
#include <set>
#include <utility>

#include "siblings/ini_file.h"
#include "tests/fuzz/target.h"
#include "values/upper.h"
#include "values/utf8.h"

namespace kodra::fuzz {
namespace {

using siblings::DecodeText;
using siblings::IniFile;

// Enough names for any file that a person writes.
constexpr std::size_t kMostNames = 40;

std::wstring_view WithoutBlanks(std::wstring_view text) {
  const std::size_t first = text.find_first_not_of(L" \t\r");
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(L" \t\r") - first + 1);
}

// Every pair of a section and a key that a file may contain.
std::set<std::pair<std::wstring, std::wstring>> NamesIn(std::wstring_view text) {
  std::set<std::pair<std::wstring, std::wstring>> names;
  std::wstring section;
  while (!text.empty() && names.size() < kMostNames) {
    const std::wstring_view line = WithoutBlanks(text.substr(0, text.find(L'\n')));
    text.remove_prefix(std::min(text.find(L'\n'), text.size() - 1) + 1);
    if (line.starts_with(L'[') && line.ends_with(L']')) section = WithoutBlanks(line.substr(1, line.size() - 2));
    names.emplace(section, WithoutBlanks(line.substr(0, line.find(L'='))));
  }
  return names;
}

void CheckEncoding(std::string_view bytes, const std::wstring& text) {
  constexpr const char* kMark = "\xef\xbb\xbf";
  RequireEqual(DecodeText(kMark + values::ToUtf8(text)), text, "text encoded as UTF-8 is decoded unchanged");
  for (const wchar_t c : text) {
    Require(c <= 0x10ffff && !(c >= 0xd800 && c <= 0xdfff), "bytes are decoded to valid characters");
  }
  Require(text.size() <= bytes.size(), "a character has at least one byte");
}

// Two readings of a file have the same values for the same names.
void RequireSame(const IniFile& one, const IniFile& other, const std::wstring& text, std::string_view property) {
  for (const auto& [section, key] : NamesIn(text)) {
    Require(one.Find(section, key) == other.Find(section, key), property);
  }
}

void CheckValues(const IniFile& file, const std::wstring& text) {
  for (const auto& [section, key] : NamesIn(text)) {
    const auto value = file.Find(section, key);
    Require(file.Find(values::UpperCase(section), values::UpperCase(key)) == value,
            "the letter case of names is ignored");
    if (!value) continue;
    Require(value->find(L'\n') == value->npos, "a value ends where its line ends");
    Require(text.find(*value) != text.npos, "a value is a part of the file");
  }
}

void CheckOtherForms(const IniFile& file, const std::wstring& text) {
  RequireSame(IniFile(FilledIn(text, L'\n', L"\r\n")), file, text, "Windows line ends make no difference");
  RequireSame(IniFile(FilledIn(text, L'\n', L"\n; [Nomes]\n\n# Grupo=x\n")), file, text, "comments are ignored");
  RequireSame(IniFile(FilledIn(text, L'\n', L" \t\n\t ")), file, text, "blanks around a line are ignored");
}

// A section whose name the file does not contain is read whatever comes before and after it.
void CheckWrittenSection(const std::wstring& text) {
  const std::wstring section = L"Seção " + std::to_wstring(text.size());
  if (values::UpperCase(text).find(values::UpperCase(section)) != text.npos) return;
  const std::wstring withoutSection = L"\n; [" + section + L"]\n[" + section + L"}\nSérie=a\n";
  Require(!IniFile(text + withoutSection).Find(section, L"Série"), "a missing section has no keys");
  for (const wchar_t* value : {L" Dossiê ", L"", L"a=b", L"'", L"\""}) {
    const std::wstring before = L"[ " + section + L" ] \n; Série=b\n#Série=c\nSérie\n SÉRIE = ";
    const auto found =
        IniFile(text + withoutSection + before + L'"' + value + L"\" \nSérie=d\n" + text).Find(section, L"série");
    Require(found.has_value(), "a key is found whatever else the file contains");
    RequireEqual(*found, value, "a quoted value is read unchanged, from the first line with its key");
  }
}

}  // namespace
}  // namespace kodra::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kodra::fuzz;
  const std::wstring text = TextOf(data, size);
  CheckEncoding({reinterpret_cast<const char*>(data), size}, text);
  const IniFile file(text);
  CheckValues(file, text);
  CheckOtherForms(file, text);
  CheckWrittenSection(text);
  return 0;
}
