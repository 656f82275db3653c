// The benchmarks by the name of their lines. Each writes its figures to the results, and throws std::runtime_error when
// it cannot measure.
#pragma once

#include <filesystem>
#include <string>

#include "bench/measure.h"
#include "bench/results.h"
#include "bench/wine/rows.h"
#include "bench/wine/size.h"

namespace kodra::bench {

// What all benchmarks of one run share.
struct Bench {
  // Contains the archives and receives the results.
  std::filesystem::path folder;
  const Size& size;
  Results& results;
  // What the two lines of datasets have measured, for the line that adds them up.
  Medians log;
  Medians operators;
};

// The connection string for the archive at that path.
std::wstring ConnectionTo(const std::filesystem::path& archive);

// small_report: RelatorioDeptos on ten departments, from the call to the end of the rows, against the connection
// component and the same statement by the same ADO.
void SmallReport(Bench& bench);

// streamed_rows: RelatorioSintetico over all documents, from the call to the end of the rows, against the same; both
// are open at once and are read by turns.
void StreamedRows(Bench& bench);

// streamed_memory: the peak of a process that reads all documents through RelatorioSintetico, less the peak of one that
// reads a thousand.
void StreamedMemory(Bench& bench);

// dataset_rows_log: the event log, from the call to the filled dataset, against a loop that makes the same calls to the
// siblings and fills the same fields.
void DatasetRowsLog(Bench& bench);

// dataset_rows_operadores: the same for the operators.
void DatasetRowsOperators(Bench& bench);

// dataset_rows: both together. REQUIRES: each has been measured.
void DatasetRows(Bench& bench);

// script_peer: RelatorioLog called by a script, against the same dataset filled by that script.
void ScriptPeer(Bench& bench);

// routine_calls: ten thousand calls of ten reports by a script on one object, against the same statements by ADO in the
// same script. routine_memory: by how much the working set of the script's process grows during a thousand calls,
// against a thousand bare calls. routine_handles: the handles of the process after all calls and before the last two
// thousand.
void Routine(Bench& bench);

// dll_size: the component's file.
void DllSize(Bench& bench);

// load_and_create: loading the DLL, making an object of one class and releasing both, against an in-process server that
// has only one class.
void LoadAndCreate(Bench& bench);

// How the cost grows with rows, columns and calls, each at four sizes: one line for each in crescimento.tsv.
void Growth(Bench& bench);

// Reads one archive of the folder through the component, and writes the peak of this process in KiB, as the machine
// around Wine counts it, to pico.txt: streamed_memory starts such a process for each of its figures.
void WritePeak(const std::filesystem::path& folder, const std::string& archive);

// Ends the benchmark when the two sides have read different rows, or another number of rows than expected.
void SameRows(const Read& component, const Read& bare, long rows, const char* name);

}  // namespace kodra::bench
