// The benchmarks that need the registered component. Run in Wine by ./kodra bench.
//
//   kodra-bench.exe FOLDER SIZE [NAME…]  FOLDER contains the archives and receives the results; SIZE is "full" or
//                                        "small"; with names it runs only the benchmarks that begin with one of them
//   kodra-bench.exe FOLDER peak FILE     reads one archive through the component and prints its own peak of memory
#include <algorithm>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "bench/results.h"
#include "bench/wine/datasets.h"
#include "bench/wine/reports.h"
#include "bench/wine/rows.h"
#include "bench/wine/size.h"
#include "bench/wine/streams.h"
#include "kodrarpt.h"
#include "tests/wine/process_resources.h"

namespace kodra::bench {
namespace {

namespace fs = std::filesystem;

// The driver runs outside Windows, so it needs the path in the machine's own form.
std::wstring ConnectionTo(const fs::path& archive) {
  std::wstring path = archive.wstring();
  if (path.starts_with(L"Z:")) path.erase(0, 2);
  for (wchar_t& c : path)
    if (c == L'\\') c = L'/';
  return L"Driver={SQLite3};Database=" + path;
}

// Another process, until this object is destroyed.
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

class Bench {
 public:
  Bench(fs::path folder, const Size& size)
      : folder_(std::move(folder)), size_(size), results_((folder_ / "resultados.tsv").string()) {}

  // Runs the benchmarks whose names begin with one of `names`; without names all of them.
  int Run(const std::vector<std::string>& names) {
    const auto run = [&](std::string_view line, void (Bench::*benchmark)()) {
      const auto named = [&](const std::string& name) { return line.starts_with(name); };
      if (names.empty() || std::any_of(names.begin(), names.end(), named)) (this->*benchmark)();
    };
    run("small_report", &Bench::SmallReport);
    run("dataset_rows_log", &Bench::Log);
    run("dataset_rows_operadores", &Bench::Operators);
    run("dataset_rows", &Bench::Datasets);
    run("script_peer", &Bench::ScriptPeer);
    run("routine_calls", &Bench::Routine);
    run("dll_size", &Bench::DllSize);
    run("load_and_create", &Bench::LoadAndCreate);
    run("streamed_rows", &Bench::StreamedRows);
    run("streamed_memory", &Bench::StreamedMemory);
    if (&size_ == &kFull) run("growth", &Bench::Growth);
    return results_.ExitCode();
  }

 private:
  std::wstring ConnectionTo(const std::string& archive) const { return bench::ConnectionTo(folder_ / archive); }

  // Ends the benchmark when the two sides have read different rows.
  static void SameRows(const Read& component, const Read& bare, long rows, const char* name) {
    if (component == bare && component.rows == rows) return;
    throw std::runtime_error(std::string(name) + ": os dois lados não leram as mesmas linhas (" +
                             std::to_string(component.rows) + ", " + std::to_string(bare.rows) + ", esperadas " +
                             std::to_string(rows) + ")");
  }

  // small_report: RelatorioDeptos on ten departments, from the call to the end of the rows, against the connection
  // component and the same statement by the same ADO.
  void SmallReport() {
    const std::wstring connection = ConnectionTo(size_.registers);
    const Caller<ICDeptoRpt> report(L"CDeptoRpt", &ICDeptoRpt::RelatorioDeptos, connection);
    const Bare bare(connection, report.Rows().get());
    SameRows(ReadToEnd(report.Rows().get()), ReadToEnd(bare.Rows().get()), 10, "small_report");
    results_.Ratio({.name = "small_report", .unit = "us", .scale = 1e6, .limit = 1.05},
                   Interleave(size_.smallReports, Timed([&] { ReadToEnd(report.Rows().get()); }),
                              Timed([&] { ReadToEnd(bare.Rows().get()); })));
  }

