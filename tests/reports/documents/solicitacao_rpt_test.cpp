// The withdrawal slip.
#include <gtest/gtest.h>

#include "reports/documents/slip_text.h"
#include "reports/reports.h"
#include "tests/reports/report_scenario.h"

namespace kodra::reports {
namespace {

using recorder::FakeSurroundings;
using recorder::Framed;
using recorder::Rows;
using recorder::Utf8;

constexpr auto kName = "CSolicitacaoRpt::RelatorioRetiradaOriginal";

constexpr Date k30March2024 = {45381};
constexpr Date k31March2024 = {45382};

Subject Report(const Value& requests = L"77,78") {
  return SubjectOf(kName, &CSolicitacaoRpt::RelatorioRetiradaOriginal, {{L"CodSolicit", {requests}}});
}

std::string DocumentsOf(const std::string& requests) {
  return "SELECT d.COD_DOCTO, d.NUM_CAIXA, s.DT_DEVOLUCAO, "
         "c.COORD_X AS FILEIRA, c.COORD_Y AS ESTANTE, c.COORD_Z AS PRATELEIRA "
         "FROM SOLICITACAO s INNER JOIN DOCUMENTO d ON s.COD_DOCTO = d.COD_DOCTO "
         "INNER JOIN CAIXA c ON d.NUM_CAIXA = c.NUM_CAIXA "
         "WHERE s.COD_SOLICIT IN (" +
         requests + ") ORDER BY d.NUM_CAIXA";
}

std::string RequestOf(const std::string& requests, const std::string& sentences) {
  return "SELECT DISTINCT CASE WHEN o.NOME_COMPLETO IS NULL OR o.NOME_COMPLETO='' THEN o.DESCR_OPERADOR "
         "ELSE o.NOME_COMPLETO END AS OPERADOR, CASE s.DEVOLVIDO " +
         sentences +
         " END AS DEVOLUCAO, s.OBS_SOLICIT FROM SOLICITACAO s "
         "INNER JOIN OPERADOR o ON s.COD_OPERADOR = o.COD_OPERADOR "
         "WHERE s.COD_SOLICIT IN (" +
         requests + ")";
}

std::string OneDocument(const std::string& date) {
  return "WHEN 'P' THEN 'O documento será retirado permanentemente.' "
         "WHEN 'I' THEN 'A devolução não tem data determinada para ocorrer.' "
         "WHEN 'D' THEN 'A devolução deste documento deverá ser realizada em " +
         date + ".'";
}

std::string SeveralDocuments(const std::string& date) {
  return "WHEN 'P' THEN 'Os documentos serão retirados permanentemente.' "
         "WHEN 'I' THEN 'As devoluções não têm data determinada para ocorrer.' "
         "WHEN 'D' THEN 'As devoluções destes documentos deverão ser realizadas em " +
         date + ".'";
}

// A document's row: COD_DOCTO, NUM_CAIXA, DT_DEVOLUCAO, FILEIRA, ESTANTE, PRATELEIRA.
using Document = std::vector<Value>;
const Document kContract = {L"D0001", L"AB001", k30March2024, L"1", L"2", L"3"};
const Document kInvoice = {L"D0002", L"AB002", k31March2024, Null{}, Null{}, Null{}};
// A request's row: OPERADOR, DEVOLUCAO, OBS_SOLICIT.
using Request = std::vector<Value>;
const Request kRequest = {L"Ana Lúcia", L"Volta em breve.", L"Urgente"};

// Those documents and requests in the database, and the dates that the sibling reads in turn.
Preparation Having(const std::vector<Document>& documents, const std::vector<Request>& requests = {kRequest},
                   const std::deque<Value>& dates = {k30March2024, k31March2024}) {
  return [=](FakeSurroundings& around) {
    around.Register(L"VantLib.Conversoes", {{L"ToDate", dates}});
    around.ado.results = {
        Rows{{L"COD_DOCTO", L"NUM_CAIXA", L"DT_DEVOLUCAO", L"FILEIRA", L"ESTANTE", L"PRATELEIRA"}, documents},
        Rows{{L"OPERADOR", L"DEVOLUCAO", L"OBS_SOLICIT"}, requests},
    };
  };
}

CallLines FirstLines(const Database& database) {
  CallLines lines = InitialisationLines(database);
  Append(lines, {
                    R"(CreateObject("VantLib.Conversoes") -> Object2)",
                    R"(Parametros.Get(CodSolicit) -> "77,78")",
                });
  Append(lines, OpeningRows(database, DocumentsOf("77,78"), 1, 1));
  Append(lines, {
                    R"(Recordset1.FieldByName("DT_DEVOLUCAO"))",
                    R"(Recordset1.FieldByName("COD_DOCTO"))",
                    R"(Recordset1.FieldByName("NUM_CAIXA"))",
                    R"(Recordset1.FieldByName("FILEIRA"))",
                    R"(Recordset1.FieldByName("ESTANTE"))",
                    R"(Recordset1.FieldByName("PRATELEIRA"))",
                });
  return lines;
}

std::string ContractAndInvoice(const Database& database) {
  CallLines lines = FirstLines(database);
  Append(lines, {
                    "Recordset1.Eof() -> False",
                    "Recordset1.Field(DT_DEVOLUCAO).Get() -> Date(45381)",
                    R"(Object2.Call(ToDate, "30/03/2024") -> Date(45381))",
                    R"(Recordset1.Field(COD_DOCTO).Get() -> "D0001")",
                    R"(Recordset1.Field(NUM_CAIXA).Get() -> "AB001")",
                    R"(Recordset1.Field(FILEIRA).Get() -> "1")",
                    R"(Recordset1.Field(ESTANTE).Get() -> "2")",
                    R"(Recordset1.Field(PRATELEIRA).Get() -> "3")",
                    "Recordset1.MoveNext()",
                    "Recordset1.Eof() -> False",
                    "Recordset1.Field(DT_DEVOLUCAO).Get() -> Date(45382)",
                    R"(Object2.Call(ToDate, "31/03/2024") -> Date(45382))",
                    R"(Recordset1.Field(COD_DOCTO).Get() -> "D0002")",
                    R"(Recordset1.Field(NUM_CAIXA).Get() -> "AB002")",
                    "Recordset1.Field(FILEIRA).Get() -> Null",
                    "Recordset1.Field(ESTANTE).Get() -> Null",
                    "Recordset1.Field(PRATELEIRA).Get() -> Null",
                    "Recordset1.MoveNext()",
                    "Recordset1.Eof() -> True",
                    "Recordset1.Close()",
                    "~Recordset1",
                });
  Append(lines, OpeningRows(database, RequestOf("77,78", SeveralDocuments("31/03/2024")), 2, 2));
  Append(lines, {
                    R"(Recordset2.FieldByName("OPERADOR"))",
                    R"(Recordset2.FieldByName("DEVOLUCAO"))",
                    R"(Recordset2.FieldByName("OBS_SOLICIT"))",
                    "NewRecordset() -> Recordset3",
                    R"(Recordset3.AppendField("OPERADOR", 200, 1000, -1))",
                    R"(Recordset3.AppendField("DOCUMENTOS", 200, 4000, -1))",
                    R"(Recordset3.AppendField("DEVOLUCAO", 200, 1000, -1))",
                    R"(Recordset3.AppendField("OBS_SOLICIT", 200, 4000, -1))",
                    "Recordset3.Open(missing, missing, -1, -1, -1)",
                    R"(Recordset3.FieldByName("OPERADOR"))",
                    R"(Recordset3.FieldByName("DOCUMENTOS"))",
                    R"(Recordset3.FieldByName("DEVOLUCAO"))",
                    R"(Recordset3.FieldByName("OBS_SOLICIT"))",
                });
  for (const char* document : {"* D0001, no módulo de guarda AB001 (fileira 1, estante 2, prateleira 3)",
                               "* D0002, no módulo de guarda AB002"})
    Append(lines, {
                      "Recordset3.AddNew()",
                      R"(Recordset2.Field(OPERADOR).Get() -> "Ana Lúcia")",
                      R"(Recordset3.Field(OPERADOR).Let("Ana Lúcia"))",
                      std::string("Recordset3.Field(DOCUMENTOS).Let(\"") + document + "\")",
                      R"(Recordset2.Field(DEVOLUCAO).Get() -> "Volta em breve.")",
                      R"(Recordset3.Field(DEVOLUCAO).Let("Volta em breve."))",
                      R"(Recordset2.Field(OBS_SOLICIT).Get() -> "Urgente")",
                      R"(Recordset3.Field(OBS_SOLICIT).Let("Urgente"))",
                      "Recordset3.Update()",
                  });
  Append(lines, {"Recordset2.Close()", "~Recordset2", "~Object2", "~Recordset3"});
  return All({lines});
}

// The slip of that call: its rows, each with all columns.
std::vector<std::vector<std::string>> SlipOf(Scenario& scenario) {
  scenario.Prepare();
  const frame::ReportRows rows = scenario.Call();
  std::vector<std::vector<std::string>> slip;
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    slip.emplace_back();
    for (const wchar_t* field : {L"OPERADOR", L"DOCUMENTOS", L"DEVOLUCAO", L"OBS_SOLICIT"})
      slip.back().push_back(Utf8(rows->FieldByName(field)->Get().As<std::wstring>()));
  }
  return slip;
}

using Slip = std::vector<std::vector<std::string>>;

TEST(WithdrawalSlipTest, HasOneLinePerDocumentAndOneRequestOnEveryDatabase) {
  for (const Database& database : Databases())
    EXPECT_EQ(Scenario(Report(), database, Having({kContract, kInvoice})).Run(), ContractAndInvoice(database));
}

TEST(WithdrawalSlipTest, IsOnItsLastRow) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), Having({kContract, kInvoice}));
  scenario.Prepare();
  const frame::ReportRows rows = scenario.Call();
  ASSERT_NE(rows, nullptr);
  EXPECT_EQ(rows->FieldByName(L"DOCUMENTOS")->Get(), Value(L"* D0002, no módulo de guarda AB002"));
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
}

