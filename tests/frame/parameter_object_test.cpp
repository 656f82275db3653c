// The classes of parameter objects, their properties, and assignments to them.
#include "frame/parameter_object.h"

#include <gtest/gtest.h>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::frame {
namespace {

using recorder::FakeSurroundings;
using recorder::kInvalidUseOfNull;
using recorder::kMemberNotFound;
using recorder::kTypeMismatch;
using recorder::RaisedBy;
using recorder::Utf8;

// A property in the table below: its name, its rule, and its initial text if it is not empty.
struct Expected {
  const wchar_t* name;
  PropertyRule rule;
  const wchar_t* initial = L"";
};
struct ExpectedClass {
  const wchar_t* name;
  std::vector<Expected> properties;
};

constexpr auto kText = PropertyRule::kText;
constexpr auto kInitial = PropertyRule::kInitial;
constexpr auto kTrimmed = PropertyRule::kTrimmed;
constexpr auto kDate = PropertyRule::kDate;
constexpr auto kFlag = PropertyRule::kFlag;

const std::vector<ExpectedClass>& Table() {
  static const std::vector<ExpectedClass> table = {
      {L"CEstatSerieRptObj",
       {{L"DataInicial", kDate},
        {L"DataFinal", kDate},
        {L"Owner", kText},
        {L"TipoRpt", kInitial},
        {L"CodGrupo", kText}}},
      {L"CCDRptObj", {{L"Owner", kText}, {L"TipoRpt", kInitial}}},
      {L"CTipo_CaixaRptObj", {{L"Owner", kText}}},
      {L"CSuporteRptObj", {{L"Owner", kText}}},
      {L"CSubgrupoRptObj", {{L"Owner", kText}}},
      {L"CSerieRptObj", {{L"Owner", kText}}},
      {L"COperadorRptObj", {{L"Owner", kText}}},
      {L"CContainerRptObj",
       {{L"Owner", kText}, {L"Container1", kText}, {L"Container2", kText}, {L"Container3", kText}}},
      {L"CDepositoRptObj", {{L"Owner", kText}}},
      {L"CDicionarioRptObj", {{L"Owner", kText}}},
      {L"CDeptoRptObj", {{L"Owner", kText}}},
      {L"CDocumentoRptObj",
       {{L"Owner", kText}, {L"DataArmazenamento1", kDate}, {L"DataArmazenamento2", kDate}, {L"CodDepto", kText}}},
      {L"CGrupoRptObj", {{L"Owner", kText}}},
      {L"CLogRptObj",
       {{L"Owner", kText},
        {L"MaquinaOrigem", kText},
        {L"Operador", kText},
        {L"Acao", kText},
        {L"Evento", kText},
        {L"CodDocto", kText},
        {L"DataInicial", kDate},
        {L"DataFinal", kDate}}},
      {L"CModeloRptObj", {{L"Owner", kText}, {L"CodModelo", kTrimmed}}},
      {L"CEstatImgRptObj",
       {{L"Owner", kText},
        {L"DataInicial", kDate},
        {L"DataFinal", kDate},
        {L"CodOperador", kTrimmed},
        {L"CodDepto", kTrimmed},
        {L"TipoRpt", kInitial}}},
      {L"CEstatIndexRptObj",
       {{L"Owner", kText},
        {L"CodOperador", kTrimmed},
        {L"CodDepto", kTrimmed},
        {L"DescrDepto", kText},
        {L"DescrOperador", kText},
        {L"DataInicial", kDate},
        {L"DataFinal", kDate},
        {L"NumeroPC1", kText},
        {L"NumeroPC2", kText},
        {L"NumeroPC3", kText},
        {L"NumeroPC4", kText},
        {L"NumeroPC5", kText},
        {L"NumeroObs", kText}}},
      {L"CEstatSuporteRptObj",
       {{L"Owner", kText}, {L"DataInicial", kDate}, {L"DataFinal", kDate}, {L"TipoRpt", kInitial}}},
      {L"CEstatSubgrupoRptObj",
       {{L"Owner", kText}, {L"DataInicial", kDate}, {L"DataFinal", kDate}, {L"TipoRpt", kInitial}}},
      {L"CTipo_MidiaRptObj", {{L"Owner", kText}}},
      {L"CSolicitacaoRptObj", {{L"Owner", kText}, {L"CodSolicit", kText}, {L"ListarJaDevolvidos", kFlag}}},
      {L"CGrupoOperadorRptObj", {{L"Owner", kText}}},
      {L"CCaixaRptObj",
       {{L"Owner", kText},
        {L"Modulo1", kText},
        {L"Modulo2", kText},
        {L"Modulo3", kText},
        {L"Ordenacao", kInitial, L"N"},
        {L"SomenteExistentes", kFlag},
        {L"Tipo", kInitial},
        {L"CodDepto", kText},
        {L"CodSerie", kText},
        {L"ModoPregresso", kFlag}}},
  };
  return table;
}

ParameterObject NewObject(std::wstring_view name) { return ParameterObject(ParameterClassNamed(name)); }

TEST(ParameterClassesTest, AreTheTwentyThreeInTheirOrder) {
  std::vector<std::wstring> names;
  for (const ParameterClass& found : ParameterClasses()) names.emplace_back(found.name);
  std::vector<std::wstring> expected;
  for (const ExpectedClass& row : Table()) expected.emplace_back(row.name);
  EXPECT_EQ(names.size(), 23U);
  EXPECT_EQ(names, expected);
}

TEST(ParameterClassesTest, HoldTheirPropertiesInInterfaceOrder) {
  for (const ExpectedClass& row : Table()) {
    std::vector<std::wstring> expected;
    for (const Expected& property : row.properties) expected.emplace_back(property.name);
    std::vector<std::wstring> names;
    for (const Property& property : ParameterClassNamed(row.name).properties) names.emplace_back(property.name);
    EXPECT_EQ(names, expected) << Utf8(row.name);
  }
}

// Calls check(a new object, property) for every property of every class.
template <class Check>
void ForEachProperty(Check check) {
  for (const ExpectedClass& row : Table()) {
    for (const Expected& property : row.properties) {
      SCOPED_TRACE(Utf8(row.name) + "." + Utf8(property.name));
      ParameterObject object = NewObject(row.name);
      check(object, property);
    }
  }
}

TEST(ParameterClassesTest, StartEmptyOrWithTheirInitialText) {
  ForEachProperty([](ParameterObject& object, const Expected& property) {
    const Value start = object.Get(property.name);
    if (property.rule == kDate)
      EXPECT_EQ(start, Value(Date{0}));
    else if (property.rule == kFlag)
      EXPECT_EQ(start, Value(false));
    else
      EXPECT_EQ(start, Value(property.initial));
  });
}

TEST(ParameterClassesTest, ApplyThePropertysRuleToEveryAssignment) {
  ForEachProperty([](ParameterObject& object, const Expected& property) {
    const auto kept = [&](const Value& given) {
      object.Let(property.name, given);
      return object.Get(property.name);
    };
    switch (property.rule) {
      case kText:
        EXPECT_EQ(kept(L"  vencidas "), Value(L"  vencidas "));
        break;
      case kInitial:
        EXPECT_EQ(kept(L"vencidas"), Value(L"V"));
        break;
      case kTrimmed:
        EXPECT_EQ(kept(L"  ab c "), Value(L"ab c"));
        break;
      case kDate:
        EXPECT_EQ(kept(Date{45291.5}), Value(Date{45291.5}));
        break;
      case kFlag:
        EXPECT_EQ(kept(true), Value(true));
        break;
    }
  });
}

TEST(ParameterObjectTest, KeepsEachPropertySeparately) {
  ParameterObject object = NewObject(L"CContainerRptObj");
  object.Let(L"Owner", L"a");
  object.Let(L"Container1", L"b");
  object.Let(L"Container2", L"c");
  object.Let(L"Container3", L"d");
  EXPECT_EQ(object.Get(L"Owner"), Value(L"a"));
  EXPECT_EQ(object.Get(L"Container1"), Value(L"b"));
  EXPECT_EQ(object.Get(L"Container2"), Value(L"c"));
  EXPECT_EQ(object.Get(L"Container3"), Value(L"d"));
  EXPECT_EQ(NewObject(L"CContainerRptObj").Get(L"Owner"), Value(L""));
}

TEST(ParameterObjectTest, KeepsTheFirstCharacterOfAnInitialUpperCased) {
  ParameterObject object = NewObject(L"CCDRptObj");
  const std::pair<const wchar_t*, const wchar_t*> kCases[] = {
      {L"v", L"V"}, {L"vencidas", L"V"}, {L"Todas", L"T"}, {L"", L""},   {L" v", L" "},
      {L"ç", L"Ç"}, {L"éx", L"É"},       {L"1a", L"1"},    {L"ß", L"ß"},
  };
  for (const auto& [given, kept] : kCases) {
    object.Let(L"TipoRpt", given);
    EXPECT_EQ(object.Get(L"TipoRpt"), Value(kept)) << Utf8(given);
  }
}

TEST(ParameterObjectTest, TrimsBlanksAtBothEndsOnly) {
  ParameterObject object = NewObject(L"CModeloRptObj");
  const std::pair<const wchar_t*, const wchar_t*> kCases[] = {
      {L"  M 01  ", L"M 01"}, {L"M01", L"M01"}, {L"   ", L""}, {L"", L""}, {L"\tM01\t ", L"\tM01\t"},
  };
  for (const auto& [given, kept] : kCases) {
    object.Let(L"CodModelo", given);
    EXPECT_EQ(object.Get(L"CodModelo"), Value(kept)) << Utf8(given);
  }
}

TEST(ParameterObjectTest, StartsEachLetterPropertyWithItsOwnInitialText) {
  EXPECT_EQ(NewObject(L"CEstatSerieRptObj").Get(L"TipoRpt"), Value(L""));
  EXPECT_EQ(NewObject(L"CCaixaRptObj").Get(L"Ordenacao"), Value(L"N"));
  EXPECT_EQ(NewObject(L"CCaixaRptObj").Get(L"Tipo"), Value(L""));
}

TEST(ParameterObjectTest, FindsAPropertyInAnyLetterCase) {
  ParameterObject object = NewObject(L"CCDRptObj");
  object.Let(L"TIPORPT", L"v");
  EXPECT_EQ(object.Get(L"tiporpt"), Value(L"V"));
}

TEST(ParameterObjectTest, ConvertsValuesAssignedToATextPropertyToText) {
  ParameterObject object = NewObject(L"CDeptoRptObj");
  const std::pair<Value, const wchar_t*> kCases[] = {
      {5, L"5"}, {1.5, L"1,5"}, {true, L"Verdadeiro"}, {Empty{}, L""}, {Date{45291}, L"31/12/2023"},
  };
  for (const auto& [given, kept] : kCases) {
    object.Let(L"Owner", given);
    EXPECT_EQ(object.Get(L"Owner"), Value(kept)) << Utf8(kept);
  }
}

TEST(ParameterObjectTest, ConvertsValuesAssignedToADatePropertyToADate) {
  ParameterObject object = NewObject(L"CLogRptObj");
  const std::pair<Value, double> kCases[] = {
      {L"31/12/2023", 45291}, {L"31/12/2023 12:00:00", 45291.5}, {45291, 45291}, {2.25, 2.25}, {Empty{}, 0},
  };
  for (const auto& [given, kept] : kCases) {
    object.Let(L"DataInicial", given);
    EXPECT_EQ(object.Get(L"DataInicial"), Value(Date{kept})) << kept;
  }
}

TEST(ParameterObjectTest, ConvertsValuesAssignedToAFlagToABoolean) {
  ParameterObject object = NewObject(L"CSolicitacaoRptObj");
  const std::pair<Value, bool> kCases[] = {
      {-1, true},        {1, true},   {0, false},   {L"Verdadeiro", true},
      {L"false", false}, {0.5, true}, {L"2", true}, {Empty{}, false},
  };
  for (const auto& [given, kept] : kCases) {
    object.Let(L"ListarJaDevolvidos", given);
    EXPECT_EQ(object.Get(L"ListarJaDevolvidos"), Value(kept)) << Utf8(recorder::Shown(given));
  }
}

TEST(ParameterObjectTest, RefusesWhatIsNoDateOrFlagAndKeepsItsValue) {
  ParameterObject log = NewObject(L"CLogRptObj");
  log.Let(L"DataInicial", Date{2});
  EXPECT_EQ(RaisedBy([&] { log.Let(L"DataInicial", L"ontem"); }), kTypeMismatch);
  EXPECT_EQ(log.Get(L"DataInicial"), Value(Date{2}));
  ParameterObject request = NewObject(L"CSolicitacaoRptObj");
  request.Let(L"ListarJaDevolvidos", true);
  EXPECT_EQ(RaisedBy([&] { request.Let(L"ListarJaDevolvidos", L"talvez"); }), kTypeMismatch);
  EXPECT_EQ(request.Get(L"ListarJaDevolvidos"), Value(true));
}

TEST(ParameterObjectTest, RefusesANullAndAnObjectWithoutDefaultPropertyAndKeepsItsValue) {
  FakeSurroundings around;
  const ObjectRef other = around.NewObject(L"Outro", {});
  ForEachProperty([&](ParameterObject& object, const Expected& property) {
    const Value start = object.Get(property.name);
    EXPECT_EQ(RaisedBy([&] { object.Let(property.name, Null{}); }), kInvalidUseOfNull);
    EXPECT_EQ(RaisedBy([&] { object.Let(property.name, other); }), kMemberNotFound);
    EXPECT_EQ(object.Get(property.name), start);
  });
}

TEST(ParameterObjectTest, HasNoPropertyOfAnotherClass) {
  ParameterObject object = NewObject(L"CDeptoRptObj");
  EXPECT_EQ(RaisedBy([&] { object.Get(L"TipoRpt"); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { object.Let(L"TipoRpt", L"V"); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { object.Get(L""); }), kMemberNotFound);
}

TEST(ParameterObjectTest, TakesNoObjectAndHasNoMethod) {
  ParameterObject object = NewObject(L"CDeptoRptObj");
  EXPECT_EQ(RaisedBy([&] { object.Set(L"Owner", nullptr); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { object.Call(L"Owner", {}); }), kMemberNotFound);
}

}  // namespace
}  // namespace kodra::frame
