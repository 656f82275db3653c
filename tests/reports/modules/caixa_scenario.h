// A CCaixaRpt with its surroundings, and the lines that its calls leave in the journal.
//
//   CaixaScenario scenario(DatabaseOf(tbSQLServer), Path::kClientConnection);
//   EXPECT_EQ(scenario.Run(&CCaixaRpt::EtiquetaDivisoria, {{L"Modulo1", L"AB001"}}),
//             All({scenario.InitialLines(), scenario.ResultLines("SELECT …")}));
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "reports/reports.h"
#include "tests/recorder/raised.h"
#include "tests/reports/report_scenario.h"

namespace kodra::reports {

using CaixaMethod = frame::ReportRows (*)(ModuleCall&);

// The methods that have the frame, by name: all but DocsNoModuloSubRpt.
const std::vector<std::pair<std::string, CaixaMethod>>& FramedMethods();

// Where a report finds its database.
enum class Path { kConnectionString, kClientConnection };
inline constexpr Path kPaths[] = {Path::kConnectionString, Path::kClientConnection};

// Calls a method of CCaixaRpt by its name.
frame::ReportRows RunModule(ModuleObject& report, CaixaMethod method, AutomationObject* parameters);

class CaixaScenario {
 public:
  // A report without log file. Subordinate modules have the code "s.COD7"; one of them is closed.
  explicit CaixaScenario(const Database& database = DatabaseOf(tbSQLServer), Path path = Path::kConnectionString);

  // The client's parameter object, whose properties have their initial values unless they are named: the component's
  // own, which leaves no lines, or another one ("Parametros" in the journal), which keeps its values unchanged.
  static ObjectRef Own(const Parameters& parameters);
  ObjectRef Foreign(const Parameters& parameters);
  // Calls once in a new journal, drops the rows and returns all calls.
  std::string Run(CaixaMethod method, const ObjectRef& parameters);
  std::string Run(CaixaMethod method, const Parameters& parameters) { return Run(method, Own(parameters)); }
  // Calls and returns what is raised, with the journal as it is.
  recorder::Raised RunRaising(CaixaMethod method, const ObjectRef& parameters);
  recorder::Raised RunRaising(CaixaMethod method, const Parameters& parameters) {
    return RunRaising(method, Own(parameters));
  }

  // Sets the answer of ObtemSubordinados.
  void AnswerSubordinates(const Value& answer);
  ObjectRef NewSubordinates(std::int32_t count);
  void SetClientConnection(const std::string& connectionString);

  // InicializaPS.
  CallLines InitialLines() const;
  // The object of that number, asked for the subordinates' code.
  CallLines SubordinateCodeLines(int object) const;
  // A line of the log; the first one creates the log object.
  CallLines FirstLogLines(const std::string& text) const;
  CallLines LogLines(const std::string& text) const;
  // ObtemSubordinadosFechados, with what the business component answers, and the end of the objects that it asks.
  CallLines ClosedSubordinatesLines(const std::string& module, const std::string& answer) const;
  static CallLines ClosedSubordinatesEnd() { return {"~Object3", "~Object2"}; }
  // The opening of the result, with what ends before the client drops its rows.
  CallLines ResultLines(const std::string& statement, const CallLines& ends = {}) const;
  // The same for a static recordset: the calls up to its opening, and its opening.
  static CallLines StaticLines();
  CallLines StaticOpenLines(const std::string& statement) const;

  recorder::FakeSurroundings around;
  ModuleObject report{L"CCaixaRpt", around};
  // The log lines that the client's listener received.
  std::vector<std::string> heard;

 private:
  // The properties that a business component is given; `name` is its object in the journal.
  CallLines BusinessLines(const std::string& name, const std::string& progId) const;

  const Database& database_;
  Path path_;
};

// Expects the whole calls of a method that opens its result by one statement on a connection string and by another on a
// client's connection.
enum class Asks { kNothing, kSubordinateCode };
struct Statements {
  std::string onString;
  std::string onConnection;
};
void CheckResult(const Database& database, CaixaMethod method, const Parameters& parameters, Asks asks,
                 const Statements& statements);
// The same for a method that opens one statement in a static recordset on either.
void CheckStatic(const Database& database, CaixaMethod method, const Parameters& parameters, Asks asks,
                 const std::string& statement);

// The error that the client sees, whose source is the cause's own.
recorder::Raised Reported(const std::string& source, const std::string& cause);

}  // namespace kodra::reports
