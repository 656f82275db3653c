#include "frame/cerro.h"

#include "values/numbers.h"

namespace kodra::frame {

void CErro::SetErro(const Erro& erro, std::int32_t lastDLLError) {
  number_ = erro.Number();
  description_ = erro.Description();
  source_ = erro.Source();
  lastDLLError_ = lastDLLError;
}

std::wstring CErro::ToString() const {
  return L"Erro " + values::NumberToText(number_) + L" em " + source_ + L": " + description_;
}

}  // namespace kodra::frame
