#include "platform/ado.h"

#include "values/automation.h"
#include "values/erro.h"

namespace kodra::platform {
namespace {

// A field by its automation members.
class FieldObject final : public AutomationObject {
 public:
  explicit FieldObject(Field& field) : field_(field) {}

  Value Get(std::wstring_view member) override { return Named(member).Get(); }
  void Let(std::wstring_view member, const Value& value) override { Named(member).Let(value); }
  void Set(std::wstring_view, const ObjectRef&) override { throw MemberNotFound(); }
  Value Call(std::wstring_view, std::span<const Value>) override { throw MemberNotFound(); }

 private:
  Field& Named(std::wstring_view member) {
    if (member != L"Value") throw MemberNotFound();
    return field_;
  }

  Field& field_;
};

}  // namespace

ObjectRef Field::AsObject() { return std::make_shared<FieldObject>(*this); }

}  // namespace kodra::platform
