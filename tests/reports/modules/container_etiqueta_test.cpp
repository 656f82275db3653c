// The opening labels of containers, made in memory.
#include <gtest/gtest.h>

#include "frame/parameter_object.h"
#include "reports/reports.h"
#include "tests/reports/report_scenario.h"

namespace kodra::reports {
namespace {

using recorder::Framed;
using recorder::RaisedBy;
using recorder::Rows;
using recorder::Utf8;

recorder::Answers Containers(const wchar_t* first, const wchar_t* second = L"", const wchar_t* third = L"") {
  return {{L"Container1", {first}}, {L"Container2", {second}}, {L"Container3", {third}}};
}

// A component that converts a field, and refuses any other argument.
class Conversions final : public AutomationObject, public recorder::Fake {
 public:
  Conversions(recorder::Journal& journal, std::wstring name) : Fake(journal, std::move(name)) {}

  Value Call(std::wstring_view member, std::span<const Value> arguments) override {
    Note(L"Call", {member});
    if (member != L"ToDate" || arguments.size() != 1) throw MemberNotFound();
    const Value value = RequiredObject(arguments[0]).Get(L"Value");
    return value.Is<Null>() ? Value(Date{}) : value;
  }
  Value Get(std::wstring_view) override { throw MemberNotFound(); }
  void Let(std::wstring_view, const Value&) override { throw MemberNotFound(); }
  void Set(std::wstring_view, const ObjectRef&) override { throw MemberNotFound(); }
};

void RegisterConversions(recorder::FakeSurroundings& around) {
  around.RegisterMaker(L"VantLib.Conversoes", L"Conversoes", [&around](const std::wstring& name) {
    return std::make_shared<Conversions>(around.journal, name);
  });
}

// The modules of a container, as the database has them.
Rows ModuleRows(std::vector<std::vector<Value>> rows) {
  return {{L"CONTAINER", L"DATA_VENCIMENTO", L"TIPO_GUARDA", L"NOME_EMPRESA"}, std::move(rows)};
}

// A label, from its row.
struct Label {
  std::string container;
  Date date;
  std::string kind;
  std::string company;
  bool operator==(const Label&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Label& label) {
  return out << label.container << "|" << label.date.days << "|" << label.kind << "|" << label.company;
}

class EtiquetaAberturaDeContainerTest : public testing::Test {
 protected:
  EtiquetaAberturaDeContainerTest() {
    around_.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {tbSQLServer}}});
    RegisterConversions(around_);
    report_.SetStringConexao(L"Provider=SQLNCLI11;");
  }

  frame::ReportRows Call(const recorder::Answers& parameters, std::deque<Rows> modules) {
    around_.ado.results = std::move(modules);
    const ObjectRef object = around_.NewObject(L"Parametros", parameters);
    around_.journal.Forget();
    return frame::Run(report_, L"EtiquetaAbertura", &CContainerRpt::EtiquetaAbertura, object.get());
  }

  std::vector<Label> Labels(const recorder::Answers& parameters, std::deque<Rows> modules) {
    std::vector<Label> labels;
    const frame::ReportRows rows = Call(parameters, std::move(modules));
    EXPECT_EQ(rows->State(), platform::ad::kStateOpen);
    const auto container = rows->FieldByName(L"CONTAINER");
    const auto date = rows->FieldByName(L"DATA_VENCIMENTO");
    const auto kind = rows->FieldByName(L"TIPO_GUARDA");
    const auto company = rows->FieldByName(L"NOME_EMPRESA");
    for (; !rows->Eof(); rows->MoveNext())
      labels.push_back({Utf8(container->Get().As<std::wstring>()), date->Get().As<Date>(),
                        Utf8(kind->Get().As<std::wstring>()), Utf8(company->Get().As<std::wstring>())});
    return labels;
  }

  recorder::FakeSurroundings around_;
  frame::ReportObject report_{L"CContainerRpt", around_};
};

