#include "values/password.h"

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

#include "values/characters.h"
#include "values/upper.h"

namespace kodra::values {
namespace {

constexpr std::wstring_view kHidden = L"***";
constexpr std::wstring_view kQuotes = L"\"'{}";
constexpr std::wstring_view kBlanks = L" \t\r\n";

std::size_t SkipBlanks(std::wstring_view text, std::size_t at) {
  return std::min(text.find_first_not_of(kBlanks, at), text.size());
}

// The length of the run of equal characters that begins at `at`.
std::size_t RunAt(std::wstring_view text, std::size_t at) {
  const std::size_t end = text.find_first_not_of(text[at], at);
  return (end == std::wstring_view::npos ? text.size() : end) - at;
}

bool EndsPair(std::wstring_view text, std::size_t at) { return at >= text.size() || text[at] == L';'; }

// The position after the quoted or braced part that begins at `start`; the end of the text when it is never closed. A
// doubled quote belongs to the value, unless the value begins with it: then the whole pair is within quotes too.
std::size_t PastClosing(std::wstring_view text, std::size_t start) {
  const wchar_t opening = text[start];
  const wchar_t closing = opening == L'{' ? L'}' : opening;
  const std::size_t opened = opening == L'{' ? 1 : RunAt(text, start);
  std::size_t at = start + opened;
  if (opened % 2 == 0 && EndsPair(text, at)) return at;
  const std::size_t depth = opened % 2 == 0 ? 2 : 1;
  while ((at = text.find(closing, at)) != std::wstring_view::npos) {
    const std::size_t run = RunAt(text, at);
    at += run;
    if (run % (2 * depth) >= depth || run < depth) return at;
  }
  return text.size();
}

std::size_t PastValue(std::wstring_view text, std::size_t start) {
  std::size_t at = start;
  if (at < text.size() && (text[at] == L'{' || text[at] == L'"' || text[at] == L'\'')) at = PastClosing(text, at);
  // Text after a closing quote belongs to the value: a reader that does not know quotes includes it.
  return std::min(text.find(L';', at), text.size());
}

// The position of the value of the password key that begins at `at`; npos when none begins there.
std::size_t ValueOfKeyAt(std::wstring_view text, std::size_t at) {
  constexpr std::array<std::wstring_view, 3> kKeys = {L"PWD", L"PASSWORD", L"PASSWD"};
  for (const std::wstring_view key : kKeys) {
    const std::wstring_view word = text.substr(at, key.size());
    if (!std::equal(word.begin(), word.end(), key.begin(), key.end(),
                    [](wchar_t c, wchar_t expected) { return UpperCaseAscii(c) == expected; }))
      continue;
    std::size_t next = at + key.size();
    if (next < text.size() && IsDigit(text[next])) ++next;
    next = SkipBlanks(text, next);
    if (next < text.size() && text[next] == L'=') return SkipBlanks(text, next + 1);
  }
  return std::wstring_view::npos;
}

// The position of the value of the next password key from `from` on; npos when there is none.
std::size_t NextValue(std::wstring_view text, std::size_t from) {
  for (std::size_t at = from; at < text.size(); ++at) {
    const std::size_t value = ValueOfKeyAt(text, at);
    if (value != std::wstring_view::npos) return value;
  }
  return std::wstring_view::npos;
}

std::wstring_view Trimmed(std::wstring_view value, std::wstring_view characters) {
  const std::size_t first = value.find_first_not_of(characters);
  if (first == std::wstring_view::npos) return {};
  return value.substr(first, value.find_last_not_of(characters) + 1 - first);
}

// A value without the quotes or braces around it, and with a single one wherever it doubles them.
std::wstring Bare(std::wstring_view value) {
  std::wstring bare;
  for (const wchar_t c : Trimmed(Trimmed(value, kBlanks), kQuotes))
    if (bare.empty() || c != bare.back() || kQuotes.find(c) == std::wstring_view::npos) bare += c;
  return bare;
}

// The last value of a quoted list of pairs without the quote that ends the list; any other value is unchanged.
std::wstring_view WithoutListsQuote(std::wstring_view value) {
  const wchar_t first = value.empty() ? L'\0' : value.front();
  if (kQuotes.find(first) == std::wstring_view::npos) return Trimmed(value, kQuotes);
  const std::wstring doubled(2, first);
  const bool withinList = value.starts_with(doubled) && value.ends_with(doubled + first);
  return withinList ? value.substr(0, value.size() - 1) : value;
}

// The passwords of a connection string as a text may repeat them, longer ones before shorter ones.
std::vector<std::wstring> PasswordsOf(std::wstring_view connectionString) {
  std::vector<std::wstring> passwords;
  for (std::size_t start = NextValue(connectionString, 0); start != std::wstring_view::npos;) {
    const std::size_t end = PastValue(connectionString, start);
    const std::wstring_view written = WithoutListsQuote(Trimmed(connectionString.substr(start, end - start), kBlanks));
    std::wstring bare = Bare(written);
    if (!bare.empty()) {
      passwords.emplace_back(written);
      passwords.emplace_back(Trimmed(written, kQuotes));
      passwords.push_back(std::move(bare));
    }
    start = NextValue(connectionString, end);
  }
  std::ranges::stable_sort(passwords, std::greater{}, &std::wstring::size);
  return passwords;
}

bool ContinuesWord(std::wstring_view text, std::size_t at) {
  if (at >= text.size()) return false;
  const wchar_t c = UpperCaseAscii(text[at]);
  return (c >= L'A' && c <= L'Z') || IsDigit(c);
}

// The length of the password that the text contains at `at`; 0 when there is none.
std::size_t PasswordAt(std::wstring_view text, std::size_t at, const std::vector<std::wstring>& passwords) {
  const auto found = std::ranges::find_if(passwords, [&](const std::wstring& password) {
    return text.substr(at).starts_with(password) && !ContinuesWord(text, at + password.size());
  });
  return found == passwords.end() ? 0 : found->size();
}

}  // namespace

bool HasPassword(std::wstring_view connectionString) {
  return NextValue(connectionString, 0) != std::wstring_view::npos;
}

std::wstring HidePassword(std::wstring_view text, std::wstring_view connectionString) {
  const std::vector<std::wstring> passwords = PasswordsOf(connectionString);
  std::wstring shown;
  std::size_t copied = 0;
  for (std::size_t value = NextValue(text, 0); value != std::wstring_view::npos; value = NextValue(text, value)) {
    std::size_t length = PasswordAt(text, value, passwords);
    if (length == 0) {
      // The text may have quotes or braces where the connection string has none.
      value = std::min(text.find_first_not_of(kQuotes, value), text.size());
      length = PasswordAt(text, value, passwords);
    }
    if (length == 0) continue;
    shown.append(text.substr(copied, value - copied)).append(kHidden);
    value += length;
    copied = value;
  }
  return shown.append(text.substr(copied));
}

Erro CurrentErro(std::wstring_view connectionString) {
  try {
    throw;
  } catch (const ForeignErro& erro) {
    return {erro.Number(), HidePassword(erro.Source(), connectionString),
            HidePassword(erro.Description(), connectionString)};
  } catch (...) {
    return kodra::CurrentErro();
  }
}

}  // namespace kodra::values
