// How GoogleTest shows a Value. Include it in every test that compares Values.
#pragma once

#include <ostream>

#include "values/value.h"

namespace kodra {

inline void PrintTo(const Value& value, std::ostream* out) {
  if (value.Is<Empty>()) *out << "Empty";
  if (value.Is<Null>()) *out << "Null";
  if (value.Is<bool>()) *out << (value.As<bool>() ? "true" : "false");
  if (value.Is<std::int32_t>()) *out << "int32 " << value.As<std::int32_t>();
  if (value.Is<std::int64_t>()) *out << "int64 " << value.As<std::int64_t>();
  if (value.Is<std::uint64_t>()) *out << "uint64 " << value.As<std::uint64_t>();
  if (value.Is<float>()) *out << "float " << value.As<float>();
  if (value.Is<double>()) *out << "double " << value.As<double>();
  if (value.Is<Currency>()) *out << "Currency of " << value.As<Currency>().tenThousandths << " ten-thousandths";
  if (value.Is<Decimal>()) {
    const auto& number = value.As<Decimal>();
    *out << "Decimal " << (number.negative ? "-" : "") << number.high << ":" << number.low << " of scale "
         << int{number.scale};
  }
  if (value.Is<Date>()) *out << "Date " << value.As<Date>().days;
  if (value.Is<ObjectRef>()) *out << "object " << value.As<ObjectRef>().get();
  if (!value.Is<std::wstring>()) return;
  *out << '"';
  for (wchar_t c : value.As<std::wstring>()) {
    if (c >= L' ' && c <= L'~') {
      *out << static_cast<char>(c);
    } else {
      *out << "\\x{" << std::hex << static_cast<unsigned long>(c) << std::dec << '}';
    }
  }
  *out << '"';
}

}  // namespace kodra
