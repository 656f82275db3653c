// The component's surroundings on Windows: COM, ADO, the process environment and the file system.
//
// Holds nothing: one object serves every apartment. A thread that uses it must have entered COM.
#pragma once

#include "platform/surroundings.h"

namespace kodra::platform::windows {

class ComSurroundings final : public Surroundings {
 public:
  std::unique_ptr<Connection> NewConnection() override;
  std::unique_ptr<Command> NewCommand() override;
  std::unique_ptr<Recordset> NewRecordset() override;
  ObjectRef CreateObject(const std::wstring& progId) override;
  void SetEnvironment(const std::wstring& name, const std::wstring& value) override;
  std::optional<std::uint64_t> FileLength(const std::wstring& path) override;
  bool IsFile(const std::wstring& path) override;
};

}  // namespace kodra::platform::windows
