// Every report method of the IDL, declared for the unit that defines it and for its callers: RelatorioDeptos of
// CDeptoRpt is the function reports::CDeptoRpt::RelatorioDeptos.
#pragma once

#include "frame/report_call.h"
#include "reports/modules/module_call.h"

namespace kodra::reports {

// The call that the reports of a class take: a ReportCall, for those of CCaixaRpt a ModuleCall.
using Call = frame::ReportCall;
namespace CCaixaRpt {
using Call = ModuleCall;
}

#define KODRA_REPORT_CLASS(NAME, METHODS) METHODS
#define KODRA_REPORT_METHOD(CLASS, NAME) \
  namespace CLASS {                      \
  frame::ReportRows NAME(Call& call);    \
  }
#include "idl/public_classes.def"

}  // namespace kodra::reports
