// A text of automation: its holder, and its conversions to and from the texts of C++.
#pragma once

#include <string>
#include <string_view>

#include "comkit/automation_headers.h"

namespace kodra::comkit {

// A BSTR that frees itself.
class ScopedBstr {
 public:
  ScopedBstr() noexcept = default;
  // Out of memory raises RuntimeError::kOutOfMemory.
  explicit ScopedBstr(std::wstring_view text);
  ScopedBstr(const ScopedBstr&) = delete;
  ScopedBstr& operator=(const ScopedBstr&) = delete;
  ~ScopedBstr() { SysFreeString(text_); }

  BSTR get() const noexcept { return text_; }
  BSTR* put() noexcept {
    SysFreeString(text_);
    text_ = nullptr;
    return &text_;
  }
  // For a function that may replace the text.
  BSTR* inout() noexcept { return &text_; }
  BSTR detach() noexcept {
    BSTR text = text_;
    text_ = nullptr;
    return text;
  }

 private:
  BSTR text_ = nullptr;
};

// The text of a BSTR, embedded zeros included; a null BSTR is the empty text.
std::wstring ToWide(BSTR text);

}  // namespace kodra::comkit
