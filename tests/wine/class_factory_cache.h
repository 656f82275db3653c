// Spares a module (the component by default) the way to its classes through the registry, which costs more than a
// report does.
#pragma once

#include <cstring>
#include <map>

#include "tests/wine/import_table.h"

namespace kodra::face {

// While it exists, a class that the module asks for is looked up once per thread, and its factory is kept.
class ClassesAtHand {
 public:
  explicit ClassesAtHand(const std::wstring& path = DllPath()) : imports_(path) {
    idOfName_ = imports_.Redirect("CLSIDFromProgID", &IdOfName);
    imports_.Redirect("CoCreateInstance", &New);
  }
  ~ClassesAtHand() { Forget(); }
  ClassesAtHand(const ClassesAtHand&) = delete;
  ClassesAtHand& operator=(const ClassesAtHand&) = delete;

  // Releases what this thread holds. REQUIRES: called on every thread before it leaves its apartment.
  static void Forget() { Kept() = {}; }

 private:
  struct Less {
    bool operator()(REFCLSID one, REFCLSID other) const { return std::memcmp(&one, &other, sizeof one) < 0; }
  };
  struct Classes {
    std::map<std::wstring, CLSID> ids;
    std::map<CLSID, Ref<IClassFactory>, Less> factories;
  };

  static Classes& Kept() {
    thread_local Classes kept;
    return kept;
  }
  static HRESULT WINAPI IdOfName(LPCOLESTR name, CLSID* id) {
    const auto known = Kept().ids.find(name);
    if (known != Kept().ids.end()) {
      *id = known->second;
      return S_OK;
    }
    const HRESULT hr = idOfName_(name, id);
    if (SUCCEEDED(hr)) Kept().ids.emplace(name, *id);
    return hr;
  }
  static HRESULT WINAPI New(REFCLSID id, IUnknown* outer, DWORD context, REFIID iid, void** object) {
    *object = nullptr;
    Ref<IClassFactory>& factory = Kept().factories[id];
    const HRESULT hr = factory ? S_OK : CoGetClassObject(id, context, nullptr, IID_IClassFactory, factory.put_void());
    return FAILED(hr) ? hr : factory->CreateInstance(outer, iid, object);
  }

  // As the module imports it.
  static inline decltype(&CLSIDFromProgID) idOfName_ = nullptr;

  ImportTable imports_;
};

}  // namespace kodra::face
