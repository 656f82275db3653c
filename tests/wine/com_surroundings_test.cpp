// Classes that cannot be created, and files and folders, as the component treats them on Windows itself.
#include "ado/com_surroundings.h"

#include <gtest/gtest.h>

#include "frame/about.h"
#include "tests/wine/stand_in.h"
#include "values/erro.h"

namespace kodra::ado {
namespace {

// The error of making an object of that class.
face::Failure FailureToCreate(const std::wstring& progId) {
  try {
    ComSurroundings().CreateObject(progId);
  } catch (const Erro& erro) {
    return {static_cast<unsigned long>(erro.Number()), erro.Source(), erro.Description()};
  }
  return {};
}

const face::Failure kCannotCreate = {429, L"KodraRpt", L"O componente ActiveX não pode criar o objeto"};

TEST(ClassesThatCannotBeCreated, AreOneErrorWhateverTheReason) {
  for (const unsigned long reason : {
           0x80040154UL,  // class not registered
           0x80040111UL,  // class not available
           0x80080005UL,  // server execution failed
           0x80004005UL,  // unspecified
           0x80004002UL,  // no such interface
           0x80004001UL,  // not implemented
           0x800401F3UL,  // invalid class string
           0x800401F8UL,  // DLL not found
           0x800401F9UL,  // error in the DLL
           0x80070002UL,  // file not found
           0x80070003UL,  // path not found
           0x8007007EUL,  // module not found
           0x8007007FUL,  // procedure not found
           0x800700C1UL,  // a program for another kind of machine
           0x8007045AUL,  // the DLL's initialisation failed
           0x800706BAUL,  // the server is not available
           0x80047777UL,  // an error of the class's own
       }) {
    const face::StandIn broken(L"KodraConexao.StrCon", static_cast<HRESULT>(reason));
    EXPECT_EQ(kCannotCreate, FailureToCreate(L"KodraConexao.StrCon")) << std::hex << reason;
  }
}

TEST(ClassesThatCannotBeCreated, MayBeUnknownByName) {
  EXPECT_EQ(kCannotCreate, FailureToCreate(L"KodraConexao.NaoExiste"));
  EXPECT_EQ(kCannotCreate, FailureToCreate(L""));
}

TEST(ClassesThatCannotBeCreated, MayReturnNoObject) {
  const face::StandIn empty(L"KodraConexao.StrCon", S_OK);
  EXPECT_EQ(kCannotCreate, FailureToCreate(L"KodraConexao.StrCon"));
}

TEST(ClassesThatCannotBeCreated, KeepTheErrorsOfExhaustedMemoryAndRefusedAccess) {
  {
    const face::StandIn exhausted(L"KodraConexao.StrCon", E_OUTOFMEMORY);
    EXPECT_EQ((face::Failure{7, L"KodraRpt", L"Memória insuficiente"}), FailureToCreate(L"KodraConexao.StrCon"));
  }
  const face::StandIn refused(L"KodraConexao.StrCon", E_ACCESSDENIED);
  const face::Failure failure = FailureToCreate(L"KodraConexao.StrCon");
  EXPECT_EQ(0x80070005UL, failure.number);
  EXPECT_EQ(L"KodraRpt", failure.source);
  EXPECT_NE(kCannotCreate.description, failure.description);
}

// The reports.

TEST(ClassesThatCannotBeCreated, AreTheCauseInAReportsError) {
  const face::StandIn broken(L"KodraConexao.StrCon", static_cast<HRESULT>(0x80080005));
  EXPECT_EQ((face::Failure{0x80041FAB, L"KodraRpt.CDeptoRpt::RelatorioDeptos",
                           L"Erro ao gerar dados para o relatório: O componente ActiveX não pode criar o objeto"}),
            face::RunReport(L"CDeptoRpt", L"RelatorioDeptos", face::Var(face::Create(L"KodraRpt.CDeptoRptObj").get()),
                            face::ArchiveConnection())
                .failure);
}

TEST(ClassesThatCannotBeCreated, AreNamedWhereSystemParametersAreRead) {
  const face::StandIn broken(L"KodraParamSist.Obtedor", static_cast<HRESULT>(0x80080005));
  EXPECT_EQ((face::Failure{0x80041FAB, L"KodraRpt.CEstatSubgrupoRpt::RelatorioEstatisticas",
                           L"Erro ao gerar dados para o relatório: Não foi possível criar objeto da classe "
                           L"\"KodraParamSist.Obtedor\"."}),
            face::RunReport(L"CEstatSubgrupoRpt", L"RelatorioEstatisticas",
                            face::Var(face::Create(L"KodraRpt.CEstatSubgrupoRptObj").get()), face::ArchiveConnection())
                .failure);
}

// Files and folders.

// A folder of this test with the files and folders that a test makes in it.
class FilesAndFolders : public testing::Test {
 protected:
  FilesAndFolders() { CreateDirectoryW(folder_.c_str(), nullptr); }
  ~FilesAndFolders() override {
    for (const wchar_t* name : {L"\\KodraRpt.EXE", L"\\KodraRpt.DLL"}) {
      DeleteFileW((folder_ + name).c_str());
      RemoveDirectoryW((folder_ + name).c_str());
    }
    RemoveDirectoryW(folder_.c_str());
  }

  std::wstring MakeFolder(const wchar_t* name) {
    EXPECT_TRUE(CreateDirectoryW((folder_ + name).c_str(), nullptr));
    return folder_ + name;
  }
  std::wstring MakeEmptyFile(const wchar_t* name) {
    CloseHandle(CreateFileW((folder_ + name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    return folder_ + name;
  }
  std::wstring Executavel() { return frame::About(folder_ + L"\\KodraRpt.dll", surroundings_).Executavel(); }

  const std::wstring folder_ = face::WindowsPath(L"/tmp/kodra-pasta-" + std::to_wstring(GetCurrentProcessId()));
  ComSurroundings surroundings_;
};

TEST_F(FilesAndFolders, AFolderNamedLikeTheComponentIsNotItsFile) {
  const std::wstring folder = MakeFolder(L"\\KodraRpt.EXE");
  EXPECT_EQ(folder_ + L"\\KodraRpt", Executavel());
  const std::wstring file = MakeEmptyFile(L"\\KodraRpt.DLL");
  EXPECT_EQ(file, Executavel());
  // As a database the folder exists, without contents.
  EXPECT_EQ(0U, surroundings_.FileLength(folder));
}

}  // namespace
}  // namespace kodra::ado
