#include "frame/parameter_reader.h"

#include "values/convert.h"
#include "values/erro.h"

namespace kodra::frame {
namespace {

Value Read(AutomationObject& parameters, values::Piece property) {
  try {
    return parameters.Get(property);
  } catch (const MemberNotFound& erro) {
    throw Erro(erro.Number(), erro.Source(),
               L"O objeto de parâmetros não tem a propriedade \"" + std::wstring(property) + L"\".");
  }
}

}  // namespace

std::wstring ReadText(AutomationObject& parameters, values::Piece property) {
  return values::ToText(Read(parameters, property));
}

Date ReadDate(AutomationObject& parameters, values::Piece property) {
  return values::ToDate(Read(parameters, property));
}

bool ReadFlag(AutomationObject& parameters, values::Piece property) {
  return values::ToBool(Read(parameters, property));
}

}  // namespace kodra::frame