const CallLines kBefore = {
    R"(CreateObject("KodraConexao.StrCon") -> Object1)",
    R"(Object1.Let(StrCon, "Provider=SQLNCLI11;"))",
    "Object1.Get(TipoBanco) -> 2",
    "~Object1",
    R"(CreateObject("VantLib.Conversoes") -> Conversoes)",
    "NewRecordset() -> Recordset1",
    R"(Recordset1.AppendField("CONTAINER", 200, 10, -1))",
    R"(Recordset1.AppendField("DATA_VENCIMENTO", 133, 0, -1))",
    R"(Recordset1.AppendField("TIPO_GUARDA", 200, 1, -1))",
    R"(Recordset1.AppendField("NOME_EMPRESA", 200, 64, -1))",
};

// The reading of a container's modules, up to its recordset. The connections are counted from 1, the recordsets from 2.
CallLines OpeningOf(int container, const std::string& code) {
  const Database database = {.code = tbSQLServer,
                             .connectionString = "Provider=SQLNCLI11;",
                             .prepared = "Provider=SQLNCLI11;Persist Security Info=True;"};
  CallLines lines = {"Parametros.Get(Container" + std::to_string(container) + ") -> " + Quoted(code)};
  Append(lines, OpeningRows(database,
                            "SELECT cx.CONTAINER, cx.DATA_VENCIMENTO, cx.TIPO_GUARDA, p.EMPRESA AS NOME_EMPRESA "
                            "FROM CAIXA cx INNER JOIN PARAMETRO p ON 1=1 WHERE cx.CONTAINER='" +
                                code + "'",
                            container, container + 1));
  return lines;
}

// The same for a container without modules.
CallLines EmptyContainer(int container, const std::string& code) {
  const std::string rows = "Recordset" + std::to_string(container + 1);
  CallLines lines = OpeningOf(container, code);
  Append(lines, {rows + ".Eof() -> True", rows + ".Close()", "~" + rows});
  return lines;
}

const CallLines kOpenOutput = {
    "Recordset1.State() -> 0",
    "Recordset1.Open(missing, missing, -1, -1, -1)",
    R"(Recordset1.FieldByName("CONTAINER"))",
    R"(Recordset1.FieldByName("DATA_VENCIMENTO"))",
    R"(Recordset1.FieldByName("TIPO_GUARDA"))",
    R"(Recordset1.FieldByName("NOME_EMPRESA"))",
};

