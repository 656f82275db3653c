#include "console/formats/labels/label_drawing.h"

#include <fmt/format.h>
#include <algorithm>

#include "console/command_line/usage_error.h"
#include "console/formats/labels/millimetres.h"
#include "console/formats/pages/symbol.h"
#include "values/utf8.h"

namespace kodra::console::labels {
namespace {

using namespace pages;

constexpr Length kWidestBar = 0.5_mm, kWidestSquare = 1_mm;

LetterSizes From(Length usual) { return {usual, kSmallestLetters}; }

class Drawing {
 public:
  Drawing(Canvas& canvas, const LabelDesign& design, Point corner) : canvas_(canvas), design_(design) {
    texts_ = Moved(design.texts, corner);
    code_ = Moved(design.code, corner);
    logo_ = Moved(design.logo, corner);
  }

  void Texts(const Label& label) {
    const Length gap = design_.Gap();
    const Length right = texts_.Right();
    const Length left = logo_.width == 0 ? texts_.left : logo_.Right() + 1.5_mm;
    Length top = texts_.top;
    const auto line = [&](const FittedText& text, Face face) {
      Write(text, {left, top}, face);
      top += text.Height() + (text.lines.empty() ? 0 : gap);
    };
    line(Noted(FitOrganisation(label, right - left), "o órgão"), Face::kRegular);
    if (design_.kindIsAbove)
      line(Noted(FitLine(label.kind, Face::kBold, From(design_.rest), right - left), "o tipo"), Face::kBold);
    NumberLine(label, left, top);
    top += LineHeight(design_.Number()) + gap;
    if (logo_.width > 0) top = std::max(top, logo_.Bottom() + gap);
    // The facts first, because they are short and the description may be long; it leaves them their lines.
    const std::wstring facts =
        label.facts.empty() || label.place.empty() ? label.facts + label.place : label.facts + L" · " + label.place;
    const Length room = texts_.Bottom() - top;
    const Length oneLine = label.description.empty() ? 0 : LineHeight(design_.Description()) + gap;
    const FittedText below =
        facts.empty()
            ? FittedText()
            : Noted(Fit(facts, Face::kRegular, From(design_.rest), {texts_.width, room - oneLine}), "os dados");
    const Length taken = below.Height() + (facts.empty() ? 0 : gap);
    const FittedText description =
        label.description.empty()
            ? FittedText()
            : Noted(Fit(label.description, Face::kRegular, From(design_.Description()), {texts_.width, room - taken}),
                    "a descrição");
    Write(description, {texts_.left, top}, Face::kRegular);
    top += description.Height() + (label.description.empty() ? 0 : gap);
    Write(below, {texts_.left, top}, Face::kRegular);
  }

  void Logo(const Picture& picture) { canvas_.Draw(picture, logo_); }

  void Bars(const std::wstring& number) {
    const Symbol symbol = Code128(number);
    const int modules = symbol.columns + 2 * symbol.quietZone;
    const Length module = std::min(kWidestBar, code_.width / modules);
    if (module < kLeastBar) throw TooNarrow(number, symbol);
    const Length left = code_.left + (code_.width - modules * module) / 2;
    canvas_.Fill(Drawn(symbol, {left + symbol.quietZone * module, code_.top}, module, code_.height), kBlack);
    const FittedText clear =
        Noted(FitLine(number, Face::kRegular, From(design_.rest), code_.width), "o número sob as barras");
    const Length width = TextWidth(clear.lines.front(), Face::kRegular, clear.letters);
    Write(clear, {code_.left + (code_.width - width) / 2, code_.Bottom()}, Face::kRegular);
  }

  void Squares(const std::wstring& number) {
    const Symbol symbol = QrCode(number);
    const int modules = symbol.columns + 2 * symbol.quietZone;
    const Length module = std::min(kWidestSquare, code_.width / modules);
    if (module < kLeastSquare) {
      throw UsageError(
          fmt::format("o código QR de \"{}\" não cabe na etiqueta: precisa de um quadrado de {} mm, e há {} mm",
                      values::ToUtf8(number), MillimetresText(modules * kLeastSquare), MillimetresText(code_.width)));
    }
    const Length margin = (code_.width - symbol.columns * module) / 2;
    canvas_.Fill(Drawn(symbol, {code_.left + margin, code_.top + margin}, module, module), kBlack);
  }

