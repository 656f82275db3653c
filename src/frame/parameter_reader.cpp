#include "frame/parameter_reader.h"

#include "platform/erro.h"
#include "text/convert.h"

namespace kodra::frame {
namespace {

platform::Value Read(platform::AutomationObject& parameters, text::Piece property) {
  try {
    return parameters.Get(property);
  } catch (const platform::MemberNotFound& erro) {
    throw platform::Erro(erro.Number(), erro.Source(),
                         L"O objeto de parâmetros não tem a propriedade \"" + std::wstring(property) + L"\".");
  }
}

}  // namespace

std::wstring ReadText(platform::AutomationObject& parameters, text::Piece property) {
  return text::ToText(Read(parameters, property));
}

platform::Date ReadDate(platform::AutomationObject& parameters, text::Piece property) {
  return text::ToDate(Read(parameters, property));
}

bool ReadFlag(platform::AutomationObject& parameters, text::Piece property) {
  return text::ToBool(Read(parameters, property));
}

}  // namespace kodra::frame
