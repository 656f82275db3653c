#include "frame/parameter_reader.h"

#include "values/convert.h"
#include "values/erro.h"

namespace kodra::frame {
namespace {

Value Read(AutomationObject& parameters, std::wstring_view property) {
  try {
    return parameters.Get(property);
  } catch (const MemberNotFound& erro) {
    throw Erro(erro.Number(), erro.Source(),
               L"O objeto de parâmetros não tem a propriedade \"" + std::wstring(property) + L"\".");
  }
}

}  // namespace

std::wstring ReadText(AutomationObject& parameters, std::wstring_view property) {
  return values::ToText(Read(parameters, property));
}

Date ReadDate(AutomationObject& parameters, std::wstring_view property) {
  return values::ToDate(Read(parameters, property));
}

bool ReadFlag(AutomationObject& parameters, std::wstring_view property) {
  return values::ToBool(Read(parameters, property));
}

}  // namespace kodra::frame
