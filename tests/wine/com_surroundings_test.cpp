// What the component makes of files and folders, on Windows itself.
#include "platform/windows/com_surroundings.h"

#include <gtest/gtest.h>

#include "frame/about.h"
#include "environment.h"

namespace kodra::platform::windows {
namespace {

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
  // As a database the folder is there, without contents.
  EXPECT_EQ(0U, surroundings_.FileLength(folder));
}

}  // namespace
}  // namespace kodra::platform::windows
