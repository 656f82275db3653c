#include "console/statements/capture.h"

#include "console/statements/capturing_ado.h"
#include "console/statements/placeholders.h"
#include "platform/surroundings.h"
#include "values/erro.h"

namespace kodra::console {
namespace {

// It names no database: what a database's own connection strings need is no part of a report.
constexpr const wchar_t* kConnectionString = L"kodrarpt";

class CapturingSurroundings final : public platform::Surroundings {
 public:
  CapturingSurroundings(std::int32_t databaseCode, int rows) : databaseCode_(databaseCode), rows_(rows) {}

  Captured& Result() { return captured_; }

  std::unique_ptr<platform::Connection> NewConnection() override { return std::make_unique<CapturingConnection>(); }
  std::unique_ptr<platform::Command> NewCommand() override { return std::make_unique<CapturingCommand>(); }
  std::unique_ptr<platform::Recordset> NewRecordset() override {
    return std::make_unique<CapturingRecordset>(captured_.statements, rows_);
  }
  ObjectRef CreateObject(const std::wstring& progId) override {
    captured_.components.insert(progId);
    return NewPlaceholder(progId, databaseCode_);
  }
  void SetEnvironment(const std::wstring&, const std::wstring&) override {}
  std::optional<std::uint64_t> FileLength(const std::wstring&) override { return std::nullopt; }
  bool IsFile(const std::wstring&) override { return false; }

 private:
  std::int32_t databaseCode_;
  int rows_;
  Captured captured_;
};

Captured CaptureWith(int rows, const reports::ReportMethod& method, std::int32_t databaseCode,
                     frame::ParameterObject& parameters) {
  CapturingSurroundings surroundings(databaseCode, rows);
  method.call(surroundings, kConnectionString, &parameters);
  return std::move(surroundings.Result());
}

}  // namespace

Captured Capture(const reports::ReportMethod& method, std::int32_t databaseCode, frame::ParameterObject& parameters) {
  try {
    return CaptureWith(0, method, databaseCode, parameters);
  } catch (const Erro&) {  // a report that goes no further without rows, or fails either way
    return CaptureWith(1, method, databaseCode, parameters);
  }
}

}  // namespace kodra::console
