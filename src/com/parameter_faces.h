// The COM classes of the parameter objects, as the IDL declares them.
#pragma once

#include "com/kodrarpt_h.h"
#include "com/parameter_face.h"

namespace kodra::com {

// NOLINTBEGIN(bugprone-macro-parentheses): the language allows none around a type or the members of a class
#define KODRA_PARAMETER_CLASS(NAME, PROPERTIES)                    \
  class NAME##Face final : public ParameterFace<::NAME, I##NAME> { \
   public:                                                         \
    NAME##Face() : ParameterFace(L## #NAME) {}                     \
    PROPERTIES                                                     \
  };
#define KODRA_PARAMETER_PROPERTY(CLASS, NAME, TYPE)                                                 \
  STDMETHODIMP get_##NAME(TYPE* value) noexcept override { return members_.Get(L## #NAME, value); } \
  STDMETHODIMP put_##NAME(TYPE value) noexcept override { return members_.Let(L## #NAME, value); }
// NOLINTEND(bugprone-macro-parentheses)
#include "idl/public_classes.def"

}  // namespace kodra::com
