// How an error leaves an ADO object: the HRESULT, and the thread's IErrorInfo with number, source and description.
#pragma once

#include <string_view>

#include "ado/adoint.h"
#include "comkit/boundary.h"
#include "odbc/engine/errors.h"
#include "values/erro.h"

namespace kodra::adodb {

using odbc::ControlError;

// The body of an entry point of `Interface`: nothing that it raises crosses into the client.
template <class Interface, class Body>
HRESULT Guarded(const Body& body) noexcept {
  return comkit::AtBoundary(__uuidof(Interface), body);
}

// Raises ADO's error of that number with its text, and ADO itself as the source; the overload in odbc names an object.
[[noreturn]] inline void Raise(ControlError error) { odbc::Raise(error, L"ADODB"); }

// Raises E_NOTIMPL with a text that names the member, or the use of it, that does not exist here.
[[noreturn]] void RaiseNotImplemented(const wchar_t* what);

// The result of a member that exists only because the interface has it.
HRESULT NotImplemented(const wchar_t* member) noexcept;

// What IDispatch::Invoke returns for a member that returned `result`: a failure is DISP_E_EXCEPTION, with the thread's
// IErrorInfo moved into `exception` where there is one.
HRESULT Described(HRESULT result, EXCEPINFO* exception) noexcept;

// Checks the place for a result: a null pointer raises ControlError::kInvalidArgument.
template <class T>
T& Out(T* result) {
  if (result == nullptr) Raise(ControlError::kInvalidArgument);
  return *result;
}

}  // namespace kodra::adodb
