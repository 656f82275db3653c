// Reports from the call to the end of their rows, against the same statement by the same ADO.
#include <algorithm>
#include <fstream>

#include "bench/wine/benchmarks.h"
#include "bench/wine/process.h"
#include "bench/wine/reports.h"
#include "bench/wine/streams.h"
#include "kodrarpt.h"

namespace kodra::bench {
namespace {

// The peak of a process of its own, in KiB.
double Peak(const Bench& bench, const std::string& archive) {
  wchar_t self[MAX_PATH];
  GetModuleFileNameW(nullptr, self, MAX_PATH);
  Process(L"\"" + std::wstring(self) + L"\" \"" + bench.folder.wstring() + L"\" peak " +
          std::wstring(archive.begin(), archive.end()))
      .Wait();
  double peak = 0;
  std::ifstream(bench.folder / "pico.txt") >> peak;
  if (peak <= 0) throw std::runtime_error("streamed_memory: o processo não informou seu pico");
  return peak;
}

}  // namespace

void SmallReport(Bench& bench) {
  const std::wstring connection = ConnectionTo(bench.folder / bench.size.registers);
  const Caller<ICDeptoRpt> report(L"CDeptoRpt", &ICDeptoRpt::RelatorioDeptos, connection);
  const Bare bare(connection, report.Rows().get());
  SameRows(ReadToEnd(report.Rows().get()), ReadToEnd(bare.Rows().get()), 10, "small_report");
  bench.results.Ratio({.name = "small_report", .unit = "us", .scale = 1e6, .limit = 1.05},
                      Interleave(bench.size.smallReports, Timed([&] { ReadToEnd(report.Rows().get()); }),
                                 Timed([&] { ReadToEnd(bare.Rows().get()); })));
}

void StreamedRows(Bench& bench) {
  const std::wstring connection = ConnectionTo(bench.folder / bench.size.streamed);
  const Caller<ICDocumentoRpt> report(L"CDocumentoRpt", &ICDocumentoRpt::RelatorioSintetico, connection);
  const Bare bare(connection, report.Rows().get());
  std::vector<double> ours;
  std::vector<double> theirs;
  for (int round = 0; round < bench.size.streams; ++round) {
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
  bench.results.Ratio({.name = "streamed_rows", .unit = "ms", .scale = 1e3, .limit = 1.02},
                      {Median(std::move(ours)), Median(std::move(theirs))});
}

void StreamedMemory(Bench& bench) {
  const double more = Peak(bench, bench.size.streamed) - Peak(bench, "acervo-1000.db");
  // At least one page: no difference is a good result, but a figure of zero would not count as one.
  bench.results.Figure({.name = "streamed_memory", .unit = "MiB", .scale = 1.0 / 1024, .limit = 2},
                       std::max(more, 4.0));
}

void WritePeak(const std::filesystem::path& folder, const std::string& archive) {
  const std::wstring connection = ConnectionTo(folder / archive);
  ReadToEnd(Caller<ICDocumentoRpt>(L"CDocumentoRpt", &ICDocumentoRpt::RelatorioSintetico, connection).Rows().get());
  std::ifstream status("Z:\\proc\\self\\status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmHWM:")) std::ofstream(folder / "pico.txt") << line.substr(6);
}

}  // namespace kodra::bench
