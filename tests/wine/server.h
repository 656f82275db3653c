// DLLs of COM classes by their entry points, without the registry.
#pragma once

#include "tests/wine/automation.h"
#include "tests/wine/environment.h"

namespace kodra::face {

// A DLL, the component by default, which stays loaded until this object ends.
class Server {
 public:
  explicit Server(const std::wstring& path = DllPath()) : module_(LoadLibraryW(path.c_str())) {
    EXPECT_NE(nullptr, module_) << GetLastError();
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() { FreeLibrary(module_); }

  HRESULT CanUnloadNow() const { return Entry<HRESULT(WINAPI*)()>("DllCanUnloadNow")(); }
  HRESULT Register() const { return Entry<HRESULT(WINAPI*)()>("DllRegisterServer")(); }
  HRESULT Unregister() const { return Entry<HRESULT(WINAPI*)()>("DllUnregisterServer")(); }
  HRESULT Install(BOOL install, const wchar_t* commandLine) const {
    return Entry<HRESULT(WINAPI*)(BOOL, const wchar_t*)>("DllInstall")(install, commandLine);
  }
  HRESULT GetClassObject(REFCLSID id, REFIID iid, void** object) const {
    return Entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(id, iid, object);
  }
  Ref<IClassFactory> Factory(REFCLSID id) const {
    Ref<IClassFactory> factory;
    EXPECT_EQ(S_OK, GetClassObject(id, IID_IClassFactory, factory.put_void()));
    return factory;
  }
  template <class Interface>
  Ref<Interface> Create(REFCLSID id) const {
    Ref<Interface> object;
    EXPECT_EQ(S_OK, Factory(id)->CreateInstance(nullptr, __uuidof(Interface), object.put_void()));
    return object;
  }

 private:
  template <class Function>
  Function Entry(const char* name) const {
    const FARPROC entry = GetProcAddress(module_, name);
    EXPECT_NE(nullptr, entry) << name;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(entry));
  }

  HMODULE module_;
};

// The component, ADO and the siblings.
class LoadedServers {
 public:
  // Expects that no object of them is alive.
  void ExpectUnused() const {
    for (const Server* server : {&component_, &ado_, &siblings_}) EXPECT_EQ(S_OK, server->CanUnloadNow());
  }

 private:
  const Server component_;
  const Server ado_{DllPath(L"kodra_ado.dll")};
  const Server siblings_{DllPath(L"kodra_siblings.dll")};
};

// A copy of the component in a file of its own, loaded.
class ServerCopy {
 public:
  explicit ServerCopy(const std::wstring& name) : file_(name) {
    EXPECT_TRUE(CopyFileW(DllPath().c_str(), path().c_str(), FALSE)) << GetLastError();
    server_.emplace(path());
  }

  std::wstring path() const { return file_.windowsPath(); }
  const Server* operator->() const { return &*server_; }

 private:
  TemporaryFile file_;
  std::optional<Server> server_;
};

inline CLSID ClassId(const std::wstring& text) {
  CLSID id = {};
  EXPECT_EQ(S_OK, CLSIDFromString(text.c_str(), &id));
  return id;
}

}  // namespace kodra::face
