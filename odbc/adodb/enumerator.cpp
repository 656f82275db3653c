#include <atomic>
#include <cstddef>

#include "odbc/adodb/collection_object.h"

namespace kodra::adodb {
namespace {

class Enumerator final : public IEnumVARIANT {
 public:
  Enumerator(std::vector<com_ptr<IDispatch>> members, std::size_t next) : members_(std::move(members)), next_(next) {}
  virtual ~Enumerator() = default;

  HRESULT __stdcall QueryInterface(REFIID id, void** out) noexcept override {
    if (out == nullptr) return E_POINTER;
    *out = id == IID_IUnknown || id == IID_IEnumVARIANT ? static_cast<IEnumVARIANT*>(this) : nullptr;
    if (*out == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG __stdcall AddRef() noexcept override { return ++references_; }
  ULONG __stdcall Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT __stdcall Next(ULONG wanted, VARIANT* out, ULONG* fetched) noexcept override {
    if (out == nullptr || (fetched == nullptr && wanted > 1)) return E_POINTER;
    ULONG given = 0;
    for (; given < wanted && next_ < members_.size(); ++given, ++next_) {
      V_VT(&out[given]) = VT_DISPATCH;
      members_[next_].copy_to(&V_DISPATCH(&out[given]));
    }
    if (fetched != nullptr) *fetched = given;
    return given == wanted ? S_OK : S_FALSE;
  }
  HRESULT __stdcall Skip(ULONG count) noexcept override {
    const std::size_t left = members_.size() - next_;
    next_ += count < left ? count : left;
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT __stdcall Reset() noexcept override {
    next_ = 0;
    return S_OK;
  }
  HRESULT __stdcall Clone(IEnumVARIANT** out) noexcept override {
    return Guarded<IEnumVARIANT>([&] { Store(out, Copy()); });
  }

 private:
  com_ptr<IEnumVARIANT> Copy() const { return com_ptr<IEnumVARIANT>(new Enumerator(members_, next_)); }

  std::vector<com_ptr<IDispatch>> members_;
  std::size_t next_;
  std::atomic<ULONG> references_{0};
  ModuleReference module_;
};

}  // namespace

com_ptr<IUnknown> MakeEnumerator(std::vector<com_ptr<IDispatch>> members) {
  return com_ptr<IUnknown>(new Enumerator(std::move(members), 0));
}

}  // namespace kodra::adodb