  // streamed_rows: RelatorioSintetico over all documents, from the call to the end of the rows, against the same; both
  // are open at once and are read by turns.
  void StreamedRows() {
    const std::wstring connection = ConnectionTo(size_.streamed);
    const Caller<ICDocumentoRpt> report(L"CDocumentoRpt", &ICDocumentoRpt::RelatorioSintetico, connection);
    const Bare bare(connection, report.Rows().get());
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < size_.streams; ++round) {
      Stream component([&] { return report.Rows(); });
      Stream direct([&] { return bare.Rows(); });
      if (round % 2 == 0)
        ReadInTurns(component, direct);
      else
        ReadInTurns(direct, component);
      SameRows(component.All(), direct.All(), component.All().rows, "streamed_rows");
      ours.push_back(component.Taken());
      theirs.push_back(direct.Taken());
    }
    results_.Ratio({.name = "streamed_rows", .unit = "ms", .scale = 1e3, .limit = 1.02},
                   {Median(std::move(ours)), Median(std::move(theirs))});
  }

  // streamed_memory: the peak of a process that reads all documents through RelatorioSintetico, less the peak of one
  // that reads a thousand.
  void StreamedMemory() {
    const double more = Peak(size_.streamed) - Peak("acervo-1000.db");
    // At least one page: no difference is a good result, but a figure of zero would not count as one.
    results_.Figure({.name = "streamed_memory", .unit = "MiB", .scale = 1.0 / 1024, .limit = 2}, std::max(more, 4.0));
  }

  // The peak of a process of its own, in KiB.
  double Peak(const std::string& archive) const {
    wchar_t self[MAX_PATH];
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    RunProgram(L"\"" + std::wstring(self) + L"\" \"" + folder_.wstring() + L"\" peak " +
               std::wstring(archive.begin(), archive.end()));
    double peak = 0;
    std::ifstream(folder_ / "pico.txt") >> peak;
    if (peak <= 0) throw std::runtime_error("streamed_memory: o processo não informou seu pico");
    return peak;
  }

  static void RunProgram(const std::wstring& command) { Process(command).Wait(); }

  // The command that runs a script of this folder.
  std::wstring ScriptCommand(const char* name) const {
    const fs::path script = folder_.parent_path().parent_path() / "bench" / "wine" / name;
    return L"cscript.exe //nologo \"" + script.wstring() + L"\"";
  }

  // dataset_rows_log: the event log, from the call to the filled dataset, against a loop that makes the same calls to
  // the siblings and fills the same fields.
  void Log() {
    const std::wstring connection = ConnectionTo(size_.registers);
    const Caller<ICLogRpt> log(L"CLogRpt", &ICLogRpt::RelatorioLog, connection);
    const Read events = ReadToEnd(log.Rows().get());
    SameRows(events, ReadToEnd(BareLog(connection).get()), events.rows, "dataset_rows_log");
    logged_ = Interleave(size_.logs, Timed([&] { log.Rows(); }), Timed([&] { BareLog(connection); }));
    results_.Ratio({.name = "dataset_rows_log", .unit = "ms", .scale = 1e3, .limit = 1.10}, logged_);
  }

  // dataset_rows_operadores: the same for the operators.
  void Operators() {
    const std::wstring connection = ConnectionTo(size_.registers);
    const Caller<ICOperadorRpt> operators(L"COperadorRpt", &ICOperadorRpt::RelatorioOperadores, connection);
    const Caller<ICDeptoRpt> any(L"CDeptoRpt", &ICDeptoRpt::RelatorioDeptos, connection);
    const std::wstring prepared = Bare(connection, any.Rows().get()).Prepared();
    const auto bare = [&] { return BareOperators(connection, prepared, kOperatorsStatement); };
    const Read listed = ReadToEnd(operators.Rows().get());
    SameRows(listed, ReadToEnd(bare().get()), listed.rows, "dataset_rows_operadores");
    listed_ = Interleave(size_.operators, Timed([&] { operators.Rows(); }), Timed(bare));
    results_.Ratio({.name = "dataset_rows_operadores", .unit = "ms", .scale = 1e3, .limit = 1.10}, listed_);
  }

