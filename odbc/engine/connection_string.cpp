#include "odbc/engine/connection_string.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "odbc/engine/errors.h"
#include "values/upper.h"

namespace kodra::odbc {
namespace {

struct Pair {
  std::wstring key;
  std::wstring value;  // without quotes; braces kept
};
using Pairs = std::vector<Pair>;

constexpr std::wstring_view kBlanks = L" \t\r\n";

std::wstring_view Trim(std::wstring_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Reads "key=value" pairs one by one from the front of a text.
class PairReader {
 public:
  explicit PairReader(std::wstring_view text) : rest_(text) {}

  // False at the end of the text.
  bool Next(Pair& pair) {
    const std::size_t start = rest_.find_first_not_of(L"; \t\r\n");
    if (start == std::wstring_view::npos) return false;
    rest_.remove_prefix(start);
    const std::size_t equals = rest_.find(L'=');
    if (equals == std::wstring_view::npos || rest_.find(L';') < equals) Raise(ProviderFault::kBadConnectionString);
    pair.key = Trim(rest_.substr(0, equals));
    rest_.remove_prefix(equals + 1);
    pair.value = Value();
    return true;
  }

 private:
  std::wstring Value() {
    const std::size_t start = rest_.find_first_not_of(kBlanks);
    const wchar_t opening = start == std::wstring_view::npos ? L'\0' : rest_[start];
    if (opening == L'"' || opening == L'\'') return Enclosed(start, opening, false);
    if (opening == L'{') return Enclosed(start, L'}', true);
    const std::size_t end = std::min(rest_.find(L';'), rest_.size());
    std::wstring value(Trim(rest_.substr(0, end)));
    rest_.remove_prefix(end);
    return value;
  }

  // A value up to its closing character; a doubled one is one character of the value. Only blanks may follow up to the
  // ";".
  std::wstring Enclosed(std::size_t start, wchar_t closing, bool keepEnclosure) {
    std::wstring value;
    std::size_t i = start + 1;
    for (;; ++i) {
      if (i >= rest_.size()) Raise(ProviderFault::kBadConnectionString);
      if (rest_[i] == closing) {
        if (i + 1 >= rest_.size() || rest_[i + 1] != closing) break;
        ++i;
        if (keepEnclosure) value.push_back(closing);
      }
      value.push_back(rest_[i]);
    }
    const std::size_t end = std::min(rest_.find(L';', i + 1), rest_.size());
    if (!Trim(rest_.substr(i + 1, end - i - 1)).empty()) Raise(ProviderFault::kBadConnectionString);
    rest_.remove_prefix(end);
    return keepEnclosure ? L"{" + value + L"}" : value;
  }

  std::wstring_view rest_;
};

enum class Place { kOutside, kInsideExtendedProperties };

void ReadPairs(std::wstring_view text, Pairs& pairs, Place place = Place::kOutside) {
  PairReader reader(text);
  Pair pair;
  while (reader.Next(pair)) {
    if (values::EqualIgnoringCase(pair.key, L"Extended Properties")) {
      if (place == Place::kInsideExtendedProperties) Raise(ProviderFault::kBadConnectionString);
      ReadPairs(pair.value, pairs, Place::kInsideExtendedProperties);
    } else {
      pairs.push_back(pair);
    }
  }
}

bool Has(const Pairs& pairs, std::wstring_view key) {
  return std::any_of(pairs.begin(), pairs.end(),
                     [&](const Pair& pair) { return values::EqualIgnoringCase(pair.key, key); });
}

void Remove(Pairs& pairs, std::wstring_view key) {
  std::erase_if(pairs, [&](const Pair& pair) { return values::EqualIgnoringCase(pair.key, key); });
}

// Renames a key that only OLE DB knows. When the string has the driver's own key too, that one is used.
void Rename(Pairs& pairs, std::wstring_view oleDbKey, std::wstring_view odbcKey) {
  if (Has(pairs, odbcKey)) Remove(pairs, oleDbKey);
  for (Pair& pair : pairs) {
    if (values::EqualIgnoringCase(pair.key, oleDbKey)) pair.key = odbcKey;
  }
}

void Replace(Pairs& pairs, std::wstring_view key, const std::wstring& value) {
  if (value.empty()) return;
  Remove(pairs, key);
  pairs.push_back({std::wstring(key), value});
}

// Whether one pair of braces encloses the whole value: each closing brace inside is doubled.
bool IsEnclosed(std::wstring_view value) {
  if (value.size() < 2 || value.front() != L'{' || value.back() != L'}') return false;
  const std::wstring_view inside = value.substr(1, value.size() - 2);
  for (std::size_t i = inside.find(L'}'); i != inside.npos; i = inside.find(L'}', i + 2)) {
    if (inside.substr(i + 1, 1) != L"}") return false;
  }
  return true;
}

// Adds braces only where the value needs them: drivers read plain values, but not all of them remove braces.
std::wstring Written(const std::wstring& value) {
  if (IsEnclosed(value)) return value;
  const bool plain = value.find_first_of(L";{}") == std::wstring::npos && Trim(value).size() == value.size();
  if (plain) return value;
  std::wstring out = L"{";
  for (wchar_t c : value) {
    out.push_back(c);
    if (c == L'}') out.push_back(c);
  }
  return out + L"}";
}

}  // namespace

std::wstring ToOdbcConnectionString(const std::wstring& text, const std::wstring& user, const std::wstring& password) {
  Pairs pairs;
  ReadPairs(text, pairs);
  Remove(pairs, L"Provider");
  Remove(pairs, L"Persist Security Info");
  Rename(pairs, L"User ID", L"UID");
  Rename(pairs, L"Password", L"PWD");
  Rename(pairs, L"Initial Catalog", L"DATABASE");
  if (Has(pairs, L"Driver")) Remove(pairs, L"Data Source");
  Rename(pairs, L"Data Source", L"DSN");
  Replace(pairs, L"UID", user);
  Replace(pairs, L"PWD", password);

  std::wstring out;
  for (const Pair& pair : pairs) out += pair.key + L"=" + Written(pair.value) + L";";
  return out;
}

}  // namespace kodra::odbc
