#include "console/formats/labels/label_design.h"

#include <fmt/format.h>
#include <algorithm>

#include "console/command_line/usage_error.h"
#include "console/formats/labels/millimetres.h"

namespace kodra::console::labels {
namespace {

using namespace pages;

// The kind and the number that must fit side by side.
constexpr const wchar_t* kLongestKind = L"ABERTURA DE CONTÊINER";
constexpr const wchar_t* kLongNumber = L"0000000000";
constexpr Length kLeastTextWidth = 20_mm;
constexpr Length kLargest = 16_pt, kModerate = 8_pt, kSmall = 6.5_pt, kStep = 0.25_pt;
constexpr Length kLowestBars = 4_mm, kHighestBars = 20_mm;
constexpr Length kSmallestSquare = 12_mm, kLargestSquare = 30_mm;
constexpr Length kBesideCode = 2_mm, kBesideLogo = 1.5_mm;

struct Lines {
  int description, facts;
};

// The design for letters of that size, and the height that its texts need.
class Draft {
 public:
  Draft(Size label, const LabelParts& parts, Length rest) {
    const Length padding = PaddingOf(label);
    const Size inner = {label.width - 2 * padding, label.height - 2 * padding};
    design_ = {label, {padding, padding, inner.width, inner.height}, {}, {}, rest, false};
    Rectangle& texts = design_.texts;
    if (parts.code == CodeKind::kCode128) {
      const Length bars = std::clamp(inner.height * 22 / 100, kLowestBars, kHighestBars);
      texts.height -= bars + LineHeight(rest) + design_.Gap();
      design_.code = {padding, texts.Bottom() + design_.Gap(), inner.width, bars};
    } else if (parts.code == CodeKind::kQr) {
      const Length side = std::min(inner.height, std::clamp(inner.width / 4, kSmallestSquare, kLargestSquare));
      texts.width -= side + kBesideCode;
      design_.code = {texts.Right() + kBesideCode, padding + (inner.height - side) / 2, side, side};
    }
    if (parts.logo != nullptr) PlaceLogo(*parts.logo);
    const Length kindWidth = TextWidth(kLongestKind, Face::kBold, rest);
    const Length numberWidth = TextWidth(kLongNumber, Face::kBold, design_.Number());
    design_.kindIsAbove = kindWidth + 2 * rest + numberWidth > HeadWidth();
  }

  const LabelDesign& Design() const { return design_; }

  bool HasRoomFor(Lines lines) const { return HeightOf(lines) <= design_.texts.height; }

  // What the label lacks in height.
  Length Lacking(Lines lines) const { return HeightOf(lines) - design_.texts.height; }

 private:
  // The logo is as high as the organisation and the number, or a quarter of the label wide.
  void PlaceLogo(const Picture& logo) {
    const Size most = {design_.texts.width / 4,
                       LineHeight(design_.rest) + design_.Gap() + LineHeight(design_.Number())};
    // In 64 bits: a picture of many dots times a length.
    const auto widthAtMostHigh = static_cast<Length>(static_cast<long long>(most.height) * logo.width / logo.height);
    const Length width = std::min(most.width, widthAtMostHigh);
    const auto height = static_cast<Length>(static_cast<long long>(width) * logo.height / logo.width);
    design_.logo = {design_.texts.left, design_.texts.top, width, std::min(height, most.height)};
  }

  Length HeadWidth() const {
    return design_.texts.width - (design_.logo.width == 0 ? 0 : design_.logo.width + kBesideLogo);
  }

  Length HeightOf(Lines lines) const {
    const int small = 1 + (design_.kindIsAbove ? 1 : 0) + lines.facts;
    const int gaps = 3 + (design_.kindIsAbove ? 1 : 0);
    return small * LineHeight(design_.rest) + LineHeight(design_.Number()) +
           lines.description * LineHeight(design_.Description()) + gaps * design_.Gap();
  }

  LabelDesign design_;
};

}  // namespace

LabelDesign DesignOf(Size label, const LabelParts& parts) {
  const Draft smallest(label, parts, kSmallestLetters);
  const Length lackingWidth = kLeastTextWidth - smallest.Design().texts.width;
  const Length lackingHeight = smallest.Lacking({1, 1});
  if (lackingWidth > 0 || lackingHeight > 0) {
    const bool narrow = lackingWidth > 0;
    throw UsageError(
        fmt::format("uma etiqueta de {} mm é pequena demais: precisa de ao menos {} mm de {}{}", MillimetresText(label),
                    MillimetresText(narrow ? label.width + lackingWidth : label.height + lackingHeight),
                    narrow ? "largura" : "altura",
                    narrow || parts.code != CodeKind::kCode128 ? "" : ", ou de ficar sem código de barras"));
  }
  // Large letters are for labels on which long texts have room for several lines; small ones, for small labels.
  struct Attempt {
    Length from, to;
    Lines lines;
  };
  const Length widest = std::max(kModerate, smallest.Design().texts.width / 26);
  for (const auto& [from, to, lines] :
       {Attempt{std::min(kLargest, widest), kModerate, {3, 2}}, Attempt{kModerate, kSmall, {2, 2}},
        Attempt{kSmall, kSmallestLetters, {1, parts.place ? 2 : 1}}}) {
    for (Length rest = from; rest >= to; rest -= kStep) {
      const Draft draft(label, parts, rest);
      if (draft.HasRoomFor(lines)) return draft.Design();
    }
  }
  return smallest.Design();
}

}  // namespace kodra::console::labels
