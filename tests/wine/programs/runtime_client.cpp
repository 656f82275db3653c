// A client of the registered component that is built with the component's own compiler.
//
//   runtime_client [LIBRARY]
//
// Prints the error of a failing report four times: after the component is loaded, after LIBRARY is loaded too, and
// twice after COM has unloaded the component and loaded it again. At the end it throws and catches an exception of its
// own.
#include <windows.h>

#include <kodrarpt.h>

#include <cstdio>
#include <string>

namespace {

// Prints a text in UTF-8, followed by `end`.
void Print(BSTR text, char end) {
  std::string bytes(3 * SysStringLen(text), '\0');
  bytes.resize(
      static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(SysStringLen(text)), bytes.data(),
                                                   static_cast<int>(bytes.size()), nullptr, nullptr)));
  std::printf("%s%c", bytes.c_str(), end);
  SysFreeString(text);
}

void FailAReport() {
  ICDeptoRpt* report = nullptr;
  const HRESULT created = CoCreateInstance(__uuidof(CDeptoRpt), nullptr, CLSCTX_INPROC_SERVER, __uuidof(ICDeptoRpt),
                                           reinterpret_cast<void**>(&report));
  if (FAILED(created)) {
    std::printf("no report: %08lX\n", static_cast<unsigned long>(created));
    return;
  }
  IDispatch* rows = nullptr;
  std::printf("%08lX ", static_cast<unsigned long>(report->RelatorioDeptos(nullptr, &rows)));
  IErrorInfo* info = nullptr;
  if (GetErrorInfo(0, &info) == S_OK) {
    BSTR source = nullptr;
    BSTR description = nullptr;
    info->GetSource(&source);
    info->GetDescription(&description);
    Print(source, ' ');
    Print(description, '\n');
    info->Release();
  }
  report->Release();
}

void UnloadTheComponent() {
  CoFreeUnusedLibraries();
  std::puts(GetModuleHandleW(L"KodraRpt.dll") == nullptr ? "unloaded" : "still loaded");
}

}  // namespace

int main(int count, char** arguments) {
  // Unbuffered, so that the output is complete even if the program ends abnormally.
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  CoInitialize(nullptr);
  FailAReport();
  if (count > 1) std::puts(LoadLibraryA(arguments[1]) == nullptr ? "no library" : "library loaded");
  FailAReport();
  UnloadTheComponent();
  FailAReport();
  FailAReport();
  try {
    throw std::string("the client's own exception");
  } catch (const std::string& text) {
    std::puts(text.c_str());
  }
  CoUninitialize();
  return 0;
}
