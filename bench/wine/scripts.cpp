// What a script measures that calls the component, and what its process holds.
#include <algorithm>
#include <fstream>

#include "bench/wine/benchmarks.h"
#include "bench/wine/process.h"
#include "tests/wine/process_resources.h"

namespace kodra::bench {
namespace {

namespace fs = std::filesystem;

// What a script has measured of the component and of the bare calls, in turn.
struct Times {
  std::vector<double> component;
  std::vector<double> bare;
};

Times ReadTimes(std::istream& file) {
  Times times;
  for (double component = 0, bare = 0; file >> component >> bare;) {
    times.component.push_back(component);
    times.bare.push_back(bare);
  }
  return times;
}

// The command that runs a script of the folder of these sources.
std::wstring ScriptCommand(const Bench& bench, const char* name) {
  const fs::path script = bench.folder.parent_path().parent_path() / "bench" / "wine" / name;
  return L"cscript.exe //nologo \"" + script.wstring() + L"\"";
}

// What a process holds.
struct Held {
  double bytes;  // its working set
  double handles;
};

// At least one page: no growth is a good result, but a figure of zero would not count as one.
double BytesMore(const Held& before, const Held& after) { return std::max(after.bytes - before.bytes, 4096.0); }

// What the process holds when it has made the file of that name. Deletes the file, so that the process goes on.
Held HeldAtSignal(const Process& process, const fs::path& signal) {
  while (!fs::exists(signal)) {
    if (process.HasEnded()) throw std::runtime_error("routine_calls: o script terminou cedo demais");
    Sleep(50);
  }
  const Held held = {static_cast<double>(face::WorkingSet(process.Handle())),
                     static_cast<double>(face::OpenHandles(process.Id()))};
  // The script may still have the file open.
  while (!DeleteFileW(signal.c_str())) Sleep(10);
  return held;
}

}  // namespace

void ScriptPeer(Bench& bench) {
  const fs::path output = bench.folder / "script.txt";
  fs::remove(output);
  Process(ScriptCommand(bench, "log_by_script.vbs") + L" \"" + ConnectionTo(bench.folder / bench.size.registers) +
          L"\" " + std::to_wstring(bench.size.scripts) + L" \"" + output.wstring() + L"\"")
      .Wait();
  std::ifstream file(output);
  double rows = 0;
  double length = 0;
  double scriptRows = 0;
  double scriptLength = 0;
  file >> rows >> length >> scriptRows >> scriptLength;
  if (rows == 0 || rows != scriptRows || length != scriptLength)
    throw std::runtime_error("script_peer: o componente e o script não preencheram as mesmas linhas");
  Times times = ReadTimes(file);
  if (times.component.empty()) throw std::runtime_error("script_peer: o script não terminou");
  bench.results.Ratio({.name = "script_peer", .unit = "ms", .limit = 0.5},
                      {Median(std::move(times.component)), Median(std::move(times.bare))});
}

void Routine(Bench& bench) {
  const fs::path output = bench.folder / "rotina.txt";
  for (const char* file : {"rotina.txt", "rotina-1.sinal", "rotina-2.sinal", "rotina-3.sinal"})
    fs::remove(bench.folder / file);
  const Process script(ScriptCommand(bench, "routine_by_script.vbs") + L" \"" +
                       ConnectionTo(bench.folder / "acervo-1000.db") + L"\" " + std::to_wstring(bench.size.routines) +
                       L" \"" + bench.folder.wstring() + L"\"");
  const Held before = HeldAtSignal(script, bench.folder / "rotina-1.sinal");
  const Held between = HeldAtSignal(script, bench.folder / "rotina-2.sinal");
  const Held after = HeldAtSignal(script, bench.folder / "rotina-3.sinal");
  script.Wait();
  std::ifstream file(output);
  double rows = 0;
  double bareRows = 0;
  file >> rows >> bareRows;
  if (rows == 0 || rows != bareRows)
    throw std::runtime_error("routine_calls: os dois lados não leram as mesmas linhas");
  Times times = ReadTimes(file);
  if (times.component.size() != static_cast<std::size_t>(bench.size.routines))
    throw std::runtime_error("routine_calls: o script não terminou");
  // A hundred calls, so that a hundredth of a millisecond is a microsecond of a call.
  bench.results.Ratio({.name = "routine_calls", .unit = "us", .scale = 10, .limit = 1.10},
                      {Median(std::move(times.component)), Median(std::move(times.bare))});
  bench.results.Ratio({.name = "routine_memory", .unit = "KiB", .scale = 1.0 / 1024, .limit = 1.1},
                      {BytesMore(before, between), BytesMore(between, after)});
  bench.results.Ratio({.name = "routine_handles", .unit = "", .limit = 1}, {after.handles, before.handles});
}

}  // namespace kodra::bench
