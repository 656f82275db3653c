// The engines in Java, through tests/engines/java/Runner.java.
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "console/schema/grants.h"
#include "console/schema/indexes.h"
#include "testbed/archive/schema.h"
#include "testbed/mariadb/child_process.h"
#include "tests/db/sample.h"
#include "tests/db/temporary_folder.h"
#include "tests/engines/answers.h"
#include "tests/engines/fields.h"
#include "values/utf8.h"

namespace kodra::engines {
namespace {

namespace fs = std::filesystem;

const fs::path kSources = KODRA_ENGINES;  // this folder
constexpr const char* kJars = "/usr/share/java/h2.jar:/usr/share/java/hsqldb.jar:/usr/share/java/derby.jar";

std::string FieldOf(const testbed::Cell& cell) {
  if (const auto* number = std::get_if<std::int64_t>(&cell)) return "n" + std::to_string(*number);
  if (const auto* text = std::get_if<std::wstring_view>(&cell)) return "t" + Escaped(values::ToUtf8(*text));
  if (const auto* day = std::get_if<testbed::Day>(&cell)) return "d" + testbed::IsoText(*day) + " 00:00:00";
  if (const auto* moment = std::get_if<testbed::Moment>(&cell)) return "d" + testbed::IsoText(*moment);
  return kNull;
}

// The archive in the form that the runner loads.
void WriteArchive(const fs::path& path) {
  std::ofstream out(path, std::ios::binary);
  testbed::ForEachRecordType([&]<class Record>() {
    const testbed::Table<Record>& table = testbed::TableOf<Record>();
    out << "run\t" << Escaped(values::ToUtf8(CreateTable(table.shape, testbed::Engine::kStandard))) << "\n";
    out << "insert\tINSERT INTO " << values::ToUtf8(InsertTarget(table.shape)) << " VALUES (?";
    for (std::size_t i = 1; i < table.shape.columns.size(); ++i) out << ",?";
    out << ")\n";
    std::vector<testbed::Cell> cells;
    for (const Record& record : tests::SampleArchive().Of<Record>()) {
      table.Read(record, cells);
      out << "row";
      for (const testbed::Cell& cell : cells) out << "\t" << FieldOf(cell);
      out << "\n";
    }
  });
}

// What `kodrarpt esquema` writes for an administrator of the database: the indexes, and the permissions of a user, who
// must exist. The run stops if the engine refuses one of them.
void WriteSchema(const fs::path& path, const Engine& engine) {
  std::ofstream out(path, std::ios::binary);
  for (const console::schema::Index& index : console::schema::Indexes())
    out << console::schema::CreateStatement(index) << ";\n";
  if (!engine.createUser.empty()) out << engine.createUser << ";\n";
  for (const std::string& grant : console::schema::Grants("LEITURA", CodeOf(engine.database))) out << grant << ";\n";
}

void WriteStatements(const fs::path& path, std::span<const Statement> statements) {
  std::ofstream out(path, std::ios::binary);
  for (const Statement& statement : statements) {
    out << Escaped(values::ToUtf8(statement.text));
    if (statement.parameter) out << "\t" << Escaped(values::ToUtf8(*statement.parameter));
    out << "\n";
  }
}

std::vector<Answer> ReadAnswers(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::vector<Answer> answers;
  std::string line;
  while (std::getline(in, line)) {
    const std::vector<std::string> head = Fields(line);
    Answer& answer = answers.emplace_back();
    if (head[0] == "error") {
      answer.error = head[1];
      continue;
    }
    answer.columns.assign(head.begin() + 2, head.end());
    for (std::size_t left = std::stoul(head[1]); left > 0 && std::getline(in, line); --left)
      answer.rows.push_back(Fields(line));
  }
  return answers;
}

// Runs a program with its output in a file, which is shown when the program fails.
void Run(std::vector<std::string> command, const fs::path& log) {
  const std::string program = command.front();
  const int code = testbed::WaitFor(testbed::Spawn({.command = std::move(command), .input = {}, .output = log}));
  if (code == 0) return;
  std::ifstream in(log);
  throw std::runtime_error(program + " terminou com o código " + std::to_string(code) + ":\n" +
                           std::string(std::istreambuf_iterator<char>(in), {}));
}

}  // namespace

std::vector<std::vector<Answer>> AnswersInJava(std::span<const Questions> questions) {
  const tests::TemporaryFolder folder;
  const std::string classes = folder / "classes";
  Run({"javac", "-d", classes, kSources / "java/Runner.java", kSources / "java/Shims.java"}, folder / "javac.log");
  WriteArchive(folder / "archive");
  // The reports write dates without a time zone, and the archive's day begins when UTC's does. English, because the
  // engines' messages are compared.
  std::vector<std::string> command = {"java", "-Duser.timezone=UTC", "-Duser.language=en",
                                      "-Dderby.stream.error.file=" + (folder / "derby.log").string(),
                                      // Without it Derby refuses every GRANT.
                                      "-Dderby.database.sqlAuthorization=true"};
  // In so short a run, optimizing compilation and parallel garbage collection cost more time than they save.
  for (const char* option : {"-XX:TieredStopAtLevel=1", "-XX:+UseSerialGC"}) command.emplace_back(option);
  command.insert(command.end(), {"-cp", classes + ":" + kJars, "Runner"});
  for (const auto& [engine, statements] : questions) {
    const std::string name(engine->name);
    WriteSchema(folder / (name + ".schema"), *engine);
    WriteStatements(folder / (name + ".statements"), statements);
    for (const fs::path& argument :
         {fs::path(engine->jdbcUrl), kSources / "shims" / engine->shims, folder / "archive",
          folder / (name + ".schema"), folder / (name + ".statements"), folder / (name + ".answers")})
      command.push_back(argument);
  }
  Run(command, folder / "java.log");
  std::vector<std::vector<Answer>> answers;
  for (const auto& [engine, statements] : questions) {
    answers.push_back(ReadAnswers(folder / (std::string(engine->name) + ".answers")));
    if (answers.back().size() != statements.size())
      throw std::runtime_error(std::string(engine->name) + ": faltam respostas");
  }
  return answers;
}

}  // namespace kodra::engines
