#include "frame/cerro.h"

namespace kodra::frame {

void CErro::SetErro(const platform::Erro& erro, std::int32_t lastDLLError) {
  number_ = erro.Number();
  description_ = erro.Description();
  source_ = erro.Source();
  lastDLLError_ = lastDLLError;
}

std::wstring CErro::ToString() const {
  return L"Erro " + std::to_wstring(number_) + L" em " + source_ + L": " + description_;
}

}  // namespace kodra::frame
