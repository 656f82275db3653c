#include "platform/odbc/names.h"

#include <algorithm>

namespace kodra::platform::odbc {
namespace {

wchar_t Fold(wchar_t c) {
  const bool ascii = c >= L'a' && c <= L'z';
  const bool latin1 = c >= 0xE0 && c <= 0xFE && c != 0xF7;  // 0xF7 is the division sign
  return ascii || latin1 ? static_cast<wchar_t>(c - 0x20) : c;
}

}  // namespace

std::wstring FoldName(std::wstring_view name) {
  std::wstring out(name);
  std::transform(out.begin(), out.end(), out.begin(), Fold);
  return out;
}

bool SameName(std::wstring_view a, std::wstring_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](wchar_t x, wchar_t y) { return Fold(x) == Fold(y); });
}

}  // namespace kodra::platform::odbc
