// The common part of the ADO collections: counting, and enumeration with For Each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "odbc/adodb/arguments.h"
#include "odbc/adodb/dispatch_object.h"

namespace kodra::adodb {

// An enumerator over the members that a collection had at that moment.
com_ptr<IUnknown> MakeEnumerator(const std::vector<com_ptr<IDispatch>>& objects);

template <class Interface, class... Older>
class CollectionObject : public DispatchObject<Interface, _Collection, Older...> {
 public:
  STDMETHODIMP get_Count(LONG* count) noexcept override {
    return this->Get(count, [&] { return Size(); });
  }
  // NOLINTNEXTLINE(bugprone-reserved-identifier): automation's own name for it
  STDMETHODIMP _NewEnum(IUnknown** enumerator) noexcept override {
    return this->Get(enumerator, [&] {
      std::vector<com_ptr<IDispatch>> members;
      members.reserve(static_cast<std::size_t>(Size()));
      for (std::int32_t i = 0; i < Size(); ++i) members.push_back(Member(i));
      return MakeEnumerator(members);
    });
  }
  // Every collection here is always current.
  STDMETHODIMP Refresh() noexcept override { return S_OK; }

 protected:
  virtual std::int32_t Size() = 0;
  // REQUIRES: 0 <= index < Size().
  virtual com_ptr<IDispatch> Member(std::int32_t index) = 0;

  // The position that a numeric index names; one outside raises ControlError::kItemNotFound.
  std::int32_t CheckedIndex(std::int32_t index) {
    if (index < 0 || index >= Size()) Raise(ControlError::kItemNotFound);
    return index;
  }
};

}  // namespace kodra::adodb
