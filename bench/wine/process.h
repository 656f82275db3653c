// Another process, started by the benchmarks.
#pragma once

#include <windows.h>
#include <stdexcept>
#include <string>

namespace kodra::bench {

// A process that has been started; destroying the object does not end it.
class Process {
 public:
  explicit Process(std::wstring command) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process_))
      throw std::runtime_error("não foi possível iniciar um processo");
  }
  ~Process() {
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  void Wait() const { WaitForSingleObject(process_.hProcess, INFINITE); }
  bool HasEnded() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0; }
  HANDLE Handle() const { return process_.hProcess; }
  DWORD Id() const { return process_.dwProcessId; }

 private:
  PROCESS_INFORMATION process_ = {};
};

}  // namespace kodra::bench