  // dataset_rows: both together. REQUIRES: each has been measured.
  void Datasets() {
    results_.Ratio({.name = "dataset_rows", .unit = "ms", .scale = 1e3, .limit = 1.10},
                   {logged_.component + listed_.component, logged_.bare + listed_.bare});
  }

  // script_peer: RelatorioLog called by a script, against the same dataset filled by that script.
  void ScriptPeer() {
    const fs::path output = folder_ / "script.txt";
    fs::remove(output);
    RunProgram(ScriptCommand("log_by_script.vbs") + L" \"" + ConnectionTo(size_.registers) + L"\" " +
               std::to_wstring(size_.scripts) + L" \"" + output.wstring() + L"\"");
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
    results_.Ratio({.name = "script_peer", .unit = "ms", .limit = 0.5},
                   {Median(std::move(times.component)), Median(std::move(times.bare))});
  }

  // routine_calls: ten thousand calls of ten reports by a script on one object, against the same statements by ADO in
  // the same script. routine_memory: by how much the working set of the script's process grows during a thousand
  // calls, against a thousand bare calls. routine_handles: the handles of the process after all calls and before the
  // last two thousand.
  void Routine() {
    const fs::path output = folder_ / "rotina.txt";
    for (const char* file : {"rotina.txt", "rotina-1.sinal", "rotina-2.sinal", "rotina-3.sinal"})
      fs::remove(folder_ / file);
    const Process script(ScriptCommand("routine_by_script.vbs") + L" \"" + ConnectionTo("acervo-1000.db") + L"\" " +
                         std::to_wstring(size_.routines) + L" \"" + folder_.wstring() + L"\"");
    const Held before = HeldAtSignal(script, folder_ / "rotina-1.sinal");
    const Held between = HeldAtSignal(script, folder_ / "rotina-2.sinal");
    const Held after = HeldAtSignal(script, folder_ / "rotina-3.sinal");
    script.Wait();
    std::ifstream file(output);
    double rows = 0;
    double bareRows = 0;
    file >> rows >> bareRows;
    if (rows == 0 || rows != bareRows)
      throw std::runtime_error("routine_calls: os dois lados não leram as mesmas linhas");
    Times times = ReadTimes(file);
    if (times.component.size() != static_cast<std::size_t>(size_.routines))
      throw std::runtime_error("routine_calls: o script não terminou");
    // A hundred calls, so that a hundredth of a millisecond is a microsecond of a call.
    results_.Ratio({.name = "routine_calls", .unit = "us", .scale = 10, .limit = 1.10},
                   {Median(std::move(times.component)), Median(std::move(times.bare))});
    results_.Ratio({.name = "routine_memory", .unit = "KiB", .scale = 1.0 / 1024, .limit = 1.1},
                   {BytesMore(before, between), BytesMore(between, after)});
    results_.Ratio({.name = "routine_handles", .unit = "", .limit = 1}, {after.handles, before.handles});
  }

  // What a process holds.
  struct Held {
    double bytes;  // its working set
    double handles;
  };

  // At least one page: no growth is a good result, but a figure of zero would not count as one.
  static double BytesMore(const Held& before, const Held& after) {
    return std::max(after.bytes - before.bytes, 4096.0);
  }

