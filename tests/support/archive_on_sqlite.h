// The sample archive twice: in an SQLite file, read by the siblings through ODBC, and as the rows it was made from.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "demo/archive.h"
#include "demo/writer.h"
#include "platform/odbc/surroundings.h"
#include "siblings/ini_file.h"
#include "siblings/sibling_classes.h"
#include "support/sqlite_reader.h"

namespace kodra::support {

class ArchiveOnSqlite : public testing::Test {
 protected:
  static constexpr demo::Size kSize{.documents = 600};

  static void SetUpTestSuite() {
    file = new TemporaryFile("arquivo.db");
    demo::WriteSqlite(file->Path(), kSize);
    archive = new demo::Archive(demo::Generate(kSize));
  }
  static void TearDownTestSuite() {
    delete archive;
    delete file;
  }

  ArchiveOnSqlite() { RegisterSiblings(machine); }

  static std::wstring ConnectionString() { return L"Driver={SQLite3};Database=" + DecodeText(file->Path()); }
  platform::ObjectRef Create(const std::wstring& progId) { return machine.CreateObject(progId); }
  // An object that reads the archive.
  platform::ObjectRef CreateReader(const std::wstring& progId) {
    platform::ObjectRef object = Create(progId);
    object->Let(L"StringConexao", ConnectionString());
    return object;
  }

  inline static TemporaryFile* file = nullptr;
  inline static demo::Archive* archive = nullptr;
  platform::odbc::Surroundings machine;
};

// The result of a method with these arguments.
inline platform::Value CallOf(const platform::ObjectRef& object, std::wstring_view member,
                              std::initializer_list<platform::Value> arguments) {
  return object->Call(member, {arguments.begin(), arguments.size()});
}

}  // namespace kodra::support
