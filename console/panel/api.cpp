#include "console/panel/api.h"

#include <sstream>

#include "console/check/database_identity.h"
#include "console/check/findings.h"
#include "console/command_line/databases.h"
#include "console/command_line/failure.h"
#include "console/command_line/file_error.h"
#include "console/command_line/parameters.h"
#include "console/command_line/report_name.h"
#include "console/command_line/usage_error.h"
#include "console/panel/catalogue.h"
#include "console/panel/file_formats.h"
#include "console/panel/inventory_api.h"
#include "console/panel/page_writer.h"
#include "console/panel/print_api.h"
#include "console/panel/request_json.h"
#include "console/reports/guide.h"
#include "console/run/report_task.h"
#include "console/run/unknown_codes.h"
#include "console/statements/capture.h"
#include "console/statements/layout.h"
#include "console/statements/notes.h"
#include "values/password.h"
#include "values/utf8.h"

namespace kodra::console::panel {
namespace {

ReportTask TaskOf(const Json& json) { return {FindReport(TextOf(json, "report")), GivenIn(json)}; }

// The words for the exception that is being handled, without the password of the connection.
std::string CurrentWords(const std::wstring& connection) {
  return values::ToUtf8(values::HidePassword(values::FromUtf8(CurrentFailure(true).message), connection));
}

Answer Statements(const Request& request) {
  const Json json = BodyOf(request);
  ReportTask task = TaskOf(json);
  const std::vector<Database> databases = DatabasesNamed(TextOf(json, "database"));
  const Captured captured = Capture(task.Method(), databases.front().code, task.Parameters());
  Json statements = Json::array();
  for (const Statement& statement : captured.statements)
    statements.push_back(LaidOut(values::ToUtf8(statement.text)) + ";");
  return {.type = kJson, .body = Json{{"statements", statements}, {"notes", NotesOn(task.Method(), captured)}}.dump()};
}

}  // namespace

Answer Api::Handle(const Request& request) {
  const bool posts = request.method == "POST";
  std::wstring connection;
  try {
    if (!posts && request.path == "/api/catalogue") return {.type = kJson, .body = CatalogueJson()};
    if (!posts && request.path == "/api/connections") return ListConnections();
    if (posts && request.path == "/api/cancel") return Cancel(request);
    if (posts && request.path == "/api/sql") return Statements(request);
    if (posts) connection = connections_.Text(TextOr(BodyOf(request), "connection", ""));
    if (posts && request.path == "/api/run") return RunReport(request, connection);
    if (posts && request.path == "/api/download") return Download(request, connection);
    if (posts && request.path == "/api/check") return Check(request, connection);
    if (posts && request.path == "/api/test") return Test(request, connection);
    if (posts && request.path == "/api/labels") return PrintLabels(request, connection, runs_);
    if (posts && request.path == "/api/paper") return PrintPaper(request, connection, runs_);
    if (posts && request.path == "/api/inventory") return CompareInventory(request, connection, runs_);
  } catch (const TooManyRuns& error) {
    return Refused(429, error.what());
  } catch (const std::exception&) {
    return Refused(422, CurrentWords(connection));
  }
  return Refused(404, "Não há nada neste endereço.");
}

Answer Api::ListConnections() const {
  const Connections::List list = connections_.All();
  Json choices = Json::array();
  for (const Connections::Choice& choice : list.choices)
    choices.push_back({{"name", choice.name}, {"profile", choice.profile}, {"problem", choice.problem}});
  return {.type = kJson, .body = AnswerText(Json{{"connections", choices}, {"problem", list.problem}})};
}

Answer Api::RunReport(const Request& request, const std::wstring& connection) {
  const Json json = BodyOf(request);
  const auto task = std::make_shared<ReportTask>(TaskOf(json));
  const std::string name = TextOf(json, "run");
  const auto stream = [this, task, name, connection, isGone = request.isGone](Output& output) {
    const auto say = [&](const char* what, const std::string& words) {
      output.Write(AnswerText(Json{{what, words}}) + "\n");
    };
    std::string whyOver;
    try {
      whyOver = runs_.DoUnlessStopped(name, isGone, [&](Machine& machine, const Run& run) {
        PageWriter writer(output, [&](std::uint64_t rows) {
          std::vector<std::string> warnings;
          if (const std::string period = ReportParameters::PeriodWarning(task->Parameters(), task->Method());
              !period.empty())
            warnings.push_back(period);
          for (const UnknownCode& code :
               UnknownCodes(task->Parameters(), rows, task->Method(), connection, machine.Around()))
            warnings.push_back(code.words);
          return warnings;
        });
        task->Write(machine.Around(), connection, writer, [&] { return !run.IsOver(); });
      });
    } catch (const FileError&) {
      throw;
    } catch (const std::exception&) {
      return say("error", CurrentWords(connection));
    }
    if (!whyOver.empty()) say("stopped", whyOver);
  };
  return {.type = "application/x-ndjson", .stream = stream};
}

Answer Api::Download(const Request& request, const std::wstring& connection) {
  const Json json = BodyOf(request);
  ReportTask task = TaskOf(json);
  const FileFormat& format = FileFormatNamed(TextOf(json, "format"));
  const auto file = std::make_shared<TemporaryFile>();
  const std::string whyOver =
      runs_.DoUnlessStopped(TextOf(json, "run"), request.isGone, [&](Machine& machine, const Run& run) {
        FormatOptions options = OptionsOf(format);
        options.html.labels.containerModules = [&] {
          return ModulesOfContainers(task.Parameters(), machine.Around(), connection);
        };
        const auto writer = NewWriter(format.format, options, *file, file->PathText());
        task.Write(machine.Around(), connection, *writer, [&] { return !run.IsOver(); });
      });
  return whyOver.empty() ? FileAnswer(file, format, NameOf(task.Method())) : Refused(409, whyOver);
}

Answer Api::Cancel(const Request& request) {
  const bool isKnown = runs_.Cancel(TextOf(BodyOf(request), "run"));
  return {.type = kJson, .body = Json{{"cancelled", isKnown}}.dump()};
}

Answer Api::Check(const Request& request, const std::wstring& connection) {
  std::ostringstream json;
  const std::string why =
      runs_.DoUnlessStopped(TextOf(BodyOf(request), "run"), request.isGone,
                            [&](Machine& machine, const Run&) { WriteJson(CheckDatabase(connection, machine), json); });
  if (!why.empty()) return Refused(409, why);
  return {.type = kJson, .body = json.str()};
}

Answer Api::Test(const Request& request, const std::wstring& connection) {
  std::string lines;
  const std::string why =
      runs_.DoUnlessStopped(TextOf(BodyOf(request), "run"), request.isGone,
                            [&](Machine& machine, const Run&) { lines = LinesOf(AskDatabase(connection, machine)); });
  if (!why.empty()) return Refused(409, why);
  return {.type = kJson, .body = AnswerText(Json{{"answer", lines}})};
}

}  // namespace kodra::console::panel
