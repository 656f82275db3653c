// A snapshot of an error, kept past the moment when the runtime's current error is cleared.
#pragma once

#include <cstdint>
#include <string>

#include "values/erro.h"

namespace kodra::frame {

class CErro {
 public:
  std::int32_t Number() const { return number_; }
  void SetNumber(std::int32_t number) { number_ = number; }
  const std::wstring& Description() const { return description_; }
  void SetDescription(std::wstring text) { description_ = std::move(text); }
  const std::wstring& Source() const { return source_; }
  void SetSource(std::wstring text) { source_ = std::move(text); }
  // The last error code of an operating-system call; 0 when there was none.
  std::int32_t LastDLLError() const { return lastDLLError_; }
  void SetLastDLLError(std::int32_t code) { lastDLLError_ = code; }

  // Takes over an error and the operating system's last error code.
  void SetErro(const Erro& erro, std::int32_t lastDLLError = 0);

  // "Erro <number> em <source>: <description>".
  std::wstring ToString() const;

 private:
  std::int32_t number_ = 0;
  std::wstring description_;
  std::wstring source_;
  std::int32_t lastDLLError_ = 0;
};

}  // namespace kodra::frame
