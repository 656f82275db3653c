// The reference pages: how the IDL is read, and what the pages contain.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "console/command_line/report_name.h"
#include "console/reports/errors.h"
#include "console/reports/guide.h"
#include "console/reports/report_methods.h"
#include "console/schema/limits.h"
#include "frame/parameter_object.h"
#include "sql/tipo_banco.h"
#include "tools/reference/pages.h"
#include "values/erro.h"
#include "values/utf8.h"

namespace kodra::console::reference {
namespace {

using values::ToUtf8;

std::string Read(const std::filesystem::path& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

const std::vector<Class>& Classes() {
  static const std::vector<Class> classes = [] {
    std::ifstream idl(KODRA_SOURCE_DIR "/idl/kodrarpt.idl");
    return ReadIdl(idl);
  }();
  return classes;
}

const Class& Named(std::string_view name) { return *std::ranges::find(Classes(), name, &Class::name); }

std::vector<std::string> MemberNames(const Class& of) {
  std::vector<std::string> names;
  for (const Member& member : of.members) names.push_back(member.name);
  return names;
}

TEST(ReadIdlTest, FindsEveryClass) {
  EXPECT_EQ(Classes().size(), 48U);
  EXPECT_EQ(std::ranges::count_if(Classes(), &Class::isCreatable), 47);
  EXPECT_FALSE(Named("OperadorObj").isCreatable);
}

TEST(ReadIdlTest, ReadsTheAccessorsOfAPropertyAsOneMember) {
  const Class& caixa = Named("CCaixaRpt");
  EXPECT_EQ(caixa.members.size(), 14U);
  EXPECT_EQ(caixa.members[1].name, "Conexao");
  EXPECT_EQ(caixa.members[1].id, 2);
  EXPECT_EQ(caixa.members[1].kind, Member::Kind::kProperty);
  EXPECT_EQ(caixa.members[1].type, "IDispatch");
  EXPECT_EQ(caixa.events, std::vector<std::string>{"DebugLog"});
}

TEST(ReadIdlTest, FindsTheArgumentAndTheResultOfAMethod) {
  const Member& method = Named("CDeptoRpt").members[1];
  EXPECT_EQ(method.name, "RelatorioDeptos");
  EXPECT_EQ(method.kind, Member::Kind::kMethod);
  EXPECT_EQ(method.argument, "obj");
  EXPECT_EQ(Named("About").members[1].type, "BSTR");
  EXPECT_EQ(Named("About").members[1].argument, "");
}

TEST(ReadIdlTest, RefusesAClassWithoutItsInterface) {
  std::istringstream idl("    coclass X\n    {\n        [default] interface IX;\n");
  EXPECT_THROW(ReadIdl(idl), std::runtime_error);
}

// The tables behind the pages and the IDL must name the same members in the same order.
TEST(ReferenceTest, HasThePropertiesOfTheParameterClasses) {
  for (const frame::ParameterClass& parameterClass : frame::ParameterClasses()) {
    std::vector<std::string> names;
    for (const frame::Property& property : parameterClass.properties) names.push_back(ToUtf8(property.name));
    EXPECT_EQ(MemberNames(Named(ToUtf8(parameterClass.name))), names);
  }
}

TEST(ReferenceTest, HasTheReportMethods) {
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    const std::vector<std::string> names = MemberNames(Named(ToUtf8(method.className)));
    EXPECT_NE(std::ranges::find(names, ToUtf8(method.method)), names.end()) << ToUtf8(method.method);
  }
}

TEST(PagesTest, AreOneForEachClassTheErrorsAndTheIndex) {
  const auto pages = Pages(Classes());
  EXPECT_EQ(pages.size(), Classes().size() + 2);
  for (const Class& of : Classes()) {
    EXPECT_NE(pages.at("README.md").find("(" + of.name + ".md)"), std::string::npos) << of.name;
    EXPECT_TRUE(pages.at(of.name + ".md").starts_with("# " + of.name + "\n")) << of.name;
  }
}

TEST(PagesTest, ShowAParameterClassWhole) {
  EXPECT_EQ(Pages(Classes()).at("CModeloRptObj.md"),
            "# CModeloRptObj\n"
            "\n"
            "Objeto de parâmetros, `CreateObject(\"KodraRpt.CModeloRptObj\")`.\n"
            "\n"
            "## Propriedades\n"
            "\n"
            "| Propriedade | Id | Valor |\n"
            "| --- | --- | --- |\n"
            "| `Owner` | 1 | texto |\n"
            "| `CodModelo` | 2 | texto, sem espaços nas pontas |\n"
            "\n"
            "## O que cada propriedade faz\n"
            "\n"
            "| Propriedade | O que faz | Em |\n"
            "| --- | --- | --- |\n"
            "| `Owner` | nenhum relatório lê |  |\n"
            "| `CodModelo` | Código do modelo; maiúsculas, minúsculas e espaços nas pontas não importam; vazio lista "
            "todos | `RelatorioModelos` |\n"
            "\n"
            "## Quem recebe\n"
            "\n"
            "- [`CModeloRpt.RelatorioModelos`](CModeloRpt.md)\n"
            "\n"
            "## Exemplo\n"
            "\n"
            "```vb\n"
            "Set parametros = CreateObject(\"KodraRpt.CModeloRptObj\")\n"
            "parametros.CodModelo = \"OFICIO\"\n"
            "```\n");
}

TEST(PagesTest, LinkOnlyToExistingFiles) {
  const auto pages = Pages(Classes());
  const std::regex link(R"(\]\(([^)]+)\))");
  for (const auto& [name, text] : pages) {
    for (std::sregex_iterator at(text.begin(), text.end(), link), end; at != end; ++at) {
      const std::string place = (*at)[1];
      const std::string target = place.substr(0, place.find('#'));
      const bool isThere =
          pages.contains(target) ||
          (target.starts_with("../") && std::filesystem::exists(KODRA_SOURCE_DIR "/docs/" + target.substr(3)));
      EXPECT_TRUE(isThere) << name << " " << target;
    }
  }
}

// The lines of a page from one on.
std::string LinesFrom(const std::string& page, const std::string& first, int count) {
  std::istringstream lines(page.substr(page.find(first)));
  std::string text;
  std::string line;
  for (int i = 0; i < count && std::getline(lines, line); ++i) text += line + "\n";
  return text;
}

TEST(PagesTest, ShowAPropertyOnceForEachThingThatItDoes) {
  EXPECT_EQ(
      LinesFrom(Pages(Classes()).at("CEstatIndexRptObj.md"), "| `DataInicial` | Primeiro", 2),
      "| `DataInicial` | Primeiro dia do período; aparece também no título | `RelatorioEstatisticasPorDocumento` |\n"
      "| `DataInicial` | Primeiro dia do período, só para o título | `RelatorioEstatisticasPorPalavrasChave` |\n");
}

// What a page says of a method, from its heading to the next.
std::string SectionOf(const reports::ReportMethod& method) {
  static const auto pages = Pages(Classes());
  const std::string& page = pages.at(ToUtf8(method.className) + ".md");
  const std::size_t begin = page.find("\n## " + ToUtf8(method.method) + "\n");
  return begin == page.npos ? "" : page.substr(begin, page.find("\n## ", begin + 1) - begin);
}

std::size_t Occurrences(const std::string& text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST(PagesTest, ShowAnExampleOnADatabaseWhereTheReportWorks) {
  std::set<std::string> notOnSqlite;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    const std::string section = SectionOf(method);
    const bool worksOnSqlite = schema::LimitsOf(NameOf(method), sql::tbSQLite).empty();
    EXPECT_EQ(Occurrences(section, "relatorio.StringConexao = \"Provider=MSDASQL;Driver={SQLite3};"), worksOnSqlite)
        << NameOf(method);
    EXPECT_EQ(
        Occurrences(section, "relatorio.StringConexao = \"Provider=MSDASQL;Driver={MySQL ODBC 8.0 Unicode Driver};"),
        !worksOnSqlite)
        << NameOf(method);
    if (!worksOnSqlite) notOnSqlite.insert(ToUtf8(method.className));
  }
  EXPECT_EQ(notOnSqlite,
            (std::set<std::string>{"CCDRpt", "CDocumentoRpt", "CEstatImgRpt", "CEstatIndexRpt", "CEstatSerieRpt",
                                   "CEstatSubgrupoRpt", "CEstatSuporteRpt", "CSolicitacaoRpt"}));
}

// The beginning of the sentence of each kind.
std::string_view RowsSentence(guide::RowsKind kind) {
  switch (kind) {
    case guide::RowsKind::kStreamed:
      return "As linhas [vêm do servidor](../recordsets.pt-BR.md#do-servidor) e são lidas uma vez só.";
    case guide::RowsKind::kAtClient:
      return "As linhas [ficam no cliente](../recordsets.pt-BR.md#no-cliente) e podem ser contadas e relidas.";
    case guide::RowsKind::kInMemory:
      return "As linhas [são montadas na memória](../recordsets.pt-BR.md#na-memória) e podem ser contadas e relidas.";
  }
  return {};
}

TEST(PagesTest, SayHowTheRowsOfEachReportAreRead) {
  std::map<guide::RowsKind, int> reports;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    const std::string section = SectionOf(method);
    const guide::RowsKind kind = guide::About(method).rows;
    ++reports[kind];
    EXPECT_EQ(Occurrences(section, "As linhas ["), 1U) << NameOf(method);
    EXPECT_EQ(Occurrences(section, RowsSentence(kind)), 1U) << NameOf(method);
    // Only these reports run on a connection of the client.
    const bool usesConexao = method.className == L"CCaixaRpt" && kind == guide::RowsKind::kStreamed;
    EXPECT_EQ(
        Occurrences(section, " Com a propriedade `Conexao`, [ficam no cliente](../recordsets.pt-BR.md#no-cliente)."),
        usesConexao)
        << NameOf(method);
  }
  EXPECT_EQ(reports.size(), 3U);
}

// The texts of the errors, as the sources write them.
std::string Sources() {
  std::string all;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(KODRA_SOURCE_DIR "/src"))
    if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h") all += Read(entry.path());
  // Adjacent literals are one text, and an escaped quote is a quote.
  all = std::regex_replace(all, std::regex("\"\\s*\n\\s*L\""), "");
  return std::regex_replace(all, std::regex(R"(\\")"), "\"");
}

