// What a call raised, and ADO's errors that most tests expect, each from a given source.
#pragma once

#include "tests/raised.h"

namespace kodra::tests {

inline Raised NoCurrentRecord(const wchar_t* source) {
  return {3021, source,
          L"Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current "
          L"record."};
}
inline Raised ObjectClosed(const wchar_t* source) {
  return {3704, source, L"Operation is not allowed when the object is closed."};
}
inline Raised ObjectOpen(const wchar_t* source) {
  return {3705, source, L"Operation is not allowed when the object is open."};
}
inline Raised InvalidConnection(const wchar_t* source) {
  return {3709, source,
          L"The connection cannot be used to perform this operation. It is either closed or invalid in this context."};
}
inline Raised InvalidArgument(const wchar_t* source) {
  return {3001, source,
          L"Arguments are of the wrong type, are out of acceptable range, or are in conflict with one another."};
}
inline Raised ItemNotFound(const wchar_t* source) {
  return {3265, source, L"Item cannot be found in the collection corresponding to the requested name or ordinal."};
}
inline Raised NotUpdatable() {
  return {3251, L"ADODB.Recordset",
          L"Current Recordset does not support updating. This may be a limitation of the provider, or of the selected "
          L"locktype."};
}
inline Raised NotAllowedHere(const wchar_t* source) {
  return {3219, source, L"Operation is not allowed in this context."};
}
inline Raised MultipleStep() {
  return {static_cast<std::int32_t>(0x80040E21U), L"Microsoft Cursor Engine",
          L"Multiple-step operation generated errors. Check each status value."};
}

}  // namespace kodra::tests
