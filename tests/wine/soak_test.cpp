// A hundred thousand report calls in one process, thousands of them failing: the process then holds the same resources
// as after the first thousand.
#include <array>
#include <functional>
#include <iostream>
#include <map>

#include "tests/wine/class_factory_cache.h"
#include "tests/wine/early_bound.h"
#include "tests/wine/fake_databases.h"
#include "tests/wine/faults_heap.h"
#include "tests/wine/hostile_client.h"
#include "tests/wine/process_resources.h"
#include "tests/wine/server.h"
#include "tests/wine/stand_in.h"

namespace kodra::face {
namespace {

constexpr int kCalls = 100000;
constexpr int kWarm = 1000;

// The kind of a call.
enum class Turn {
  kPretended,
  kSQLite,
  kMariaDb,
  // From here on the call fails.
  kNoConnectionString,
  kNoParameters,
  kMissingArgument,
  kWrongArgument,
  kNoFile,
  kEmptyFile,
  kConnectionRefused,
  kStatementRefused,
  kSiblingFails,
  kPasswordRefused,
};
constexpr int kFirstFailing = static_cast<int>(Turn::kNoConnectionString);
constexpr int kFailingTurns = static_cast<int>(Turn::kPasswordRefused) - kFirstFailing + 1;

// One call in a hundred is on a real database, one in forty fails; their kinds alternate. In the first thousand half of
// the calls are such, so that every report has met them.
Turn TurnOf(int call) {
  const auto failing = [](int number) { return static_cast<Turn>(kFirstFailing + number % kFailingTurns); };
  if (call < kWarm) {
    const Turn turns[] = {Turn::kPretended, failing(call / 8), Turn::kPretended, Turn::kSQLite,
                          Turn::kPretended, Turn::kMariaDb,    Turn::kPretended, Turn::kSQLite};
    return turns[call % 8];
  }
  if (call % 500 == 37) return Turn::kMariaDb;
  if (call % 100 == 3) return Turn::kSQLite;
  return call % 40 == 9 ? failing(call / 40) : Turn::kPretended;
}

// The next of some cases each time, in rounds.
class Rota {
 public:
  explicit Rota(std::vector<ReportCase> cases) : cases_(std::move(cases)) {}
  const ReportCase& Next() { return cases_[taken_++ % cases_.size()]; }
  std::size_t rounds() const { return taken_ / cases_.size(); }

 private:
  std::vector<ReportCase> cases_;
  std::size_t taken_ = 0;
};

// A command needs a connection that is open.
bool IsCommand(const ReportCase& tested) { return tested.method == std::wstring(L"RelatorioModelos"); }
bool HasNoFrame(const ReportCase& tested) { return tested.method == std::wstring(L"DocsNoModuloSubRpt"); }
// Whether siblings read the database for a report: they do not use ADO, so a real one must exist.
bool AsksSiblings(const ReportCase& tested) {
  const std::wstring names = tested.Source();
  return names.ends_with(L"RelatorioLog") || names.ends_with(L"FechamentoSubordinada") ||
         names.starts_with(L"KodraRpt.CEstatSubgrupo") || names.starts_with(L"KodraRpt.CEstatSerie");
}

std::vector<ReportCase> OnStringsBut(const std::function<bool(const ReportCase&)>& isOut) {
  std::vector<ReportCase> cases = ReportCases();
  std::erase_if(cases, [&](const ReportCase& tested) { return tested.onConexao || isOut(tested); });
  return cases;
}

class Soak : public testing::Test {
 protected:
  // Reads a recordset from its current row; returns how many rows it had.
  static int ReadRows(const Ref<IDispatch>& rows) {
    const auto recordset = rows.As<_Recordset>();
    Ref<Fields> fields;
    LONG columns = 0;
    EXPECT_EQ(S_OK, recordset->get_Fields(fields.put()));
    EXPECT_EQ(S_OK, fields->get_Count(&columns));
    int count = 0;
    VARIANT_BOOL atEnd = VARIANT_FALSE;
    while (recordset->get_EOF(&atEnd) == S_OK && atEnd == VARIANT_FALSE) {
      for (LONG i = 0; i < columns; ++i) {
        Ref<Field> field;
        Var value;
        EXPECT_EQ(S_OK, fields->get_Item(Var(static_cast<int>(i)).raw(), field.put()));
        EXPECT_EQ(S_OK, field->get_Value(value.put()));
      }
      ++count;
      EXPECT_EQ(S_OK, recordset->MoveNext());
    }
    return count;
  }

