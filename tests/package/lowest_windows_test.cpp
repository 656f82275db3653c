// The lowest Windows that the files of the package run on, by what they import and by their headers.
#include <gtest/gtest.h>

#include "tests/package/paths.h"
#include "tests/wine/component_imports.h"
#include "tests/wine/pe_file.h"

namespace kodra::package {
namespace {

enum class Windows { kXp, kVista, kVistaServicePack1 };

// The first Windows that has a function. A function that is not listed was already in Windows XP.
Windows FirstWith(const std::string& function) {
  static const std::map<std::string, Windows> later = {
      {"AcquireSRWLockExclusive", Windows::kVista},
      {"FlsAlloc", Windows::kVista},
      {"FlsFree", Windows::kVista},
      {"FlsGetValue", Windows::kVista},
      {"FlsSetValue", Windows::kVista},
      {"GetTickCount64", Windows::kVista},
      {"InitializeSRWLock", Windows::kVista},
      {"RegDeleteTreeW", Windows::kVista},
      {"RegGetValueW", Windows::kVista},
      {"RegisterTypeLibForUser", Windows::kVistaServicePack1},
      {"ReleaseSRWLockExclusive", Windows::kVista},
      {"UnRegisterTypeLibForUser", Windows::kVistaServicePack1},
  };
  const auto found = later.find(function);
  return found == later.end() ? Windows::kXp : found->second;
}

// The lowest Windows that has all functions that a file imports. Each must be a known function: before you add one,
// find out which Windows had it first, and add it to FirstWith if that is later than Windows XP.
template <class IsKnown>
Windows LowestWindowsOf(const face::PeFile& file, IsKnown isKnown) {
  Windows lowest = Windows::kXp;
  for (const auto& [dll, functions] : file.Imports()) {
    for (const auto& function : functions) {
      EXPECT_TRUE(isKnown(dll, function)) << "which Windows had " << function << " of " << dll << " first?";
      lowest = std::max(lowest, FirstWith(function));
    }
  }
  return lowest;
}

void ExpectLoadedByVista(const face::PeFile& file) {
  const auto& header = file.Headers().OptionalHeader;
  EXPECT_LE(header.MajorSubsystemVersion * 100 + header.MinorSubsystemVersion, 600);
  EXPECT_LE(header.MajorOperatingSystemVersion * 100 + header.MinorOperatingSystemVersion, 600);
}

// The README names the same Windows.
TEST(LowestWindows, OfTheComponentIsVistaWithServicePackOne) {
  const face::PeFile dll(Unpacked() + L"\\KodraRpt.dll");
  EXPECT_EQ(Windows::kVistaServicePack1, LowestWindowsOf(dll, face::IsComponentImport));
  ExpectLoadedByVista(dll);
}

// The functions that the console program may import in addition to those of the component.
bool IsConsoleImport(const std::string& dll, const std::string& function) {
  static const std::map<std::string, std::set<std::string>> known = {
      {"kernel32.dll",
       {"AddVectoredExceptionHandler",
        "CloseHandle",
        "CreateEventA",
        "CreateFileW",
        "CreateHardLinkW",
        "CreateSemaphoreA",
        "DeleteFileW",
        "DuplicateHandle",
        "FileTimeToSystemTime",
        "FindFirstVolumeW",
        "FindNextVolumeW",
        "FindVolumeClose",
        "FormatMessageA",
        "GetCommandLineW",
        "GetConsoleMode",
        "GetConsoleOutputCP",
        "GetConsoleScreenBufferInfo",
        "GetCurrentProcess",
        "GetCurrentProcessId",
        "GetCurrentThread",
        "GetCurrentThreadId",
        "GetDiskFreeSpaceExW",
        "GetFileAttributesW",
        "GetFileInformationByHandle",
        "GetFileSizeEx",
        "GetFileType",
        "GetFullPathNameW",
        "GetHandleInformation",
        "GetModuleHandleA",
        "GetProcessAffinityMask",
        "GetProcessTimes",
        "GetStartupInfoA",
        "GetStdHandle",
        "GetSystemTimeAdjustment",
        "GetSystemTimeAsFileTime",
        "GetTempPathW",
        "GetThreadContext",
        "GetThreadPriority",
        "GetThreadTimes",
        "GetTickCount64",
        "GetVolumeInformationW",
        "IsDebuggerPresent",
        "LoadLibraryW",
        "LocalFree",
        "MoveFileExW",
        "OpenProcess",
        "OutputDebugStringA",
        "QueryPerformanceCounter",
        "QueryPerformanceFrequency",
        "RaiseException",
        "ReleaseSemaphore",
        "RemoveDirectoryW",
        "RemoveVectoredExceptionHandler",
        "ResetEvent",
        "ResumeThread",
        "SetConsoleOutputCP",
        "SetEndOfFile",
        "SetEvent",
        "SetFilePointer",
        "SetProcessAffinityMask",
        "SetSystemTime",
        "SetThreadContext",
        "SetThreadPriority",
        "SetUnhandledExceptionFilter",
        "SuspendThread",
        "TerminateProcess",
        "TlsAlloc",
        "TlsSetValue",
        "TryEnterCriticalSection",
        "WaitForMultipleObjects",
        "WaitForSingleObject"}},
      {"msvcrt.dll",
       {"__getmainargs",
        "__initenv",
        "__p__acmdln",
        "__p__commode",
        "__p__fmode",
        "__set_app_type",
        "__setusermatherr",
        "_access",
        "_assert",
        "_beginthreadex",
        "_cexit",
        "_close",
        "_cputws",
        "_endthreadex",
        "_dup",
        "_dup2",
        "_exit",
        "_fdopen",
        "_filelengthi64",
        "_fileno",
        "_findclose",
        "_fstat64",
        "_get_osfhandle",
        "_getpid",
        "_getwch",
        "_isatty",
        "_lseeki64",
        "_onexit",
        "_open",
        "_open_osfhandle",
        "_pclose",
        "_read",
        "_setjmp3",
        "_setmode",
        "_stat",
        "_strdup",
        "_stricmp",
        "_telli64",
        "_ultoa",
        "_vsnprintf",
        "_wchdir",
        "_wchmod",
        "_wfindfirst",
        "_wfindnext",
        "_wfopen",
        "_wfullpath",
        "_wgetcwd",
        "_wgetenv",
        "_wmkdir",
        "_wopen",
        "_wpopen",
        "_write",
        "_wstat64",
        "_wutime",
        "clock",
        "exit",
        "fclose",
        "feof",
        "ferror",
        "fflush",
        "fgetc",
        "fgetpos",
        "fopen",
        "fprintf",
        "fputs",
        "fputwc",
        "fread",
        "fseek",
        "fsetpos",
        "ftell",
        "fwprintf",
        "getc",
        "getenv",
        "getwc",
        "gmtime",
        "isalnum",
        "islower",
        "ispunct",
        "isspace",
        "isupper",
        "iswctype",
        "isxdigit",
        "longjmp",
        "printf",
        "putc",
        "puts",
        "putwc",
        "rand",
        "rand_s",
        "remove",
        "rewind",
        "setvbuf",
        "signal",
        "srand",
        "strcat",
        "strcoll",
        "strcpy",
        "strftime",
        "strncat",
        "strncpy",
        "strpbrk",
        "strrchr",
        "strstr",
        "strtol",
        "strtoul",
        "strxfrm",
        "tolower",
        "towlower",
        "towupper",
        "ungetc",
        "ungetwc",
        "wcscat",
        "wcscmp",
        "wcscoll",
        "wcscpy",
        "wcsftime",
        "wcsxfrm"}},
      // Windows XP has ODBC 3.5.
      {"odbc32.dll",
       {"SQLAllocHandle",  "SQLBindCol",         "SQLBindParameter",  "SQLCancel",          "SQLColAttributeW",
        "SQLDescribeColW", "SQLDisconnect",      "SQLDriverConnectW", "SQLEndTran",         "SQLExecute",
        "SQLFetch",        "SQLFreeHandle",      "SQLFreeStmt",       "SQLGetConnectAttrW", "SQLGetData",
        "SQLGetDiagRecW",  "SQLGetInfoW",        "SQLNumResultCols",  "SQLPrepareW",        "SQLPrimaryKeys",
        "SQLRowCount",     "SQLSetConnectAttrW", "SQLSetEnvAttr",     "SQLSetStmtAttrW",    "SQLStatistics"}},
      {"ole32.dll", {"CoInitializeEx", "CoUninitialize"}},
      {"shell32.dll", {"CommandLineToArgvW", "ShellExecuteW"}},
      {"ws2_32.dll", {"WSACleanup",  "WSAGetLastError", "WSASocketW", "WSAStartup",   "__WSAFDIsSet", "accept",
                      "bind",        "closesocket",     "connect",    "freeaddrinfo", "getaddrinfo",  "getnameinfo",
                      "getpeername", "getsockname",     "getsockopt", "ioctlsocket",  "listen",       "ntohs",
                      "recv",        "select",          "send",       "setsockopt",   "shutdown",     "socket"}},
  };
  const auto found = known.find(dll);
  return found != known.end() && found->second.contains(function);
}

// The further functions that the compiler and its runtime use on a 64-bit Windows.
bool IsConsoleImportIn64Bits(const std::string& dll, const std::string& function) {
  static const std::map<std::string, std::set<std::string>> known = {
      {"kernel32.dll", {"__C_specific_handler"}},
      {"msvcrt.dll",
       {"_acmdln", "_commode", "_fmode", "_gmtime64", "_setjmp", "_stat64", "_vscprintf", "_wfindfirst64",
        "_wfindnext64", "_wutime64"}},
  };
  const auto found = known.find(dll);
  return sizeof(void*) == 8 && found != known.end() && found->second.contains(function);
}

TEST(LowestWindows, OfTheConsoleProgramIsVista) {
  const face::PeFile program(Unpacked() + L"\\console\\kodrarpt.exe");
  EXPECT_EQ(Windows::kVista, LowestWindowsOf(program, [](const std::string& dll, const std::string& function) {
              return face::IsComponentImport(dll, function) || IsConsoleImport(dll, function) ||
                     IsConsoleImportIn64Bits(dll, function);
            }));
  ExpectLoadedByVista(program);
}

}  // namespace
}  // namespace kodra::package
