// Numbers as the system writes and reads them: decimal comma, the same on every machine.
//
// A text is read in one of the automation runtime's two ways: LeadingNumber takes any text and knows only the decimal
// point; ParseNumber takes a whole text in the Brazilian form. Both take hexadecimal (&H) and octal (&O). Databases
// write numbers in the invariant form, which ParseInvariantNumber reads.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "values/value.h"

namespace kodra::values {

// The number that a text begins with; 0 when it begins with none. Blanks, tabs and line ends are skipped, between
// digits too; "." is the decimal point and "e" or "d" begins an exponent.
//   "12abc" 12    "1 234" 1234    "1.5" 1.5    "1,5" 1    "1e2" 100    "&H1F" 31    "&HFFFF" -1    "abc" 0
// Raises RuntimeError::kOverflow for a number beyond a double, or a hexadecimal or octal one beyond 32 bits.
double LeadingNumber(std::wstring_view text);

// Reads a whole text as a number in Brazilian form: "," before the decimals, "." between groups of digits (anywhere), a
// sign before or after, parentheses for negative, "R$" before or after, blanks around; returns nothing when it is not a
// number.
//   "1.234,5" 1234.5    "1.5" 15    "(2)" -2    "R$ 10" 10    "&H10" 16
// Raises RuntimeError::kOverflow as LeadingNumber does.
std::optional<double> ParseNumber(std::wstring_view text);

// Reads a whole text as a number in the invariant form: an optional "-", digits, "." before the decimals, an optional
// exponent; returns nothing when it is not a number or is beyond a double. The value is of the first of int32, int64,
// uint64 and double that holds it; one with a decimal point or an exponent is a double.
//   "-5" -5    "2147483648" an int64    "1.0" a double    "1e3" 1000.0    "+5", " 5", "1,5", "&H10" nothing
std::optional<Value> ParseInvariantNumber(std::wstring_view text);

// A number as text: up to 15 significant digits, decimal comma. Numbers of 1E+15 and above have an exponent, and so
// have small ones that need more than 15 decimals: "1,5", "0,00001", "1E+15", "8,33333333333333E-02".
std::wstring NumberToText(double number);
// The same with 7 digits and an exponent from 1E+07 on: "0,1", "0,3333333", "1E+07".
std::wstring NumberToText(float number);
// Every digit, without zeros at the end of the decimals: "12,5", "-0,0001".
std::wstring NumberToText(std::int32_t number);
std::wstring NumberToText(std::int64_t number);
std::wstring NumberToText(std::uint64_t number);
std::wstring NumberToText(Currency number);
std::wstring NumberToText(const Decimal& number);

}  // namespace kodra::values
