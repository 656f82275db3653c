#include "bench/native/report_time.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "console/command_line/parameter_value.h"
#include "console/command_line/report_name.h"
#include "odbc/engine/connection.h"
#include "odbc/engine/recordset.h"
#include "odbc/engine/surroundings.h"
#include "siblings/sibling_classes.h"
#include "siblings/str_con.h"
#include "sql/tipo_banco.h"
#include "values/convert.h"
#include "values/utf8.h"

namespace kodra::bench {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

// The seconds after which ADO ends a statement. Drivers that implement the time limit of ODBC end it themselves.
constexpr double kAdosLimit = 30;

struct Run {
  double seconds;
  std::int64_t rows;
};

Run RunOnce(const reports::ReportMethod& method, frame::ParameterObject parameters,
            const std::wstring& connectionString) {
  odbc::Surroundings surroundings;
  siblings::RegisterSiblings(surroundings);
  Run run{};
  const auto start = Clock::now();
  const frame::ReportRows rows = method.call(surroundings, connectionString, &parameters);
  for (; rows != nullptr && !rows->Eof(); rows->MoveNext()) ++run.rows;
  run.seconds = Seconds(Clock::now() - start).count();
  return run;
}

// A server goes on with the query of a client that has ended.
void EndQueries(const std::wstring& connectionString) {
  if (siblings::DatabaseCode(connectionString) != sql::tbMySQL) return;
  odbc::Connection connection;
  connection.Open(connectionString, L"", L"", platform::ad::kUnspecified);
  const odbc::Execution others =
      connection.Query(L"SELECT CAST(ID AS CHAR) FROM information_schema.PROCESSLIST WHERE ID <> CONNECTION_ID()",
                       platform::ad::kCmdText);
  for (const std::vector<Value>& row : others.recordset->GetRows(-1))
    connection.Execute(L"KILL " + values::ToText(row.front()), platform::ad::kCmdText);
}

// In the process of its own: writes each run to a pipe as it ends.
void RunThrice(const reports::ReportMethod& method, const frame::ParameterObject& parameters,
               const std::wstring& connectionString, int pipe) {
  try {
    for (int count = 0; count < 3; ++count) {
      const Run run = RunOnce(method, parameters, connectionString);
      if (write(pipe, &run, sizeof run) != sizeof run) return;
    }
  } catch (const Erro& error) {
    std::cerr << console::NameOf(method) << ": " << values::ToUtf8(error.Description()) << std::endl;
  }
}

}  // namespace

void Let(frame::ParameterObject& object, const frame::ParameterClass& parameterClass,
         std::span<const Setting> settings) {
  for (const frame::Property& property : parameterClass.properties)
    for (const Setting& setting : settings)
      if (values::ToUtf8(property.name) == setting.property)
        object.Let(property.name, console::ParameterValue(property, setting.value));
}

ReportTime TimeOf(const reports::ReportMethod& method, const frame::ParameterObject& parameters,
                  const std::wstring& connectionString, unsigned limit) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("pipe");
  const auto start = Clock::now();
  const pid_t child = fork();
  if (child == 0) {
    alarm(limit);
    RunThrice(method, parameters, connectionString, ends[1]);
    _exit(0);
  }
  close(ends[1]);
  ReportTime time;
  for (Run run{}; read(ends[0], &run, sizeof run) == sizeof run; time.ending = Ending::kDone) {
    if (time.ending == Ending::kDone && run.seconds >= time.seconds) continue;
    time.seconds = run.seconds;
    time.rows = run.rows;
  }
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (WIFSIGNALED(status)) EndQueries(connectionString);
  if (time.ending != Ending::kDone && Seconds(Clock::now() - start).count() > 0.9 * std::min<double>(limit, kAdosLimit))
    time.ending = Ending::kTooLong;
  return time;
}

std::string Text(const ReportTime& time, unsigned limit) {
  if (time.ending == Ending::kFailed) return "erro";
  std::ostringstream text;
  if (time.ending == Ending::kTooLong)
    text << "> " << std::min<double>(limit, kAdosLimit) << " s";
  else
    text << std::fixed << std::setprecision(time.seconds < 10 ? 3 : 1) << time.seconds << " s";
  return text.str();
}

}  // namespace kodra::bench
