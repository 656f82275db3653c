// An in-process server with one class that does nothing: what loading a DLL and creating an object costs at least.
// Compiled as the component is, and linked as such a server usually is: with all that the C++ library brings.
#include <windows.h>
// Needs the types above.
#include <unknwn.h>

#include <atomic>

namespace {

class Nothing final : public IUnknown {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = this;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 private:
  ~Nothing() = default;
  std::atomic<ULONG> references_ = 1;
};

class Factory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, void** object) override {
    *object = static_cast<IUnknown*>(new Nothing);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

Factory factory;

}  // namespace

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID, REFIID, void** object) {
  *object = static_cast<IClassFactory*>(&factory);
  return S_OK;
}