  static Outcome RunOn(const ReportCase& tested, const std::wstring& connection, const Ref<IDispatch>& parameters) {
    const auto report = tested.NewReport();
    EXPECT_EQ(S_OK, Put(report, L"StringConexao", connection).hr);
    return Call(report, tested.method, {Var(parameters.get())});
  }
  static Outcome RunOn(const ReportCase& tested, const std::wstring& connection) {
    return RunOn(tested, connection, tested.NewParameters());
  }
  // A call on a pretended database; the same report object is used for several calls.
  void CallPretended() {
    const ReportCase& tested = pretended_.Next();
    const auto kept = kept_.try_emplace(tested.Source(), tested).first;
    const auto system = static_cast<System>(pretended_.rounds() % kSystems);
    ExpectRows(tested, kept->second.Run(Pretended(system)), {});
  }
  void ExpectRows(const ReportCase& tested, const Outcome& outcome, const Failure& expected) {
    EXPECT_EQ(expected, outcome.failure) << testing::PrintToString(tested.Source());
    if (expected == Failure() && outcome.value.object() && ++answered_ % 4 == 0)
      rows_ += ReadRows(outcome.value.object());
  }

  // A failing call; returns the end of its description, or its HRESULT.
  void CallFailing(Turn turn) {
    const ReportCase& tested = failing_.Next();
    const Outcome outcome = Fail(tested, turn);
    ++failures_[static_cast<std::size_t>(turn) - kFirstFailing];
    EXPECT_TRUE(FAILED(outcome.hr));
    EXPECT_FALSE(outcome.value.object());
    if (turn == Turn::kMissingArgument || turn == Turn::kWrongArgument) {
      EXPECT_EQ(turn == Turn::kWrongArgument ? DISP_E_TYPEMISMATCH : DISP_E_BADPARAMCOUNT, outcome.hr);
      return;
    }
    EXPECT_EQ(0x80041FABU, outcome.failure.number);
    EXPECT_TRUE(outcome.failure.description.starts_with(L"Erro "));
    EXPECT_TRUE(outcome.failure.description.ends_with(CauseOf(tested, turn)))
        << testing::PrintToString(outcome.failure.description);
  }
  Outcome RunWithFailingSibling(const ReportCase& tested) {
    ClassesAtHand::Forget();
    const StandIn failing(L"KodraConexao.StrCon", [] {
      return RecordingObject::New(L"StrCon", std::make_shared<Names>(),
                                  [](const auto&, const auto&, VARIANT*, auto* info) {
                                    info->scode = static_cast<SCODE>(0x80047777);
                                    info->bstrDescription = SysAllocString(L"Falha provocada");
                                    return DISP_E_EXCEPTION;
                                  });
    });
    const Outcome outcome = RunOn(tested, archive_.Connection());
    ClassesAtHand::Forget();
    return outcome;
  }
  Outcome Fail(const ReportCase& tested, Turn turn) {
    const Var nothing(static_cast<IDispatch*>(nullptr));
    switch (turn) {
      case Turn::kNoConnectionString:
        return RunOn(tested, L"");
      case Turn::kNoParameters:
        return RunOn(tested, archive_.Connection(), {});
      case Turn::kMissingArgument:
        return InvokeRaw(tested.NewReport().get(), tested.method, DISPATCH_METHOD, {});
      case Turn::kWrongArgument:
        return InvokeRaw(tested.NewReport().get(), tested.method, DISPATCH_METHOD, {Var(7).raw()});
      case Turn::kNoFile:
        return RunOn(tested, ConnectionTo(L"/tmp/kodra-face-nao-existe/a.db"));
      case Turn::kEmptyFile:
        return RunOn(tested, ConnectionTo(empty_.path()));
      case Turn::kConnectionRefused:
        return RunOn(tested, Pretended(System::kSqlServer) + L";" + PretendDatabases::kRefuseConnection);
      case Turn::kStatementRefused:
        return RunOn(tested, Pretended(System::kOracle) + L";" + PretendDatabases::kRefuseStatement);
      case Turn::kPasswordRefused:
        return RunOn(tested, WrongPassword());
      default:
        return RunWithFailingSibling(tested);
    }
  }
  static std::wstring WrongPassword() {
    std::wstring text = Variable(L"KODRA_MYSQL");
    return text.insert(text.find(L"Pwd=") + 4, L"Errada");
  }
  static std::wstring CauseOf(const ReportCase& tested, Turn turn) {
    switch (turn) {
      case Turn::kNoConnectionString:
        return tested.report == std::wstring(L"CCaixaRpt")
                   ? L"Uma das propriedades \"Conexao\" ou \"StringConexao\" precisam ser informadas."
                   : L"É preciso definir a propriedade \"StringConexao\".";
      case Turn::kNoParameters:
        return L"Objeto não definido.";
      case Turn::kNoFile:
        return L"Banco de dados \"/tmp/kodra-face-nao-existe/a.db\" não encontrado.";
      case Turn::kEmptyFile:
        return L" danificado.";
      case Turn::kSiblingFails:
        return L"Falha provocada";
      default:
        return L"";
    }
  }

