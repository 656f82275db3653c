// The labels and papers that the page asks for: the bytes that the console writes, and its words.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "console/formats/pages/base64.h"
#include "console/panel/panel.h"
#include "tests/console/panel/http_client.h"
#include "tests/console/run.h"
#include "tests/db/sample.h"
#include "tests/db/temporary_folder.h"
#include "values/utf8.h"

namespace kodra::console::panel {
namespace {

using nlohmann::json;
using tests::Engine;
using tests::Reply;
using tests::Visitor;
using values::ToUtf8;
using Texts = std::vector<std::string>;

// A picture of one red dot.
constexpr const char* kPng =
    "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAIAAACQd1PeAAAADElEQVR4nGP4z8AAAAMBAQDJ/pLvAAAAAElFTkSuQmCC";

class PrintApi : public testing::TestWithParam<Engine> {
 protected:
  // The file that a command of the console writes, and what it says.
  std::string ConsoleFile(Texts arguments, RunResult& result) {
    const std::string target = folder_ / "console.pdf";
    arguments.insert(arguments.end(), {"--conexao", ToUtf8(connection_), "--saida", target});
    std::filesystem::remove(target);
    result = RunProgram(arguments);
    return tests::Read(target);
  }

  json Answer(const std::string& path, json request) {
    request["run"] = "1";
    const Reply reply = visitor_.Post(path, request.dump());
    EXPECT_EQ(reply.status, 200) << reply.body;
    EXPECT_EQ(reply.headers.at("content-type"), "application/json");
    return json::parse(reply.body);
  }

  // What the console says, from what the page gets.
  static std::string Words(const json& answer) {
    std::string words;
    for (const std::string text : answer["warnings"]) words += "kodrarpt: aviso: " + text + "\n";
    for (const std::string text : answer["problems"]) words += "kodrarpt: " + text + "\n";
    return words;
  }

