// The benchmarks that need the registered component. Run in the Wine box by ./kodra bench.
//
//   kodra-bench.exe FOLDER SIZE      FOLDER holds the archives and takes the results; SIZE is "full" or "small"
//   kodra-bench.exe FOLDER peak FILE reads one archive through the component and prints its own peak of memory
#include <cstring>
#include <filesystem>
#include <iostream>

#include "bench/results.h"
#include "bench/wine/datasets.h"
#include "bench/wine/reports.h"
#include "bench/wine/rows.h"
#include "kodrarpt.h"

namespace kodra::bench {
namespace {

namespace fs = std::filesystem;

// How much each benchmark does.
struct Size {
  int smallReports;       // rounds of small_report
  int streams;            // rounds of streamed_rows
  const char* streamed;   // its archive
  int datasets;           // rounds of dataset_rows and script_peer
  const char* registers;  // their archive
  int loads;              // rounds of load_and_create
};
constexpr Size kFull = {1000, 5, "acervo-1000000.db", 3, "registros-20000.db", 200};
constexpr Size kSmall = {5, 1, "acervo-1000.db", 1, "registros-1000.db", 5};

// The driver runs outside Windows: it is given the path as the machine names it.
std::wstring ConnectionTo(const fs::path& archive) {
  std::wstring path = archive.wstring();
  if (path.starts_with(L"Z:")) path.erase(0, 2);
  for (wchar_t& c : path)
    if (c == L'\\') c = L'/';
  return L"Driver={SQLite3};Database=" + path;
}

class Bench {
 public:
  Bench(fs::path folder, const Size& size)
      : folder_(std::move(folder)), size_(size), results_((folder_ / "resultados.tsv").string()) {}

  int Run() {
    SmallReport();
    Datasets();
    ScriptPeer();
    DllSize();
    LoadAndCreate();
    StreamedRows();
    StreamedMemory();
    if (&size_ == &kFull) Growth();
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

  // small_report: RelatorioDeptos on ten departments, from the call to the end of the rows, against the connection-type
  // helper and the same statement by the same ADO.
  void SmallReport() {
    const std::wstring connection = ConnectionTo(size_.registers);
    const Caller<ICDeptoRpt> report(L"CDeptoRpt", &ICDeptoRpt::RelatorioDeptos, connection);
    const Bare bare(connection, report.Rows().get());
    SameRows(ReadToEnd(report.Rows().get()), ReadToEnd(bare.Rows().get()), 10, "small_report");
    results_.Ratio({.name = "small_report", .unit = "us", .scale = 1e6, .limit = 1.05},
                   Interleave(size_.smallReports, Timed([&] { ReadToEnd(report.Rows().get()); }),
                              Timed([&] { ReadToEnd(bare.Rows().get()); })));
  }

  // streamed_rows: RelatorioSintetico over all documents, from the call to the end of the rows, against the same.
  void StreamedRows() {
    const std::wstring connection = ConnectionTo(size_.streamed);
    const Caller<ICDocumentoRpt> report(L"CDocumentoRpt", &ICDocumentoRpt::RelatorioSintetico, connection);
    const Bare bare(connection, report.Rows().get());
    Read component;
    Read direct;
    const Medians medians = Interleave(size_.streams, Timed([&] { component = ReadToEnd(report.Rows().get()); }),
                                       Timed([&] { direct = ReadToEnd(bare.Rows().get()); }));
    SameRows(component, direct, component.rows, "streamed_rows");
    results_.Ratio({.name = "streamed_rows", .unit = "ms", .scale = 1e3, .limit = 1.02}, medians);
  }

  // streamed_memory: the peak of a process that reads all documents through RelatorioSintetico, less that of one that
  // reads a thousand.
  void StreamedMemory() {
    const double more = Peak(size_.streamed) - Peak("acervo-1000.db");
    // No less than a page: a difference of nothing is good, and still a figure.
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
    if (peak <= 0) throw std::runtime_error("streamed_memory: o processo não disse seu pico");
    return peak;
  }

  static void RunProgram(std::wstring command) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
      throw std::runtime_error("um processo não começou");
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }

