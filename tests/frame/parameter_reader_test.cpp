// Reading the parameter object of a client.
#include "frame/parameter_reader.h"

#include <gtest/gtest.h>

#include "frame/parameter_object.h"
#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::frame {
namespace {

using recorder::Failure;
using recorder::FakeSurroundings;
using recorder::kInvalidUseOfNull;
using recorder::kMemberNotFound;
using recorder::kTypeMismatch;
using recorder::Lines;
using recorder::Raised;
using recorder::RaisedBy;

class ParameterReaderTest : public testing::Test {
 protected:
  ObjectRef Parameters(const Value& answer) { return around_.NewObject(L"Parametros", {{L"TipoRpt", {answer}}}); }
  std::wstring ReadFrom(const Value& answer) { return ReadText(*Parameters(answer), L"TipoRpt"); }

  FakeSurroundings around_;
};

TEST_F(ParameterReaderTest, ReadsThePropertyOnce) {
  EXPECT_EQ(ReadFrom(L"Vencidas"), L"Vencidas");
  EXPECT_EQ(around_.journal.Calls(), Lines({R"(Parametros.Get(TipoRpt) -> "Vencidas")", "~Parametros"}));
}

TEST_F(ParameterReaderTest, ReadsTheComponentsOwnObjects) {
  ParameterObject media(ParameterClassNamed(L"CCDRptObj"));
  media.Let(L"TipoRpt", L"vencidas");
  EXPECT_EQ(ReadText(media, L"TipoRpt"), L"V");
}

TEST_F(ParameterReaderTest, ConvertsOtherKindsOfValuesToText) {
  EXPECT_EQ(ReadFrom(5), L"5");
  EXPECT_EQ(ReadFrom(Empty{}), L"");
}

TEST_F(ParameterReaderTest, ReadsADateFromADateOrItsText) {
  for (const Value& answer : {Value(Date{45291.5}), Value(L"31/12/2023 12:00:00"), Value(45291.5)})
    EXPECT_EQ(ReadDate(*Parameters(answer), L"TipoRpt"), Date{45291.5});
  EXPECT_EQ(ReadDate(*Parameters(Empty{}), L"TipoRpt"), Date{0});
  EXPECT_EQ(RaisedBy([&] { ReadDate(*Parameters(L"ontem"), L"TipoRpt"); }), kTypeMismatch);
}

TEST_F(ParameterReaderTest, ReadsAFlagFromABooleanOrANumber) {
  for (const Value& answer : {Value(true), Value(-1), Value(L"Verdadeiro")})
    EXPECT_TRUE(ReadFlag(*Parameters(answer), L"TipoRpt"));
  for (const Value& answer : {Value(false), Value(0), Value(L"Falso"), Value()})
    EXPECT_FALSE(ReadFlag(*Parameters(answer), L"TipoRpt"));
  EXPECT_EQ(RaisedBy([&] { ReadFlag(*Parameters(L"talvez"), L"TipoRpt"); }), kTypeMismatch);
}

TEST_F(ParameterReaderTest, NamesThePropertyThatTheObjectDoesNotHave) {
  const auto object = around_.NewObject(L"Parametros", {});
  const Raised missing = {438, "KodraRpt", R"(O objeto de parâmetros não tem a propriedade "CodModelo".)"};
  EXPECT_EQ(RaisedBy([&] { ReadText(*object, L"CodModelo"); }), missing);
  EXPECT_EQ(RaisedBy([&] { ReadDate(*object, L"CodModelo"); }), missing);
  EXPECT_EQ(RaisedBy([&] { ReadFlag(*object, L"CodModelo"); }), missing);
}

TEST_F(ParameterReaderTest, KeepsTheDescriptionOfAMissingMemberThatTheGetterItselfRaises) {
  const auto object = Parameters(L"V");
  const auto raises = [&] {
    around_.journal.FailOn(L"Parametros.Get", Failure(Erro(438, L"Cliente", L"O documento não tem capa")));
  };
  const Raised own = {438, "Cliente", "O documento não tem capa"};
  raises();
  EXPECT_EQ(RaisedBy([&] { ReadText(*object, L"TipoRpt"); }), own);
  raises();
  EXPECT_EQ(RaisedBy([&] { ReadDate(*object, L"TipoRpt"); }), own);
  raises();
  EXPECT_EQ(RaisedBy([&] { ReadFlag(*object, L"TipoRpt"); }), own);
}

TEST_F(ParameterReaderTest, PassesOnAnyOtherError) {
  around_.journal.FailOn(L"Parametros.Get", Failure(Erro(-2147220000, L"Cliente", L"Agora não")));
  EXPECT_EQ(RaisedBy([&] { ReadFrom(L"V"); }), (Raised{-2147220000, "Cliente", "Agora não"}));
}

TEST_F(ParameterReaderTest, RefusesANullAndAnObjectWithoutDefaultProperty) {
  const auto null = Parameters(Null{});
  EXPECT_EQ(RaisedBy([&] { ReadText(*null, L"TipoRpt"); }), kInvalidUseOfNull);
  EXPECT_EQ(RaisedBy([&] { ReadDate(*null, L"TipoRpt"); }), kInvalidUseOfNull);
  EXPECT_EQ(RaisedBy([&] { ReadFlag(*null, L"TipoRpt"); }), kInvalidUseOfNull);
  const auto object = Parameters(around_.NewObject(L"Outro", {}));
  EXPECT_EQ(RaisedBy([&] { ReadText(*object, L"TipoRpt"); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { ReadDate(*object, L"TipoRpt"); }), kMemberNotFound);
  EXPECT_EQ(RaisedBy([&] { ReadFlag(*object, L"TipoRpt"); }), kMemberNotFound);
}

}  // namespace
}  // namespace kodra::frame