// The statement that a call opens second.
std::string SecondStatement(const std::string& calls) {
  const std::string start = "Recordset2.Open(\"";
  const std::size_t at = calls.find(start) + start.size();
  return calls.substr(at, calls.find("\", Connection2", at) - at);
}

TEST(WithdrawalSlipTest, UsesTheSingularForOneDocument) {
  Scenario scenario(Report(L"77"), DatabaseOf(tbSQLServer), Having({kContract}));
  EXPECT_EQ(SecondStatement(scenario.Run()), RequestOf("77", OneDocument("30/03/2024")));
}

TEST(WithdrawalSlipTest, UsesThePluralForSeveralDocuments) {
  Scenario two(Report(L"77"), DatabaseOf(tbSQLServer), Having({kContract, kInvoice}));
  EXPECT_EQ(SecondStatement(two.Run()), RequestOf("77", SeveralDocuments("31/03/2024")));
  Scenario three(Report(L"77"), DatabaseOf(tbSQLServer), Having({kContract, kInvoice, kContract}));
  EXPECT_EQ(SecondStatement(three.Run()), RequestOf("77", SeveralDocuments("31/03/2024")));
}

TEST(WithdrawalSlipTest, NamesTheReturnDateOfTheLastDocument) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer),
                    Having({kContract, kInvoice}, {kRequest}, {k31March2024, Date{k30March2024.days + 0.75}}));
  EXPECT_EQ(SecondStatement(scenario.Run()), RequestOf("77,78", SeveralDocuments("30/03/2024")));
}

