// The component's surroundings on Windows: the creation of objects by ProgID, files and folders.
#include "ado/com_surroundings.h"

#include <gtest/gtest.h>

#include "frame/about.h"
#include "tests/wine/stand_in.h"
#include "values/erro.h"

namespace kodra::ado {
namespace {

// The error of creating an object by ProgID; a Failure with the number 0 when it succeeds.
face::Failure FailureToCreate(const std::wstring& progId) {
  try {
    ComSurroundings().CreateObject(progId);
  } catch (const Erro& erro) {
    return {erro.Number(), erro.Source(), erro.Description()};
  }
  return {};
}

const face::Failure kCannotCreate = {429, L"KodraRpt", L"O componente ActiveX não pode criar o objeto"};

// A reason why a class cannot be created.
struct Reason {
  const char* name;
  HRESULT hr;

  friend void PrintTo(const Reason& reason, std::ostream* out) { *out << reason.name; }
};

class CreationError : public testing::TestWithParam<Reason> {};

TEST_P(CreationError, IsTheSameForEveryReason) {
  const face::StandIn broken(L"KodraConexao.StrCon", GetParam().hr);
  EXPECT_EQ(kCannotCreate, FailureToCreate(L"KodraConexao.StrCon"));
}

const Reason kReasons[] = {
    {"ClassNotRegistered", REGDB_E_CLASSNOTREG},
    {"ClassNotAvailable", CLASS_E_CLASSNOTAVAILABLE},
    {"ServerExecutionFailed", CO_E_SERVER_EXEC_FAILURE},
    {"Unspecified", E_FAIL},
    {"NoSuchInterface", E_NOINTERFACE},
    {"NotImplemented", E_NOTIMPL},
    {"InvalidClassString", CO_E_CLASSSTRING},
    {"DllNotFound", CO_E_DLLNOTFOUND},
    {"ErrorInDll", CO_E_ERRORINDLL},
    {"FileNotFound", HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)},
    {"PathNotFound", HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)},
    {"ModuleNotFound", HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND)},
    {"ProcedureNotFound", HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND)},
    {"ProgramForAnotherKindOfMachine", HRESULT_FROM_WIN32(ERROR_BAD_EXE_FORMAT)},
    {"InitialisationOfTheDllFailed", HRESULT_FROM_WIN32(ERROR_DLL_INIT_FAILED)},
    {"ServerNotAvailable", HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE)},
    {"ErrorOfTheClassItself", face::kNumberWithoutText},
    {"SuccessWithoutAnObject", S_OK},
};
INSTANTIATE_TEST_SUITE_P(, CreationError, testing::ValuesIn(kReasons),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ClassesThatCannotBeCreated, MayHaveAnUnknownName) {
  EXPECT_EQ(kCannotCreate, FailureToCreate(L"KodraConexao.NaoExiste"));
  EXPECT_EQ(kCannotCreate, FailureToCreate(L""));
}

TEST(ClassesThatCannotBeCreated, KeepTheErrorsOfExhaustedMemoryAndRefusedAccess) {
  {
    const face::StandIn exhausted(L"KodraConexao.StrCon", E_OUTOFMEMORY);
    EXPECT_EQ((face::Failure{7, L"KodraRpt", L"Memória insuficiente"}), FailureToCreate(L"KodraConexao.StrCon"));
  }
  const face::StandIn refused(L"KodraConexao.StrCon", E_ACCESSDENIED);
  const face::Failure failure = FailureToCreate(L"KodraConexao.StrCon");
  EXPECT_EQ(E_ACCESSDENIED, failure.number);
  EXPECT_EQ(L"KodraRpt", failure.source);
  EXPECT_NE(kCannotCreate.description, failure.description);
}

// The error of a report on the archive with its initial parameters.
face::Failure FailureOf(const std::wstring& report, const std::wstring& method) {
  return face::RunReport(report, method, face::Var(face::Create(L"KodraRpt." + report + L"Obj").get()),
                         face::ArchiveConnection())
      .failure;
}

TEST(ClassesThatCannotBeCreated, AreTheCauseInAReportsError) {
  const face::StandIn broken(L"KodraConexao.StrCon", CO_E_SERVER_EXEC_FAILURE);
  EXPECT_EQ(face::Framed(L"CDeptoRpt::RelatorioDeptos", L"O componente ActiveX não pode criar o objeto"),
            FailureOf(L"CDeptoRpt", L"RelatorioDeptos"));
}

TEST(ClassesThatCannotBeCreated, AreNamedWhereSystemParametersAreRead) {
  const face::StandIn broken(L"KodraParamSist.Obtedor", CO_E_SERVER_EXEC_FAILURE);
  EXPECT_EQ(face::Framed(L"CEstatSubgrupoRpt::RelatorioEstatisticas",
                         L"Não foi possível criar objeto da classe \"KodraParamSist.Obtedor\"."),
            FailureOf(L"CEstatSubgrupoRpt", L"RelatorioEstatisticas"));
}

// A temporary folder, in which a test creates files and folders.
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
  // For a report whose database it is, the folder exists and is empty.
  EXPECT_EQ(0U, surroundings_.FileLength(folder));
}

}  // namespace
}  // namespace kodra::ado
