// The common part of the fuzz targets. A target is one file with one function, which takes any bytes, calls the
// component with them, and requires properties of the outcome. The fuzzing engine calls it with inputs that it makes
// itself (./kodra fuzz); replay_test.cpp calls it with the inputs in corpus/ and found/.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The target's entry, under the name that the engine expects. Always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace kodra::fuzz {

// Inputs are text, so that a reader understands them: UTF-8 or, when they are not UTF-8, Windows-1252.
std::wstring TextOf(const std::uint8_t* data, std::size_t size);

// Returns `count` lines of a text: the last one is the rest, with its line ends, and missing lines are empty.
std::vector<std::wstring> Fields(std::wstring_view text, std::size_t count);

// Raises std::logic_error with the property when it does not hold: a crash for the engine, a failure for a test.
void Require(bool holds, std::string_view property);

// The same for two texts that must be equal; the error shows both.
void RequireEqual(std::wstring_view actual, std::wstring_view expected, std::string_view property);

// Returns the text with every `placeholder` replaced by a value.
std::wstring FilledIn(std::wstring_view text, wchar_t placeholder, std::wstring_view value);

}  // namespace kodra::fuzz
