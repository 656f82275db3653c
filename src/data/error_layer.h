// How an error gains a layer on its way up through the data modules.
#pragma once

#include <string>
#include <string_view>

#include "platform/erro.h"

namespace kodra::data {

// The error as the module `source` raises it again: the same number, and "[" + former source + "]: " before the
// description.
inline platform::Erro Layered(const platform::Erro& caught, std::wstring_view source) {
  return {caught.Number(), std::wstring(source), L"[" + caught.Source() + L"]: " + caught.Description()};
}

}  // namespace kodra::data
