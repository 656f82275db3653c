#include "siblings/com/enumerator.h"

#include <algorithm>
#include <atomic>
#include <memory>

#include "ado/variant.h"
#include "siblings/com/dispatch_face.h"
#include "siblings/com/module_lock.h"

namespace kodra::siblings {
namespace {

namespace com = ado;

class Enumerator final : public IEnumVARIANT {
 public:
  Enumerator(std::shared_ptr<const std::vector<Value>> values, std::size_t next)
      : values_(std::move(values)), next_(next) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IEnumVARIANT)) return E_NOINTERFACE;
    *out = static_cast<IEnumVARIANT*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* out, ULONG* fetched) override {
    if (out == nullptr || (fetched == nullptr && wanted != 1)) return E_POINTER;
    ULONG given = 0;
    try {
      for (; given < wanted && next_ < values_->size(); ++given, ++next_) {
        out[given] = com::ScopedVariant(Outward((*values_)[next_])).detach();
      }
    } catch (...) {
      while (given > 0) VariantClear(&out[--given]);
      if (fetched != nullptr) *fetched = 0;
      return E_OUTOFMEMORY;
    }
    if (fetched != nullptr) *fetched = given;
    return given == wanted ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const std::size_t left = values_->size() - next_;
    next_ += std::min<std::size_t>(count, left);
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** out) override try {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    *out = new Enumerator(values_, next_);
    return S_OK;
  } catch (...) {
    return E_OUTOFMEMORY;
  }

 private:
  ~Enumerator() = default;

  ModuleLock lock_;
  std::atomic<ULONG> references_ = 1;
  std::shared_ptr<const std::vector<Value>> values_;
  std::size_t next_;
};

}  // namespace

com::com_ptr<IUnknown> MakeEnumerator(std::vector<Value> values) {
  auto shared = std::make_shared<const std::vector<Value>>(std::move(values));
  return com::com_ptr<IUnknown>::adopt(new Enumerator(std::move(shared), 0));
}

}  // namespace kodra::siblings
