// Lengths on paper, in thousandths of a millimetre: whole numbers, with which every machine computes the same page.
#pragma once

#include <string>

namespace kodra::console::pages {

using Length = int;

consteval Length operator""_mm(long double millimetres) { return static_cast<Length>(millimetres * 1000 + 0.5L); }
consteval Length operator""_mm(unsigned long long millimetres) { return static_cast<Length>(millimetres * 1000); }
// The printers' measure of letters: 72 points are 25.4 mm.
consteval Length operator""_pt(long double points) { return static_cast<Length>(points * 25400 / 72 + 0.5L); }
consteval Length operator""_pt(unsigned long long points) { return static_cast<Length>(points * 25400.0L / 72 + 0.5L); }

// As style sheets and drawings write it: "12.345".
std::string Millimetres(Length length);

struct Size {
  Length width, height;
  bool operator==(const Size&) const = default;
};

// From the left and the upper edge of the page.
struct Point {
  Length x, y;
};

struct Rectangle {
  Length left, top, width, height;
  Length Right() const { return left + width; }
  Length Bottom() const { return top + height; }
};

inline constexpr Size kA4 = {210'000, 297'000};

}  // namespace kodra::console::pages
