// The machine as a program without COM and ADO sees it: data through ODBC, objects from a table of factories.
//
//   Surroundings machine;
//   machine.Register(L"KodraConexao.StrCon", [] { return std::make_shared<StrCon>(); });
//
// REQUIRES: every Register before the object is shared between threads.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/surroundings.h"

namespace kodra::odbc {

class Surroundings : public platform::Surroundings {
 public:
  using Factory = std::function<ObjectRef()>;

  // ProgIDs are compared without regard to letter case; registering one again replaces its factory.
  void Register(const std::wstring& progId, Factory factory);

  std::unique_ptr<platform::Connection> NewConnection() override;
  std::unique_ptr<platform::Command> NewCommand() override;
  std::unique_ptr<platform::Recordset> NewRecordset() override;
  // A factory that returns null counts as a class that cannot be made.
  ObjectRef CreateObject(const std::wstring& progId) override;
  void SetEnvironment(const std::wstring& name, const std::wstring& value) override;
  // Paths are UTF-8 on Linux.
  std::optional<std::uint64_t> FileLength(const std::wstring& path) override;
  bool IsFile(const std::wstring& path) override;

 private:
  std::map<std::wstring, Factory> factories_;
};

}  // namespace kodra::odbc
