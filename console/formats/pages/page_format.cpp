#include "console/formats/pages/page_format.h"

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"

namespace kodra::console::pages {

PageFormat PageFormatNamed(const std::string& name) {
  const std::string folded = Folded(name);
  if (folded == "pdf") return PageFormat::kPdf;
  if (folded == "html") return PageFormat::kHtml;
  throw UsageError("o formato \"" + name + "\" não existe" + DidYouMean(folded, {"pdf", "html"}) +
                   "; escolha entre pdf, html");
}

}  // namespace kodra::console::pages