TEST(WithdrawalSlipTest, AsksForTheDateOfAnEmptyTextWhereNoneIsPlanned) {
  Document document = kContract;
  document[2] = Null{};
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), Having({document}, {kRequest}, {Date{0}}));
  const std::string calls = scenario.Run();
  EXPECT_NE(calls.find("\nObject2.Call(ToDate, \"\") -> Date(0)\n"), std::string::npos) << calls;
  EXPECT_EQ(SecondStatement(calls), RequestOf("77,78", OneDocument("30/12/1899")));
}

TEST(WithdrawalSlipTest, InsertsTheRequestCodesUnchanged) {
  for (const wchar_t* codes : {L"77", L" 77 , 78 ", L"'77'", L""}) {
    Scenario scenario(Report(codes), DatabaseOf(tbSQLServer), Having({kContract}));
    const std::string calls = scenario.Run();
    EXPECT_NE(calls.find("Recordset1.Open(\"" + DocumentsOf(Utf8(codes)) + "\", Connection1, 0, 1, 1)\n"),
              std::string::npos)
        << calls;
    EXPECT_EQ(SecondStatement(calls), RequestOf(Utf8(codes), OneDocument("30/03/2024")));
  }
}

TEST(WithdrawalSlipTest, ListsTheDocumentsOfSeveralRequestsUnderTheFirstOne) {
  const Request other = {L"Beto", L"Não volta.", L"Sem pressa"};
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), Having({kContract, kInvoice}, {kRequest, other}));
  EXPECT_EQ(SlipOf(scenario),
            (Slip{{"Ana Lúcia", "* D0001, no módulo de guarda AB001 (fileira 1, estante 2, prateleira 3)",
                   "Volta em breve.", "Urgente"},
                  {"Ana Lúcia", "* D0002, no módulo de guarda AB002", "Volta em breve.", "Urgente"}}));
}

