// The benchmarks that need the registered component. Run in Wine by ./kodra bench.
//
//   kodra-bench.exe FOLDER SIZE [NAME…]  FOLDER contains the archives and receives the results; SIZE is "full" or
//                                        "small"; with names it runs only the benchmarks that begin with one of them
//   kodra-bench.exe FOLDER peak FILE     reads one archive through the component and writes its own peak of memory
#include <objbase.h>

#include <algorithm>
#include <cstring>
#include <iostream>
#include <vector>

#include "bench/wine/benchmarks.h"

namespace kodra::bench {
namespace {

struct Benchmark {
  std::string_view name;
  void (*run)(Bench&);
};

constexpr Benchmark kBenchmarks[] = {
    {"small_report", SmallReport},
    {"dataset_rows_log", DatasetRowsLog},
    {"dataset_rows_operadores", DatasetRowsOperators},
    {"dataset_rows", DatasetRows},
    {"script_peer", ScriptPeer},
    {"routine_calls", Routine},
    {"dll_size", DllSize},
    {"load_and_create", LoadAndCreate},
    {"streamed_rows", StreamedRows},
    {"streamed_memory", StreamedMemory},
};

// Runs the benchmarks whose names begin with one of `names`; without names all of them. Returns the exit code.
int Run(const std::filesystem::path& folder, bool full, const std::vector<std::string>& names) {
  const auto isWanted = [&](std::string_view benchmark) {
    const auto begins = [&](const std::string& name) { return benchmark.starts_with(name); };
    return names.empty() || std::any_of(names.begin(), names.end(), begins);
  };
  Results results((folder / "resultados.tsv").string());
  Bench bench = {folder, full ? kFull : kSmall, results, {}, {}};
  for (const Benchmark& benchmark : kBenchmarks)
    if (isWanted(benchmark.name)) benchmark.run(bench);
  if (full && isWanted("growth")) Growth(bench);
  return results.ExitCode();
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
      code = Run(argv[1], std::strcmp(argv[2], "full") == 0, {argv + 3, argv + argc});
  } catch (const std::exception& error) {
    std::cout << error.what() << std::endl;
    code = 2;
  }
  CoUninitialize();
  return code;
}
