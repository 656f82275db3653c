// The enumerators that COM asks of a collection: Next, Skip, Reset and Clone over a copy of its members.
#pragma once

#include <algorithm>
#include <atomic>
#include <vector>

#include "com/boundary.h"
#include "com/module.h"

namespace kodra::com {

// Interface is one of the IEnum… interfaces with id kId, Item what its Next writes. Member owns one member and writes
// it by `void CopyTo(Item*) const`, with references of the receiver's. Starts with one reference, its creator's.
template <class Interface, class Item, class Member>
class ComEnumerator final : public Interface {
 public:
  explicit ComEnumerator(std::vector<Member> members, std::size_t position = 0)
      : members_(std::move(members)), position_(position) {}
  ComEnumerator(const ComEnumerator&) = delete;
  ComEnumerator& operator=(const ComEnumerator&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != __uuidof(Interface)) return E_NOINTERFACE;
    *object = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) noexcept override {
    if (items == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
    const ULONG given = std::min(count, Left());
    for (ULONG i = 0; i < given; ++i) members_[position_++].CopyTo(&items[i]);
    if (fetched != nullptr) *fetched = given;
    return given == count ? S_OK : S_FALSE;
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
    return FillAtBoundary(__uuidof(Interface), copy, [&] { return new ComEnumerator(members_, position_); });
  }

 private:
  ~ComEnumerator() = default;

  ULONG Left() const noexcept { return static_cast<ULONG>(members_.size() - position_); }

  ModuleLock lock_;
  std::vector<Member> members_;
  std::size_t position_;
  std::atomic<ULONG> references_ = 1;
};

}  // namespace kodra::com