  tests::TemporaryFolder folder_;
  std::wstring connection_ = tests::SampleOn(GetParam());
  Panel panel_{{.connection = connection_}};
  Visitor visitor_{panel_.Address()};
};

INSTANTIATE_TEST_SUITE_P(, PrintApi, testing::Values(Engine::kSqlite, Engine::kMariaDb), tests::EngineName);

TEST_P(PrintApi, PrintsTheLabelsThatTheConsolePrints) {
  struct Case {
    json request;
    Texts arguments;
  };
  const Case cases[] = {
      {{{"kind", "abertura"}, {"list", "AA002\n\n AA001 \nAA002"}}, {"abertura", "AA002", "AA001", "AA002"}},
      {{{"kind", "fechamento"}, {"first", "AA001"}, {"last", "AA003"}, {"firstLabel", 3}, {"copies", 2}},
       {"fechamento", "--de", "AA001", "--ate", "AA003", "--primeira", "3", "--copias", "2"}},
      {{{"kind", "divisoria"}, {"list", "AA001"}, {"stock", "pimaco-a4364"}, {"code", "qr"}, {"outline", true}},
       {"divisoria", "AA001", "--folha", "pimaco-a4364", "--codigo", "qr", "--contorno"}},
      {{{"kind", "abertura"}, {"department", "002"}, {"last", "AA005"}, {"stock", "100x60mm"}, {"withPlace", true}},
       {"abertura", "--CodDepto", "002", "--ate", "AA005", "--folha", "100x60mm", "--com-lugar"}},
      {{{"kind", "conteiner"},
        {"first", "0"},
        {"ownStock", "pagina=210x297 colunas=2 linhas=3 etiqueta=90x80 margem=10x10 vao=5x5"},
        {"shift", "0.5;-1"},
        {"organisation", "Arquivo Público"}},
       {"conteiner", "--de", "0", "--folha-propria",
        "pagina=210x297 colunas=2 linhas=3 etiqueta=90x80 margem=10x10 vao=5x5", "--ajuste=0.5,-1", "--orgao",
        "Arquivo Público"}},
      {{{"kind", "abertura"}, {"list", "ZZ999\nAA001"}}, {"abertura", "ZZ999", "AA001"}},
  };
  for (const Case& each : cases) {
    Texts arguments = each.arguments;
    arguments.insert(arguments.begin(), "etiquetas");
    RunResult console;
    const std::string expected = ConsoleFile(arguments, console);
    ASSERT_TRUE(expected.starts_with("%PDF-")) << console.err;
    const json answer = Answer("/api/labels", each.request);
    ASSERT_TRUE(answer["pdf"].is_string()) << answer;
    EXPECT_TRUE(pages::FromBase64(answer["pdf"].get<std::string>()) == expected) << each.request;
    EXPECT_EQ(Words(answer), console.err) << each.request;
  }
}

TEST_P(PrintApi, PrintsALogoOnLabels) {
  const std::string logo = folder_ / "logo.png";
  std::ofstream(logo, std::ios::binary) << pages::FromBase64(kPng).value();
  RunResult console;
  const std::string expected = ConsoleFile({"etiquetas", "abertura", "AA001", "--logotipo", logo}, console);
  EXPECT_EQ(console.code, ExitCode::kOk);
  const json request = {{"kind", "abertura"}, {"list", "AA001"}, {"logo", {{"name", "logo.png"}, {"png", kPng}}}};
  EXPECT_TRUE(pages::FromBase64(Answer("/api/labels", request)["pdf"].get<std::string>()) == expected);
}

TEST_P(PrintApi, SaysWhichCodesHaveNoLabel) {
  const auto answer = [&](const char* list, const char* first = "") {
    return Answer("/api/labels", {{"kind", "abertura"}, {"list", list}, {"first", first}, {"last", first}}).dump();
  };
  EXPECT_EQ(
      answer("ZZ998\nZZ999"),
      R"({"pdf":null,"problems":["sem etiqueta: ZZ998, ZZ999; confira os códigos","nenhuma etiqueta para imprimir"],"warnings":[]})");
  EXPECT_EQ(answer("", "ZZ999"),
            R"({"pdf":null,"problems":["nenhuma etiqueta para imprimir: confira o intervalo"],"warnings":[]})");
}

TEST_P(PrintApi, WarnsOfLabelsAtTheEdgeAndOfTextsThatAreCut) {
  const json answer =
      Answer("/api/labels",
             {{"kind", "abertura"}, {"list", "AA001"}, {"organisation", std::string(300, 'W')}, {"stock", "a4-3x8"}});
  ASSERT_EQ(answer["warnings"].size(), 2U) << answer["warnings"];
  EXPECT_EQ(answer["warnings"][0],
            "na folha a4-3x8, as etiquetas ficam a 0 mm da borda do papel, e muitas impressoras não imprimem a menos "
            "de 4,2 mm; confira com um teste");
  EXPECT_EQ(answer["warnings"][1], "na etiqueta AA001, não cabe por inteiro: o órgão");
}

TEST_P(PrintApi, PrintsThePapersThatTheConsolePrints) {
  struct Case {
    json request;
    Texts arguments;
  };
  std::vector<Case> cases = {
      {{{"paper", "modulo"}, {"parameters", {{"Modulo1", "AA001"}}}}, {"modulo", "--Modulo1", "AA001"}},
      {{{"paper", "descarte"}, {"parameters", {{"Modulo1", "AA001"}}}, {"organisation", "Arquivo Público"}},
       {"descarte", "--Modulo1", "AA001", "--orgao", "Arquivo Público"}},
      {{{"paper", "retirada"}, {"parameters", {{"CodSolicit", "1"}}}}, {"retirada", "--CodSolicit", "1"}}};
  // A date has no text on SQLite, where the report fails.
  if (GetParam() == Engine::kMariaDb)
    cases.push_back({{{"paper", "originais"}, {"parameters", {{"ListarJaDevolvidos", "sim"}}}},
                     {"originais", "--ListarJaDevolvidos", "sim"}});
  for (const Case& each : cases) {
    Texts arguments = each.arguments;
    arguments.insert(arguments.begin(), "papel");
    // A page has the minute in which it is issued: both are printed in the same one.
    std::string expected, printed;
    for (int attempt = 0; attempt < 2 && (attempt == 0 || printed != expected); ++attempt) {
      RunResult console;
      expected = ConsoleFile(arguments, console);
      ASSERT_EQ(console, Success(""));
      printed = pages::FromBase64(Answer("/api/paper", each.request)["pdf"].get<std::string>()).value();
    }
    EXPECT_TRUE(printed.starts_with("%PDF-"));
    EXPECT_TRUE(printed == expected) << each.request;
  }
}

TEST_P(PrintApi, SaysInWordsWhyNothingIsPrinted) {
  struct Case {
    const char* path;
    json request;
    std::string words;
  };
  const json one = {{"kind", "abertura"}, {"list", "AA001"}};
  const auto with = [&](json more) {
    more.update(one);
    return more;
  };
  const Case cases[] = {
      {"/api/labels",
       {{"kind", "capa"}, {"list", "AA001"}},
       "o tipo de etiqueta \"capa\" não existe; escolha entre abertura, fechamento, subordinadas, divisoria, "
       "conteiner"},
      {"/api/labels",
       {{"kind", "abertura"}, {"list", " \n"}},
       "faltam os códigos: informe-os, ou um intervalo, ou um departamento"},
      {"/api/labels",
       {{"kind", "abertura"}, {"list", "A'1"}},
       "o código \"A'1\" tem um apóstrofo, que os relatórios não aceitam: tire-o"},
      {"/api/labels",
       {{"kind", "abertura"}, {"department", "7'"}},
       "o código \"7'\" tem um apóstrofo, que os relatórios não aceitam: tire-o"},
      {"/api/labels", {{"kind", "conteiner"}, {"department", "7"}}, "o departamento não vale para contêineres"},
      {"/api/labels", with({{"firstLabel", 9}}), "a primeira etiqueta vai de 1 a 8 na folha a4-2x4, e não pode ser 9"},
      {"/api/labels", with({{"copies", 1001}}), "as cópias vão de 1 a 1000, e não podem ser 1001"},
      {"/api/labels", with({{"copies", 1.5}}), "copies não é um número inteiro de 0 a 1000000"},
      {"/api/labels", with({{"copies", -1}}), "copies não é um número inteiro de 0 a 1000000"},
      {"/api/labels", with({{"copies", 1e300}}), "copies não é um número inteiro de 0 a 1000000"},
      {"/api/labels", with({{"shift", "x;1"}}),
       "o ajuste diz quantos milímetros vão para a direita e para baixo, como 1,-2 ou, com casas decimais, 0,5;1, e "
       "não pode ser \"x;1\""},
      {"/api/labels", with({{"ownStock", "pagina=100x50 etiqueta=120x50"}}),
       "a folha \"própria\" não serve: a etiqueta de 120 x 50 mm é maior que a página de 100 x 50 mm"},
      {"/api/labels", with({{"logo", {{"name", "l.png"}, {"png", "R0lG"}}}}),
       "a imagem \"l.png\" não serve: não é um arquivo PNG"},
      {"/api/labels", with({{"logo", {{"name", "l.png"}, {"png", "?"}}}}), "a imagem \"l.png\" não chegou inteira"},
      {"/api/labels", with({{"logo", "l.png"}}), "o pedido não diz \"name\"; recarregue a página"},
      {"/api/paper",
       {{"paper", "recibo"}},
       "o papel \"recibo\" não existe; escolha entre retirada, originais, descarte, modulo"},
      {"/api/paper", {{"paper", "retirada"}}, "o papel retirada precisa do parâmetro CodSolicit"},
      {"/api/paper",
       {{"paper", "modulo"}, {"parameters", {{"Modulo1", "ZZ999"}}}},
       "nenhum módulo tem o código \"ZZ999\"; confira Modulo1"},
      {"/api/paper",
       {{"paper", "modulo"}, {"parameters", {{"Modulo1", "A'1"}}}},
       "Modulo1: o valor contém '; os relatórios passam os valores ao SQL como estão"},
  };
  for (const Case& each : cases) {
    json request = each.request;
    request["run"] = "1";
    const Reply reply = visitor_.Post(each.path, request.dump());
    EXPECT_EQ(reply.status, 422) << request;
    EXPECT_EQ(reply.body, each.words + "\n") << request;
  }
}

TEST(PrintApiChoices, AreThoseOfTheConsole) {
  Panel panel({.connection = L"DSN=D"});
  const json catalogue = json::parse(Visitor(panel.Address()).Get("/api/catalogue").body);
  const auto names = [](const json& list) {
    std::string all;
    for (const json& each : list) all += each["name"].get<std::string>() + " ";
    return all;
  };
  const json& labels = catalogue["labels"];
  EXPECT_EQ(names(labels["kinds"]), "abertura fechamento subordinadas divisoria conteiner ");
  EXPECT_EQ(names(labels["codes"]), "code128 qr nenhum ");
  EXPECT_EQ(labels["mostCopies"], 1000);
  std::string described;
  for (const json& stock : labels["stocks"]) described += stock["description"].get<std::string>() + "\n";
  EXPECT_EQ(described, RunProgram({"etiquetas", "--folhas"}).out);
  EXPECT_EQ(
      labels["stocks"][1].dump(),
      R"({"columns":2,"description":"a4-2x7: 2 x 7 etiquetas de 99,1 x 38,1 mm em página de 210 x 297 mm, margens )"
      R"(de 4,65 x 15,15 mm, vãos de 2,5 x 0 mm","gap":[2.5,0.0],"label":[99.1,38.1],"margin":[4.65,15.15],)"
      R"("name":"a4-2x7","page":[210.0,297.0],"rows":7})");
  EXPECT_EQ(names(catalogue["papers"]), "retirada originais descarte modulo ");
  EXPECT_EQ(catalogue["papers"][0]["parameters"][0]["name"], "CodSolicit");
  EXPECT_EQ(catalogue["papers"][1]["parameters"][0]["type"], "flag");
}

// A server whose list of containers takes half a minute.
TEST(PrintApiTime, IsLimited) {
  const std::wstring connection =
      tests::DatabaseOf(Engine::kMariaDb, L"lento",
                        {L"CREATE VIEW CONTAINER AS SELECT 'C1' AS NUM_CONTAINER, SLEEP(30) AS DESC_CONTAINER"});
  Panel panel({.connection = connection, .limit = std::chrono::seconds(1)});
  const Visitor visitor(panel.Address());
  const Reply labels = visitor.Post("/api/labels", R"({"kind":"conteiner","first":"C1","run":"1"})");
  EXPECT_EQ(labels.status, 409);
  EXPECT_EQ(labels.body, "Interrompido: passou do limite de 1 segundo.\n");
  const Reply inventory = visitor.Post("/api/inventory", R"({"of":"modules","places":"C1","run":"1"})");
  EXPECT_EQ(inventory.status, 409);
  EXPECT_EQ(inventory.body, "Interrompido: passou do limite de 1 segundo.\n");
}

}  // namespace
}  // namespace kodra::console::panel
