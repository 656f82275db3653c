// Keeps the passwords of a connection string out of what people read: error texts, log lines and events.
//
// Providers, siblings and clients' objects may repeat the connection string that they were given. Its passwords are
// hidden once, where such a text enters the component and before the component adds words of its own, which are never
// changed.
//
//   HidePassword(L"cannot open Server=a;Pwd={x;y};Port=1", L"Server=a;Pwd={x;y};Port=1")
//     returns L"cannot open Server=a;Pwd=***;Port=1"
#pragma once

#include <string>
#include <string_view>

#include "values/erro.h"

namespace kodra::values {

// Whether a key of the connection string ends in "pwd", "password" or "passwd", in any letter case and with or without
// a digit after it, and has a value.
bool HasPassword(std::wstring_view connectionString);

// The text with three asterisks in place of each password of that connection string that follows a password key and an
// equals sign, written as in the connection string or without its quotes or braces. Nothing else of the text changes.
std::wstring HidePassword(std::wstring_view text, std::wstring_view connectionString);

// The exception being handled, as CurrentErro() returns it; the source and description of a ForeignErro without the
// passwords of that connection string. REQUIRES: called inside a catch clause.
Erro CurrentErro(std::wstring_view connectionString);

}  // namespace kodra::values
