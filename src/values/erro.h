// The one exception type of the component: what a COM error carries (number, source, description).
//
// Numbers are kept as an automation client sees them in Err.Number: a runtime or control error is its small positive
// number (429, 3704), every other one is the HRESULT itself (negative).
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace kodra {

// The base of the component's own error numbers (the COM custom-error base, hexadecimal 80040000).
inline constexpr std::int32_t kErrBase = static_cast<std::int32_t>(0x80040000U);

// The source of an error that the runtime itself raises inside the component.
inline constexpr std::wstring_view kApplicationTitle = L"KodraRpt";

class Erro : public std::exception {
 public:
  Erro(std::int32_t number, std::wstring source, std::wstring description)
      : number_(number), source_(std::move(source)), description_(std::move(description)) {}

  std::int32_t Number() const noexcept { return number_; }
  const std::wstring& Source() const noexcept { return source_; }
  const std::wstring& Description() const noexcept { return description_; }
  const char* what() const noexcept override { return "kodra::Erro"; }

 private:
  std::int32_t number_;
  std::wstring source_;
  std::wstring description_;
};

// An error whose words come from outside the component: from a provider, a sibling or a client's object. They may
// repeat a connection string, so whoever adds words of the component's own asks CurrentErro of values/password.h for
// them.
class ForeignErro : public Erro {
 public:
  using Erro::Erro;
  explicit ForeignErro(const Erro& erro) : Erro(erro) {}
};

// The errors of the automation runtime that the component raises or recognises, by their number.
enum class RuntimeError : std::int32_t {
  kOverflow = 6,
  kOutOfMemory = 7,
  kTypeMismatch = 13,
  kObjectNotSet = 91,
  kInvalidUseOfNull = 94,
  kObjectRequired = 424,
  kCannotCreateObject = 429,
  kMemberNotFound = 438,
};

// The Portuguese text of a runtime error; empty for a number that is not in RuntimeError.
std::wstring_view RuntimeText(std::int32_t number);

// Returns the error as the runtime raises it: its number, source kApplicationTitle, the Portuguese text of the number.
Erro MakeRuntimeError(RuntimeError error);

// RuntimeError::kMemberNotFound, raised by an object for a name that it does not have. An error 438 of any other type
// comes from inside a member that exists.
class MemberNotFound : public Erro {
 public:
  MemberNotFound();
};

// The exception being handled, as an Erro: an Erro unchanged, exhausted memory as RuntimeError::kOutOfMemory,
// everything else as number 51 (internal error). REQUIRES: called inside a catch clause.
Erro CurrentErro();

}  // namespace kodra