TEST_F(EtiquetaAberturaDeContainerTest, ReadsEachContainerAndFillsARowForEachThatHoldsAModule) {
  Call(Containers(L"C1", L"", L"C3"),
       {ModuleRows({{L"c1", Null{}, L"E", L"Arquivo"}, {L"c1", Date{45000}, L"T", L"Geral"}}), ModuleRows({}),
        ModuleRows({{L"C3", Null{}, Null{}, Null{}}})});
  EXPECT_EQ(around_.journal.Calls(), All({kBefore,
                                          OpeningOf(1, "C1"),
                                          {
                                              "Recordset2.Eof() -> False",
                                              R"(Recordset2.FieldByName("NOME_EMPRESA"))",
                                              R"(Recordset2.FieldByName("TIPO_GUARDA"))",
                                              R"(Recordset2.FieldByName("DATA_VENCIMENTO"))",
                                              "Recordset2.Eof() -> False",
                                              R"(Recordset2.Field(NOME_EMPRESA).Get() -> "Arquivo")",
                                              R"(Recordset2.Field(TIPO_GUARDA).Get() -> "E")",
                                              "Conversoes.Call(ToDate)",
                                              "Recordset2.Field(DATA_VENCIMENTO).Get() -> Null",
                                              "Recordset2.MoveNext()",
                                              "Recordset2.Eof() -> False",
                                              R"(Recordset2.Field(NOME_EMPRESA).Get() -> "Geral")",
                                              R"(Recordset2.Field(TIPO_GUARDA).Get() -> "T")",
                                              "Conversoes.Call(ToDate)",
                                              "Recordset2.Field(DATA_VENCIMENTO).Get() -> Date(45000)",
                                              "Recordset2.MoveNext()",
                                              "Recordset2.Eof() -> True",
                                              "Recordset2.Close()",
                                          },
                                          kOpenOutput,
                                          {
                                              "Recordset1.AddNew()",
                                              R"(Recordset1.Field(CONTAINER).Let("C1"))",
                                              "Recordset1.Field(DATA_VENCIMENTO).Let(Date(45000))",
                                              R"(Recordset1.Field(TIPO_GUARDA).Let("T"))",
                                              R"(Recordset1.Field(NOME_EMPRESA).Let("Geral"))",
                                              "Recordset1.Update()",
                                              "~Recordset2",
                                          },
                                          EmptyContainer(2, ""),
                                          OpeningOf(3, "C3"),
                                          {
                                              "Recordset4.Eof() -> False",
                                              R"(Recordset4.FieldByName("NOME_EMPRESA"))",
                                              R"(Recordset4.FieldByName("TIPO_GUARDA"))",
                                              R"(Recordset4.FieldByName("DATA_VENCIMENTO"))",
                                              "Recordset4.Eof() -> False",
                                              "Recordset4.Field(NOME_EMPRESA).Get() -> Null",
                                              "Recordset4.Field(TIPO_GUARDA).Get() -> Null",
                                              "Conversoes.Call(ToDate)",
                                              "Recordset4.Field(DATA_VENCIMENTO).Get() -> Null",
                                              "Recordset4.MoveNext()",
                                              "Recordset4.Eof() -> True",
                                              "Recordset4.Close()",
                                              "Recordset1.State() -> 1",
                                              "Recordset1.AddNew()",
                                              R"(Recordset1.Field(CONTAINER).Let("C3"))",
                                              "Recordset1.Field(DATA_VENCIMENTO).Let(Date(0))",
                                              R"(Recordset1.Field(TIPO_GUARDA).Let(""))",
                                              R"(Recordset1.Field(NOME_EMPRESA).Let(""))",
                                              "Recordset1.Update()",
                                              "~Recordset4",
                                              "Recordset1.State() -> 1",
                                              "Recordset1.MoveFirst()",
                                              "~Conversoes",
                                              "~Parametros",
                                              "~Recordset1",
                                          }}));
  EXPECT_EQ(around_.journal.LiveObjects(), 0);
}

TEST_F(EtiquetaAberturaDeContainerTest, IsOnTheFirstLabel) {
  const frame::ReportRows rows = Call(Containers(L"C1", L"C2"), {ModuleRows({{L"C1", Date{45000}, L"T", L"Arquivo"}}),
                                                                 ModuleRows({{L"C2", Date{45000}, L"T", L"Arquivo"}})});
  EXPECT_EQ(rows->FieldByName(L"CONTAINER")->Get(), Value(L"C1"));
  rows->MoveNext();
  EXPECT_EQ(rows->FieldByName(L"CONTAINER")->Get(), Value(L"C2"));
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
}

TEST_F(EtiquetaAberturaDeContainerTest, OpensAnEmptyRecordsetForContainersWithoutModules) {
  Call(Containers(L"C1", L"C2", L"C3"), {});
  EXPECT_EQ(around_.journal.Calls(), All({kBefore,
                                          EmptyContainer(1, "C1"),
                                          EmptyContainer(2, "C2"),
                                          EmptyContainer(3, "C3"),
                                          kOpenOutput,
                                          {"~Conversoes", "~Parametros", "~Recordset1"}}));
  EXPECT_EQ(Labels(Containers(L"C1", L"C2", L"C3"), {}), std::vector<Label>());
}

TEST_F(EtiquetaAberturaDeContainerTest, ReturnsOnlyTheFirstLabelWhenTheOtherContainersAreLeftEmpty) {
  EXPECT_EQ(Labels(Containers(L"C1"), {ModuleRows({{L"C1", Date{45000}, L"T", L"Arquivo"}})}),
            (std::vector<Label>{{"C1", {45000}, "T", "Arquivo"}}));
}

