// How the cost of a report grows.
#include <fstream>

#include "bench/wine/benchmarks.h"
#include "bench/wine/reports.h"
#include "bench/wine/rows.h"
#include "kodrarpt.h"

namespace kodra::bench {

void Growth(Bench& bench) {
  std::ofstream file(bench.folder / "crescimento.tsv");
  file << "eixo\ttamanho\tcomponente\tdireto\n";
  const auto measure = [&](const char* axis, double size, int rounds, const auto& report, const Bare& bare, int calls) {
    const Medians medians = Interleave(rounds, Timed([&] {
                                         for (int i = 0; i < calls; ++i) ReadToEnd(report.Rows().get());
                                       }),
                                       Timed([&] {
                                         for (int i = 0; i < calls; ++i) ReadToEnd(bare.Rows().get());
                                       }));
    file << axis << '\t' << size << '\t' << medians.component << '\t' << medians.bare << '\n' << std::flush;
  };
  for (const int documents : {1000, 10000, 100000, 1000000}) {
    const std::wstring connection = ConnectionTo(bench.folder / ("acervo-" + std::to_string(documents) + ".db"));
    const Caller<ICDocumentoRpt> report(L"CDocumentoRpt", &ICDocumentoRpt::RelatorioSintetico, connection);
    measure("linhas", documents, documents < 1000000 ? 9 : 3, report, Bare(connection, report.Rows().get()), 1);
  }
  const std::wstring registers = ConnectionTo(bench.folder / bench.size.registers);
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

}  // namespace kodra::bench
