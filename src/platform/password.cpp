#include "platform/password.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kodra::platform {
namespace {

constexpr std::wstring_view kHidden = L"***";
constexpr std::size_t kShortestPiece = 4;
constexpr std::wstring_view kQuotes = L"\"'{}";

bool IsBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; }
wchar_t UpperAscii(wchar_t c) { return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 0x20) : c; }

std::size_t SkipBlanks(std::wstring_view text, std::size_t at) {
  while (at < text.size() && IsBlank(text[at])) ++at;
  return at;
}

// How often the character at that place stands there in a row.
std::size_t RunAt(std::wstring_view text, std::size_t at) {
  const std::size_t end = text.find_first_not_of(text[at], at);
  return (end == std::wstring_view::npos ? text.size() : end) - at;
}

bool EndsPair(std::wstring_view text, std::size_t at) { return at >= text.size() || text[at] == L';'; }

// Past the end of what the quote or brace at `start` opens; the end of the text when it is never closed. A doubled
// quote is one of the value's own, unless it opened the value: then the whole pair stands between quotes too.
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
  // What follows a closing quote belongs to the value: a reader that knows no quotes takes it in.
  return std::min(text.find(L';', at), text.size());
}

struct Secret {
  std::size_t start;
  std::size_t end;
};

// Where the value starts of a key that starts at `at`; npos when none does.
std::size_t ValueOfKeyAt(std::wstring_view text, std::size_t at) {
  constexpr std::array<std::wstring_view, 3> kKeys = {L"PWD", L"PASSWORD", L"PASSWD"};
  for (const std::wstring_view key : kKeys) {
    const std::wstring_view word = text.substr(at, key.size());
    if (!std::equal(word.begin(), word.end(), key.begin(), key.end(),
                    [](wchar_t c, wchar_t expected) { return UpperAscii(c) == expected; }))
      continue;
    std::size_t next = at + key.size();
    if (next < text.size() && text[next] >= L'0' && text[next] <= L'9') ++next;
    next = SkipBlanks(text, next);
    if (next < text.size() && text[next] == L'=') return SkipBlanks(text, next + 1);
  }
  return std::wstring_view::npos;
}

// The next value of a password key from there on; an empty one at the end of the text when there is none.
Secret NextSecret(std::wstring_view text, std::size_t from) {
  // Most texts have no keys at all.
  if (text.find(L'=', from) == std::wstring_view::npos) return {text.size(), text.size()};
  for (std::size_t at = from; at < text.size(); ++at) {
    // Every key starts with it.
    if (UpperAscii(text[at]) != L'P') continue;
    const std::size_t value = ValueOfKeyAt(text, at);
    if (value != std::wstring_view::npos) return {value, PastValue(text, value)};
  }
  return {text.size(), text.size()};
}

// A value as it may stand in a message: without quotes around it, and with its own quotes single.
std::wstring Bare(std::wstring_view value) {
  const std::size_t first = value.find_first_not_of(kQuotes);
  if (first == std::wstring_view::npos) return {};
  value = value.substr(first, value.find_last_not_of(kQuotes) + 1 - first);
  std::wstring bare;
  for (const wchar_t c : value)
    if (bare.empty() || c != bare.back() || kQuotes.find(c) == std::wstring_view::npos) bare += c;
  return bare;
}

void AddPieces(std::vector<std::wstring>& pieces, std::wstring_view value) {
  for (std::size_t at = 0; at <= value.size();) {
    const std::size_t end = std::min(value.find_first_of(L";=\"'{}", at), value.size());
    pieces.emplace_back(value.substr(at, end - at));
    at = end + 1;
  }
}

// What must not be told of a connection string, the longest first.
std::vector<std::wstring> PiecesOf(std::wstring_view connectionString) {
  std::vector<std::wstring> pieces;
  Secret secret = NextSecret(connectionString, 0);
  for (; secret.start < connectionString.size(); secret = NextSecret(connectionString, secret.end)) {
    const std::wstring_view value = connectionString.substr(secret.start, secret.end - secret.start);
    const std::size_t last = value.find_last_not_of(kQuotes);
    const std::size_t first = value.find_first_not_of(kQuotes);
    if (first != std::wstring_view::npos) pieces.emplace_back(value.substr(first, last + 1 - first));
    pieces.push_back(Bare(value));
    AddPieces(pieces, value);
  }
  std::erase_if(pieces, [](const std::wstring& piece) { return piece.size() < kShortestPiece; });
  std::sort(pieces.begin(), pieces.end(), [](const auto& a, const auto& b) { return a.size() > b.size(); });
  return pieces;
}

}  // namespace

std::wstring HidePassword(std::wstring_view text) {
  std::wstring shown;
  shown.reserve(text.size());
  std::size_t told = 0;
  for (Secret secret = NextSecret(text, 0); secret.start < text.size(); secret = NextSecret(text, secret.end)) {
    shown.append(text.substr(told, secret.start - told)).append(kHidden);
    told = secret.end;
  }
  return shown.append(text.substr(told));
}

std::wstring HidePassword(std::wstring_view text, std::wstring_view connectionString) {
  std::wstring shown = HidePassword(text);
  for (const std::wstring& piece : PiecesOf(connectionString))
    for (std::size_t at = shown.find(piece); at != std::wstring::npos; at = shown.find(piece, at + kHidden.size()))
      shown.replace(at, piece.size(), kHidden);
  return shown;
}

}  // namespace kodra::platform
