#include "siblings/sibling.h"

#include <gtest/gtest.h>

#include "siblings/value_object.h"
#include "tests/recorder/raised.h"

namespace kodra::siblings {
namespace {

using recorder::kMemberNotFound;
using recorder::kObjectRequired;
using recorder::kTypeMismatch;
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
    text_ += values::ToText(arguments[0]);
    return text_;
  }

  std::wstring text_;
  ObjectRef object_;
};

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

class Kinds final : public Sibling<Kinds> {
 public:
  static std::span<const Member<Kinds>> Members() {
    static const Member<Kinds> kMembers[] = {
        Property<&Kinds::number_>(L"Numero"),  Property<&Kinds::flag_>(L"Marca"),      Property<&Kinds::date_>(L"Data"),
        Reference<&Kinds::object_>(L"Objeto"), ReadOnly<&Kinds::fixed_>(L"Constante"),
    };
    return kMembers;
  }

 private:
  std::int32_t number_ = 0;
  bool flag_ = false;
  Date date_;
  ObjectRef object_;
  std::wstring fixed_ = L"sempre";
};

TEST(Sibling, ConvertsAnAssignedValueToTheTypeOfTheProperty) {
  Kinds kinds;
  kinds.Let(L"Numero", L"12");
  kinds.Let(L"Marca", -1);
  kinds.Let(L"Data", L"31/12/2023");
  EXPECT_EQ(kinds.Get(L"Numero"), Value(12));
  EXPECT_EQ(kinds.Get(L"Marca"), Value(true));
  EXPECT_EQ(kinds.Get(L"Data"), Value(Date{45291}));
  EXPECT_EQ(RaisedBy([&] { kinds.Let(L"Numero", L"doze"); }), kTypeMismatch);
  EXPECT_EQ(kinds.Get(L"Numero"), Value(12));
}

TEST(Sibling, TakesAnObjectByReferenceAndByValue) {
  Kinds kinds;
  EXPECT_EQ(kinds.Get(L"Objeto"), Value(ObjectRef()));
  const ObjectRef object = std::make_shared<Kinds>();
  kinds.Set(L"Objeto", object);
  EXPECT_EQ(kinds.Get(L"Objeto"), Value(object));
  kinds.Let(L"Objeto", Null());
  EXPECT_EQ(kinds.Get(L"Objeto"), Value(ObjectRef()));
  kinds.Let(L"Objeto", object);
  EXPECT_EQ(kinds.Get(L"Objeto"), Value(object));
  EXPECT_EQ(RaisedBy([&] { kinds.Let(L"Objeto", 1); }), kObjectRequired);
}

TEST(Sibling, DoesNotAssignAReadOnlyProperty) {
  Kinds kinds;
  EXPECT_EQ(kinds.Get(L"Constante"), Value(L"sempre"));
  EXPECT_EQ(RaisedBy([&] { kinds.Let(L"Constante", L"nunca"); }), kMemberNotFound);
}

TEST(Sibling, SetsAnObject) {
  Sample sample;
  const ObjectRef object = std::make_shared<Sample>();
  sample.Set(L"Conexao", object);
  EXPECT_EQ(sample.Object(), object);
}

TEST(Sibling, RaisesMemberNotFoundForANameThatItDoesNotHave) {
  Sample sample;
  EXPECT_EQ(RaisedBy([&] { sample.Get(L"Textos"); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Let(L"Textos", 1); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Set(L"Textos", nullptr); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Call(L"Textos", {}); }), kMemberNotFound);
}

TEST(Sibling, RaisesMemberNotFoundForAMemberUsedInAnotherWay) {
  Sample sample;
  const Value argument[] = {Value(1)};
  EXPECT_EQ(RaisedBy([&] { sample.Get(L"Acrescenta"); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Let(L"Tamanho", 1); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Let(L"Conexao", 1); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Set(L"Texto", nullptr); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { sample.Call(L"Texto", argument); }), kMemberNotFound);
}

TEST(Sibling, RaisesWrongArgumentsForTooFewAndTooMany) {
  const Raised expected = {450, "KodraRpt", "Número de argumentos incorreto ou atribuição de propriedade inválida"};
  Sample sample;
  const Value two[] = {Value(1), Value(2)};
  EXPECT_EQ(RaisedBy([&] { sample.Call(L"Acrescenta", {}); }), expected);
  EXPECT_EQ(RaisedBy([&] { sample.Call(L"Acrescenta", two); }), expected);
}

TEST(ValueObject, ReturnsItsValuesAndNothingElse) {
  ValueObject values({{L"Grupo", L"Fundo"}, {L"Max_Dias", 90}});
  const Value argument[] = {Value(1)};
  EXPECT_EQ(values.Get(L"grupo"), Value(L"Fundo"));
  EXPECT_EQ(values.Call(L"MAX_DIAS", {}), Value(90));
  EXPECT_EQ(RaisedBy([&] { values.Get(L"Serie"); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { values.Let(L"Grupo", 1); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { values.Set(L"Grupo", nullptr); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { values.Call(L"Grupo", argument); }), kMemberNotFound);
}

}  // namespace
}  // namespace kodra::siblings
