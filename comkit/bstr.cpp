#include "comkit/bstr.h"

#include "values/erro.h"

namespace kodra::comkit {

ScopedBstr::ScopedBstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
  if (text_ == nullptr) throw MakeRuntimeError(RuntimeError::kOutOfMemory);
}

std::wstring ToWide(BSTR text) { return text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text)); }

}  // namespace kodra::comkit
