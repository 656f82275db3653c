// Surroundings without a database, which record the statements that are opened.
#pragma once

#include <algorithm>
#include <functional>

#include "console/statements/capturing_ado.h"
#include "platform/surroundings.h"

namespace kodra::console {

class CapturingSurroundings final : public platform::Surroundings {
 public:
  // Creates the component with a ProgID.
  using Factory = std::function<ObjectRef(const std::wstring& progId)>;

  // Every statement returns `rows` rows of nulls.
  CapturingSurroundings(int rows, Factory factory) : rows_(rows), factory_(std::move(factory)) {}

  Captured captured;

  std::unique_ptr<platform::Connection> NewConnection() override { return std::make_unique<CapturingConnection>(); }
  std::unique_ptr<platform::Command> NewCommand() override { return std::make_unique<CapturingCommand>(); }
  std::unique_ptr<platform::Recordset> NewRecordset() override {
    return std::make_unique<CapturingRecordset>(captured.statements, rows_);
  }
  ObjectRef CreateObject(const std::wstring& progId) override {
    if (std::ranges::find(captured.components, progId) == captured.components.end())
      captured.components.push_back(progId);
    return factory_(progId);
  }
  void SetEnvironment(const std::wstring&, const std::wstring&) override {}
  // The file of an SQLite database is checked before the connection is opened.
  std::optional<std::uint64_t> FileLength(const std::wstring&) override { return 1; }
  bool IsFile(const std::wstring&) override { return true; }

 private:
  int rows_;
  Factory factory_;
};

}  // namespace kodra::console
