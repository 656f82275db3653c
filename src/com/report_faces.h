// The COM classes of the reports, as the IDL declares them.
#pragma once

#include <type_traits>

#include "com/caixa_base.h"
#include "com/kodrarpt_h.h"
#include "com/report_face.h"
#include "reports/reports.h"

namespace kodra::com {

// The members that a report's face has besides its report methods: the connection string, and more for CCaixaRpt.
template <class Class, class Interface>
using ReportBase = std::conditional_t<std::is_same_v<Class, ::CCaixaRpt>, CaixaBase,
                                      ReportFace<Class, Interface, frame::ReportObject>>;

// NOLINTBEGIN(bugprone-macro-parentheses): the language allows none around a type or the members of a class
#define KODRA_REPORT_CLASS(NAME, METHODS)                       \
  class NAME##Face final : public ReportBase<::NAME, I##NAME> { \
   public:                                                      \
    NAME##Face() : ReportBase<::NAME, I##NAME>(L## #NAME) {}    \
    METHODS                                                     \
  };
#define KODRA_REPORT_METHOD(CLASS, NAME)                                       \
  STDMETHODIMP NAME(IDispatch* obj, IDispatch** recordset) noexcept override { \
    return Rows(L## #NAME, &reports::CLASS::NAME, obj, recordset);             \
  }
// NOLINTEND(bugprone-macro-parentheses)
#include "idl/public_classes.def"

}  // namespace kodra::com
