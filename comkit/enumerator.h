// The enumerators that COM asks of a collection: Next, Skip, Reset and Clone over a copy of its members.
#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "comkit/boundary.h"
#include "comkit/object.h"

namespace kodra::comkit {

// Interface is one of the IEnum… interfaces, Item what its Next writes. Member owns one member and writes it by `void
// CopyTo(Item*) const`, with references for the receiver. A member that raises ends a Next: what was written until then
// belongs to the client. When the first member of a Next raises, the Next fails with that error.
template <class Interface, class Item, class Member>
class Enumerator final : public Object<Interface> {
 public:
  explicit Enumerator(std::vector<Member> members, std::size_t position = 0)
      : members_(std::move(members)), position_(position) {}

  STDMETHODIMP Next(ULONG wanted, Item* items, ULONG* fetched) noexcept override {
    if (items == nullptr || (fetched == nullptr && wanted != 1)) return E_POINTER;
    ULONG given = 0;
    const HRESULT hr = AtBoundary(__uuidof(Interface), [&] {
      for (; given < wanted && Left() != 0; ++given, ++position_) members_[position_].CopyTo(&items[given]);
    });
    if (fetched != nullptr) *fetched = given;
    if (FAILED(hr) && given == 0) return hr;
    return given == wanted ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) noexcept override {
    const ULONG skipped = std::min(count, Left());
    position_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() noexcept override {
    position_ = 0;
    return S_OK;
  }
  STDMETHODIMP Clone(Interface** copy) noexcept override {
    return FillAtBoundary(__uuidof(Interface), copy, [&] { return new Enumerator(members_, position_); });
  }

 private:
  ULONG Left() const noexcept { return static_cast<ULONG>(members_.size() - position_); }

  const std::vector<Member> members_;
  std::size_t position_;
};

}  // namespace kodra::comkit
