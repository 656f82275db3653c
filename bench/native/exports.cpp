// export_…: what it takes to write the rows of a report to a file.
//
// Each side runs in a process of its own, and its figure is the time of the processor that the process used.
//
//   export_csv, export_json, export_xlsx, export_html
//                    `kodrarpt executa CDocumentoRpt.RelatorioSintetico --saida` against bare_export.h. Both make the
//                    same driver calls and write the same bytes; of a spreadsheet, which contains the time, the sheet.
//   export_peer      the CSV against a script in Python (export_peer.py)
//   export_memory    the peak memory of the process that writes the CSV, less that of one that writes a small archive
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>

#include "bench/native/bare_export.h"
#include "bench/results.h"

namespace kodra::bench {
namespace {

namespace fs = std::filesystem;

struct Cost {
  double seconds;    // of the processor
  double kibibytes;  // the peak
};

// Runs `work` in a process of its own. Raises std::runtime_error unless it returns 0.
Cost CostOf(const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    int code = 1;
    try {
      code = work();
    } catch (const std::exception& error) {
      std::cerr << error.what() << "\n";
    }
    _exit(code);
  }
  int status = 0;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0)
    throw std::runtime_error("um processo não terminou bem");
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return {seconds(usage.ru_utime) + seconds(usage.ru_stime), static_cast<double>(usage.ru_maxrss)};
}

Cost CostOfProgram(std::vector<std::string> arguments) {
  return CostOf([&arguments]() -> int {
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    execvp(pointers.front(), pointers.data());
    return 127;
  });
}

bool AreSame(const std::string& one, const std::string& other) {
  std::ifstream first(one, std::ios::binary);
  std::ifstream second(other, std::ios::binary);
  using Bytes = std::istreambuf_iterator<char>;
  return first && second && std::equal(Bytes(first), Bytes(), Bytes(second), Bytes());
}

// The cells of a spreadsheet and their formats, in a file.
std::string SheetOf(const std::string& spreadsheet) {
  std::string sheet = spreadsheet + ".xml";
  const std::string command = "unzip -p '" + spreadsheet + "' xl/worksheets/sheet1.xml > '" + sheet + "'";
  if (std::system(command.c_str()) != 0) throw std::runtime_error("não foi possível ler " + spreadsheet);
  return sheet;
}

class Exports {
 public:
  Exports(fs::path folder, std::string program, std::string peer, int rounds)
      : folder_(std::move(folder)),
        program_(std::move(program)),
        peer_(std::move(peer)),
        rounds_(rounds),
        results_((folder_ / "resultados.tsv").string()) {}

  // A line of a format, by its archive.
  void Format(const std::string& format, double limit, const std::string& archive) {
    const std::string name = "export_" + format;
    const std::string ours = (folder_ / ("exporta." + format)).string();
    const std::string bare = (folder_ / ("exporta-direto." + format)).string();
    const auto writeBare = [&] {
      BareExport(format, archive, bare, ours);
      return 0;
    };
    Console(archive, ours);
    CostOf(writeBare);
    const bool same = format == "xlsx" ? AreSame(SheetOf(ours), SheetOf(bare)) : AreSame(ours, bare);
    if (!same) throw std::runtime_error(name + ": os dois lados não escreveram o mesmo");
    const auto console = [&] { return Console(archive, ours).seconds; };
    results_.Ratio({.name = name.c_str(), .unit = "s", .limit = limit},
                   Interleave(rounds_, console, [&] { return CostOf(writeBare).seconds; }));
  }

  void Peer(const std::string& archive) {
    const std::string ours = (folder_ / "exporta.csv").string();
    const std::string peer = (folder_ / "exporta-python.csv").string();
    results_.Ratio({.name = "export_peer", .unit = "s", .limit = 1.0},
                   Interleave(
                       rounds_, [&] { return Console(archive, ours).seconds; },
                       [&] {
                         return CostOfProgram({"python3", peer_, archive, peer}).seconds;
                       }));
  }

  void Memory(const std::string& archive, const std::string& small) {
    const std::string target = (folder_ / "exporta.csv").string();
    const double more = Console(archive, target).kibibytes - Console(small, target).kibibytes;
    // At least one page: no difference is a good result, but a figure of zero would not count as one.
    results_.Figure({.name = "export_memory", .unit = "MiB", .scale = 1.0 / 1024, .limit = 2}, std::max(more, 4.0));
  }

  int ExitCode() const { return results_.ExitCode(); }

 private:
  Cost Console(const std::string& archive, const std::string& target) const {
    return CostOfProgram({program_, "executa", "CDocumentoRpt.RelatorioSintetico", "--conexao",
                          "Driver={SQLite3};Database=" + archive, "--saida", target});
  }

  fs::path folder_;
  std::string program_;
  std::string peer_;
  int rounds_;
  Results results_;
};

}  // namespace
}  // namespace kodra::bench

int main(int argc, char** argv) {
  using namespace kodra::bench;
  CLI::App app{"Mede o que custa gravar as linhas de um relatório em um arquivo."};
  std::string folder;
  std::string program;
  std::string peer;
  std::string archive;
  std::string small;
  int rounds = 1;
  std::vector<std::string> lines;
  app.add_option("--folder", folder, "pasta dos arquivos e do resultados.tsv")->required();
  app.add_option("--program", program, "o kodrarpt")->required();
  app.add_option("--peer", peer, "o programa em Python")->required();
  app.add_option("--archive", archive, "o acervo")->required();
  app.add_option("--small", small, "um acervo pequeno")->required();
  app.add_option("--rounds", rounds, "quantas vezes cada lado roda");
  app.add_option("linhas", lines, "as linhas a medir")->required();
  CLI11_PARSE(app, argc, argv);
  try {
    Exports exports(folder, program, peer, rounds);
    for (const std::string& line : lines) {
      if (line == "export_csv") exports.Format("csv", 1.3, archive);
      if (line == "export_json") exports.Format("json", 1.3, archive);
      if (line == "export_xlsx") exports.Format("xlsx", 1.15, archive);
      if (line == "export_html") exports.Format("html", 1.5, archive);
      if (line == "export_peer") exports.Peer(archive);
      if (line == "export_memory") exports.Memory(archive, small);
    }
    return exports.ExitCode();
  } catch (const std::exception& error) {
    std::cout << error.what() << std::endl;
    return 2;
  }
}
