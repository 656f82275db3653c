// The rows of the class registry when the component is registered, computed independently of its code.
#pragma once

#include "tests/wine/public_face.h"
#include "tests/wine/registry_dump.h"

namespace kodra::face {

// The rows of every class of a DLL: the same for each class, apart from names and ids.
inline RegistryLines ClassRows(const std::wstring& dll) {
  RegistryLines rows;
  for (const ClassEntry& entry : PublicClasses()) {
    const std::wstring progId = entry.progId();
    const std::wstring key = L"CLSID\\" + entry.clsid;
    for (const std::wstring& row :
         {progId, progId + L"|=" + progId, progId + L"\\CLSID", progId + L"\\CLSID|=" + entry.clsid, key,
          key + L"|=" + progId, key + L"\\InprocServer32", key + L"\\InprocServer32|=" + dll,
          key + L"\\InprocServer32|ThreadingModel=Apartment", key + L"\\ProgID", key + L"\\ProgID|=" + progId,
          key + L"\\TypeLib", key + L"\\TypeLib|=" + kLibraryId, key + L"\\Version", key + L"\\Version|=1.0"})
      rows.push_back(row);
  }
  return rows;
}

// An interface of the type library.
struct InterfaceEntry {
  std::wstring id;
  std::wstring name;
  bool isDual;
};
inline std::vector<InterfaceEntry> Interfaces(const std::wstring& dll) {
  std::vector<InterfaceEntry> interfaces;
  Ref<ITypeLib> library;
  EXPECT_EQ(S_OK, LoadTypeLibEx(dll.c_str(), REGKIND_NONE, library.put()));
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    Ref<ITypeInfo> info;
    EXPECT_EQ(S_OK, library->GetTypeInfo(i, info.put()));
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(S_OK, info->GetTypeAttr(&attributes));
    if (attributes->typekind == TKIND_DISPATCH) {
      Bstr name;
      EXPECT_EQ(S_OK, info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
      wchar_t id[39] = {};
      StringFromGUID2(attributes->guid, id, 39);
      interfaces.push_back({id, name.text(), (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0});
    }
    info->ReleaseTypeAttr(attributes);
  }
  return interfaces;
}

// The rows that automation writes for a type library and its interfaces in one view of the registry.
inline RegistryLines LibraryRowsOfView(const std::wstring& view, const std::wstring& dll) {
  constexpr const wchar_t* kReadFromAFile = L"8";
  const std::wstring system = sizeof(void*) == 8 ? L"win64" : L"win32";
  const std::wstring root = view + L"TypeLib\\" + kLibraryId;
  const std::wstring version = root + L"\\1.0";
  const std::wstring folder = dll.substr(0, dll.rfind(L'\\') + 1);
  RegistryLines rows = {root,
                        version,
                        version + L"|=KodraRpt 1.0 - dados para os impressos do arquivo",
                        version + L"\\0",
                        version + L"\\0\\" + system,
                        version + L"\\0\\" + system + L"|=" + dll,
                        version + L"\\FLAGS",
                        version + L"\\FLAGS|=" + kReadFromAFile,
                        version + L"\\HELPDIR",
                        version + L"\\HELPDIR|=" + folder};
  // Automation's marshalers: one reads the type library, the other serves only IDispatch.
  constexpr const wchar_t* kDualMarshaler = L"{00020424-0000-0000-C000-000000000046}";
  constexpr const wchar_t* kDispatchMarshaler = L"{00020420-0000-0000-C000-000000000046}";
  for (const auto& [id, name, isDual] : Interfaces(dll)) {
    const std::wstring key = view + L"Interface\\" + id;
    const std::wstring marshaler = isDual ? kDualMarshaler : kDispatchMarshaler;
    for (const std::wstring& row :
         {key, key + L"|=" + name, key + L"\\ProxyStubClsid", key + L"\\ProxyStubClsid|=" + marshaler,
          key + L"\\ProxyStubClsid32", key + L"\\ProxyStubClsid32|=" + marshaler, key + L"\\TypeLib",
          key + L"\\TypeLib|=" + kLibraryId, key + L"\\TypeLib|Version=1.0"})
      rows.push_back(row);
  }
  return rows;
}

// All rows that automation writes. In a 64-bit program it writes them for 32-bit programs too.
inline RegistryLines LibraryRows(const std::wstring& dll) {
  RegistryLines rows = LibraryRowsOfView(L"", dll);
  if (sizeof(void*) == 4) return rows;
  const RegistryLines more = LibraryRowsOfView(L"Wow6432Node\\", dll);
  rows.insert(rows.end(), more.begin(), more.end());
  return rows;
}

// The rows of both lists in the order of a dump.
inline RegistryLines Sorted(RegistryLines rows, const RegistryLines& more = {}) {
  rows.insert(rows.end(), more.begin(), more.end());
  std::sort(rows.begin(), rows.end());
  return rows;
}

// Expects the same rows; a failure shows only those that differ.
inline void ExpectSame(const RegistryLines& expected, const RegistryLines& actual) {
  EXPECT_EQ(RegistryLines(), Without(expected, actual)) << "missing";
  EXPECT_EQ(RegistryLines(), Without(actual, expected)) << "too much";
}

}  // namespace kodra::face
