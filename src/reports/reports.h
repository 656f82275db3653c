// Every report method of the IDL, declared for its unit and for those who call it: RelatorioDeptos of CDeptoRpt is the
// function reports::CDeptoRpt::RelatorioDeptos.
#pragma once

#include "frame/report_call.h"
#include "reports/modules/module_call.h"

namespace kodra::reports {

// What the reports of a class are called with: a ReportCall, for those of CCaixaRpt a ModuleCall.
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