TEST(WithdrawalSlipTest, LeavesTheSentenceOfAnotherReturnModeEmpty) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer), Having({kInvoice}, {{L"Ana", Null{}, L"Urgente"}}));
  EXPECT_EQ(SlipOf(scenario), (Slip{{"Ana", "* D0002, no módulo de guarda AB002", "", "Urgente"}}));
}

TEST(WithdrawalSlipTest, PrintsADashForAnEmptyRemark) {
  for (const Value& remark : {Value(Null{}), Value(L"")}) {
    Scenario scenario(Report(), DatabaseOf(tbSQLServer), Having({kInvoice}, {{Null{}, L"Volta.", remark}}));
    EXPECT_EQ(SlipOf(scenario), (Slip{{"", "* D0002, no módulo de guarda AB002", "Volta.", "-"}}));
  }
  Scenario blank(Report(), DatabaseOf(tbSQLServer), Having({kInvoice}, {{L"Ana", L"Volta.", L" "}}));
  EXPECT_EQ(SlipOf(blank), (Slip{{"Ana", "* D0002, no módulo de guarda AB002", "Volta.", " "}}));
}

TEST(WithdrawalSlipTest, NamesAShelfAloneAndCoordinatesThatAreNumbers) {
  Scenario scenario(Report(), DatabaseOf(tbSQLServer),
                    Having({{1, 2, k30March2024, Null{}, L"", L"3"}, {L"D2", L"AB", k30March2024, 0, 1.5, Null{}}}));
  EXPECT_EQ(
      SlipOf(scenario),
      (Slip{{"Ana Lúcia", "* 1, no módulo de guarda 2 (prateleira 3)", "Volta em breve.", "Urgente"},
            {"Ana Lúcia", "* D2, no módulo de guarda AB (fileira 0, estante 1,5)", "Volta em breve.", "Urgente"}}));
}