TEST_F(EtiquetaAberturaDeContainerTest, ReturnsALabelForALaterContainerAlone) {
  EXPECT_EQ(Labels(Containers(L"", L"", L"C3"),
                   {ModuleRows({}), ModuleRows({}), ModuleRows({{L"C3", Null{}, L"D", L"Arquivo"}})}),
            (std::vector<Label>{{"C3", {0}, "D", "Arquivo"}}));
}

TEST_F(EtiquetaAberturaDeContainerTest, ReturnsTheZeroDateAndTheLastKindWithoutAnyRetentionDate) {
  EXPECT_EQ(
      Labels(Containers(L"C1"), {ModuleRows({{L"C1", Null{}, L"E", L"Arquivo"}, {L"C1", Null{}, L"D", L"Arquivo"}})}),
      (std::vector<Label>{{"C1", {0}, "D", "Arquivo"}}));
}

TEST_F(EtiquetaAberturaDeContainerTest, KeepsForATermAContainerWithADatedModule) {
  EXPECT_EQ(Labels(Containers(L"C1"),
                   {ModuleRows({{L"C1", Date{45000}, L"T", L"Arquivo"}, {L"C1", Null{}, L"E", L"Arquivo"}})}),
            (std::vector<Label>{{"C1", {45000}, "T", "Arquivo"}}));
  EXPECT_EQ(Labels(Containers(L"C1"),
                   {ModuleRows({{L"C1", Date{45000}, L"E", L"Arquivo"}, {L"C1", Null{}, L"T", L"Arquivo"}})}),
            (std::vector<Label>{{"C1", {45000}, "T", "Arquivo"}}));
}

TEST_F(EtiquetaAberturaDeContainerTest, ReturnsTheLatestDateOfTheModules) {
  EXPECT_EQ(Labels(Containers(L"C1"), {ModuleRows({{L"C1", Date{45001}, L"T", L"Arquivo"},
                                                   {L"C1", Date{46000}, L"T", L"Arquivo"},
                                                   {L"C1", Date{45500}, L"T", L"Arquivo"}})}),
            (std::vector<Label>{{"C1", {46000}, "T", "Arquivo"}}));
}

TEST_F(EtiquetaAberturaDeContainerTest, ReturnsTwoLabelsForAContainerNamedTwice) {
  const Rows modules = ModuleRows({{L"C1", Date{45000}, L"T", L"Arquivo"}});
  EXPECT_EQ(Labels(Containers(L"C1", L"C1"), {modules, modules}),
            (std::vector<Label>{{"C1", {45000}, "T", "Arquivo"}, {"C1", {45000}, "T", "Arquivo"}}));
}

TEST_F(EtiquetaAberturaDeContainerTest, StartsANewLabelForEachContainer) {
  EXPECT_EQ(Labels(Containers(L"C1", L"C2"),
                   {ModuleRows({{L"C1", Date{45000}, L"T", L"Arquivo"}}), ModuleRows({{L"C2", Null{}, L"E", Null{}}})}),
            (std::vector<Label>{{"C1", {45000}, "T", "Arquivo"}, {"C2", {0}, "E", ""}}));
}

TEST_F(EtiquetaAberturaDeContainerTest, NamesTheContainerAsTheParametersDo) {
  EXPECT_EQ(Labels(Containers(L" c1"), {ModuleRows({{L"C1", Null{}, L"E", L"Arquivo"}})}),
            (std::vector<Label>{{" c1", {0}, "E", "Arquivo"}}));
}

TEST_F(EtiquetaAberturaDeContainerTest, ReadsItsOwnParameterObject) {
  frame::ParameterObject parameters(frame::ParameterClassNamed(L"CContainerRptObj"));
  parameters.Let(L"Container1", L"C1");
  parameters.Let(L"Container2", L"C2");
  parameters.Let(L"Container3", L"C3");
  around_.ado.results = {ModuleRows({}), ModuleRows({{L"C2", Null{}, L"E", L"Arquivo"}})};
  const frame::ReportRows rows =
      frame::Run(report_, L"EtiquetaAbertura", &CContainerRpt::EtiquetaAbertura, &parameters);
  EXPECT_EQ(rows->FieldByName(L"CONTAINER")->Get(), Value(L"C2"));
}

