// The one place where the component's exceptions become COM errors.
#pragma once

#include "ado/automation_headers.h"

namespace kodra::com {

// Turns the exception being handled into an HRESULT with full error information for `iid`: an Erro gives its number,
// source and description, anything else what CurrentErro() makes of it. Memory that does not even suffice for that
// gives E_OUTOFMEMORY. REQUIRES: called inside a catch clause.
HRESULT CurrentHresult(REFIID iid) noexcept;

// What an entry point gives whose client passed no place for the result: E_POINTER, and no error information.
HRESULT RefuseAbsentOut() noexcept;

// Runs the body of an entry point: S_OK, or the error that it raised. Nothing C++ leaves it.
template <class Body>
HRESULT AtBoundary(REFIID iid, Body body) noexcept {
  try {
    body();
    return S_OK;
  } catch (...) {
    return CurrentHresult(iid);
  }
}

// The same for a member that fills `out`: an absent `out` is refused, and it stays empty unless the body gives a value.
template <class T, class Body>
HRESULT FillAtBoundary(REFIID iid, T* out, Body body) noexcept {
  if (out == nullptr) return RefuseAbsentOut();
  *out = T();
  return AtBoundary(iid, [&] { *out = body(); });
}

}  // namespace kodra::com
