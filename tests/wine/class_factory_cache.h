// A cache of class factories for a module, the component by default: looking a class up in the registry takes longer
// than a report.
#pragma once

#include <cstring>
#include <map>

#include "tests/wine/import_table.h"

namespace kodra::face {

// While it exists, each thread of the module looks a class up once and keeps its factory.
class ClassFactoryCache {
 public:
  explicit ClassFactoryCache(const std::wstring& path = DllPath()) : imports_(path) {
    idOfName_ = imports_.Redirect("CLSIDFromProgID", &IdOfName);
    imports_.Redirect("CoCreateInstance", &New);
  }
  ~ClassFactoryCache() { Clear(); }
  ClassFactoryCache(const ClassFactoryCache&) = delete;
  ClassFactoryCache& operator=(const ClassFactoryCache&) = delete;

  // Releases the factories of this thread. REQUIRES: called on every thread before it leaves its apartment.
  static void Clear() { OfThread() = {}; }

 private:
  struct Less {
    bool operator()(REFCLSID one, REFCLSID other) const { return std::memcmp(&one, &other, sizeof one) < 0; }
  };
  struct Classes {
    std::map<std::wstring, CLSID> ids;
    std::map<CLSID, Ref<IClassFactory>, Less> factories;
  };

  static Classes& OfThread() {
    thread_local Classes classes;
    return classes;
  }
  static HRESULT WINAPI IdOfName(LPCOLESTR name, CLSID* id) {
    const auto known = OfThread().ids.find(name);
    if (known != OfThread().ids.end()) {
      *id = known->second;
      return S_OK;
    }
    const HRESULT hr = idOfName_(name, id);
    if (SUCCEEDED(hr)) OfThread().ids.emplace(name, *id);
    return hr;
  }
  static HRESULT WINAPI New(REFCLSID id, IUnknown* outer, DWORD context, REFIID iid, void** object) {
    *object = nullptr;
    Ref<IClassFactory>& factory = OfThread().factories[id];
    const HRESULT hr = factory ? S_OK : CoGetClassObject(id, context, nullptr, IID_IClassFactory, factory.put_void());
    return FAILED(hr) ? hr : factory->CreateInstance(outer, iid, object);
  }

  // The imported function.
  static inline decltype(&CLSIDFromProgID) idOfName_ = nullptr;

  ImportTable imports_;
};

}  // namespace kodra::face
