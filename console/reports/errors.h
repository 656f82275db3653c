// Every error that the component raises, with what to do about it: the one table behind the reference pages.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kodra::console::guide {

struct Error {
  std::int32_t number;
  // As the component writes it, with … for the part that varies.
  std::string_view text;
  // Where the error comes from and what to do, in Brazilian Portuguese (UTF-8), without a full stop.
  std::string_view remedy;
};

// The errors that reach a client under their own number: those of the report methods, and those raised outside them.
std::span<const Error> Errors();
// The causes of report errors. A client sees their text in the description; the report drops the number and, except in
// CCaixaRpt, the source.
std::span<const Error> Causes();

// A number as the pages show it: "80041FAB (-2147213397)", or "429" for an error of the runtime.
std::string NumberWords(std::int32_t number);

}  // namespace kodra::console::guide
