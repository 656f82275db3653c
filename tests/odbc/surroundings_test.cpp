#include "odbc/engine/surroundings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <unistd.h>

#include "tests/odbc/raised.h"

namespace kodra::odbc {

namespace ad = platform::ad;
namespace {

using tests::Raised;
using tests::RaisedBy;

class Nothing : public AutomationObject {
 public:
  Value Get(std::wstring_view) override { return Empty{}; }
  void Let(std::wstring_view, const Value&) override {}
  void Set(std::wstring_view, const ObjectRef&) override {}
  Value Call(std::wstring_view, std::span<const Value>) override { return Empty{}; }
};

const Raised kCannotCreate{429, L"KodraRpt", L"O componente ActiveX não pode criar o objeto"};

TEST(Surroundings, ARegisteredClassIsCreatedInAnyLetterCase) {
  Surroundings machine;
  const ObjectRef made = std::make_shared<Nothing>();
  machine.Register(L"KodraConexao.StrCon", [&] { return ObjectRef(made); });
  EXPECT_EQ(machine.CreateObject(L"kodraconexao.STRCON"), made);
}

TEST(Surroundings, AnUnknownClassCannotBeCreated) {
  Surroundings machine;
  EXPECT_EQ(RaisedBy([&] { machine.CreateObject(L"Kodra.Nada"); }), kCannotCreate);
}

TEST(Surroundings, AFactoryThatReturnsNothingCountsAsAClassThatCannotBeCreated) {
  Surroundings machine;
  machine.Register(L"Kodra.Nada", [] { return nullptr; });
  EXPECT_EQ(RaisedBy([&] { machine.CreateObject(L"Kodra.Nada"); }), kCannotCreate);
}

TEST(Surroundings, WhatAFactoryRaisesPasses) {
  Surroundings machine;
  machine.Register(L"Kodra.Falha", []() -> ObjectRef { throw Erro(7, L"fonte", L"texto"); });
  EXPECT_EQ(RaisedBy([&] { machine.CreateObject(L"Kodra.Falha"); }), (Raised{7, L"fonte", L"texto"}));
}

TEST(Surroundings, ItCreatesClosedDataObjects) {
  Surroundings machine;
  EXPECT_EQ(machine.NewConnection()->State(), ad::kStateClosed);
  EXPECT_EQ(machine.NewRecordset()->State(), ad::kStateClosed);
  EXPECT_FALSE(machine.NewCommand()->HasActiveConnection());
}

TEST(Surroundings, AnEnvironmentVariableIsSetForTheProcess) {
  Surroundings machine;
  machine.SetEnvironment(L"KODRA_TESTE", L"português");
  ASSERT_NE(std::getenv("KODRA_TESTE"), nullptr);
  EXPECT_STREQ(std::getenv("KODRA_TESTE"), "portugu\xC3\xAAs");
  machine.SetEnvironment(L"KODRA_TESTE", L"outro");
  EXPECT_STREQ(std::getenv("KODRA_TESTE"), "outro");
}

TEST(Surroundings, FilesFoldersAndMissingPathsAreDistinguished) {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("kodra-arquivos-" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "vazio.db") << "";
  std::ofstream(folder / "dep\xC3\xB3sito.db") << "12345";
  Surroundings machine;
  EXPECT_EQ(machine.FileLength((folder / "vazio.db").wstring()), 0U);
  EXPECT_EQ(machine.FileLength(folder.wstring() + L"/depósito.db"), 5U);
  EXPECT_EQ(machine.FileLength(folder.wstring()), 0U);
  EXPECT_EQ(machine.FileLength(folder.wstring() + L"/nada.db"), std::nullopt);
  EXPECT_EQ(machine.FileLength(L""), std::nullopt);
  EXPECT_EQ(machine.FileLength(std::wstring(1, static_cast<wchar_t>(0xD800))), std::nullopt);
  EXPECT_TRUE(machine.IsFile((folder / "vazio.db").wstring()));
  EXPECT_TRUE(machine.IsFile(folder.wstring() + L"/depósito.db"));
  EXPECT_FALSE(machine.IsFile(folder.wstring()));
  EXPECT_FALSE(machine.IsFile(folder.wstring() + L"/nada.db"));
  EXPECT_FALSE(machine.IsFile(L""));
  EXPECT_FALSE(machine.IsFile(std::wstring(1, static_cast<wchar_t>(0xD800))));
  std::filesystem::remove_all(folder);
}

TEST(Surroundings, FileLengthIsWholeBeyondFourGigabytes) {
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("kodra-grande-" + std::to_string(::getpid()) + ".db");
  std::ofstream(file) << "";
  Surroundings machine;
  // A sparse file, which takes no space on the disk.
  std::filesystem::resize_file(file, 4294967296);
  EXPECT_EQ(machine.FileLength(file.wstring()), 4294967296U);
  std::filesystem::resize_file(file, 8589934597);
  EXPECT_EQ(machine.FileLength(file.wstring()), 8589934597U);
  std::filesystem::remove(file);
}

}  // namespace
}  // namespace kodra::odbc
