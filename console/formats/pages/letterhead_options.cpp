#include "console/formats/pages/letterhead_options.h"

#include <CLI/CLI.hpp>

#include "values/format_date.h"
#include "values/utf8.h"

namespace kodra::console::pages {

using values::FromUtf8;

void LetterheadOptions::AddTo(CLI::App& command) {
  command.add_option("--orgao", organisation_, "html, pdf: o nome do órgão, acima do título")->option_text("TEXTO");
  command.add_option("--logotipo", logo_, "html, pdf: a imagem PNG ao lado do nome do órgão")->option_text("ARQUIVO");
}

Letterhead LetterheadOptions::Get() const {
  Letterhead letterhead = {.organisation = FromUtf8(organisation_),
                           .issued = values::FormatDate(values::Now(), L"dd/mm/yyyy hh:nn")};
  if (!logo_.empty()) letterhead.logo = std::make_shared<Picture>(ReadPicture(FromUtf8(logo_)));
  return letterhead;
}

}  // namespace kodra::console::pages
