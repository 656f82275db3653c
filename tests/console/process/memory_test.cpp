// How much memory kodrarpt uses as a process.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/console/process/kodrarpt_process.h"
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

TEST_F(KodrarptMemory, UsesASmallMultipleOfTheSizeOfALongText) {
  setenv("ASAN_OPTIONS", "quarantine_size_mb=1", 1);
  constexpr long kMegabytes = 16;
  const Supports few(kFewRows);
  SqliteFile file;
  file.Run(L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(50))");
  file.Run(L"INSERT INTO SUPORTE VALUES ('1', REPLACE(HEX(ZEROBLOB(" + std::to_wstring(kMegabytes << 19) +
           L")), '00', 'ab'))");
  const long base = PeakMegabytes(few.Connection(), "csv");
  const long peak = PeakMegabytes(ToUtf8(file.ConnectionString()), "csv");
  EXPECT_EQ(fs::file_size(folder_ / "destino.csv"), std::string("DESCR_SUPORTE\r\n\r\n").size() + (kMegabytes << 20));
  // SQLite and its driver keep six copies of the text to sort it; the program has it in UTF-16, as a text of four
  // bytes a character, in UTF-8 and in a line: 14 times in all.
  EXPECT_LE(peak - base, 18 * kMegabytes) << base << " MB for few rows, " << peak << " MB for the text";
  unsetenv("ASAN_OPTIONS");
}

}  // namespace
}  // namespace kodra::tests
