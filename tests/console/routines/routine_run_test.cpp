// The routine of the examples on the sample archive, as if today were a day on which every output has rows.
#include "console/routines/routine_run.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <sstream>

#include "tests/db/sample.h"
#include "tests/db/temporary_folder.h"
#include "values/dates.h"

namespace kodra::console::routines {
namespace {

namespace fs = std::filesystem;

TEST(RoutineRunTest, WritesEveryOutputOfTheExampleWithRows) {
  const tests::TemporaryFolder folder;
  // Its outputs are written below the folder of the routine.
  fs::copy(KODRA_SOURCE_DIR "/examples/rotina/mensal.ini", folder.Path());
  std::ostringstream out;
  std::ostringstream err;
  Program program(out, err);
  const Routine routine = ReadRoutine(program, folder / "mensal.ini", {.today = values::DayNumber({2021, 2, 1})});
  ASSERT_EQ(routine.problems, std::vector<std::string>());
  const Connections connections = {{"acervo", tests::SampleOn(tests::Engine::kMariaDb)}};
  EXPECT_EQ(RoutineRun(program, routine, connections).Execute(), ExitCode::kOk);
  EXPECT_EQ(err.str(), "");
  const std::string saidas = (folder / "saidas/2021/").string();
  EXPECT_EQ(std::regex_replace(out.str(), std::regex("[ 0-9][0-9],[0-9]  "), " N,N  "),
            "saída                         linhas  segundos  resultado\n"
            "documentos do mês                  4       N,N  " +
                saidas +
                "documentos-2021-01.csv\n"
                "subgrupos do ano passado          39       N,N  " +
                saidas +
                "subgrupos-2020.pdf\n"
                "módulos                           59       N,N  " +
                saidas +
                "modulos-2021-02-01.xlsx\n"
                "vencidos                          14       N,N  " +
                saidas +
                "vencidos-2021-02-01.html\n"
                "departamentos                     20       N,N  " +
                saidas + "departamentos.json\n5 de 5 gravadas\n");
}

}  // namespace
}  // namespace kodra::console::routines
