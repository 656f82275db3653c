// The numbers of errors as a client receives them.
#pragma once

#include <windows.h>

namespace kodra::face {

// A report's own error, which contains the cause only in its description.
inline constexpr auto kReportError = static_cast<HRESULT>(0x80041FAB);

// An error of the runtime or of ADO by its small number: 13 is 800A000D.
constexpr HRESULT ControlError(int number) { return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number); }

inline constexpr HRESULT kOverflow = ControlError(6);
inline constexpr HRESULT kOutOfMemory = ControlError(7);
inline constexpr HRESULT kSubscriptOutOfRange = ControlError(9);
inline constexpr HRESULT kTypeMismatch = ControlError(13);
inline constexpr HRESULT kInternalError = ControlError(51);
inline constexpr HRESULT kObjectNotSet = ControlError(91);
inline constexpr HRESULT kInvalidUseOfNull = ControlError(94);
inline constexpr HRESULT kObjectRequired = ControlError(424);
inline constexpr HRESULT kCannotCreateObject = ControlError(429);
inline constexpr HRESULT kNoSuchMember = ControlError(438);
inline constexpr HRESULT kWrongArgumentCount = ControlError(450);

// The first number that a class may use for its own errors. The sibling components start there.
inline constexpr auto kSiblingError = static_cast<HRESULT>(0x80040001);
// A number with which a client's or a sibling's object raises its own error.
inline constexpr auto kRaisedNumber = static_cast<HRESULT>(0x8004002A);
// A number that has no text anywhere.
inline constexpr auto kNumberWithoutText = static_cast<HRESULT>(0x80047777);

}  // namespace kodra::face
