// The sample archive in two forms: an SQLite file, which the siblings read through ODBC, and the rows that it was made
// from.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "odbc/engine/surroundings.h"
#include "siblings/ini_file.h"
#include "siblings/sibling_classes.h"
#include "testbed/archive/archive.h"
#include "testbed/archive/writer.h"
#include "tests/testbed/sqlite_reader.h"

namespace kodra::siblings {

class ArchiveOnSqlite : public testing::Test {
 protected:
  static constexpr testbed::Size kSize{.documents = 600};

  static void SetUpTestSuite() {
    file = new testbed::TemporaryFile("arquivo.db");
    testbed::WriteSqlite(file->Path(), kSize);
    archive = new testbed::Archive(testbed::Generate(kSize));
  }
  static void TearDownTestSuite() {
    delete archive;
    delete file;
  }

  ArchiveOnSqlite() { RegisterSiblings(machine); }

  static std::wstring ConnectionString() { return L"Driver={SQLite3};Database=" + DecodeText(file->Path()); }
  ObjectRef Create(const std::wstring& progId) { return machine.CreateObject(progId); }
  // An object that reads the archive.
  ObjectRef CreateReader(const std::wstring& progId) {
    ObjectRef object = Create(progId);
    object->Let(L"StringConexao", ConnectionString());
    return object;
  }

  inline static testbed::TemporaryFile* file = nullptr;
  inline static testbed::Archive* archive = nullptr;
  odbc::Surroundings machine;
};

// The result of a method with these arguments.
inline Value CallOf(const ObjectRef& object, std::wstring_view member, std::initializer_list<Value> arguments) {
  return object->Call(member, {arguments.begin(), arguments.size()});
}

}  // namespace kodra::siblings
