// How much memory kodrarpt uses as a process.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/console/process/kodrarpt_process.h"
#include "tests/db/sample.h"
#include "values/utf8.h"

namespace kodra::tests {
namespace {

namespace fs = std::filesystem;
using values::ToUtf8;

constexpr int kFewRows = 1000;

class KodrarptMemory : public KodrarptProcess {
 protected:
  // The most memory that a run takes, in megabytes. "time" tells it, as a process starts with the peak of its parent,
  // and this program's own is high.
  long PeakMegabytes(const std::string& connection, const std::string& format) const {
    const fs::path peak = folder_ / "pico.txt";
    const pid_t process = Start({"/usr/bin/time", "--quiet", "-f", "%M", "-o", peak.string()},
                                {"CSuporteRpt.RelatorioSuportes", "--conexao", connection}, format);
    EXPECT_EQ(testbed::WaitFor(process), 0) << Said();
    return std::stol(Read(peak)) / 1024;
  }
};

TEST_F(KodrarptMemory, UsesNoMoreMemoryForMoreRows) {
  // The sanitizers keep freed memory for a while. They must keep little, or it would hide the memory that a run uses.
  setenv("ASAN_OPTIONS", "quarantine_size_mb=1", 1);
  const Supports few(kFewRows);
  for (const char* format : {"csv", "json"}) {
    const long base = PeakMegabytes(few.Connection(), format);
    const long most = PeakMegabytes(ManySupports().Connection(), format);
    // The rows alone are 16 MB as they are held in memory.
    EXPECT_LE(most - base, 6) << format << ": " << base << " MB for few rows, " << most << " MB for many";
    const std::string text = Read(folder_ / ("destino." + std::string(format)));
    EXPECT_NE(text.find("Microfilme de dezesseis milímetros 00100000"), std::string::npos);
  }
  unsetenv("ASAN_OPTIONS");
}

// An archive with one support, whose description has this size.
std::string ArchiveWithALongText(Engine engine, int megabytes) {
  const std::wstring half = std::to_wstring(megabytes << 19);
  const std::wstring text =
      engine == Engine::kSqlite ? L"REPLACE(HEX(ZEROBLOB(" + half + L")), '00', 'ab')" : L"REPEAT('ab', " + half + L")";
  return ToUtf8(DatabaseOf(engine, L"longo" + std::to_wstring(megabytes),
                           {L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE LONGTEXT)",
                            L"INSERT INTO SUPORTE VALUES ('1', " + text + L")"}));
}

TEST_F(KodrarptMemory, UsesASmallMultipleOfTheSizeOfALongText) {
  setenv("ASAN_OPTIONS", "quarantine_size_mb=1", 1);
  const Supports few(kFewRows);
  struct Case {
    Engine engine;
    const char* format;
    int megabytes;
    double times;  // a tenth more than was measured
  };
  // SQLite and its driver keep six copies of the text to sort it; the program has it in UTF-16, as a text of four bytes
  // a character, in UTF-8 and in a line. A page has it with its quotes replaced, too, and a table in cells.
  for (const auto& [engine, format, megabytes, times] :
       {Case{Engine::kSqlite, "csv", 8, 14.3}, Case{Engine::kSqlite, "json", 8, 16},
        Case{Engine::kSqlite, "html", 8, 20.4}, Case{Engine::kSqlite, "tabela", 2, 22.9},
        Case{Engine::kMariaDb, "csv", 8, 9.4}}) {
    const long base = PeakMegabytes(few.Connection(), format);
    const long peak = PeakMegabytes(ArchiveWithALongText(engine, megabytes), format);
    EXPECT_GT(fs::file_size(folder_ / ("destino." + std::string(format))), megabytes << 20);
    EXPECT_LE(static_cast<double>(peak - base), times * megabytes)
        << format << ": " << base << " MB for few rows, " << peak << " MB for the text";
  }
  unsetenv("ASAN_OPTIONS");
}

}  // namespace
}  // namespace kodra::tests