  // dataset_rows: the event log and the operators, from the call to the filled dataset, against a loop that makes the
  // same calls to the siblings and fills the same fields.
  void Datasets() {
    const std::wstring connection = ConnectionTo(size_.registers);
    const Caller<ICLogRpt> log(L"CLogRpt", &ICLogRpt::RelatorioLog, connection);
    const Caller<ICOperadorRpt> operators(L"COperadorRpt", &ICOperadorRpt::RelatorioOperadores, connection);
    const Caller<ICDeptoRpt> any(L"CDeptoRpt", &ICDeptoRpt::RelatorioDeptos, connection);
    const std::wstring prepared = Bare(connection, any.Rows().get()).Prepared();
    const auto bareOperators = [&] { return BareOperators(connection, prepared, kOperatorsStatement); };

    const Read events = ReadToEnd(log.Rows().get());
    SameRows(events, ReadToEnd(BareLog(connection).get()), events.rows, "dataset_rows");
    SameRows(ReadToEnd(operators.Rows().get()), ReadToEnd(bareOperators().get()), events.rows, "dataset_rows");

    const Medians logged = Interleave(size_.datasets, Timed([&] { log.Rows(); }), Timed([&] { BareLog(connection); }));
    results_.Ratio({.name = "dataset_rows_log", .unit = "ms", .scale = 1e3, .limit = 1.10}, logged);
    const Medians listed = Interleave(size_.datasets, Timed([&] { operators.Rows(); }), Timed(bareOperators));
    results_.Ratio({.name = "dataset_rows_operadores", .unit = "ms", .scale = 1e3, .limit = 1.10}, listed);
    results_.Ratio({.name = "dataset_rows", .unit = "ms", .scale = 1e3, .limit = 1.10},
                   {logged.component + listed.component, logged.bare + listed.bare});
  }

  // script_peer: RelatorioLog called by a script, against the same dataset filled by that script.
  void ScriptPeer() {
    const fs::path output = folder_ / "script.txt";
    const fs::path script = folder_.parent_path().parent_path() / "bench" / "wine" / "log_by_script.vbs";
    fs::remove(output);
    RunProgram(L"cscript.exe //nologo \"" + script.wstring() + L"\" \"" + ConnectionTo(size_.registers) + L"\" " +
               std::to_wstring(size_.datasets) + L" \"" + output.wstring() + L"\"");
    std::ifstream file(output);
    double rows = 0;
    double length = 0;
    double scriptRows = 0;
    double scriptLength = 0;
    file >> rows >> length >> scriptRows >> scriptLength;
    if (rows == 0 || rows != scriptRows || length != scriptLength)
      throw std::runtime_error("script_peer: o componente e o script não preencheram as mesmas linhas");
    std::vector<double> component;
    std::vector<double> bare;
    for (double ours = 0, theirs = 0; file >> ours >> theirs;) {
      component.push_back(ours);
      bare.push_back(theirs);
    }
    if (component.empty()) throw std::runtime_error("script_peer: o script não terminou");
    results_.Ratio({.name = "script_peer", .unit = "ms", .limit = 0.5},
                   {Median(std::move(component)), Median(std::move(bare))});
  }

  // dll_size: the component's file.
  void DllSize() {
    const auto bytes = static_cast<double>(fs::file_size(folder_.parent_path() / "win32" / "KodraRpt.dll"));
    results_.Figure({.name = "dll_size", .unit = "KB", .scale = 1e-3, .limit = 700}, bytes);
  }

  // load_and_create: loading the DLL, making an object of one class and letting both go, against an in-process server
  // that has nothing but a class.
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

  // How the cost grows with rows, columns and calls, each at four sizes: a line each in crescimento.tsv.
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
};

// Reads one archive and writes the peak of this process to pico.txt, in KiB, as the machine around Wine counts it.
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
      code = Bench(argv[1], std::strcmp(argv[2], "full") == 0 ? kFull : kSmall).Run();
  } catch (const std::exception& error) {
    std::cout << error.what() << std::endl;
    code = 2;
  }
  CoUninitialize();
  return code;
}
