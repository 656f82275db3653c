#include "tests/engines/statements.h"

#include <map>
#include <memory>
#include <utility>

#include "frame/parameter_object.h"
#include "odbc/engine/command.h"
#include "odbc/engine/recordset.h"
#include "odbc/engine/surroundings.h"
#include "reports/reports.h"
#include "siblings/sibling_classes.h"
#include "sql/tipo_banco.h"
#include "tests/db/sample.h"
#include "tests/siblings/connection_object.h"

namespace kodra::engines {
namespace {

struct Caught {
  std::wstring text;
  std::optional<std::wstring> parameter;
};

// What the reports of one case open, in order, and what is opened instead: the same case's statements in SQLite's
// dialect, none while those are being recorded.
struct CaseLog {
  std::vector<Caught> caught;
  std::vector<Caught> standIns;
};

// A recordset that records what it is opened on and has the rows of SQLite's statement for it, or none when SQLite
// refuses it.
class CatchingRecordset final : public odbc::Recordset {
 public:
  explicit CatchingRecordset(CaseLog& log) : log_(log) {}

  void Open(const platform::RecordsetSource& source, const platform::ActiveConnection& connection,
            std::int32_t cursorType, std::int32_t lockType, std::int32_t options) override {
    const std::size_t position = log_.caught.size();
    const bool inMemory = std::holds_alternative<std::monostate>(source);
    if (const auto* text = std::get_if<std::wstring_view>(&source)) log_.caught.push_back({std::wstring(*text), {}});
    if (const auto* command = std::get_if<platform::Command*>(&source)) log_.caught.push_back(CaughtIn(**command));
    const auto open = [&](const platform::RecordsetSource& words) {
      odbc::Recordset::Open(words, connection, cursorType, lockType, options);
    };
    const bool standsIn = std::holds_alternative<std::wstring_view>(source) && position < log_.standIns.size();
    try {
      open(standsIn ? log_.standIns[position].text : source);
    } catch (const Erro&) {
      if (inMemory) throw;
      open(std::wstring(L"SELECT 1 WHERE 1=0"));
    }
  }

 private:
  static Caught CaughtIn(platform::Command& source) {
    const auto& command = dynamic_cast<odbc::Command&>(source);
    Caught caught = {command.CommandText(), {}};
    if (command.ParameterCount() > 0) caught.parameter = command.ParameterAt(0).value.As<std::wstring>();
    return caught;
  }

  CaseLog& log_;
};

// The machine of the reports. The siblings read through another one, so that only the reports' own statements are
// recorded.
class CatchingSurroundings final : public odbc::Surroundings {
 public:
  std::unique_ptr<platform::Recordset> NewRecordset() override { return std::make_unique<CatchingRecordset>(log); }

  CaseLog log;
};

// A connection component that always returns the same answer.
class FixedStrCon final : public siblings::Sibling<FixedStrCon> {
 public:
  explicit FixedStrCon(std::int32_t code) : code_(code) {}
  static std::span<const siblings::Member<FixedStrCon>> Members() {
    static const siblings::Member<FixedStrCon> kMembers[] = {
        siblings::Property<&FixedStrCon::text_>(L"StrCon"),
        siblings::ReadOnly<&FixedStrCon::code_>(L"TipoBanco"),
    };
    return kMembers;
  }

 private:
  std::wstring text_;
  std::int32_t code_;
};

using ModuleMethod = frame::ReportRows (*)(reports::ModuleCall&);

ModuleMethod ModuleMethodNamed(std::wstring_view name) {
  namespace CCaixaRpt = reports::CCaixaRpt;
  static const std::map<std::wstring_view, ModuleMethod> methods = {
      {L"EtiquetaAbertura", &CCaixaRpt::EtiquetaAbertura},
      {L"EtiquetaFechamento", &CCaixaRpt::EtiquetaFechamento},
      {L"EtiquetaFechamentoSubordinada", &CCaixaRpt::EtiquetaFechamentoSubordinada},
      {L"EtiquetaDivisoria", &CCaixaRpt::EtiquetaDivisoria},
      {L"ModulosExcluidos", &CCaixaRpt::ModulosExcluidos},
      {L"ModulosVencidos", &CCaixaRpt::ModulosVencidos},
      {L"DocsNoModulo", &CCaixaRpt::DocsNoModulo},
      {L"DocsNoModuloSubRpt", &CCaixaRpt::DocsNoModuloSubRpt},
      {L"DocsNaoIndexadosNosModulos", &CCaixaRpt::DocsNaoIndexadosNosModulos},
      {L"RelatoriosModulos", &CCaixaRpt::RelatoriosModulos},
      {L"AutorizacaoDescarteModuloSubRpt", &CCaixaRpt::AutorizacaoDescarteModuloSubRpt},
  };
  return methods.at(name);
}

// Runs cases on a database code.
class Catcher {
 public:
  explicit Catcher(std::int32_t code) : archive_(tests::SampleOn(tests::Engine::kSqlite)) {
    siblings::RegisterSiblings(machine_, siblingsMachine_);
    machine_.Register(L"KodraConexao.StrCon", [code] { return std::make_shared<FixedStrCon>(code); });
  }

