// Eight apartments at once with five database systems: every statement is in the dialect of its own thread's system.
#include <functional>
#include <iostream>
#include <iterator>
#include <thread>

#include "tests/wine/class_factory_cache.h"
#include "tests/wine/early_bound.h"
#include "tests/wine/fake_databases.h"
#include "tests/wine/server.h"

namespace kodra::face {
namespace {

constexpr int kCalls = 2000;

// Parts of three statements in the dialect of a system: additions to dates and today, dates as texts, texts as dates.
struct DialectParts {
  System system;
  const wchar_t* expired;
  const wchar_t* withdrawal;
  const wchar_t* period;
};

constexpr DialectParts kOracle = {
    System::kOracle,
    L"ADD_MONTHS(DATA_GRAVACAO, t.VALIDADE_MIDIA * 12) <= TRUNC(SYSDATE)",
    L"TO_CHAR(s.DT_RETIRADA,'DD/MM/YYYY') AS DT_RETIRADA, s.DEVOLVIDO, "
    L"TO_CHAR(s.DT_DEVOLUCAO,'DD/MM/YYYY') AS DT_DEVOLUCAO",
    L"TO_DATE('2010/01/01','YYYY/MM/DD') AND TO_DATE('2024/12/31','YYYY/MM/DD')",
};
constexpr DialectParts kSqlServer = {
    System::kSqlServer,
    L"DATEADD(yyyy, t.VALIDADE_MIDIA, DATA_GRAVACAO) <= DATEADD(dd, 0, DATEDIFF(dd, 0, GETDATE()))",
    L"CONVERT(CHAR(10),s.DT_RETIRADA,103) AS DT_RETIRADA, s.DEVOLVIDO, "
    L"CONVERT(CHAR(10),s.DT_DEVOLUCAO,103) AS DT_DEVOLUCAO",
    L"'20100101' AND '20241231'",
};
constexpr DialectParts kMySql = {
    System::kMySql,
    L"DATE_ADD(DATA_GRAVACAO, INTERVAL t.VALIDADE_MIDIA YEAR) <= CURDATE()",
    L"DATE_FORMAT(s.DT_RETIRADA,'%d/%m/%Y') AS DT_RETIRADA, s.DEVOLVIDO, "
    L"DATE_FORMAT(s.DT_DEVOLUCAO,'%d/%m/%Y') AS DT_DEVOLUCAO",
    L"STR_TO_DATE('2010/01/01','%Y/%m/%d') AND STR_TO_DATE('2024/12/31','%Y/%m/%d')",
};
constexpr DialectParts kDb2 = {
    System::kDb2,
    L"ADD_MONTHS(DATA_GRAVACAO, t.VALIDADE_MIDIA * 12) <= CURRENT DATE",
    kOracle.withdrawal,
    kOracle.period,
};
constexpr DialectParts kSqlite = {
    System::kSqlite,
    L"date('DATA_GRAVACAO', '+t.VALIDADE_MIDIA years') <= date('now')",
    L" AS DT_RETIRADA, s.DEVOLVIDO,  AS DT_DEVOLUCAO",
    L"strftime('%Y-%m-%d',2010-01-01 00:00:00) AND strftime('%Y-%m-%d',2024-12-31 23:59:59)",
};

// The statements of a system, each with the report that sends it.
std::vector<std::pair<ReportCase, std::wstring>> StatementsOf(const DialectParts& parts) {
  return {
      {{L"CCDRpt", L"RelatorioMidias", {{L"TipoRpt", L"V"}}},
       L"SELECT NUM_CD, DOC_INICIAL, DOC_FINAL, DATA_GRAVACAO, 'Mídias Vencidas' AS RELATORIO  FROM CD "
       L"INNER JOIN TIPO_MIDIA t ON CD.COD_MIDIA=t.COD_MIDIA WHERE " +
           std::wstring(parts.expired) + L" ORDER BY NUM_CD"},
      {{L"CSolicitacaoRpt", L"RelatorioDevolucaoOriginal", {}},
       L"SELECT 'Listagem De Originais Retirados' AS TITULO, s.COD_DOCTO, "
       L"CASE WHEN o.NOME_COMPLETO IS NULL OR o.NOME_COMPLETO='' THEN o.DESCR_OPERADOR ELSE o.NOME_COMPLETO "
       L"END AS DESCR_OPERADOR, " +
           std::wstring(parts.withdrawal) +
           L" FROM SOLICITACAO s INNER JOIN OPERADOR o ON s.COD_OPERADOR = o.COD_OPERADOR WHERE s.DEVOLVIDO <> 'S'"},
      {{L"CDocumentoRpt",
        L"RelatorioSintetico",
        {{L"DataArmazenamento1", Var::Date(40179)}, {L"DataArmazenamento2", Var::Date(45657)}}},
       L"SELECT d.COD_DOCTO, s.DESCR_SUPORTE, d.NUM_CAIXA, d.NUM_CD, d.DT_ARMAZ, d.DT_VENC, d.FRENTE, d.VERSO  "
       L"FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE "
       L"WHERE (1=1) AND d.DT_ARMAZ BETWEEN " +
           std::wstring(parts.period) + L" ORDER BY d.COD_DOCTO"},
  };
}

// The calls of one apartment.
struct Tally {
  int right = 0;
  // The last wrong statement, with the error of its call.
  std::wstring wrong;
  int onRealDatabase = 0;
};

// Calls the reports of one system in an apartment of its own. One call in fifty is on the real database, where there is
// one.
void RunReports(const DialectParts& parts, Tally& tally) {
  const Apartment apartment;
  {
    const auto statements = StatementsOf(parts);
    std::vector<EarlyBoundReport> reports;
    for (const auto& [tested, statement] : statements) reports.emplace_back(tested);
    const std::wstring real = parts.system == System::kSqlite  ? ArchiveConnection()
                              : parts.system == System::kMySql ? Variable(L"KODRA_MYSQL")
                                                               : std::wstring();
    for (int call = 0; call < kCalls; ++call) {
      // Both real databases list expired media, but SQLite refuses the other reports.
      const bool isReal = !real.empty() && call % 50 == 0;
      const std::size_t which = isReal ? 0 : static_cast<std::size_t>(call) % statements.size();
      const Outcome outcome = reports[which].Run(isReal ? real : FakeConnection(parts.system));
      const bool isRight =
          outcome.hr == S_OK && outcome.value.object() && FakeDatabases::LastStatement() == statements[which].second;
      tally.onRealDatabase += isReal ? 1 : 0;
      tally.right += isRight ? 1 : 0;
      if (!isRight) tally.wrong = FakeDatabases::LastStatement() + L" " + outcome.failure.description;
    }
  }
  ClassFactoryCache::Clear();
}

TEST(SoakApartments, EightAtOnceWithFiveSystemsSendOnlyTheirOwnDialects) {
  const DialectParts* const systems[] = {&kOracle, &kSqlServer, &kMySql, &kDb2, &kSqlite, &kOracle, &kMySql, &kSqlite};
  const LoadedServers servers;
  {
    const FakeDatabases databases;
    const ClassFactoryCache classes;
    Tally tallies[std::size(systems)];
    std::vector<std::thread> apartments;
    for (std::size_t i = 0; i < std::size(systems); ++i)
      apartments.emplace_back(RunReports, std::cref(*systems[i]), std::ref(tallies[i]));
    for (std::thread& apartment : apartments) apartment.join();
    int real = 0;
    for (const Tally& tally : tallies) {
      EXPECT_EQ(kCalls, tally.right) << testing::PrintToString(tally.wrong);
      real += tally.onRealDatabase;
    }
    EXPECT_EQ(4 * kCalls / 50, real);
    std::cout << "[   NOTE   ] " << std::size(systems) << " apartments at once, " << kCalls << " report calls each, "
              << real << " of them on real databases" << std::endl;
  }
  servers.ExpectUnused();
}

}  // namespace
}  // namespace kodra::face