TEST(ErrorsTest, AreInTheSourcesWithTheTextsOfThePage) {
  const std::string sources = Sources();
  for (const auto errors : {guide::Errors(), guide::Causes()}) {
    for (const guide::Error& error : errors) {
      const std::string text(error.text.substr(0, error.text.find("…")));
      EXPECT_NE(sources.find("L\"" + text), std::string::npos) << text;
    }
  }
}

// The page contains every number that the component adds to the base of its errors.
TEST(ErrorsTest, ContainEveryNumberOfTheComponentsOwn) {
  std::set<std::int32_t> told;
  for (const auto errors : {guide::Errors(), guide::Causes()})
    for (const guide::Error& error : errors) told.insert(error.number);
  const std::string sources = Sources();
  const std::regex number(R"(kErrBase \+ (\d+))");
  int found = 0;
  for (std::sregex_iterator at(sources.begin(), sources.end(), number), end; at != end; ++at, ++found)
    EXPECT_TRUE(told.contains(kErrBase + std::stoi((*at)[1]))) << (*at)[0];
  EXPECT_GT(found, 5);
}

TEST(GuideErrorTable, IsWrittenBetweenItsComments) {
  const std::string guide = "antes\n<!-- ./kodra reference escreve daqui -->\nvelho\n<!-- até aqui -->\n\ndepois\n";
  const std::string written = WithErrorTable(guide);
  const std::string start =
      "antes\n<!-- ./kodra reference escreve daqui -->\n\n| Causa | O que houve | O que fazer |\n| --- | --- | --- |\n"
      "| É preciso definir a propriedade \"StringConexao\". | a conexão está vazia | defina StringConexao antes de "
      "chamar o método; no kodrarpt, informe --conexao |\n";
  const std::string end = "<!-- até aqui -->\n\ndepois\n";
  EXPECT_EQ(written.substr(0, start.size()), start);
  EXPECT_EQ(written.substr(written.size() - end.size()), end);
  EXPECT_EQ(written.find("velho"), std::string::npos);
  EXPECT_NE(written.find("\n| A mensagem do ADO instalado para \"nenhum registro atual\" (3021), em "
                         "CLogRpt.RelatorioLog | nenhum evento passa pelos filtros | amplie o período ou tire filtros "
                         "|\n"),
            std::string::npos);
  EXPECT_NE(written.find("\n| A variável do objeto ou a variável do bloco 'With' não foi definida, em "
                         "CSolicitacaoRpt.RelatorioRetiradaOriginal | a solicitação não tem documento em nenhum módulo "
                         "| confira o código em CodSolicit |\n"),
            std::string::npos);
  EXPECT_NE(written.find("\n| Banco ocupado (\"database is locked\"…) | outro programa está gravando no banco | tente "
                         "de novo daqui a pouco |\n"),
            std::string::npos);
  EXPECT_EQ(WithErrorTable(written), written);
  EXPECT_THROW(WithErrorTable("sem comentários"), std::runtime_error);
}

TEST(ErrorsTest, AreNumberedAsAClientSeesThem) {
  EXPECT_EQ(guide::NumberWords(-2147213397), "80041FAB (-2147213397)");
  EXPECT_EQ(guide::NumberWords(429), "429");
}

}  // namespace
}  // namespace kodra::console::reference
