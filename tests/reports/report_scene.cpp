#include "tests/reports/report_scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <stdexcept>

namespace kodra::reports {
namespace {

using recorder::Failure;
using recorder::Raised;
using recorder::RaisedBy;
using recorder::Utf8;

std::vector<Mishap> Mishaps() {
  return {
      {Failure(Erro(-2147220000, L"Prova.Fonte", L"Falha provocada")), "Prova.Fonte", "Falha provocada"},
      {Failure(std::bad_alloc()), "KodraRpt", "Memória insuficiente"},
      {Failure(std::runtime_error("unexpected")), "KodraRpt", "Erro interno"},
  };
}

bool StartsWithAny(std::string_view call, std::initializer_list<std::string_view> starts) {
  return std::any_of(starts.begin(), starts.end(), [&](std::string_view start) { return call.starts_with(start); });
}

std::size_t CountOf(std::string_view text, std::string_view sought) {
  std::size_t count = 0;
  for (std::size_t at = text.find(sought); at != std::string_view::npos; at = text.find(sought, at + 1)) ++count;
  return count;
}

bool OpensConnection(std::string_view call) {
  return StartsWithAny(call, {"SetEnvironment(", "FileLength(", "NewConnection(", "Connection"});
}

// Whether a recordset call belongs to the opening of rows: each connection has one recordset of its own.
bool OpensRows(const FailedCall& failed) {
  const bool unfinished = CountOf(failed.before, "NewConnection()") > CountOf(failed.before, "NewRecordset()");
  if (failed.call == "NewRecordset()") return unfinished;
  if (!failed.call.starts_with("Recordset")) return false;
  return failed.call.find(".SetC") != std::string::npos || failed.call.find(".Open(\"") != std::string::npos;
}

// Calls with the mishap at that call, and checks what came of it. Gives whether there was such a call.
bool CheckCallFailing(Scene& scene, int number, const Mishap& mishap, const Outcome& outcome) {
  recorder::Journal& journal = scene.Around().journal;
  scene.Prepare();
  const int alive = journal.LiveObjects();
  journal.FailAt(number, mishap.exception);
  scene.Around().ado.nativeErrors = {942};
  const Raised raised = RaisedBy([&] { scene.Call(); });
  const std::string call = Utf8(journal.FailedCall());
  SCOPED_TRACE(call);
  if (call.empty()) return false;
  const std::string lines = journal.Calls();
  const FailedCall failed = {call, lines.substr(0, lines.find(call + " raises\n"))};
  EXPECT_EQ(raised, outcome(scene, failed, mishap));
  EXPECT_EQ(journal.LiveObjects(), alive);
  return true;
}

}  // namespace

Scene::Scene(const Subject& subject, const Database& database, Preparation prepare)
    : stage_(subject, database), name_(subject.name), prepare_(std::move(prepare)) {}

void Scene::Prepare() {
  Around().ado = {};
  if (prepare_) prepare_(Around());
  Around().journal.Forget();
}

std::string Scene::Run() {
  Prepare();
  const int alive = Around().journal.LiveObjects();
  EXPECT_EQ(RaisedBy([&] { Call(); }), NothingRaised());
  EXPECT_EQ(Around().journal.LiveObjects(), alive);
  return Around().journal.Calls();
}

Raised Scene::RunRaising() {
  Prepare();
  const int alive = Around().journal.LiveObjects();
  Raised raised = RaisedBy([&] { Call(); });
  EXPECT_EQ(Around().journal.LiveObjects(), alive);
  return raised;
}

void CheckEachCallFailing(Scene& scene, const Outcome& outcome) {
  const std::string undisturbed = scene.Run();
  const int calls = scene.Around().journal.CallCount();
  ASSERT_GT(calls, 0);
  for (const Mishap& mishap : Mishaps()) {
    SCOPED_TRACE(mishap.text);
    for (int number = 1; number <= calls; ++number) {
      ASSERT_TRUE(CheckCallFailing(scene, number, mishap, outcome)) << number;
      ASSERT_EQ(scene.Run(), undisturbed);
    }
  }
}

std::string Caught(const FailedCall& failed, const Mishap& mishap) {
  const std::string layered = "[" + mishap.source + "]: " + mishap.text;
  if (OpensConnection(failed.call)) return "[modADO.AbreCn]: " + layered;
  return OpensRows(failed) ? layered + " [N:942]" : mishap.text;
}

Raised FramedOutcome(const Scene& scene, const FailedCall& failed, const Mishap& mishap) {
  return IsIgnored(failed.call) ? NothingRaised() : recorder::Framed(scene.Name(), Caught(failed, mishap));
}

bool IsIgnored(std::string_view call) {
  return StartsWithAny(call, {
                                 // setting the language of an Oracle session: its reports work in any language
                                 "Connection1.State(",
                                 "Connection1.Execute(",
                                 "Connection2.State(",
                                 "Connection2.Execute(",
                             });
}

Raised NothingRaised() {
  return RaisedBy([] {});
}

std::vector<std::string> OpeningRows(const Database& database, std::string_view statement, int connection,
                                     int recordset) {
  const std::string opened = "Connection" + std::to_string(connection);
  const std::string rows = "Recordset" + std::to_string(recordset);
  std::vector<std::string> lines = OpeningLines(database);
  for (std::string& line : lines)
    for (std::size_t at = line.find("Connection1"); at != std::string::npos; at = line.find("Connection1", at + 1))
      line.replace(at, std::string_view("Connection1").size(), opened);
  Append(lines, {
                    "NewRecordset() -> " + rows,
                    rows + ".SetCursorLocation(2)",
                    rows + ".SetCacheSize(100)",
                    rows + ".Open(\"" + std::string(statement) + "\", " + opened + ", 0, 1, 1)",
                    "~" + opened,
                });
  return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

void Append(std::vector<std::string>& lines, const std::vector<std::string>& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

}  // namespace kodra::reports
