// The functions of Windows that KodraRpt.dll may import.
#pragma once

#include <map>
#include <set>
#include <string>

namespace kodra::face {

// The functions that the component may import. All of them are in Windows 7 without updates; before you add one, check
// that it is too.
inline const std::map<std::string, std::set<std::string>>& ComponentImports() {
  static const std::map<std::string, std::set<std::string>> allowed = {
      {"advapi32.dll", {"RegCloseKey", "RegCreateKeyExW", "RegDeleteTreeW", "RegGetValueW", "RegSetValueExW"}},
      {"kernel32.dll",
       {"AcquireSRWLockExclusive",
        "DeleteCriticalSection",
        "EnterCriticalSection",
        "FlsAlloc",
        "FlsFree",
        "FlsGetValue",
        "FlsSetValue",
        "FormatMessageW",
        "FreeLibrary",
        "GetFileAttributesExW",
        "GetLastError",
        "GetLongPathNameW",
        "GetModuleFileNameW",
        "GetModuleHandleExW",
        "GetModuleHandleW",
        "GetProcAddress",
        "InitializeCriticalSection",
        "InitializeSRWLock",
        "IsDBCSLeadByteEx",
        "LeaveCriticalSection",
        "LoadLibraryA",
        "LoadLibraryW",
        "MultiByteToWideChar",
        "ReleaseSRWLockExclusive",
        "SetEnvironmentVariableW",
        "SetLastError",
        "Sleep",
        "TlsGetValue",
        "VirtualProtect",
        "VirtualQuery",
        "WideCharToMultiByte",
        "lstrcmpiW"}},
      {"msvcrt.dll", {"__mb_cur_max", "_amsg_exit", "_close",     "_errno",    "_initterm", "_iob",   "_lock",
                      "_read",        "_unlock",    "abort",      "atoi",      "calloc",    "fputc",  "fputs",
                      "free",         "fwrite",     "localeconv", "localtime", "malloc",    "memchr", "memcmp",
                      "memcpy",       "memmove",    "memset",     "realloc",   "setlocale", "strchr", "strcmp",
                      "strerror",     "strlen",     "strncmp",    "time",      "vfprintf",  "wcslen"}},
      {"ole32.dll", {"CLSIDFromProgID", "CoCreateInstance", "StringFromGUID2"}},
      {"oleaut32.dll",
       {"CreateErrorInfo", "DispGetIDsOfNames", "DispInvoke", "GetErrorInfo", "LoadTypeLibEx", "RegisterTypeLib",
        "RegisterTypeLibForUser", "SetErrorInfo", "SysAllocStringLen", "SysFreeString", "SysStringLen",
        "UnRegisterTypeLib", "UnRegisterTypeLibForUser", "VariantChangeTypeEx", "VariantClear", "VariantCopyInd",
        "VariantInit"}},
  };
  return allowed;
}

// The further functions that the compiler and its runtime use on a 64-bit Windows.
inline bool IsComponentImportIn64Bits(const std::string& dll, const std::string& function) {
  static const std::map<std::string, std::set<std::string>> allowed = {
      {"kernel32.dll",
       {"RaiseException", "RtlCaptureContext", "RtlLookupFunctionEntry", "RtlUnwindEx", "RtlVirtualUnwind"}},
      {"msvcrt.dll", {"___lc_codepage_func", "___mb_cur_max_func", "__iob_func", "_localtime64", "_time64"}},
  };
  const auto found = allowed.find(dll);
  return sizeof(void*) == 8 && found != allowed.end() && found->second.contains(function);
}

// `dll` is in lower case.
inline bool IsComponentImport(const std::string& dll, const std::string& function) {
  const auto found = ComponentImports().find(dll);
  return (found != ComponentImports().end() && found->second.contains(function)) ||
         IsComponentImportIn64Bits(dll, function);
}

}  // namespace kodra::face
