// The panel as a whole, by HTTP: rows, downloads and statements as the console makes them, and what it refuses.
#include "console/panel/panel.h"

#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "console/command_line/report_name.h"
#include "console/panel/page_files.h"
#include "tests/console/panel/http_client.h"
#include "tests/console/run.h"
#include "tests/console/small_archive.h"
#include "tests/db/sqlite_file.h"
#include "values/utf8.h"

namespace kodra::console::panel {
namespace {

using nlohmann::json;
using tests::Engine;
using tests::Reply;
using tests::Visitor;
using values::ToUtf8;

// The lines of a run.
std::vector<json> LinesOf(const Reply& reply) {
  std::vector<json> lines;
  std::istringstream in(reply.body);
  for (std::string line; std::getline(in, line);) lines.push_back(json::parse(line));
  return lines;
}

class PanelOn : public testing::TestWithParam<Engine> {
 protected:
  std::wstring connection_ = tests::SmallArchiveOn(GetParam());
  Panel panel_{{.connection = connection_}};
  Visitor visitor_{panel_.Address()};
};

INSTANTIATE_TEST_SUITE_P(Panel, PanelOn, rows::BothEngines(), rows::EngineName);

TEST_P(PanelOn, ShowsTheRowsOfAReport) {
  const Reply reply = visitor_.Post("/api/run", R"({"report":"CDeptoRpt.RelatorioDeptos","parameters":{},"run":"1"})");
  EXPECT_EQ(reply.status, 200);
  EXPECT_TRUE(reply.isComplete);
  const std::vector<json> lines = LinesOf(reply);
  ASSERT_EQ(lines.size(), 4U) << reply.body;
  EXPECT_EQ(lines[0]["columns"][0]["name"], "DESCR_DEPTO");
  EXPECT_EQ(lines[1], (json{"Finanças", "", "=Rio", "RJ", nullptr, "fin@acervo.br"}));
  EXPECT_EQ(lines[2], (json{"Jurídico", "Rua \"A\", 10", "São Paulo", "SP", "01000-000", nullptr}));
  EXPECT_EQ(lines[3]["end"]["rows"], 2);
}

TEST_P(PanelOn, SaysWhichCodesTheArchiveDoesNotHave) {
  const Reply reply = visitor_.Post(
      "/api/run", R"({"report":"CDocumentoRpt.RelatorioSintetico","parameters":{"CodDepto":"XYZ"},"run":"1"})");
  const std::vector<json> lines = LinesOf(reply);
  ASSERT_EQ(lines.size(), 2U) << reply.body;
  EXPECT_EQ(lines[1]["end"]["rows"], 0);
  EXPECT_EQ(lines[1]["end"]["warnings"], json{"nenhum departamento tem o código \"XYZ\""});
}

TEST_P(PanelOn, WarnsOfAPeriodThatEndsBeforeItBegins) {
  const Reply reply = visitor_.Post("/api/run", R"({"report":"CEstatSuporteRpt.RelatorioEstatisticas","parameters":)"
                                                R"({"DataInicial":"2024-02-01","DataFinal":"2024-01-01"},"run":"1"})");
  const std::vector<json> lines = LinesOf(reply);
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.back()["end"]["warnings"], json{"DataFinal é antes de DataInicial, e nenhuma data cai nesse período"})
      << reply.body;
}

// The file that `executa` writes.
std::string ConsoleFile(const std::vector<std::string>& options, const std::wstring& connection,
                        const std::string& ending) {
  const tests::TemporaryFolder folder;
  const std::string path = folder / ("arquivo." + ending);
  std::vector<std::string> arguments = {"executa"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  arguments.insert(arguments.end(), {"--conexao", ToUtf8(connection), "--saida", path});
  EXPECT_EQ(RunProgram(arguments), Success(""));
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

TEST_P(PanelOn, DownloadsTheBytesThatTheConsoleWrites) {
  struct Case {
    const char* format;
    std::vector<std::string> options;
    std::string ending;
  };
  const Case cases[] = {{"csv", {}, "csv"}, {"excel", {"--excel"}, "csv"}, {"json", {}, "json"}, {"pdf", {}, "pdf"}};
  for (const Case& each : cases) {
    for (const std::string report : {"CDeptoRpt.RelatorioDeptos", "CDocumentoRpt.RelatorioSintetico"}) {
      std::vector<std::string> options = {report};
      options.insert(options.end(), each.options.begin(), each.options.end());
      // A page has the minute in which it is issued: both are written in the same one.
      Reply reply;
      std::string expected;
      for (int attempt = 0; attempt < 2 && (attempt == 0 || reply.body != expected); ++attempt) {
        reply = visitor_.Post("/api/download", json{{"report", report}, {"run", "1"}, {"format", each.format}}.dump());
        expected = ConsoleFile(options, connection_, each.ending);
      }
      EXPECT_EQ(reply.status, 200) << reply.body;
      EXPECT_TRUE(reply.body == expected) << each.format << " " << report;
      EXPECT_FALSE(expected.empty());
      EXPECT_EQ(reply.headers.at("content-disposition"), "attachment; filename=\"" + report + "." + each.ending + "\"");
    }
  }
}

TEST_P(PanelOn, ChecksTheDatabaseAsTheConsoleDoes) {
  const Reply reply = visitor_.Post("/api/check", R"({"run":"1"})");
  EXPECT_EQ(reply.status, 200);
  const RunResult console = RunProgram({"verifica", "--conexao", ToUtf8(connection_), "--json"});
  EXPECT_EQ(reply.body, console.out);
  EXPECT_FALSE(reply.body.empty());
}

TEST_P(PanelOn, SaysWhatIsWrongWithAParameter) {
  const auto words = [&](const std::string& parameters) {
    const Reply reply = visitor_.Post(
        "/api/run", R"({"report":"CDocumentoRpt.RelatorioSintetico","run":"1","parameters":)" + parameters + "}");
    EXPECT_EQ(reply.status, 422);
    return reply.body;
  };
  EXPECT_EQ(words(R"({"DataArmazenamento1":"31/02/2024"})"),
            "DataArmazenamento1: \"31/02/2024\" não é uma data (escreva 01/02/2024 ou 2024-02-01)\n");
  EXPECT_EQ(words(R"({"CodDepto":"1' OR '1'='1"})"),
            "CodDepto: o valor contém '; os relatórios passam os valores ao SQL como estão\n");
  EXPECT_EQ(words(R"({"CodDepto":"7\\"})"),
            "CodDepto: o valor contém \\; os relatórios passam os valores ao SQL como estão\n");
  EXPECT_EQ(words(R"({"Outro":"1"})"), "CDocumentoRpt.RelatorioSintetico não tem o parâmetro \"Outro\"\n");
  EXPECT_EQ(words(R"({"CodDepto":7})"), "o pedido não diz \"CodDepto\"; recarregue a página\n");
}

class PanelTest : public testing::Test {
 protected:
  Panel panel_{{.connection = tests::SmallArchiveOn(Engine::kSqlite)}};
  Visitor visitor_{panel_.Address()};
};

TEST_F(PanelTest, ServesItsPageAndEachOfItsFiles) {
  const Reply page = visitor_.Get("/");
  EXPECT_EQ(page.status, 200);
  EXPECT_EQ(page.headers.at("content-type"), "text/html; charset=utf-8");
  EXPECT_EQ(page.body, FindPageFile("/")->bytes);
  EXPECT_NE(page.body.find("<html lang=\"pt-BR\">"), page.body.npos);
  const Reply script = visitor_.Get("/app.js");
  EXPECT_EQ(script.headers.at("content-type"), "text/javascript; charset=utf-8");
  EXPECT_NE(script.body.find("import"), script.body.npos);
  EXPECT_EQ(visitor_.Get("/style.css").headers.at("content-type"), "text/css; charset=utf-8");
  EXPECT_EQ(visitor_.Get("/icon.svg").headers.at("content-type"), "image/svg+xml");
}

TEST_F(PanelTest, LetsNoPageRunOtherScriptsOrFrameIt) {
  for (const char* const path : {"/", "/app.js", "/api/catalogue", "/nada"}) {
    const Reply reply = visitor_.Get(path);
    EXPECT_EQ(
        reply.headers.at("content-security-policy"),
        "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; frame-src blob:; "
        "base-uri 'none'; form-action 'none'; frame-ancestors 'none'");
    EXPECT_EQ(reply.headers.at("x-content-type-options"), "nosniff");
    EXPECT_EQ(reply.headers.at("referrer-policy"), "no-referrer");
    EXPECT_EQ(reply.headers.at("cache-control"), "no-store");
  }
}

TEST_F(PanelTest, AnswersNothingWithoutTheCookie) {
  for (const char* const path : {"/", "/app.js", "/api/catalogue", "/nada"}) {
    const Reply reply = tests::Exchange(
        visitor_.Port(), std::string("GET ") + path + " HTTP/1.1\r\nHost: " + visitor_.Host() + "\r\n\r\n");
    EXPECT_EQ(reply.status, 403) << path;
    EXPECT_EQ(reply.body.find("<"), reply.body.npos) << path;
  }
  // A request that another page of the browser sends has no cookie, but a foreign origin.
  const Reply foreign =
      tests::Exchange(visitor_.Port(), "POST /api/cancel HTTP/1.1\r\nHost: " + visitor_.Host() +
                                           "\r\nOrigin: http://example.org\r\nCookie: " + visitor_.Cookie() +
                                           "\r\nContent-Type: application/json\r\nContent-Length: 2\r\n\r\n{}");
  EXPECT_EQ(foreign.status, 403);
  EXPECT_EQ(foreign.body, "O painel não responde a outras páginas.\n");
}

TEST_F(PanelTest, ServesNoFileOfTheComputer) {
  for (const char* const path : {"/../../../../etc/passwd", "/%2e%2e/%2e%2e/etc/passwd", "//etc/passwd", "/app.js/..",
                                 "/page/app.js", "/app.js%00", "/APP.JS", "/.", "/..%5c..%5cwin.ini"}) {
    const Reply reply = visitor_.Get(path);
    EXPECT_TRUE(reply.status == 404 || reply.status == 400) << path << " " << reply.status;
  }
}

TEST_F(PanelTest, ChangesNothingByGet) {
  for (const char* const path : {"/api/run", "/api/download", "/api/cancel", "/api/sql", "/api/check", "/api/labels",
                                 "/api/paper", "/api/inventory"})
    EXPECT_EQ(visitor_.Get(path).status, 404) << path;
}

TEST_F(PanelTest, RefusesRequestsThatMakeNoSense) {
  EXPECT_EQ(visitor_.Post("/api/run", "").body, "o pedido não é um objeto JSON; recarregue a página\n");
  EXPECT_EQ(visitor_.Post("/api/run", "[1]").body, "o pedido não é um objeto JSON; recarregue a página\n");
  EXPECT_EQ(visitor_.Post("/api/run", std::string(10000, '[')).body,
            "o pedido não é um objeto JSON; recarregue a página\n");
  EXPECT_EQ(visitor_.Post("/api/run", "{}").body, "o pedido não diz \"report\"; recarregue a página\n");
  EXPECT_EQ(visitor_.Post("/api/download", R"({"report":"CDeptoRpt","run":"1","format":"exe"})").body,
            "o formato \"exe\" não existe\n");
  EXPECT_EQ(visitor_.Post("/api/nada", "{}").status, 404);
}

TEST_F(PanelTest, DescribesAll39ReportsByFamily) {
  const json catalogue = json::parse(visitor_.Get("/api/catalogue").body);
  std::size_t reports = 0;
  for (const json& family : catalogue["families"]) reports += family["reports"].size();
  EXPECT_EQ(reports, 39U);
  EXPECT_EQ(catalogue["families"][0]["title"], "Cadastros");
  const json& first = catalogue["families"][1]["reports"][0];
  EXPECT_EQ(first["name"], "CDocumentoRpt.RelatorioSintetico");
  EXPECT_EQ(first["parameters"][0]["name"], "DataArmazenamento1");
  EXPECT_EQ(first["parameters"][0]["type"], "date");
  EXPECT_EQ(first["parameters"][2]["type"], "text");
  EXPECT_EQ(catalogue["databases"][0]["name"], "oracle");
}

TEST_F(PanelTest, OffersEachLetterOfAParameterThatHasFew) {
  const json catalogue = json::parse(visitor_.Get("/api/catalogue").body);
  std::map<std::string, std::string> values;
  for (const json& family : catalogue["families"])
    for (const json& report : family["reports"])
      for (const json& parameter : report["parameters"])
        for (const json& choice : parameter["choices"])
          values[report["name"].get<std::string>() + " " + parameter["name"].get<std::string>()] +=
              "[" + choice["value"].get<std::string>() + "]";
  const std::map<std::string, std::string> expected = {
      {"CCDRpt.RelatorioMidias TipoRpt", "[][V]"},
      {"CCaixaRpt.EtiquetaAbertura Tipo", "[][S]"},
      {"CCaixaRpt.RelatoriosModulos Ordenacao", "[N][D]"},
      {"CEstatImgRpt.RelatorioEstatisticas TipoRpt", "[][F][P]"},
      {"CEstatSerieRpt.RelatorioEstatisticas TipoRpt", "[][N]"},
      {"CEstatSubgrupoRpt.RelatorioEstatisticas TipoRpt", "[][F][P]"},
      {"CEstatSuporteRpt.RelatorioEstatisticas TipoRpt", "[][F][P]"},
  };
  EXPECT_EQ(values, expected);
}

TEST_F(PanelTest, ShowsTheStatementsForADatabase) {
  const Reply reply =
      visitor_.Post("/api/sql", R"({"report":"CSuporteRpt.RelatorioSuportes","parameters":{},"database":"oracle"})");
  EXPECT_EQ(reply.status, 200);
  const json answer = json::parse(reply.body);
  const RunResult console = RunProgram({"sql", "CSuporteRpt.RelatorioSuportes", "--banco", "oracle", "--bonito"});
  EXPECT_EQ(answer["statements"][0].get<std::string>() + "\n", console.out);
  EXPECT_EQ(answer["notes"], json::array());
}

TEST_F(PanelTest, SaysWhyTheDatabaseCannotBeReachedButNotThePassword) {
  Panel panel({.connection = L"Driver={Nenhum};UID=ana;PWD=segredo123;"});
  const Visitor visitor(panel.Address());
  for (const char* const path : {"/api/run", "/api/check", "/api/download"}) {
    const Reply reply = visitor.Post(path, R"({"report":"CDeptoRpt","run":"1","format":"csv"})");
    EXPECT_NE(reply.body.find("não foi possível conectar ao banco de dados: "), reply.body.npos) << reply.body;
    EXPECT_EQ(reply.body.find("segredo123"), reply.body.npos);
  }
}

TEST_F(PanelTest, PassesMarkupAndControlCharactersOnAsText) {
  tests::SqliteFile file;
  file.Run(L"CREATE TABLE SUPORTE (COD_SUPORTE VARCHAR(10), DESCR_SUPORTE VARCHAR(80))");
  file.Run(
      L"INSERT INTO SUPORTE VALUES ('1', '<script>alert(1)</script>' || char(1) || char(10) || char(8232) || '\\')");
  Panel panel({.connection = file.ConnectionString()});
  const Visitor visitor(panel.Address());
  const std::vector<json> lines =
      LinesOf(visitor.Post("/api/run", R"({"report":"CSuporteRpt.RelatorioSuportes","run":"1"})"));
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_NE(lines[1].dump().find("<script>alert(1)</script>\\u0001\\n"), std::string::npos) << lines[1];
}

}  // namespace
}  // namespace kodra::console::panel
