#include "console/formats/html/html.h"

#include <fmt/format.h>

#include "console/formats/pages/page_style.h"
#include "values/utf8.h"

namespace kodra::console::html {
namespace {

using values::ToUtf8;

// The style sheet has both in the words of CSS: 9 points, which are 3,175 micrometres, and 1.3 times the size.
static_assert(pages::style::kTextSize == 3175 && pages::style::LineHeight(10) == 13);

std::string CommonStyle() {
  return fmt::format(
      "*{{box-sizing:border-box}}"
      "html{{-webkit-print-color-adjust:exact;print-color-adjust:exact}}"
      "body{{margin:0;color:{};background:#fff;font:9pt/1.3 Arial,'Liberation Sans',Helvetica,sans-serif}}",
      ColourText(pages::style::kInk));
}

}  // namespace

void AppendEscaped(std::wstring_view text, std::string& html) {
  for (const char c : ToUtf8(text)) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      // No page may contain control characters other than white space.
      case '\t':
      case '\n':
      case '\r':
        html += c;
        break;
      default:
        html += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
  }
}

std::string Escaped(std::wstring_view text) {
  std::string html;
  AppendEscaped(text, html);
  return html;
}

std::string StyleText(std::wstring_view text) {
  std::string out = "\"";
  for (const char c : ToUtf8(text)) {
    if (c == '"' || c == '\\' || c == '<' || static_cast<unsigned char>(c) < 0x20)
      out += fmt::format("\\{:x} ", static_cast<unsigned char>(c));
    else
      out += c;
  }
  return out + '"';
}

std::string ColourText(pages::Colour colour) { return fmt::format("#{:06x}", colour); }

std::string PageOpening(std::wstring_view title, std::string_view style) {
  return fmt::format(
      "<!DOCTYPE html>\n<html lang=\"pt-BR\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" "
      "content=\"width=device-width\">\n<title>{}</title>\n<style>{}{}</style>\n</head>\n<body>\n",
      Escaped(title), CommonStyle(), style);
}

std::string PageClosing() { return "</body>\n</html>\n"; }

}  // namespace kodra::console::html
