// Everything that the component asks of the machine it runs on.
//
// It has three implementations: COM and ADO on Windows (ado/), ODBC (odbc/engine), and recorders in the tests.
// One object may serve several threads; the objects that it makes belong to the thread that asked for them.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/ado.h"
#include "values/automation.h"

namespace kodra::platform {

class Surroundings {
 public:
  virtual std::unique_ptr<Connection> NewConnection() = 0;
  virtual std::unique_ptr<Command> NewCommand() = 0;
  virtual std::unique_ptr<Recordset> NewRecordset() = 0;
  // Makes an object by ProgID. A class that is not registered or cannot be made raises
  // RuntimeError::kCannotCreateObject; exhausted memory and refused access keep their own error.
  virtual ObjectRef CreateObject(const std::wstring& progId) = 0;

  // Sets a variable of the process environment.
  virtual void SetEnvironment(const std::wstring& name, const std::wstring& value) = 0;
  // The length in bytes of the file at a path, 0 for a folder, nothing when the path leads to neither.
  virtual std::optional<std::uint64_t> FileLength(const std::wstring& path) = 0;
  // Whether the path leads to a file; false for a folder.
  virtual bool IsFile(const std::wstring& path) = 0;

 protected:
  ~Surroundings() = default;
};

}  // namespace kodra::platform