  // What the process holds when it has made the file of that name. Deletes the file, so that the process goes on.
  static Held HeldAtSignal(const Process& process, const fs::path& signal) {
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

  // dll_size: the component's file.
  void DllSize() {
    const auto bytes = static_cast<double>(fs::file_size(folder_.parent_path() / "win32" / "KodraRpt.dll"));
    results_.Figure({.name = "dll_size", .unit = "KB", .scale = 1e-3, .limit = 1000}, bytes);
  }

  // load_and_create: loading the DLL, making an object of one class and releasing both, against an in-process server
  // that has only one class.
  void LoadAndCreate() {
    CLSID id;
    Must(CLSIDFromProgID(L"KodraRpt.CDeptoRpt", &id), "CLSIDFromProgID");
    const auto loaded = [&](const wchar_t* name) {
      const HMODULE module = LoadLibraryW((folder_.parent_path() / L"win32" / name).c_str());
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
    results_.Ratio({.name = "load_and_create", .unit = "us", .scale = 1e6, .limit = 1.3},
                   Interleave(size_.loads, Timed([&] { loaded(L"KodraRpt.dll"); }),
                              Timed([&] { loaded(L"kodra_bench_empty.dll"); })));
  }

  // How the cost grows with rows, columns and calls, each at four sizes: one line for each in crescimento.tsv.
  void Growth() {
    std::ofstream file(folder_ / "crescimento.tsv");
    file << "eixo\ttamanho\tcomponente\tdireto\n";
    const auto measure = [&](const char* axis, double size, int rounds, const auto& report, const Bare& bare,
                             int calls) {
      const Medians medians = Interleave(rounds, Timed([&] {
                                           for (int i = 0; i < calls; ++i) ReadToEnd(report.Rows().get());
                                         }),
                                         Timed([&] {
                                           for (int i = 0; i < calls; ++i) ReadToEnd(bare.Rows().get());
                                         }));
      file << axis << '\t' << size << '\t' << medians.component << '\t' << medians.bare << '\n' << std::flush;
    };
    for (const int documents : {1000, 10000, 100000, 1000000}) {
      const std::wstring connection = ConnectionTo("acervo-" + std::to_string(documents) + ".db");
      const Caller<ICDocumentoRpt> report(L"CDocumentoRpt", &ICDocumentoRpt::RelatorioSintetico, connection);
      measure("linhas", documents, documents < 1000000 ? 9 : 3, report, Bare(connection, report.Rows().get()), 1);
    }
    const std::wstring registers = ConnectionTo(size_.registers);
    const auto columns = [&](const auto& report) {
      const com_ptr<_Recordset> rows = report.Rows();
      measure("colunas", static_cast<double>(FieldsOf(rows.get()).size()), 9, report, Bare(registers, rows.get()), 1);
    };
    columns(Caller<ICSuporteRpt>(L"CSuporteRpt", &ICSuporteRpt::RelatorioSuportes, registers));
    columns(Caller<ICTipo_CaixaRpt>(L"CTipo_CaixaRpt", &ICTipo_CaixaRpt::RelatorioTiposModulo, registers));
    columns(Caller<ICDepositoRpt>(L"CDepositoRpt", &ICDepositoRpt::RelatorioDepositos, registers));
    columns(Caller<ICSerieRpt>(L"CSerieRpt", &ICSerieRpt::RelatorioSeries, registers));
    const Caller<ICDeptoRpt> deptos(L"CDeptoRpt", &ICDeptoRpt::RelatorioDeptos, registers);
    for (const int calls : {1, 10, 100, 1000})
      measure("chamadas", calls, calls < 1000 ? 9 : 3, deptos, Bare(registers, deptos.Rows().get()), calls);
  }

  fs::path folder_;
  const Size& size_;
  Results results_;
  Medians logged_;
  Medians listed_;
};

// Reads one archive and writes the peak of this process in KiB, as the machine around Wine counts it, to pico.txt.
void WritePeak(const fs::path& folder, const std::string& archive) {
  const std::wstring connection = ConnectionTo(folder / archive);
  ReadToEnd(Caller<ICDocumentoRpt>(L"CDocumentoRpt", &ICDocumentoRpt::RelatorioSintetico, connection).Rows().get());
  std::ifstream status("Z:\\proc\\self\\status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmHWM:")) std::ofstream(folder / "pico.txt") << line.substr(6);
}

}  // namespace
}  // namespace kodra::bench

int main(int argc, char** argv) {
  using namespace kodra::bench;
  if (argc < 3) return 2;
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  int code = 0;
  try {
    if (std::strcmp(argv[2], "peak") == 0)
      WritePeak(argv[1], argv[3]);
    else
      code = Bench(argv[1], std::strcmp(argv[2], "full") == 0 ? kFull : kSmall).Run({argv + 3, argv + argc});
  } catch (const std::exception& error) {
    std::cout << error.what() << std::endl;
    code = 2;
  }
  CoUninitialize();
  return code;
}
