#include "client/statements/capturing_ado.h"

#include "text/convert.h"

namespace kodra::client {
namespace {

class NullField final : public platform::Field {
 public:
  platform::Value Get() override { return platform::Null{}; }
  void Let(const platform::Value&) override {}
};

}  // namespace

void CapturingCommand::AppendParameter(const std::wstring&, std::int32_t, std::int32_t, std::int32_t,
                                       const platform::Value& value) {
  statement_.parameters.push_back(text::ToTextOrEmpty(value));
}

void CapturingRecordset::Open(const platform::RecordsetSource& source, const platform::ActiveConnection&, std::int32_t,
                              std::int32_t, std::int32_t) {
  isOpen_ = true;
  current_ = 0;
  if (const auto* text = std::get_if<std::wstring_view>(&source)) {
    statements_.push_back({std::wstring(*text), {}});
  } else if (const auto* command = std::get_if<platform::Command*>(&source)) {
    statements_.push_back(static_cast<const CapturingCommand&>(**command).Text());
  }
}

std::unique_ptr<platform::Field> CapturingRecordset::FieldByName(const std::wstring&) {
  return std::make_unique<NullField>();
}

}  // namespace kodra::client
