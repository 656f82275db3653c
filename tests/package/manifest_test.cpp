// The component used through its manifests, with nothing of it registered.
#include "tests/package/script_client.h"
#include "tests/wine/automation.h"
#include "tests/wine/public_face.h"

namespace kodra::package {
namespace {

// A folder with a program, the component and the two manifests, as the author of a program provides it. It is deleted
// with this object.
class SelfContainedProgram {
 public:
  SelfContainedProgram() {
    CreateDirectoryW(folder_.c_str(), nullptr);
    wchar_t system[MAX_PATH];
    GetSystemDirectoryW(system, MAX_PATH);
    Copy(std::wstring(system) + L"\\cscript.exe", L"programa.exe");
    for (const wchar_t* name : {L"KodraRpt.dll", L"KodraRpt.Classes.manifest", L"programa.exe.manifest"})
      Copy(Unpacked() + L"\\" + name, name);
  }
  SelfContainedProgram(const SelfContainedProgram&) = delete;
  SelfContainedProgram& operator=(const SelfContainedProgram&) = delete;
  ~SelfContainedProgram() {
    CoFreeUnusedLibrariesEx(0, 0);
    for (const std::wstring& path : Listing(folder_)) DeleteFileW(Path(path).c_str());
    RemoveDirectoryW(folder_.c_str());
  }

  std::wstring Path(const std::wstring& name) const { return folder_ + L"\\" + name; }

 private:
  void Copy(const std::wstring& from, const std::wstring& name) const {
    EXPECT_TRUE(CopyFileW(from.c_str(), Path(name).c_str(), FALSE)) << testing::PrintToString(from);
  }

  const std::wstring folder_ = Temporary(L"kodra-sem-registro");
};

TEST(Unregistered, NoClassIsKnownByItsName) {
  for (const face::ClassEntry& entry : face::PublicClasses()) {
    CLSID id = {};
    EXPECT_EQ(CO_E_CLASSSTRING, CLSIDFromProgID(entry.progId().c_str(), &id)) << testing::PrintToString(entry.name);
  }
}

TEST(Unregistered, TheScriptClientIsServedThroughTheManifests) {
  const RegisteredDependencies dependencies;
  const SelfContainedProgram program;
  ExpectServed(RunClient(program.Path(L"programa.exe"), Unpacked()));
}

TEST(Unregistered, TheScriptClientIsNotServedWithoutThem) {
  const RegisteredDependencies dependencies;
  const SelfContainedProgram program;
  DeleteFileW(program.Path(L"programa.exe.manifest").c_str());
  // The client ends where it creates its first object.
  EXPECT_EQ(L"== Uma chamada sem StringConexao (KodraRpt.CDeptoRpt)",
            RunClient(program.Path(L"programa.exe"), Unpacked()).result);
}

// While it exists, a program's manifest applies to this thread.
class Activation {
 public:
  explicit Activation(const std::wstring& manifest) {
    ACTCTXW description = {};
    description.cbSize = sizeof description;
    description.lpSource = manifest.c_str();
    context_ = CreateActCtxW(&description);
    EXPECT_NE(INVALID_HANDLE_VALUE, context_) << GetLastError();
    EXPECT_TRUE(ActivateActCtx(context_, &cookie_));
  }
  Activation(const Activation&) = delete;
  Activation& operator=(const Activation&) = delete;
  ~Activation() {
    DeactivateActCtx(0, cookie_);
    ReleaseActCtx(context_);
  }

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
};

TEST(Unregistered, EveryClassIsCreatedThroughTheManifests) {
  const SelfContainedProgram program;
  const Activation activation(program.Path(L"programa.exe.manifest"));
  for (const face::ClassEntry& entry : face::PublicClasses()) {
    HRESULT hr = E_UNEXPECTED;
    const auto object = face::Create(entry.progId(), &hr);
    ASSERT_TRUE(object) << testing::PrintToString(entry.name) << std::hex << hr;
    const auto described = object.As<IProvideClassInfo>();
    face::Ref<ITypeInfo> info;
    ASSERT_EQ(S_OK, described->GetClassInfo(info.put()));
    face::Bstr name;
    ASSERT_EQ(S_OK, info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
    EXPECT_EQ(entry.name, name.text());
  }
}

TEST(Unregistered, TheTypeLibraryIsFoundThroughTheManifests) {
  const SelfContainedProgram program;
  GUID id = {};
  ASSERT_EQ(S_OK, CLSIDFromString(face::kLibraryId, &id));
  face::Ref<ITypeLib> library;
  EXPECT_EQ(TYPE_E_LIBNOTREGISTERED, LoadRegTypeLib(id, 1, 0, 0, library.put()));
  const Activation activation(program.Path(L"programa.exe.manifest"));
  EXPECT_EQ(S_OK, LoadRegTypeLib(id, 1, 0, 0, library.put()));
}

}  // namespace
}  // namespace kodra::package