  // The statements of a case, with a connection string or on a client's connection. A report that fails has built its
  // statements by then: a slip without documents is an error by rule.
  std::vector<Caught> Run(const Case& wanted, bool onClientsConnection, std::vector<Caught> standIns) {
    machine_.log = {{}, std::move(standIns)};
    frame::ParameterObject parameters(frame::ParameterClassNamed(wanted.method->parameterClass));
    for (const Setting& setting : wanted.settings) parameters.Let(setting.property, setting.value);
    try {
      if (onClientsConnection)
        CallOnClientsConnection(*wanted.method, parameters);
      else
        wanted.method->call(machine_, archive_, &parameters);
    } catch (const Erro&) {  // NOLINT(bugprone-empty-catch): see above
    }
    return machine_.log.caught;
  }

 private:
  void CallOnClientsConnection(const reports::ReportMethod& method, frame::ParameterObject& parameters) {
    const auto client = std::make_shared<siblings::ConnectionObject>(siblingsMachine_, archive_);
    reports::ModuleObject report(L"CCaixaRpt", machine_);
    report.SetConexao({client->Connection(), client});
    frame::Run(report, method.method, ModuleMethodNamed(method.method), &parameters);
  }

  std::wstring archive_;
  odbc::Surroundings siblingsMachine_;
  CatchingSurroundings machine_;
};

// A case and how it is called.
struct Call {
  Case wanted;
  bool onClientsConnection;
};

std::vector<Call> Calls() {
  std::vector<Call> calls;
  for (const Case& one : Cases()) {
    calls.push_back({one, false});
    if (one.method->className == L"CCaixaRpt") calls.push_back({one, true});
  }
  return calls;
}

// What each call opens on SQLite.
const std::vector<std::vector<Caught>>& StandIns() {
  static const std::vector<std::vector<Caught>> standIns = [] {
    Catcher catcher(sql::tbSQLite);
    std::vector<std::vector<Caught>> caught;
    for (const Call& call : Calls()) caught.push_back(catcher.Run(call.wanted, call.onClientsConnection, {}));
    return caught;
  }();
  return standIns;
}

std::vector<Statement> StatementsForCode(std::int32_t code) {
  Catcher catcher(code);
  std::vector<Statement> statements;
  for (auto standIns = StandIns().begin(); const auto& [wanted, onClientsConnection] : Calls()) {
    const std::vector<Caught> caught = catcher.Run(wanted, onClientsConnection, *standIns++);
    for (std::size_t i = 0; i < caught.size(); ++i) {
      std::string label = wanted.label + (onClientsConnection ? ", client's connection" : "");
      if (i > 0) label += " #" + std::to_string(i + 1);
      statements.push_back({NameOf(*wanted.method), label, false, caught[i].text, caught[i].parameter});
    }
  }
  return statements;
}

}  // namespace

std::vector<Statement> StatementsFor(Database database) {
  std::vector<Statement> statements = StatementsForCode(CodeOf(database));
  if (database != Database::kOracle) return statements;
  std::vector<Statement> others = StatementsForCode(sql::tbOracleAlt);
  for (std::size_t i = 0; i < others.size(); ++i) {
    if (others[i].text == statements.at(i).text) continue;
    others[i].otherCode = true;
    statements.push_back(std::move(others[i]));
  }
  return statements;
}

}  // namespace kodra::engines
