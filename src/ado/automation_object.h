// Late-bound access to any IDispatch, and the conversion of an ObjectRef back to its IDispatch.
#pragma once

#include <vector>

#include "comkit/automation_headers.h"
#include "comkit/com_ptr.h"
#include "values/automation.h"

namespace kodra::ado {

class ScopedVariant;

class DispatchObject final : public AutomationObject {
 public:
  // Shares the object. REQUIRES: not null.
  explicit DispatchObject(IDispatch* object) : object_(object) {}

  Value Get(std::wstring_view member) override;
  void Let(std::wstring_view member, const Value& value) override;
  void Set(std::wstring_view member, const ObjectRef& object) override;
  Value Call(std::wstring_view member, std::span<const Value> arguments) override;
  // The method receives a text, a 32-bit integer or an object by reference to that type, everything else by reference
  // to a VARIANT.
  Value CallByReference(std::wstring_view member, Value& first, std::span<const Value> others) override;
  Value GetDefault() override;
  // Enumerates as `For Each` does; an object without an enumerator is asked for Count and Item.
  void ForEach(const std::function<void(const Value&)>& visit) override;

  IDispatch* Dispatch() const noexcept { return object_.get(); }

 private:
  ScopedVariant Invoke(std::wstring_view member, WORD kind, VARIANT* arguments, UINT count);
  ScopedVariant InvokeMethod(std::wstring_view member, std::vector<ScopedVariant>& reversed);
  ScopedVariant Invoke(DISPID id, WORD kind, VARIANT* arguments, UINT count);

  comkit::com_ptr<IDispatch> object_;
};

// A late-bound object over an IDispatch; null returns null.
ObjectRef WrapDispatch(IDispatch* object);

// The IDispatch that an ObjectRef wraps; null returns null. An object that WrapDispatch did not make raises
// RuntimeError::kTypeMismatch.
comkit::com_ptr<IDispatch> DispatchOf(const ObjectRef& object);

}  // namespace kodra::ado
