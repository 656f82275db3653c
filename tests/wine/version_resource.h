// The version resource of a DLL or program: its numbers, and its texts in Brazilian Portuguese.
#pragma once

#include <gtest/gtest.h>
// clang-format off
#include <windows.h>
#include <winver.h>
// clang-format on

#include <string>
#include <vector>

namespace kodra::face {

class VersionResource {
 public:
  explicit VersionResource(const std::wstring& file) : block_(GetFileVersionInfoSizeW(file.c_str(), nullptr)) {
    EXPECT_TRUE(GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(block_.size()), block_.data()));
  }

  // All zero when the file has no such resource.
  VS_FIXEDFILEINFO Numbers() {
    void* found = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(block_.data(), L"\\", &found, &length)) return {};
    return *static_cast<const VS_FIXEDFILEINFO*>(found);
  }

  std::wstring Text(const wchar_t* name) {
    void* text = nullptr;
    UINT length = 0;
    const std::wstring path = std::wstring(L"\\StringFileInfo\\041604B0\\") + name;
    if (!VerQueryValueW(block_.data(), path.c_str(), &text, &length)) return L"(absent)";
    return static_cast<const wchar_t*>(text);
  }

 private:
  std::vector<unsigned char> block_;
};

// Expects version 1.0, revision 49, in the numbers and in the texts, and the type of file (VFT_…).
inline void ExpectVersionOfRelease(VersionResource& resource, DWORD type) {
  const VS_FIXEDFILEINFO version = resource.Numbers();
  EXPECT_EQ(1, HIWORD(version.dwFileVersionMS));
  EXPECT_EQ(0, LOWORD(version.dwFileVersionMS));
  EXPECT_EQ(0, HIWORD(version.dwFileVersionLS));
  EXPECT_EQ(49, LOWORD(version.dwFileVersionLS));
  EXPECT_EQ(version.dwFileVersionMS, version.dwProductVersionMS);
  EXPECT_EQ(version.dwFileVersionLS, version.dwProductVersionLS);
  EXPECT_EQ(type, version.dwFileType);
  EXPECT_EQ(L"1.0.49", resource.Text(L"FileVersion"));
  EXPECT_EQ(L"1.0.49", resource.Text(L"ProductVersion"));
  EXPECT_EQ(L"KodraRpt", resource.Text(L"ProductName"));
}

}  // namespace kodra::face
