#include "console/formats/pages/pdf_canvas.h"

#include <hpdf.h>
#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <utility>

#include "console/command_line/file_error.h"
#include "console/formats/pages/letters.h"

namespace kodra::console::pages {
namespace {

// PDF measures in points, from the lower left corner.
float Points(Length length) { return static_cast<float>(length * 72.0 / 25400.0); }

float Part(Colour colour, int shift) { return static_cast<float>((colour >> shift & 0xFF) / 255.0); }

}  // namespace

// The library's document, with the fonts and pictures that are in use.
class PdfCanvas::Document {
 public:
  explicit Document(std::wstring_view title) : document_(HPDF_New(nullptr, nullptr)) {
    if (!document_) throw FileError(kNoMemory);
    HPDF_SetCompressionMode(document_.get(), HPDF_COMP_ALL);
    HPDF_SetCurrentEncoder(Get(), CodePages().front());
    std::string bytes;
    for (const wchar_t character : title) {
      const Letter letter = LetterOf(character);
      bytes += letter.codePage == 0 && letter.byte != 0 ? static_cast<char>(letter.byte) : '?';
    }
    HPDF_SetInfoAttr(Get(), HPDF_INFO_TITLE, bytes.c_str());
    // The library would name its version, which is another one on Windows than on Linux.
    HPDF_SetInfoAttr(Get(), HPDF_INFO_PRODUCER, "kodrarpt");
  }

  HPDF_Doc Get() const { return document_.get(); }
  HPDF_Page Page() const { return page_; }
  float FromTop(Length y) const { return Points(height_ - y); }

  void BeginPage(Size size) {
    page_ = HPDF_AddPage(Get());
    height_ = size.height;
    HPDF_Page_SetWidth(page_, Points(size.width));
    HPDF_Page_SetHeight(page_, Points(size.height));
  }

  HPDF_Font Font(Face face, int codePage) {
    const char*& name = names_[static_cast<std::size_t>(face)];
    if (name == nullptr) name = Load(face);
    // The library returns the same font for the same names.
    return HPDF_GetFont(Get(), name, CodePages()[static_cast<std::size_t>(codePage)]);
  }

  HPDF_Image Image(const Picture& picture) {
    HPDF_Image& image = images_[&picture];
    if (image == nullptr) {
      image = HPDF_LoadRawImageFromMem(Get(), picture.rgb.data(), static_cast<HPDF_UINT>(picture.width),
                                       static_cast<HPDF_UINT>(picture.height), HPDF_CS_DEVICE_RGB, 8);
    }
    return image;
  }

  // Raises FileError if a call has failed, which only a lack of memory causes.
  void Check() const {
    if (HPDF_GetError(Get()) != HPDF_OK) throw FileError(kNoMemory);
  }

 private:
  static constexpr const wchar_t* kNoMemory = L"a memória não basta para o PDF; escolha menos linhas, ou csv ou xlsx";

  struct Close {
    void operator()(HPDF_Doc document) const { HPDF_Free(document); }
  };

  // Loads a font from memory, as the library does from a file.
  const char* Load(Face face) {
    const std::span<const unsigned char> file = FontFile(face);
    const HPDF_MMgr memory = Get()->mmgr;
    const HPDF_Stream stream = HPDF_MemStream_New(memory, static_cast<HPDF_UINT>(file.size()));
    HPDF_Stream_Write(stream, file.data(), static_cast<HPDF_UINT>(file.size()));
    const HPDF_FontDef font = HPDF_TTFontDef_Load(memory, stream, HPDF_TRUE);
    if (font == nullptr) throw FileError(kNoMemory);
    HPDF_Doc_RegisterFontDef(Get(), font);
    // Marks the name of a font of which only a part is embedded.
    std::array<char, 7> tag = {"KODRAA"};
    if (face == Face::kBold) tag[5] = 'B';
    HPDF_TTFontDef_SetTagName(font, tag.data());
    return font->base_font;
  }

  std::unique_ptr<_HPDF_Doc_Rec, Close> document_;
  std::array<const char*, 2> names_ = {};
  std::map<const Picture*, HPDF_Image> images_;
  HPDF_Page page_ = nullptr;
  Length height_ = 0;
};

PdfCanvas::PdfCanvas(Output& output, std::wstring_view title)
    : output_(output), document_(std::make_unique<Document>(title)) {}

PdfCanvas::~PdfCanvas() = default;

void PdfCanvas::BeginPage(Size size) { document_->BeginPage(size); }

void PdfCanvas::Text(Point start, std::wstring_view text, const TextStyle& style) {
  const HPDF_Page page = document_->Page();
  HPDF_Page_SetRGBFill(page, Part(style.colour, 16), Part(style.colour, 8), Part(style.colour, 0));
  HPDF_Page_BeginText(page);
  // One run for each change of the code page.
  std::size_t from = 0;
  while (from < text.size()) {
    const int codePage = LetterOf(text[from]).codePage;
    std::string bytes;
    std::size_t end = from;
    while (end < text.size() && LetterOf(text[end]).codePage == codePage) {
      bytes += static_cast<char>(LetterOf(text[end++]).byte);
    }
    HPDF_Page_SetFontAndSize(page, document_->Font(style.face, codePage), Points(style.size));
    HPDF_Page_TextOut(page, Points(start.x + TextWidth(text.substr(0, from), style.face, style.size)),
                      document_->FromTop(start.y), bytes.c_str());
    from = end;
  }
  HPDF_Page_EndText(page);
}

void PdfCanvas::Line(Point from, Point to, const LineStyle& style) {
  const HPDF_Page page = document_->Page();
  constexpr std::array<HPDF_UINT16, 1> kDash = {3};
  HPDF_Page_SetRGBStroke(page, Part(style.colour, 16), Part(style.colour, 8), Part(style.colour, 0));
  HPDF_Page_SetLineWidth(page, Points(style.width));
  HPDF_Page_SetDash(page, style.dashed ? kDash.data() : nullptr, style.dashed ? 1 : 0, 0);
  HPDF_Page_MoveTo(page, Points(from.x), document_->FromTop(from.y));
  HPDF_Page_LineTo(page, Points(to.x), document_->FromTop(to.y));
  HPDF_Page_Stroke(page);
}

void PdfCanvas::Fill(std::span<const Rectangle> areas, Colour colour) {
  if (areas.empty()) return;
  const HPDF_Page page = document_->Page();
  HPDF_Page_SetRGBFill(page, Part(colour, 16), Part(colour, 8), Part(colour, 0));
  for (const Rectangle& area : areas) {
    HPDF_Page_Rectangle(page, Points(area.left), document_->FromTop(area.Bottom()), Points(area.width),
                        Points(area.height));
  }
  HPDF_Page_Fill(page);
}

void PdfCanvas::Draw(const Picture& picture, Rectangle place) {
  HPDF_Page_DrawImage(document_->Page(), document_->Image(picture), Points(place.left),
                      document_->FromTop(place.Bottom()), Points(place.width), Points(place.height));
}

void PdfCanvas::Finish() {
  HPDF_SaveToStream(document_->Get());
  document_->Check();
  std::array<HPDF_BYTE, 65536> buffer;
  for (;;) {
    auto size = static_cast<HPDF_UINT32>(buffer.size());
    HPDF_ReadFromStream(document_->Get(), buffer.data(), &size);
    if (size == 0) break;
    output_.Write({reinterpret_cast<const char*>(buffer.data()), size});
  }
}

}  // namespace kodra::console::pages
