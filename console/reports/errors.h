// Every error that the component raises, with what to do about it: the one table behind the reference pages.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kodra::console::guide {

struct Error {
  std::int32_t number;
  // As the component writes it, with … for what changes.
  std::string_view text;
  // Where it comes from and what to do, Brazilian Portuguese in UTF-8, a sentence without a full stop.
  std::string_view remedy;
};

// Those that reach a client by this number: the frame of the report methods, and what comes without it.
std::span<const Error> Errors();
// Those that a client reads in the description only: a report's frame has dropped their number and source.
std::span<const Error> Causes();

// "80041FAB (-2147213397)", and "429" for an error of the runtime.
std::string NumberWords(std::int32_t number);

}  // namespace kodra::console::guide
