// Datasets that reports fill row by row, against a program that fills them without the component.
#include "bench/wine/benchmarks.h"
#include "bench/wine/datasets.h"
#include "bench/wine/reports.h"
#include "kodrarpt.h"

namespace kodra::bench {

void DatasetRowsLog(Bench& bench) {
  const std::wstring connection = ConnectionTo(bench.folder / bench.size.registers);
  const Caller<ICLogRpt> log(L"CLogRpt", &ICLogRpt::RelatorioLog, connection);
  const Read events = ReadToEnd(log.Rows().get());
  SameRows(events, ReadToEnd(BareLog(connection).get()), events.rows, "dataset_rows_log");
  bench.log = Interleave(bench.size.logs, Timed([&] { log.Rows(); }), Timed([&] { BareLog(connection); }));
  bench.results.Ratio({.name = "dataset_rows_log", .unit = "ms", .scale = 1e3, .limit = 1.10}, bench.log);
}

void DatasetRowsOperators(Bench& bench) {
  const std::wstring connection = ConnectionTo(bench.folder / bench.size.registers);
  const Caller<ICOperadorRpt> operators(L"COperadorRpt", &ICOperadorRpt::RelatorioOperadores, connection);
  const Caller<ICDeptoRpt> any(L"CDeptoRpt", &ICDeptoRpt::RelatorioDeptos, connection);
  const std::wstring prepared = Bare(connection, any.Rows().get()).Prepared();
  const auto bare = [&] { return BareOperators(connection, prepared, kOperatorsStatement); };
  const Read listed = ReadToEnd(operators.Rows().get());
  SameRows(listed, ReadToEnd(bare().get()), listed.rows, "dataset_rows_operadores");
  bench.operators = Interleave(bench.size.operators, Timed([&] { operators.Rows(); }), Timed(bare));
  bench.results.Ratio({.name = "dataset_rows_operadores", .unit = "ms", .scale = 1e3, .limit = 1.10}, bench.operators);
}

void DatasetRows(Bench& bench) {
  bench.results.Ratio({.name = "dataset_rows", .unit = "ms", .scale = 1e3, .limit = 1.10},
                      {bench.log.component + bench.operators.component, bench.log.bare + bench.operators.bare});
}

}  // namespace kodra::bench
