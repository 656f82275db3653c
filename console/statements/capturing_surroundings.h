// Surroundings without a database: what is opened is written down, and nothing is read.
#pragma once

#include <algorithm>
#include <functional>

#include "console/statements/capturing_ado.h"
#include "platform/surroundings.h"

namespace kodra::console {

class CapturingSurroundings final : public platform::Surroundings {
 public:
  // Makes the component of a ProgID.
  using Maker = std::function<ObjectRef(const std::wstring& progId)>;

  // Every statement has that many rows of nulls.
  CapturingSurroundings(int rows, Maker maker) : rows_(rows), maker_(std::move(maker)) {}

  Captured captured;

  std::unique_ptr<platform::Connection> NewConnection() override { return std::make_unique<CapturingConnection>(); }
  std::unique_ptr<platform::Command> NewCommand() override { return std::make_unique<CapturingCommand>(); }
  std::unique_ptr<platform::Recordset> NewRecordset() override {
    return std::make_unique<CapturingRecordset>(captured.statements, rows_);
  }
  ObjectRef CreateObject(const std::wstring& progId) override {
    if (std::ranges::find(captured.components, progId) == captured.components.end())
      captured.components.push_back(progId);
    return maker_(progId);
  }
  void SetEnvironment(const std::wstring&, const std::wstring&) override {}
  std::optional<std::uint64_t> FileLength(const std::wstring&) override { return std::nullopt; }
  bool IsFile(const std::wstring&) override { return false; }

 private:
  int rows_;
  Maker maker_;
};

}  // namespace kodra::console
