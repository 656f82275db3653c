// Reading the parameter object of a client.
#include "frame/parameter_reader.h"

#include <gtest/gtest.h>

#include "frame/parameter_object.h"
#include "recorder/fake_surroundings.h"
#include "recorder/raised.h"

namespace kodra::frame {
namespace {

using platform::Value;
using recorder::Failure;
using recorder::FakeSurroundings;
using recorder::Lines;
using recorder::Raised;
using recorder::RaisedBy;

class ReadTextTest : public testing::Test {
 protected:
  std::wstring ReadFrom(const Value& answer) {
    return ReadText(*around_.NewObject(L"Parametros", {{L"TipoRpt", {answer}}}), L"TipoRpt");
  }

  FakeSurroundings around_;
};

TEST_F(ReadTextTest, ReadsThePropertyOnce) {
  EXPECT_EQ(ReadFrom(L"Vencidas"), L"Vencidas");
  EXPECT_EQ(around_.journal.Calls(), Lines({R"(Parametros.Get(TipoRpt) -> "Vencidas")", "~Parametros"}));
}

TEST_F(ReadTextTest, ReadsTheComponentsOwnObjects) {
  ParameterObject media(ParameterClassNamed(L"CCDRptObj"));
  media.Let(L"TipoRpt", L"vencidas");
  EXPECT_EQ(ReadText(media, L"TipoRpt"), L"V");
}

TEST_F(ReadTextTest, TurnsAnotherKindOfValueIntoText) {
  EXPECT_EQ(ReadFrom(5), L"5");
  EXPECT_EQ(ReadFrom(platform::Empty{}), L"");
}

TEST_F(ReadTextTest, NamesThePropertyThatTheObjectDoesNotHave) {
  const auto object = around_.NewObject(L"Parametros", {});
  EXPECT_EQ(RaisedBy([&] { ReadText(*object, L"CodModelo"); }),
            (Raised{438, "KodraRpt", R"(O objeto de parâmetros não tem a propriedade "CodModelo".)"}));
}

TEST_F(ReadTextTest, LetsAnyOtherErrorThrough) {
  around_.journal.FailOn(L"Parametros.Get", Failure(platform::Erro(-2147220000, L"Cliente", L"Agora não")));
  EXPECT_EQ(RaisedBy([&] { ReadFrom(L"V"); }), (Raised{-2147220000, "Cliente", "Agora não"}));
}

TEST_F(ReadTextTest, RefusesANullAndAnObject) {
  EXPECT_EQ(RaisedBy([&] { ReadFrom(platform::Null{}); }), (Raised{94, "KodraRpt", "Uso de 'Null' inválido"}));
  EXPECT_EQ(RaisedBy([&] { ReadFrom(around_.NewObject(L"Outro", {})); }),
            (Raised{13, "KodraRpt", "Tipos incompatíveis"}));
}

}  // namespace
}  // namespace kodra::frame