TEST(WithdrawalSlipTest, FailsWithoutDocumentsBeforeItAsksForTheRequest) {
  for (const Database& database : Databases()) {
    Scenario scenario(Report(), database, Having({}));
    EXPECT_EQ(scenario.RunRaising(),
              Framed(kName, "A variável do objeto ou a variável do bloco 'With' não foi definida"));
    CallLines lines = FirstLines(database);
    Append(lines, {"Recordset1.Eof() -> True", "Recordset1.Close()", "~Recordset1", "~Object2"});
    EXPECT_EQ(scenario.around.journal.Calls(), All({lines}));
  }
}

TEST(WithdrawalSlipTest, FailsWithoutARequest) {
  EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), Having({kContract}, {})).RunRaising(),
            Framed(kName, "BOF ou EOF é verdadeiro"));
}

TEST(WithdrawalSlipTest, RefusesATextLongerThanItsField) {
  const std::pair<std::size_t, std::size_t> kSizes[] = {{0, 1000}, {1, 1000}, {2, 4000}};
  for (const auto& [column, size] : kSizes) {
    Request request = kRequest;
    request[column] = std::wstring(size, L'x');
    EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), Having({kContract}, {request})).RunRaising(),
              recorder::Raised());
    request[column] = std::wstring(size + 1, L'x');
    EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), Having({kContract}, {request})).RunRaising(),
              Framed(kName, "A operação em várias etapas gerou erros"));
  }
}

TEST(WithdrawalSlipTest, RefusesWhatIsNoDate) {
  EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), Having({kContract}, {kRequest}, {L"amanhã"})).RunRaising(),
            Framed(kName, "Tipos incompatíveis"));
  EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer), Having({kContract}, {kRequest}, {Null{}})).RunRaising(),
            Framed(kName, "Uso de 'Null' inválido"));
}

TEST(WithdrawalSlipTest, NeedsTheConversionsOfTheSibling) {
  EXPECT_EQ(Scenario(Report(), DatabaseOf(tbSQLServer)).RunRaising(),
            Framed(kName, "O componente ActiveX não pode criar o objeto"));
}

TEST(WithdrawalSlipTest, NamesThePropertyThatAnotherObjectDoesNotHave) {
  CheckPropertiesNeeded(Report(), Having({kContract}));
}

TEST(WithdrawalSlipTest, RaisesEveryErrorInItsFrame) { CheckInputsNeeded(Report()); }

TEST(WithdrawalSlipTest, WorksAgainAfterTheFailureOfAnyCall) {
  CheckFailures(Report(), kEveryCode, Having({kContract, kInvoice}));
}

TEST(PlaceTextTest, NamesTheCoordinatesThatAreKnown) {
  EXPECT_EQ(Utf8(PlaceText(L"1", L"2", L"3")), "fileira 1, estante 2, prateleira 3");
  EXPECT_EQ(Utf8(PlaceText(L"1", L"", L"3")), "fileira 1, prateleira 3");
  EXPECT_EQ(Utf8(PlaceText(L"", L"2", L"")), "estante 2");
  EXPECT_EQ(Utf8(PlaceText(L"", L"", L"3")), "prateleira 3");
  EXPECT_EQ(Utf8(PlaceText(L" ", L"0", L"3, ")), "fileira  , estante 0, prateleira 3, ");
}

TEST(PlaceTextTest, IsEmptyWithoutCoordinates) { EXPECT_EQ(PlaceText(L"", L"", L""), L""); }

TEST(DocumentLineTest, HasTheModuleAndThePlaceInParentheses) {
  EXPECT_EQ(Utf8(DocumentLine(L"D0001", L"AB001", L"prateleira 3")),
            "* D0001, no módulo de guarda AB001 (prateleira 3)");
}

TEST(DocumentLineTest, HasNoParenthesesWithoutPlace) {
  EXPECT_EQ(Utf8(DocumentLine(L"D0001", L"AB001", L"")), "* D0001, no módulo de guarda AB001");
  EXPECT_EQ(Utf8(DocumentLine(L"", L"", L"")), "* , no módulo de guarda ");
}

}  // namespace
}  // namespace kodra::reports
