// registry_rows DLL: prints the rows that the DLL's DllRegisterServer writes into the registry of the machine, one per
// line:
//
//   key TAB name TAB text
//
// in UTF-8, below HKEY_LOCAL_MACHINE, without a name for a default value. Meanwhile a temporary key replaces the
// machine's registry, so nothing of the machine's own changes.
#include <windows.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr const wchar_t* kScratch = L"Software\\KodraRpt registry_rows";

void Check(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw std::runtime_error("registry error " + std::to_string(status));
}

HKEY Create(HKEY parent, const wchar_t* path) {
  HKEY key = nullptr;
  Check(RegCreateKeyW(parent, path, &key));
  return key;
}

// A key that replaces the machine's registry, and its classes HKEY_CLASSES_ROOT; deleted with this object.
class Scratch {
 public:
  Scratch() : machine_(Create(HKEY_CURRENT_USER, kScratch)), classes_(Create(machine_, L"Software\\Classes")) {}
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  ~Scratch() {
    RegCloseKey(classes_);
    RegCloseKey(machine_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kScratch);
  }

  HKEY machine() const { return machine_; }

  template <class Body>
  void StandIn(Body body) const {
    Check(RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_));
    Check(RegOverridePredefKey(HKEY_CLASSES_ROOT, classes_));
    body();
    Check(RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr));
    Check(RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr));
  }

 private:
  HKEY machine_;
  HKEY classes_;
};

std::string Utf8(const std::wstring& text) {
  std::string result(text.size() * 3, '\0');
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(),
                                       static_cast<int>(result.size()), nullptr, nullptr);
  result.resize(static_cast<std::size_t>(size));
  return result;
}

void PrintValue(HKEY key, const std::wstring& path, DWORD index) {
  std::wstring name(16384, L'\0');
  std::wstring text(32768, L'\0');
  DWORD nameSize = 16384;
  DWORD bytes = 65536;
  DWORD type = REG_NONE;
  Check(
      RegEnumValueW(key, index, name.data(), &nameSize, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &bytes));
  if (type != REG_SZ) throw std::runtime_error("a value that is no text: " + Utf8(path));
  text.resize(std::wcslen(text.c_str()));
  std::printf("%s\t%s\t%s\n", Utf8(path).c_str(), Utf8(name.substr(0, nameSize)).c_str(), Utf8(text).c_str());
}

void Print(HKEY key, const std::wstring& path) {
  DWORD keys = 0;
  DWORD values = 0;
  Check(RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                         nullptr));
  for (DWORD i = 0; i < values; ++i) PrintValue(key, path, i);
  for (DWORD i = 0; i < keys; ++i) {
    wchar_t name[256];
    DWORD size = 256;
    Check(RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr));
    HKEY child = nullptr;
    Check(RegOpenKeyExW(key, name, 0, KEY_READ, &child));
    // Key names are the same in any letter case; Wine has its own spelling of this one.
    const std::wstring spelt = _wcsicmp(name, L"TypeLib") == 0 ? L"TypeLib" : name;
    Print(child, path.empty() ? spelt : path + L"\\" + spelt);
    RegCloseKey(child);
  }
}

void Register(const wchar_t* dll) {
  const HMODULE module = LoadLibraryW(dll);
  if (module == nullptr) throw std::runtime_error("cannot load the DLL");
  const FARPROC entry = GetProcAddress(module, "DllRegisterServer");
  if (entry == nullptr) throw std::runtime_error("no DllRegisterServer");
  const HRESULT hr = reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(entry))();
  if (FAILED(hr)) throw std::runtime_error("DllRegisterServer failed: " + std::to_string(hr));
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  try {
    if (argc != 2) throw std::runtime_error("usage: registry_rows DLL");
    const Scratch scratch;
    scratch.StandIn([&] { Register(argv[1]); });
    Print(scratch.machine(), L"");
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "registry_rows: %s\n", error.what());
    return 1;
  }
}
