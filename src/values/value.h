// A value as automation passes it: what a field, a property or an argument holds.
//
// A Value owns its text and a share of its object; it may be copied freely on the thread that made it.
//
//   Value v = object.Get(L"TipoBanco");
//   if (v.Is<std::int32_t>()) Use(v.As<std::int32_t>());
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace kodra {

class AutomationObject;
// A shared reference to an automation object; null is "Nothing".
using ObjectRef = std::shared_ptr<AutomationObject>;

struct Empty {  // a variant never assigned
  bool operator==(const Empty&) const = default;
};
struct Null {  // a database null
  bool operator==(const Null&) const = default;
};
// An automation date: days since 30 December 1899, the time of day as the fraction.
struct Date {
  double days = 0;
  bool operator==(const Date&) const = default;
};
// An automation currency: a 64-bit count of ten-thousandths.
struct Currency {
  std::int64_t tenThousandths = 0;
  bool operator==(const Currency&) const = default;
};
// An automation decimal: 96 bits, `high` before `low`, of which the last `scale` digits (0 to 28) are decimals.
struct Decimal {
  std::uint64_t low = 0;
  std::uint32_t high = 0;
  std::uint8_t scale = 0;
  bool negative = false;
  bool operator==(const Decimal&) const = default;
};

class Value {
 public:
  using Storage = std::variant<Empty, Null, bool, std::int32_t, std::int64_t, std::uint64_t, float, double, Currency,
                               Decimal, Date, std::wstring, ObjectRef>;

  Value() = default;
  Value(Empty v) : storage_(v) {}
  Value(Null v) : storage_(v) {}
  Value(bool v) : storage_(v) {}
  Value(std::int32_t v) : storage_(v) {}
  Value(std::int64_t v) : storage_(v) {}
  Value(std::uint64_t v) : storage_(v) {}
  Value(float v) : storage_(v) {}
  Value(double v) : storage_(v) {}
  Value(Currency v) : storage_(v) {}
  Value(Decimal v) : storage_(v) {}
  Value(Date v) : storage_(v) {}
  Value(std::wstring v) : storage_(std::move(v)) {}
  Value(std::wstring_view v) : storage_(std::wstring(v)) {}
  Value(const wchar_t* v) : storage_(std::wstring(v)) {}
  Value(ObjectRef v) : storage_(std::move(v)) {}

  // The library's copy of a variant of these types destroys an alternative that it never made when memory runs out (GCC
  // 12), so the alternative is copied on its own.
  Value(const Value& other) : storage_(std::visit([](const auto& held) { return Storage(held); }, other.storage_)) {}
  Value(Value&&) noexcept = default;
  Value& operator=(const Value& other) { return *this = Value(other); }
  Value& operator=(Value&&) noexcept = default;
  ~Value() = default;

  template <class T>
  bool Is() const {
    return std::holds_alternative<T>(storage_);
  }
  // REQUIRES: Is<T>().
  template <class T>
  const T& As() const {
    return std::get<T>(storage_);
  }
  const Storage& Held() const { return storage_; }
  // The text, moved out. REQUIRES: Is<std::wstring>().
  std::wstring TakeText() && { return std::get<std::wstring>(std::move(storage_)); }

  bool operator==(const Value&) const = default;

 private:
  Storage storage_;
};

}  // namespace kodra