  void CallOnce(int call) {
    switch (const Turn turn = TurnOf(call)) {
      case Turn::kPretended:
        return CallPretended();
      case Turn::kSQLite: {
        const ReportCase& tested = real_.Next();
        const Subject subject(tested, archive_.Connection());
        return ExpectRows(tested, subject.Run(), tested.Refused());
      }
      case Turn::kMariaDb: {
        const ReportCase& tested = server_.Next();
        const Outcome outcome = RunOn(tested, Variable(L"KODRA_MYSQL"));
        return ExpectRows(tested, outcome, {});
      }
      default:
        return CallFailing(turn);
    }
  }

  // Expects that no object is left.
  void ExpectNothingAlive() {
    kept_.clear();
    ClassesAtHand::Forget();
    for (const Server* server : {&component_, &ado_, &siblings_}) EXPECT_EQ(S_OK, server->CanUnloadNow());
  }

  const Server component_;
  const Server ado_{WindowsPath(Variable(L"KODRA_BIN")) + L"\\kodra_ado.dll"};
  const Server siblings_{WindowsPath(Variable(L"KODRA_BIN")) + L"\\kodra_siblings.dll"};
  const SmallArchive archive_;
  const OwnFile empty_{L"vazio.db"};
  const PretendDatabases databases_;
  Rota pretended_{OnStringsBut([](const ReportCase& tested) { return IsCommand(tested) || AsksSiblings(tested); })};
  Rota real_{ReportCases()};
  Rota server_{OnStringsBut([](const ReportCase&) { return false; })};
  Rota failing_{OnStringsBut(HasNoFrame)};
  const ClassesAtHand classes_;
  std::map<std::wstring, EarlyBound> kept_;
  std::array<int, kFailingTurns> failures_ = {};
  int answered_ = 0;
  int rows_ = 0;
};

TEST_F(Soak, AHundredThousandCallsLeaveWhatTheFirstThousandLeft) {
  DllHeap heap;
  empty_.CreateEmpty();
  std::size_t handles = 0;
  std::size_t blocks = 0;
  for (int call = 0; call < kCalls && !HasFailure(); ++call) {
    SCOPED_TRACE(call);
    CallOnce(call);
    if ((call + 1) % kWarm != 0) continue;
    ExpectNothingAlive();
    if (call + 1 == kWarm) {
      handles = OpenHandles();
      blocks = heap.held();
    }
    EXPECT_EQ(handles, OpenHandles());
    EXPECT_EQ(blocks, heap.held());
  }
  int failed = 0;
  for (const int count : failures_) {
    EXPECT_LT(100, count);
    failed += count;
  }
  EXPECT_LE(2000, failed);
  EXPECT_LT(kSystems, static_cast<int>(pretended_.rounds()));
  std::cout << "[   NOTE   ] " << kCalls << " report calls, " << failed << " of them failing in " << kFailingTurns
            << " ways, " << rows_ << " rows read; always " << handles << " handles and " << blocks
            << " blocks of the component" << std::endl;
}

// Texts that pass from one component to another are in the heaps of the process, not in one component's blocks. Only
// calls without a driver are measured: Wine's own odbc32 keeps about 200 bytes of every statement, its oleaut32 some of
// every type library that it loads.
TEST_F(Soak, CallsThatReachNoDriverLeaveTheHeapsUnchanged) {
  constexpr int kMeasured = 4000;
  const auto callMany = [&] {
    for (int call = 0; call < kMeasured && !HasFailure(); ++call) CallPretended();
    return HeapBytes();
  };
  // Until the heaps have the groups of blocks that the calls need; with a leak at every call this never happens.
  std::size_t before = 0;
  std::size_t after = callMany();
  for (int round = 0; round < 10 && before != after; ++round) {
    before = after;
    after = callMany();
  }
  EXPECT_EQ(before, after);
  ExpectNothingAlive();
}

}  // namespace
}  // namespace kodra::face
