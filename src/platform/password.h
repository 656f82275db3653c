// Keeps passwords out of what people read: error texts, log lines and events. Whatever may hold one passes here first.
//
//   HidePassword(L"cannot open Server=a;Uid=ana;Pwd={x;y};Port=1")  gives
//                L"cannot open Server=a;Uid=ana;Pwd=***;Port=1"
#pragma once

#include <string>
#include <string_view>

namespace kodra::platform {

// The text with the value of every key that ends in "pwd", "password" or "passwd", in any letter case and with or
// without a digit after it, replaced by three asterisks. A value ends as in a connection string: at its closing quote
// or brace, else at the next ";". Where its end is in doubt more is hidden rather than less.
std::wstring HidePassword(std::wstring_view text);

// The same, and then every place where a password of that connection string stands without its key, whole or one of the
// pieces that a careless reader makes of it at ";", "=", quotes and braces. Pieces of fewer than 4 characters are left:
// they stand in too many words.
std::wstring HidePassword(std::wstring_view text, std::wstring_view connectionString);

}  // namespace kodra::platform
