// How printed pages look: sizes and colours, the same in HTML and in PDF.
#pragma once

#include "console/formats/pages/canvas.h"

namespace kodra::console::pages::style {

inline constexpr Colour kInk = 0x1B1F24, kAccent = 0x1F4E5F, kMuted = 0x47525C, kRule = 0x8A97A3, kStripe = 0xF3F6F8,
                        kBar = 0x2A7F95;
// Around the sheets of an HTML page on a screen.
inline constexpr Colour kDesk = 0xD8DCE0;

inline constexpr Length kTitleSize = 14_pt, kBlockSize = 10_pt, kTextSize = 9_pt, kSmallSize = 8_pt, kFootSize = 7.5_pt;

inline constexpr Length kTopMargin = 14_mm, kSideMargin = 12_mm, kBottomMargin = 16_mm;
inline constexpr Length kLogoWidth = 50_mm, kLogoHeight = 16_mm;  // at most
inline constexpr Length kCellTop = 1_mm, kCellSide = 1.5_mm;
inline constexpr Length kThickRule = 0.4_mm, kThinRule = 0.2_mm;
inline constexpr Length kSigningRoom = 14_mm, kSignatureGap = 8_mm;

// From one base line to the next.
constexpr Length LineHeight(Length size) { return size * 13 / 10; }

}  // namespace kodra::console::pages::style