  std::vector<std::string> CutTexts() const { return cut_; }

 private:
  static Rectangle Moved(Rectangle place, Point corner) {
    return {place.left + corner.x, place.top + corner.y, place.width, place.height};
  }

  // On one line or, if it does not fit there and a line remains for each of the other texts, on two.
  FittedText FitOrganisation(const Label& label, Length width) const {
    const LetterSizes letters = From(design_.rest);
    FittedText line = FitLine(label.organisation, Face::kRegular, letters, width);
    const Length small = LineHeight(design_.rest);
    const Length others = (design_.kindIsAbove ? small + design_.Gap() : 0) + LineHeight(design_.Number()) +
                          LineHeight(design_.Description()) + small + 3 * design_.Gap();
    const Length room = std::min(texts_.height - others, 2 * small);
    if (!line.isCut || room < small) return line;
    return Fit(label.organisation, Face::kRegular, letters, {width, room});
  }

  // Remembers a text that is cut.
  FittedText Noted(FittedText text, const char* name) {
    if (text.isCut) cut_.emplace_back(name);
    return text;
  }

  void Write(const FittedText& text, Point corner, Face face) {
    Length base = corner.y + Ascent(text.letters);
    for (const std::wstring& line : text.lines) {
      canvas_.Text({corner.x, base}, line, {.face = face, .size = text.letters});
      base += LineHeight(text.letters);
    }
  }

  // The number at the left and, unless it is above, the kind at the right, on the same base line.
  void NumberLine(const Label& label, Length left, Length top) {
    const Length width = texts_.Right() - left;
    const Length gap = 2 * design_.rest;
    const Length kindWidth = design_.kindIsAbove ? 0 : gap + TextWidth(label.kind, Face::kBold, design_.rest);
    const FittedText number = Noted(
        FitLine(label.number, Face::kBold, From(design_.Number()), std::max(width - kindWidth, width / 2)), "o número");
    const Length base = top + Ascent(design_.Number());
    Length used = 0;
    for (const std::wstring& text : number.lines) {
      canvas_.Text({left, base}, text, {.face = Face::kBold, .size = number.letters});
      used = TextWidth(text, Face::kBold, number.letters) + gap;
    }
    if (design_.kindIsAbove) return;
    const FittedText kind = Noted(FitLine(label.kind, Face::kBold, From(design_.rest), width - used), "o tipo");
    for (const std::wstring& text : kind.lines) {
      canvas_.Text({texts_.Right() - TextWidth(text, Face::kBold, kind.letters), base}, text,
                   {.face = Face::kBold, .size = kind.letters});
    }
  }

  UsageError TooNarrow(const std::wstring& number, const Symbol& symbol) const {
    const int modules = symbol.columns + 2 * symbol.quietZone;
    return UsageError(
        fmt::format("o código de barras de \"{}\" não cabe na etiqueta: precisa de {} mm de largura, e ela tem {} mm{}",
                    values::ToUtf8(number), MillimetresText(modules * kLeastBar + 2 * PaddingOf(design_.label)),
                    MillimetresText(design_.label.width), QrFits(number) ? "; com o código qr, cabe" : ""));
  }

  bool QrFits(const std::wstring& number) const {
    try {
      const LabelDesign design = DesignOf(design_.label, {.code = CodeKind::kQr});
      const Symbol symbol = QrCode(number);
      return design.code.width / (symbol.columns + 2 * symbol.quietZone) >= kLeastSquare;
    } catch (const UsageError&) {
      return false;
    }
  }

  Canvas& canvas_;
  const LabelDesign& design_;
  Rectangle texts_, code_, logo_;
  std::vector<std::string> cut_;
};

}  // namespace

std::vector<std::string> DrawLabel(Canvas& canvas, const Label& label, const LabelDesign& design,
                                   const LabelParts& parts, Point corner) {
  Drawing drawing(canvas, design, corner);
  if (parts.logo != nullptr) drawing.Logo(*parts.logo);
  drawing.Texts(label);
  if (parts.code == CodeKind::kCode128 && !label.number.empty()) drawing.Bars(label.number);
  if (parts.code == CodeKind::kQr && !label.number.empty()) drawing.Squares(label.number);
  return drawing.CutTexts();
}

}  // namespace kodra::console::labels
