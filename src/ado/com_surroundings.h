// The component's surroundings on Windows: COM, ADO, the process environment and the file system.
//
// Holds nothing: one object serves every apartment. A thread that uses it must have entered COM.
#pragma once

#include "platform/surroundings.h"

namespace kodra::ado {

class ComSurroundings final : public platform::Surroundings {
 public:
  std::unique_ptr<platform::Connection> NewConnection() override;
  std::unique_ptr<platform::Command> NewCommand() override;
  std::unique_ptr<platform::Recordset> NewRecordset() override;
  ObjectRef CreateObject(const std::wstring& progId) override;
  void SetEnvironment(const std::wstring& name, const std::wstring& value) override;
  std::optional<std::uint64_t> FileLength(const std::wstring& path) override;
  bool IsFile(const std::wstring& path) override;
};

}  // namespace kodra::ado
