// How an error gains a layer on its way up through the data modules.
#pragma once

#include <string>
#include <string_view>

#include "values/erro.h"

namespace kodra::data {

// The error as the module `source` raises it again: the same number, and "[" + former source + "]: " before the
// description.
inline Erro Layered(const Erro& caught, std::wstring_view source) {
  return {caught.Number(), std::wstring(source), L"[" + caught.Source() + L"]: " + caught.Description()};
}

}  // namespace kodra::data
