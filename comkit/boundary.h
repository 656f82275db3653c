// Entry points of a COM server: no C++ exception leaves them.
#pragma once

#include "comkit/automation_headers.h"

namespace kodra::comkit {

// Turns the exception being handled into an HRESULT, with the error information that the server has for it under `iid`.
// Every server defines this function once; src/com/boundary.cpp is KodraRpt.dll's.
// REQUIRES: called inside a catch clause.
HRESULT CurrentHresult(REFIID iid) noexcept;

// The result of an entry point whose client passed no place for the result: E_POINTER, and no error information.
inline HRESULT RefuseAbsentOut() noexcept {
  // An error that another call left on the thread must not pass for this one.
  SetErrorInfo(0, nullptr);
  return E_POINTER;
}

// Runs the body of an entry point: S_OK, or the error that it raised.
template <class Body>
HRESULT AtBoundary(REFIID iid, Body body) noexcept {
  try {
    body();
    return S_OK;
  } catch (...) {
    return CurrentHresult(iid);
  }
}

// The same for a member that fills `out`: a null `out` is refused, and the result stays empty unless the body returns a
// value.
template <class T, class Body>
HRESULT FillAtBoundary(REFIID iid, T* out, Body body) noexcept {
  if (out == nullptr) return RefuseAbsentOut();
  *out = T();
  return AtBoundary(iid, [&] { *out = body(); });
}

// The same for a new object: `make` returns a com_ptr to it, and the client gets its interface `wanted`.
template <class Make>
HRESULT CreateAtBoundary(REFIID iid, Make make, REFIID wanted, void** object) noexcept {
  HRESULT queried = E_FAIL;
  const HRESULT made = AtBoundary(iid, [&] { queried = make()->QueryInterface(wanted, object); });
  return FAILED(made) ? made : queried;
}

}  // namespace kodra::comkit
