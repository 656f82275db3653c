// A property's text on its way into a field: handed on as it is, or given back for the caller to convert.
#include <gtest/gtest.h>

#include "ado/automation_object.h"
#include "ado/com_surroundings.h"
#include "tests/wine/foreign_object.h"
#include "values/automation.h"
#include "values/erro.h"

namespace kodra::ado {
namespace {

namespace ad = platform::ad;

class FieldText : public testing::Test {
 protected:
  static constexpr std::size_t kSize = 10;

  FieldText() {
    rows_->AppendField(L"TEXTO", ad::kVarChar, kSize, ad::kUnspecified);
    rows_->Open(std::monostate{}, std::monostate{}, ad::kUnspecified, ad::kUnspecified, ad::kUnspecified);
    rows_->AddNew();
    field_ = rows_->FieldByName(L"TEXTO");
    field_->Let(L"antes");
  }

  // What LetText gives back of an object whose property Nome has this value.
  std::optional<Value> Back(const face::Var& value, std::size_t longest = kSize) {
    const auto object = face::ForeignObject::With(L"Nome", value);
    return field_->LetText(*WrapDispatch(object.get()), L"Nome", longest);
  }

  ComSurroundings surroundings_;
  std::unique_ptr<platform::Recordset> rows_ = surroundings_.NewRecordset();
  std::unique_ptr<platform::Field> field_;
};

TEST_F(FieldText, IsHandedOnWhenItFits) {
  for (const wchar_t* text : {L"a", L"ação", L"0123456789"}) {
    SCOPED_TRACE(testing::Message() << text);
    EXPECT_EQ(std::nullopt, Back(text));
    EXPECT_EQ(Value(text), field_->Get());
  }
}

TEST_F(FieldText, KeepsACharacterZero) {
  const std::wstring text(L"a\0b", 3);
  EXPECT_EQ(std::nullopt, Back(text));
  EXPECT_EQ(Value(text), field_->Get());
}

TEST_F(FieldText, IsGivenBackWhenItIsTooLongOrEmpty) {
  EXPECT_EQ(Value(L"0123456789x"), Back(L"0123456789x"));
  EXPECT_EQ(Value(L"abc"), Back(L"abc", 2));
  EXPECT_EQ(Value(L""), Back(L""));
  EXPECT_EQ(Value(L"antes"), field_->Get());
}

TEST_F(FieldText, AnythingElseIsGivenBackAsItIs) {
  EXPECT_EQ(Value(Null{}), Back(face::Var::Null()));
  EXPECT_EQ(Value(Empty{}), Back(face::Var()));
  EXPECT_EQ(Value(std::int32_t{7}), Back(7));
  EXPECT_EQ(Value(true), Back(true));
  EXPECT_EQ(Value(Date{36526.75}), Back(face::Var::Date(36526.75)));
  EXPECT_EQ(Value(L"antes"), field_->Get());
}

// One of the component's own objects, which is not reached by way of COM.
class OwnObject final : public AutomationObject {
 public:
  Value Get(std::wstring_view member) override { return std::wstring(member); }
  void Let(std::wstring_view, const Value&) override {}
  void Set(std::wstring_view, const ObjectRef&) override {}
  Value Call(std::wstring_view, std::span<const Value>) override { return {}; }
};

TEST_F(FieldText, OfAnOwnObjectIsGivenBack) {
  OwnObject object;
  EXPECT_EQ(Value(L"Nome"), field_->LetText(object, L"Nome", kSize));
  EXPECT_EQ(Value(L"antes"), field_->Get());
}

TEST_F(FieldText, RaisesWhatTheObjectRaises) {
  const auto object =
      face::ForeignObject::With(L"Nome", face::Raising(static_cast<HRESULT>(0x8004002A), L"Cliente", L"Recusado."));
  try {
    field_->LetText(*WrapDispatch(object.get()), L"Nome", kSize);
    FAIL();
  } catch (const Erro& erro) {
    EXPECT_EQ(static_cast<std::int32_t>(0x8004002A), erro.Number());
    EXPECT_EQ(L"Cliente", erro.Source());
    EXPECT_EQ(L"Recusado.", erro.Description());
  }
}

TEST_F(FieldText, RaisesWhatTheFieldRaises) {
  try {
    Back(L"0123456789x", kSize + 1);
    FAIL();
  } catch (const Erro& erro) {
    EXPECT_EQ(static_cast<std::int32_t>(0x80040E21), erro.Number());
    EXPECT_EQ(L"Multiple-step operation generated errors. Check each status value.", erro.Description());
  }
}

}  // namespace
}  // namespace kodra::ado
