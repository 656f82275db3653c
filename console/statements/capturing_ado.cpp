#include "console/statements/capturing_ado.h"

#include "values/convert.h"

namespace kodra::console {
namespace {

class NullField final : public platform::Field {
 public:
  Value Get() override { return Null{}; }
  void Let(const Value&) override {}
};

}  // namespace

void CapturingCommand::AppendParameter(const std::wstring&, std::int32_t, std::int32_t, std::int32_t,
                                       const Value& value) {
  statement_.parameters.push_back(values::ToTextOrEmpty(value));
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

}  // namespace kodra::console
