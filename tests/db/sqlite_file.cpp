#include "tests/db/sqlite_file.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace kodra::tests {

SqliteFile::SqliteFile() {
  std::string pattern = (std::filesystem::temp_directory_path() / "kodra-sqlite-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder: " + pattern);
  folder_ = pattern;
  path_ = std::filesystem::path(folder_).wstring() + L"/depósito.db";
  connection_.SetConnectionString(ConnectionString());
  connection_.Open(L"", L"", platform::ad::kUnspecified);
}

SqliteFile::~SqliteFile() {
  connection_.Close();
  std::filesystem::remove_all(folder_);
}

std::wstring SqliteFile::ConnectionString() const { return L"Driver={SQLite3};Database=" + path_ + L";"; }

void SqliteFile::Run(const std::wstring& statement) { connection_.Execute(statement, platform::ad::kCmdText); }

}  // namespace kodra::tests
