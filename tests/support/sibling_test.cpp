#include "siblings/sibling.h"

#include <gtest/gtest.h>

#include "recorder/raised.h"
#include "siblings/value_object.h"

namespace kodra::support {
namespace {

using platform::ObjectRef;
using platform::Value;
using recorder::Raised;
using recorder::RaisedBy;

class Sample final : public Sibling<Sample> {
 public:
  static std::span<const Member<Sample>> Members() {
    static const Member<Sample> kMembers[] = {
        Property<&Sample::text_>(L"Texto"),
        ReadOnly<&Sample::Length>(L"Tamanho"),
        Method<&Sample::Append, 1>(L"Acrescenta"),
        {.name = L"Conexao", .set = [](Sample& self, const ObjectRef& object) { self.object_ = object; }},
    };
    return kMembers;
  }
  const ObjectRef& Object() const { return object_; }

 private:
  std::int32_t Length() { return static_cast<std::int32_t>(text_.size()); }
  Value Append(std::span<const Value> arguments) {
    text_ += text::ToText(arguments[0]);
    return text_;
  }

  std::wstring text_;
  ObjectRef object_;
};

const Raised kNotFound = {438, "KodraRpt", "O objeto não aceita esta propriedade ou método"};

TEST(Sibling, FindsItsMembersInAnyLetterCase) {
  Sample sample;
  sample.Let(L"TEXTO", L"ação");
  EXPECT_EQ(sample.Get(L"texto"), Value(L"ação"));
  EXPECT_EQ(sample.Get(L"tamanho"), Value(4));
}

TEST(Sibling, TakesAnyValueThatConvertsForATextProperty) {
  Sample sample;
  sample.Let(L"Texto", 12);
  EXPECT_EQ(sample.Get(L"Texto"), Value(L"12"));
}

TEST(Sibling, CallsAMethodWithItsArguments) {
  Sample sample;
  const Value arguments[] = {Value(L"abc")};
  EXPECT_EQ(sample.Call(L"Acrescenta", arguments), Value(L"abc"));
  EXPECT_EQ(sample.Call(L"acrescenta", arguments), Value(L"abcabc"));
}

TEST(Sibling, ReadsAPropertyThatIsCalledWithoutArguments) {
  Sample sample;
  EXPECT_EQ(sample.Call(L"Tamanho", {}), Value(0));
}

TEST(Sibling, SetsAnObject) {
  Sample sample;
  const ObjectRef object = std::make_shared<Sample>();
  sample.Set(L"Conexao", object);
  EXPECT_EQ(sample.Object(), object);
}

TEST(Sibling, RaisesMemberNotFoundForANameThatItDoesNotHave) {
  Sample sample;
  EXPECT_EQ(RaisedBy([&] { sample.Get(L"Textos"); }), kNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Let(L"Textos", 1); }), kNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Set(L"Textos", nullptr); }), kNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Call(L"Textos", {}); }), kNotFound);
}

TEST(Sibling, RaisesMemberNotFoundForAMemberOfAnotherUse) {
  Sample sample;
  const Value argument[] = {Value(1)};
  EXPECT_EQ(RaisedBy([&] { sample.Get(L"Acrescenta"); }), kNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Let(L"Tamanho", 1); }), kNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Let(L"Conexao", 1); }), kNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Set(L"Texto", nullptr); }), kNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Call(L"Texto", argument); }), kNotFound);
}

TEST(Sibling, RaisesWrongArgumentsForTooFewAndTooMany) {
  const Raised expected = {450, "KodraRpt", "Número de argumentos incorreto ou atribuição de propriedade inválida"};
  Sample sample;
  const Value two[] = {Value(1), Value(2)};
  EXPECT_EQ(RaisedBy([&] { sample.Call(L"Acrescenta", {}); }), expected);
  EXPECT_EQ(RaisedBy([&] { sample.Call(L"Acrescenta", two); }), expected);
}

TEST(ValueObject, GivesItsValuesAndNothingElse) {
  ValueObject values({{L"Grupo", L"Fundo"}, {L"Max_Dias", 90}});
  const Value argument[] = {Value(1)};
  EXPECT_EQ(values.Get(L"grupo"), Value(L"Fundo"));
  EXPECT_EQ(values.Call(L"MAX_DIAS", {}), Value(90));
  EXPECT_EQ(RaisedBy([&] { values.Get(L"Serie"); }), kNotFound);
  EXPECT_EQ(RaisedBy([&] { values.Let(L"Grupo", 1); }), kNotFound);
  EXPECT_EQ(RaisedBy([&] { values.Set(L"Grupo", nullptr); }), kNotFound);
  EXPECT_EQ(RaisedBy([&] { values.Call(L"Grupo", argument); }), kNotFound);
}

}  // namespace
}  // namespace kodra::support
