// The program kodra-demo-data, run as a user runs it.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tests/testbed/sqlite_reader.h"

namespace kodra::testbed {
namespace {

struct Outcome {
  int exitCode;
  std::string errors;
};

Outcome RunDemoData(const std::string& arguments) {
  const TemporaryFile errors("demo-data.err");
  const std::string command = "'" KODRA_DEMO_DATA "' " + arguments + " 2>'" + errors.Path() + "' >/dev/null";
  const int status = std::system(command.c_str());
  std::ostringstream text;
  text << std::ifstream(errors.Path()).rdbuf();
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text.str()};
}

std::string ContentsOf(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

TEST(DemoData, WritesAnSqliteArchiveInTheRequestedSize) {
  const TemporaryFile file("program.db");
  EXPECT_EQ(RunDemoData("sqlite '" + file.Path() + "' --documents 70").exitCode, 0);
  EXPECT_EQ(Query(file.Path(), "SELECT COUNT(*) FROM DOCUMENTO"), (std::vector<TextRow>{{"70"}}));
}

TEST(DemoData, WritesAThousandDocumentsByDefault) {
  const TemporaryFile file("default.db");
  EXPECT_EQ(RunDemoData("sqlite '" + file.Path() + "'").exitCode, 0);
  EXPECT_EQ(Query(file.Path(), "SELECT COUNT(*) FROM DOCUMENTO"), (std::vector<TextRow>{{"1000"}}));
}

TEST(DemoData, WritesAMySqlScript) {
  const TemporaryFile file("program.sql");
  EXPECT_EQ(RunDemoData("mysql '" + file.Path() + "' --documents 2").exitCode, 0);
  const std::string script = ContentsOf(file.Path());
  EXPECT_TRUE(script.starts_with("SET NAMES utf8mb4;\n"));
  EXPECT_NE(script.find("('0000000002',"), std::string::npos);
  EXPECT_EQ(script.find("('0000000003',"), std::string::npos);
  EXPECT_TRUE(script.ends_with("COMMIT;\n"));
}

TEST(DemoData, NamesWhatFailed) {
  const Outcome sqlite = RunDemoData("sqlite /no/such/folder/a.db");
  EXPECT_EQ(sqlite.exitCode, 1);
  EXPECT_EQ(sqlite.errors, "kodra-demo-data: /no/such/folder/a.db.parcial: unable to open database file\n");
  const Outcome mysql = RunDemoData("mysql /no/such/folder/a.sql");
  EXPECT_EQ(mysql.exitCode, 1);
  EXPECT_EQ(mysql.errors, "kodra-demo-data: /no/such/folder/a.sql: não foi possível criar o arquivo\n");
}

TEST(DemoData, RefusesArgumentsThatItDoesNotUnderstand) {
  EXPECT_NE(RunDemoData("").exitCode, 0);
  EXPECT_NE(RunDemoData("oracle a.sql").exitCode, 0);
  EXPECT_NE(RunDemoData("sqlite").exitCode, 0);
  EXPECT_NE(RunDemoData("sqlite a.db --documents -1").exitCode, 0);
}

}  // namespace
}  // namespace kodra::testbed
