#include "tests/console/label_run.h"

#include <regex>

#include "tests/db/sample.h"
#include "values/utf8.h"

namespace kodra::console {

std::string LabelArchive() {
  return values::ToUtf8(tests::DatabaseOf(
      tests::Engine::kSqlite, L"etiquetas",
      {
          L"CREATE TABLE PARAMETRO (CODIGO VARCHAR(10), EMPRESA VARCHAR(64))",
          L"INSERT INTO PARAMETRO VALUES ('1', 'Acervo & Cia')",
          L"CREATE TABLE CAIXA (NUM_CAIXA VARCHAR(5), DESC_CAIXA VARCHAR(100), OBS_CAIXA VARCHAR(100), DOC_INICIAL "
          L"VARCHAR(10), DOC_FINAL VARCHAR(10), DATA_VENCIMENTO DATE, DATA_FECHAMENTO DATE, COORD_X VARCHAR(10), "
          L"COORD_Y VARCHAR(10), COORD_Z VARCHAR(10), CONTAINER VARCHAR(10), COD_DEPOSITO VARCHAR(10), COD_DEPTO "
          L"VARCHAR(10), TIPO_GUARDA VARCHAR(1), ANOS_VENCIMENTO INTEGER, DOCS_PREGRESSOS INTEGER)",
          L"INSERT INTO CAIXA WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 200) SELECT "
          L"printf('AA%03d', i), 'Módulo ' || i, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, "
          L"CASE WHEN i <= 3 THEN '7' ELSE '8' END, 'D', NULL, 0 FROM n",
          L"UPDATE CAIXA SET COORD_X = 'D', COORD_Y = '01', COORD_Z = '4', COD_DEPOSITO = '1', CONTAINER = 'CT1' "
          L"WHERE NUM_CAIXA <= 'AA002'",
          L"CREATE TABLE CAIXA_SUBORDINADA (NUM_CAIXA VARCHAR(5), NUM_SEQ INTEGER, DOC_INICIAL VARCHAR(10), "
          L"DOC_FINAL "
          L"VARCHAR(10), DATA_VENCIMENTO DATE, DATA_FECHAMENTO DATE, TIPO_GUARDA VARCHAR(1), ANOS_VENCIMENTO "
          L"INTEGER)",
          L"INSERT INTO CAIXA_SUBORDINADA VALUES ('AA001', 1, '1', '5', NULL, '2024-01-31', 'D', NULL)",
          L"INSERT INTO CAIXA_SUBORDINADA VALUES ('AA001', 2, '6', NULL, NULL, NULL, 'D', NULL)",
          L"INSERT INTO CAIXA_SUBORDINADA VALUES ('AA002', 1, '7', NULL, NULL, NULL, 'D', NULL)",
          L"CREATE TABLE CONTAINER (NUM_CONTAINER VARCHAR(10), DESC_CONTAINER VARCHAR(100))",
          L"INSERT INTO CONTAINER VALUES ('CT1', 'Um')",
          L"INSERT INTO CONTAINER VALUES ('CT2', 'Dois')",
          L"CREATE TABLE DEPOSITO (COD_DEPOSITO VARCHAR(10), NOME VARCHAR(100), ENDERECO VARCHAR(100), CIDADE "
          L"VARCHAR(100), ESTADO VARCHAR(2), TELEFONE VARCHAR(20), CONTATO VARCHAR(100))",
          L"INSERT INTO DEPOSITO VALUES ('1', 'Galpão', NULL, NULL, NULL, NULL, NULL)",
          L"CREATE TABLE DOCUMENTO (COD_DOCTO VARCHAR(10), NUM_CAIXA VARCHAR(5))",
          L"INSERT INTO DOCUMENTO VALUES ('0000000001', 'AA001')",
          L"INSERT INTO DOCUMENTO VALUES ('0000000002', 'AA001')",
      }));
}

RunResult RunLabels(const std::string& connection, const std::vector<std::string>& arguments) {
  std::vector<std::string> all = {"etiquetas"};
  all.insert(all.end(), arguments.begin(), arguments.end());
  all.insert(all.end(), {"--conexao", connection});
  return RunProgram(all);
}

RunResult RunOnRoll(std::vector<std::string> arguments) {
  arguments.insert(arguments.end(), {"--formato", "html", "--folha", "100x50mm"});
  return RunLabels(LabelArchive(), arguments);
}

std::vector<Texts> PagesOf(const std::string& html) {
  std::vector<Texts> pages;
  const std::regex piece("<svg |>([^<>]+)</text>");
  for (std::sregex_iterator at(html.begin(), html.end(), piece), end; at != end; ++at) {
    if ((*at)[0] == "<svg ")
      pages.emplace_back();
    else
      pages.back().push_back((*at)[1]);
  }
  return pages;
}

}  // namespace kodra::console
