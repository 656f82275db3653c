// The surroundings of the classes that are linked into the test program: those of Windows, except that any call may
// throw.
#include "ado/com_surroundings.h"
#include "com/module_surroundings.h"
#include "tests/wine/faults_injector.h"

namespace kodra::com {
namespace {

class ThrowingSurroundings final : public platform::Surroundings {
 public:
  std::unique_ptr<platform::Connection> NewConnection() override {
    face::Injector::ThrowAtCreation(L"ADODB.Connection");
    return windows_.NewConnection();
  }
  std::unique_ptr<platform::Command> NewCommand() override {
    face::Injector::ThrowAtCreation(L"ADODB.Command");
    return windows_.NewCommand();
  }
  std::unique_ptr<platform::Recordset> NewRecordset() override {
    face::Injector::ThrowAtCreation(L"ADODB.Recordset");
    return windows_.NewRecordset();
  }
  ObjectRef CreateObject(const std::wstring& progId) override {
    face::Injector::ThrowAtCreation(progId);
    return windows_.CreateObject(progId);
  }
  void SetEnvironment(const std::wstring& name, const std::wstring& value) override {
    windows_.SetEnvironment(name, value);
  }
  std::optional<std::uint64_t> FileLength(const std::wstring& path) override {
    face::Injector::CountOrThrow(face::kFileLength);
    return windows_.FileLength(path);
  }
  bool IsFile(const std::wstring& path) override { return windows_.IsFile(path); }

 private:
  ado::ComSurroundings windows_;
};

}  // namespace

platform::Surroundings& ModuleSurroundings() {
  static ThrowingSurroundings surroundings;
  return surroundings;
}

}  // namespace kodra::com
