// The error frame of CCaixaRpt, for the units that implement its methods.
#pragma once

#include "reports/modules/caixa_rpt.h"

namespace kodra::reports {

template <class Body>
frame::ReportRows CCaixaRpt::Logged(std::wstring_view method, Body body) {
  const Call call(*this);
  try {
    return body();
  } catch (...) {
    RaiseLogged(method);
  }
}

}  // namespace kodra::reports