TEST_F(EtiquetaAberturaDeContainerTest, TakesADateTextFromAComponentThatReturnsOne) {
  around_.RegisterMaker(L"VantLib.Conversoes", L"Conversoes", [this](const std::wstring& name) {
    return around_.NewObject(name, {{L"ToDate", {L"15/03/2023"}}});
  });
  EXPECT_EQ(Labels(Containers(L"C1"), {ModuleRows({{L"C1", L"2023-03-15", L"E", L"Arquivo"}})}),
            (std::vector<Label>{{"C1", {45000}, "T", "Arquivo"}}));
}

// Its failures.

TEST_F(EtiquetaAberturaDeContainerTest, AsksForTheConnectionStringAndTheParameterObject) {
  frame::ReportObject report(L"CContainerRpt", around_);
  EXPECT_EQ(RaisedBy([&] { frame::Run(report, L"EtiquetaAbertura", &CContainerRpt::EtiquetaAbertura, nullptr); }),
            Framed("CContainerRpt::EtiquetaAbertura", R"(É preciso definir a propriedade "StringConexao".)"));
  EXPECT_EQ(RaisedBy([&] { frame::Run(report_, L"EtiquetaAbertura", &CContainerRpt::EtiquetaAbertura, nullptr); }),
            Framed("CContainerRpt::EtiquetaAbertura", "Objeto não definido."));
  EXPECT_EQ(around_.journal.Calls(), "");
}

TEST_F(EtiquetaAberturaDeContainerTest, FailsWithoutTheConversions) {
  around_.journal.FailOn(L"CreateObject(\"VantLib.Conversoes\")",
                         recorder::Failure(MakeRuntimeError(RuntimeError::kCannotCreateObject)));
  const ObjectRef parameters = around_.NewObject(L"Parametros", Containers(L"C1"));
  EXPECT_EQ(
      RaisedBy([&] { frame::Run(report_, L"EtiquetaAbertura", &CContainerRpt::EtiquetaAbertura, parameters.get()); }),
      Framed("CContainerRpt::EtiquetaAbertura", "O componente ActiveX não pode criar o objeto"));
}

TEST_F(EtiquetaAberturaDeContainerTest, FailsAsAWholeWhenALaterContainersQueryFails) {
  around_.ado.nativeErrors = {208};
  around_.ado.results = {ModuleRows({{L"C1", Null{}, L"E", L"Arquivo"}})};
  const ObjectRef parameters = around_.NewObject(L"Parametros", Containers(L"C1", L"C2"));
  around_.journal.FailOn(L"Recordset3.Open", recorder::Failure(Erro(-2147217865, L"SQLNCLI11", L"Sumiu")));
  EXPECT_EQ(
      RaisedBy([&] { frame::Run(report_, L"EtiquetaAbertura", &CContainerRpt::EtiquetaAbertura, parameters.get()); }),
      Framed("CContainerRpt::EtiquetaAbertura", "[SQLNCLI11]: Sumiu [N:208]"));
  EXPECT_EQ(around_.journal.LiveObjects(), 1);  // the client's parameter object
}

TEST_F(EtiquetaAberturaDeContainerTest, EveryCallThatFailsReachesTheClientInTheFrame) {
  const std::int32_t kCodes[] = {tbSQLServer};
  CheckFailures(
      SubjectOf("CContainerRpt::EtiquetaAbertura", &CContainerRpt::EtiquetaAbertura, Containers(L"C1", L"C2", L"C3")),
      kCodes, [](recorder::FakeSurroundings& around) {
        RegisterConversions(around);
        around.ado.results = {ModuleRows({{L"C1", Date{45000}, L"T", L"Arquivo"}}), ModuleRows({}),
                              ModuleRows({{L"C3", Null{}, L"E", L"Arquivo"}})};
      });
}

}  // namespace
}  // namespace kodra::reports
