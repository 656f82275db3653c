// How much the benchmarks do: enough for figures that repeat, or just enough to show that each works.
#pragma once

namespace kodra::bench {

struct Size {
  int smallReports;       // rounds of small_report
  int streams;            // rounds of streamed_rows
  const char* streamed;   // its archive
  int logs;               // rounds of dataset_rows_log
  int operators;          // rounds of dataset_rows_operadores
  int scripts;            // rounds of script_peer
  int routines;           // rounds of routine_calls, of a hundred calls on each side
  const char* registers;  // the archive of these and of small_report
  // Rounds of load_and_create. The empty server contains the C++ library's threads: each time that it is loaded it
  // takes one of the process's 1,088 thread-local slots and never frees it.
  int loads;
};
inline constexpr Size kFull = {2000, 4, "acervo-1000000.db", 31, 5, 5, 100, "registros-20000.db", 400};
inline constexpr Size kSmall = {5, 1, "acervo-1000.db", 1, 1, 1, 1, "registros-1000.db", 5};

}  // namespace kodra::bench
