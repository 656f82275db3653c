#include "console/panel/api.h"

#include <nlohmann/json.hpp>
#include <sstream>

#include "console/check/database_identity.h"
#include "console/check/findings.h"
#include "console/command_line/databases.h"
#include "console/command_line/failure.h"
#include "console/command_line/output_error.h"
#include "console/command_line/report_name.h"
#include "console/command_line/usage_error.h"
#include "console/formats/formats.h"
#include "console/formats/labels/label_arguments.h"
#include "console/formats/pages/letterhead_options.h"
#include "console/panel/catalogue.h"
#include "console/panel/page_writer.h"
#include "console/panel/temporary_file.h"
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

using Json = nlohmann::ordered_json;

constexpr const char* kJson = "application/json";

// A text of the request. Raises UsageError if it is missing.
std::string TextOf(const Json& json, const char* name) {
  const auto found = json.find(name);
  if (found == json.end() || !found->is_string())
    throw UsageError(std::string("o pedido não diz \"") + name + "\"; recarregue a página");
  return found->get<std::string>();
}

// A text of the request that may be missing; empty if it is.
std::string TextOrNone(const Json& json, const char* name) { return json.contains(name) ? TextOf(json, name) : ""; }

Json BodyOf(const Request& request) {
  Json json = Json::parse(request.body, nullptr, false);
  if (!json.is_object()) throw UsageError("o pedido não é um objeto JSON; recarregue a página");
  return json;
}

ReportTask TaskOf(const Json& json) {
  std::vector<std::pair<std::string, std::string>> given;
  const auto parameters = json.find("parameters");
  if (parameters != json.end() && parameters->is_object())
    for (const auto& [name, value] : parameters->items()) given.emplace_back(name, TextOf(*parameters, name.c_str()));
  return {FindReport(TextOf(json, "report")), given};
}

struct DownloadFormat {
  std::string_view name;
  Format format;
  std::string_view ending;
  const char* type;
};

constexpr DownloadFormat kDownloadFormats[] = {
    {"csv", Format::kCsv, "csv", "text/csv; charset=utf-8"},
    {"excel", Format::kCsv, "csv", "text/csv; charset=utf-8"},
    {"xlsx", Format::kXlsx, "xlsx", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"},
    {"json", Format::kJson, "json", kJson},
    {"pdf", Format::kPdf, "pdf", "application/pdf"},
};

const DownloadFormat& FormatOf(const std::string& name) {
  const auto* const found = std::ranges::find(kDownloadFormats, name, &DownloadFormat::name);
  if (found == std::end(kDownloadFormats)) throw UsageError("o formato \"" + name + "\" não existe");
  return *found;
}

// The options that `executa` has without further arguments.
FormatOptions OptionsOf(const DownloadFormat& format) {
  FormatOptions options;
  if (format.name == "excel") options.csv = kCsvForExcel;
  options.html.letterhead = pages::LetterheadOptions().Get();
  options.html.labels.print = labels::LabelArguments().Options();
  options.html.labels.print.warn = [](const std::string&) {};
  return options;
}

// Texts of the system or of a database, which may not be UTF-8.
std::string Words(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

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
    if (posts) connection = connections_.Text(TextOrNone(BodyOf(request), "connection"));
    if (posts && request.path == "/api/run") return RunReport(request, connection);
    if (posts && request.path == "/api/download") return Download(request, connection);
    if (posts && request.path == "/api/check") return Check(request, connection);
    if (posts && request.path == "/api/test") return Test(request, connection);
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
  return {.type = kJson, .body = Words(Json{{"connections", choices}, {"problem", list.problem}})};
}

Answer Api::RunReport(const Request& request, const std::wstring& connection) {
  const Json json = BodyOf(request);
  const auto task = std::make_shared<ReportTask>(TaskOf(json));
  const std::string name = TextOf(json, "run");
  const auto stream = [this, task, name, connection, isGone = request.isGone](Output& output) {
    const auto say = [&](const char* what, const std::string& words) {
      output.Write(Words(Json{{what, words}}) + "\n");
    };
    std::string whyOver;
    try {
      runs_.Do(name, isGone, [&](Machine& machine, const Run& run) {
        try {
          PageWriter writer(output, [&](std::uint64_t rows) {
            std::vector<std::string> codes;
            for (const UnknownCode& code :
                 UnknownCodes(task->Parameters(), rows, task->Method(), connection, machine.Around()))
              codes.push_back(code.words);
            return codes;
          });
          task->Write(machine.Around(), connection, writer, [&] { return !run.IsOver(); });
        } catch (const OutputError&) {
          throw;
        } catch (const std::exception&) {
          // What the database answers to a statement that was stopped is no news.
          if (!run.IsOver()) throw;
        }
        whyOver = WordsOf(run);
      });
    } catch (const OutputError&) {
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
  const DownloadFormat& format = FormatOf(TextOf(json, "format"));
  const auto file = std::make_shared<TemporaryFile>();
  std::string whyOver;
  runs_.Do(TextOf(json, "run"), request.isGone, [&](Machine& machine, const Run& run) {
    try {
      FormatOptions options = OptionsOf(format);
      options.html.labels.containerModules = [&] {
        return ModulesOfContainers(task.Parameters(), machine.Around(), connection);
      };
      const auto writer = NewWriter(format.format, options, *file, file->PathText());
      task.Write(machine.Around(), connection, *writer, [&] { return !run.IsOver(); });
    } catch (const std::exception&) {
      if (!run.IsOver()) throw;
    }
    whyOver = WordsOf(run);
  });
  if (!whyOver.empty()) return Refused(409, whyOver);
  const std::string name = NameOf(task.Method()) + "." + std::string(format.ending);
  return {.type = format.type,
          .headers = {{"Content-Disposition", "attachment; filename=\"" + name + "\""}},
          .stream = [file](Output& output) { file->CopyTo(output); }};
}

Answer Api::Cancel(const Request& request) {
  const bool isKnown = runs_.Cancel(TextOf(BodyOf(request), "run"));
  return {.type = kJson, .body = Json{{"cancelled", isKnown}}.dump()};
}

Answer Api::Check(const Request& request, const std::wstring& connection) {
  std::ostringstream json;
  runs_.Do(TextOf(BodyOf(request), "run"), request.isGone,
           [&](Machine& machine, const Run&) { WriteJson(CheckDatabase(connection, machine), json); });
  return {.type = kJson, .body = json.str()};
}

Answer Api::Test(const Request& request, const std::wstring& connection) {
  std::string lines;
  runs_.Do(TextOf(BodyOf(request), "run"), request.isGone,
           [&](Machine& machine, const Run&) { lines = LinesOf(AskDatabase(connection, machine)); });
  return {.type = kJson, .body = Words(Json{{"answer", lines}})};
}

std::string Api::WordsOf(const Run& run) const {
  if (!run.IsOver()) return {};
  if (run.Why() == Run::End::kCancelled) return "Cancelado.";
  return "Interrompido: passou do limite de " + std::to_string(runs_.Limit().count()) +
         (runs_.Limit().count() == 1 ? " segundo." : " segundos.");
}

}  // namespace kodra::console::panel
