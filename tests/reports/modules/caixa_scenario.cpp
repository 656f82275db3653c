#include "tests/reports/modules/caixa_scenario.h"

#include <gtest/gtest.h>

#include "frame/parameter_object.h"

namespace kodra::reports {

using recorder::Utf8;
using recorder::Wide;

const std::vector<std::pair<std::string, CaixaMethod>>& FramedMethods() {
  static const std::vector<std::pair<std::string, CaixaMethod>> methods = {
      {"EtiquetaAbertura", &CCaixaRpt::EtiquetaAbertura},
      {"EtiquetaFechamento", &CCaixaRpt::EtiquetaFechamento},
      {"EtiquetaFechamentoSubordinada", &CCaixaRpt::EtiquetaFechamentoSubordinada},
      {"EtiquetaDivisoria", &CCaixaRpt::EtiquetaDivisoria},
      {"ModulosExcluidos", &CCaixaRpt::ModulosExcluidos},
      {"ModulosVencidos", &CCaixaRpt::ModulosVencidos},
      {"DocsNoModulo", &CCaixaRpt::DocsNoModulo},
      {"DocsNaoIndexadosNosModulos", &CCaixaRpt::DocsNaoIndexadosNosModulos},
      {"RelatoriosModulos", &CCaixaRpt::RelatoriosModulos},
      {"AutorizacaoDescarteModuloSubRpt", &CCaixaRpt::AutorizacaoDescarteModuloSubRpt},
  };
  return methods;
}

frame::ReportRows RunModule(ModuleObject& report, CaixaMethod method, AutomationObject* parameters) {
  if (method == &CCaixaRpt::DocsNoModuloSubRpt) return frame::Run(report, L"DocsNoModuloSubRpt", method, parameters);
  for (const auto& [name, framed] : FramedMethods())
    if (framed == method) return frame::Run(report, Wide(name), method, parameters);
  ADD_FAILURE() << "a method that FramedMethods does not list";
  return nullptr;
}

CaixaScenario::CaixaScenario(const Database& database, Path path) : database_(database), path_(path) {
  Install(database, around);
  around.Register(L"KodraBsnV3.ModulosBsn", {{L"NumCxSubordinadaSQL", {L"s.COD7"}}});
  around.Register(L"KodraBsnV3.ModulosFiltro", {});
  around.RegisterMaker(L"VantLog.FnLog", L"Log", [this](const std::wstring& name) {
    return around.NewObject(name, {{L"DebugLog", {Empty{}}}});
  });
  AnswerSubordinates(NewSubordinates(1));
  report.OnDebugLog([this](const std::wstring& line) { heard.push_back(Utf8(line)); });
  if (path == Path::kClientConnection)
    SetClientConnection(database.connectionString);
  else
    report.SetStringConexao(Wide(database.connectionString));
  around.journal.Forget();
}

void CaixaScenario::SetClientConnection(const std::string& connectionString) {
  const auto connection = std::make_shared<recorder::FakeConnection>(around.journal, L"ConexaoDoCliente", around.ado);
  connection->SetConnectionString(Wide(connectionString));
  report.SetConexao({connection, around.NewObject(L"ObjetoConexao", {})});
}

void CaixaScenario::AnswerSubordinates(const Value& answer) {
  around.Register(L"KodraBsnV3.ObtedorDeModulos", {{L"ObtemSubordinados", {answer}}});
}

ObjectRef CaixaScenario::NewSubordinates(std::int32_t count) {
  return around.NewObject(L"Subordinados", {{L"Count", {count}}});
}

ObjectRef CaixaScenario::Own(const Parameters& parameters) {
  auto object = std::make_shared<frame::ParameterObject>(frame::ParameterClassNamed(L"CCaixaRptObj"));
  for (const auto& [name, value] : parameters) object->Let(name, value);
  return object;
}

ObjectRef CaixaScenario::Foreign(const Parameters& parameters) {
  const frame::ParameterClass& own = frame::ParameterClassNamed(L"CCaixaRptObj");
  frame::ParameterObject initial(own);
  recorder::Answers answers;
  for (const frame::Property& property : own.properties)
    answers[std::wstring(property.name)] = {initial.Get(property.name)};
  for (const auto& [name, value] : parameters) answers[name] = {value};
  return around.NewObject(L"Parametros", std::move(answers));
}

std::string CaixaScenario::Run(CaixaMethod method, const ObjectRef& parameters) {
  around.journal.Forget();
  EXPECT_NE(RunModule(report, method, parameters.get()), nullptr);
  return around.journal.Calls();
}

recorder::Raised CaixaScenario::RunRaising(CaixaMethod method, const ObjectRef& parameters) {
  return recorder::RaisedBy([&] { RunModule(report, method, parameters.get()); });
}

CallLines CaixaScenario::InitialLines() const {
  CallLines lines;
  if (path_ == Path::kClientConnection)
    lines.push_back("ConexaoDoCliente.ConnectionString() -> " + Quoted(database_.connectionString));
  Append(lines, InitialisationLines(database_));
  return lines;
}

CallLines CaixaScenario::BusinessLines(const std::string& name, const std::string& progId) const {
  CallLines lines = {
      "CreateObject(" + Quoted(progId) + ") -> " + name,
      name + ".Let(StringConexao, " + Quoted(database_.connectionString) + ")",
      name + ".Let(LogFile, " + Quoted(Utf8(report.LogFile())) + ")",
  };
  if (path_ == Path::kClientConnection) lines.push_back(name + ".Set(Conexao, ObjetoConexao)");
  return lines;
}

CallLines CaixaScenario::SubordinateCodeLines(int object) const {
  const std::string name = "Object" + std::to_string(object);
  CallLines lines = BusinessLines(name, "KodraBsnV3.ModulosBsn");
  lines.push_back(name + ".Call(NumCxSubordinadaSQL, ByRef " + std::to_string(database_.code) +
                  ", \"s\") -> \"s.COD7\"");
  lines.push_back("~" + name);
  return lines;
}

CallLines CaixaScenario::FirstLogLines(const std::string& text) const {
  CallLines lines = {R"(CreateObject("VantLog.FnLog") -> Log)"};
  Append(lines, LogLines(text));
  return lines;
}

CallLines CaixaScenario::LogLines(const std::string& text) const {
  return {
      "Log.Let(LogFile, " + Quoted(Utf8(report.LogFile())) + ")",
      report.LogFile().empty() ? "Log.Let(Ativar, False)" : "Log.Let(Ativar, True)",
      "Log.Call(DebugLog, ByRef " + Quoted(text) + ") -> Empty",
  };
}

CallLines CaixaScenario::ClosedSubordinatesLines(const std::string& module, const std::string& answer) const {
  CallLines lines = FirstLogLines("KodraRpt.CCaixaRpt::ObtemSubordinadosFechados: gerando filtro");
  Append(lines, {
                    R"(CreateObject("KodraBsnV3.ModulosFiltro") -> Object2)",
                    "Object2.Let(NumCaixa, " + Quoted(module) + ")",
                    "Object2.Let(Fechados, 1)",
                });
  Append(lines, LogLines("KodraRpt.CCaixaRpt::ObtemSubordinadosFechados: obtendo dados"));
  Append(lines, BusinessLines("Object3", "KodraBsnV3.ObtedorDeModulos"));
  Append(lines, {"Object3.Call(ObtemSubordinados, ByRef Object2) -> " + answer});
  return lines;
}

CallLines CaixaScenario::ResultLines(const std::string& statement, const CallLines& ends) const {
  CallLines lines;
  if (path_ == Path::kClientConnection) {
    lines = {
        "NewRecordset() -> Recordset1",
        "Recordset1.SetCursorLocation(3)",
        "Recordset1.Open(" + Quoted(statement) + ", ConexaoDoCliente, -1, -1, -1)",
    };
  } else {
    lines = OpeningRows(database_, statement, 1, 1);
  }
  Append(lines, ends);
  Append(lines, {"~Recordset1"});
  return lines;
}

CallLines CaixaScenario::StaticLines() {
  return {
      "NewRecordset() -> Recordset1",
      "Recordset1.SetCursorLocation(3)",
      "Recordset1.SetCursorType(3)",
  };
}

CallLines CaixaScenario::StaticOpenLines(const std::string& statement) const {
  const bool onClients = path_ == Path::kClientConnection;
  return {"Recordset1.Open(" + Quoted(statement) + ", " +
          (onClients ? "ConexaoDoCliente" : Quoted(database_.connectionString)) + ", -1, -1, -1)"};
}

void CheckResult(const Database& database, CaixaMethod method, const Parameters& parameters, Asks asks,
                 const Statements& statements) {
  for (const Path path : kPaths) {
    CaixaScenario scenario(database, path);
    const CallLines asked = asks == Asks::kSubordinateCode ? scenario.SubordinateCodeLines(2) : CallLines();
    const bool onString = path == Path::kConnectionString;
    EXPECT_EQ(scenario.Run(method, parameters),
              All({scenario.InitialLines(), asked,
                   scenario.ResultLines(onString ? statements.onString : statements.onConnection)}));
    EXPECT_EQ(scenario.heard, CallLines());
  }
}

void CheckStatic(const Database& database, CaixaMethod method, const Parameters& parameters, Asks asks,
                 const std::string& statement) {
  for (const Path path : kPaths) {
    CaixaScenario scenario(database, path);
    const CallLines asked = asks == Asks::kSubordinateCode ? scenario.SubordinateCodeLines(2) : CallLines();
    EXPECT_EQ(scenario.Run(method, parameters), All({scenario.InitialLines(),
                                                     asked,
                                                     CaixaScenario::StaticLines(),
                                                     scenario.StaticOpenLines(statement),
                                                     {"~Recordset1"}}));
    EXPECT_EQ(scenario.heard, CallLines());
  }
}

recorder::Raised Reported(const std::string& source, const std::string& cause) {
  return {frame::kReportError, source, "Erro ao gerar dados para o relatório: " + cause};
}

}  // namespace kodra::reports
