// The component's file: its size, and loading it.
#include "bench/wine/benchmarks.h"
#include "bench/wine/com.h"

namespace kodra::bench {

void DllSize(Bench& bench) {
  const auto bytes =
      static_cast<double>(std::filesystem::file_size(bench.folder.parent_path() / "win32" / "KodraRpt.dll"));
  bench.results.Figure({.name = "dll_size", .unit = "KB", .scale = 1e-3, .limit = 1000}, bytes);
}

void LoadAndCreate(Bench& bench) {
  CLSID id;
  Must(CLSIDFromProgID(L"KodraRpt.CDeptoRpt", &id), "CLSIDFromProgID");
  const auto loaded = [&](const wchar_t* name) {
    const HMODULE module = LoadLibraryW((bench.folder.parent_path() / L"win32" / name).c_str());
    if (module == nullptr) throw std::runtime_error("load_and_create: a DLL não foi carregada");
    using Entry = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
    {
      com_ptr<IClassFactory> factory;
      Must(entry(id, IID_IClassFactory, factory.put_void()), "DllGetClassObject");
      com_ptr<IUnknown> object;
      Must(factory->CreateInstance(nullptr, IID_IUnknown, object.put_void()), "CreateInstance");
    }
    FreeLibrary(module);
  };
  CoFreeUnusedLibrariesEx(0, 0);
  if (GetModuleHandleW(L"KodraRpt.dll") != nullptr)
    throw std::runtime_error("load_and_create: a DLL já está carregada");
  bench.results.Ratio({.name = "load_and_create", .unit = "us", .scale = 1e6, .limit = 1.3},
                      Interleave(bench.size.loads, Timed([&] { loaded(L"KodraRpt.dll"); }),
                                 Timed([&] { loaded(L"kodra_bench_empty.dll"); })));
}

}  // namespace kodra::bench
