// Creating sibling components.
#include "data/create_object.h"

#include <gtest/gtest.h>

#include "tests/recorder/fake_surroundings.h"
#include "tests/recorder/raised.h"

namespace kodra::data {
namespace {

using recorder::Failure;
using recorder::FakeSurroundings;
using recorder::Lines;
using recorder::Raised;
using recorder::RaisedBy;

class CriaObjetoTest : public testing::Test {
 protected:
  ObjectRef Made() { return CriaObjeto(L"KodraProva.Classe", L"modProva::Chamador", around_); }

  FakeSurroundings around_;
};

TEST_F(CriaObjetoTest, ReturnsTheObject) {
  around_.Register(L"KodraProva.Classe", {});
  EXPECT_NE(Made(), nullptr);
  EXPECT_EQ(around_.journal.Calls(), Lines({R"(CreateObject("KodraProva.Classe") -> Object1)", "~Object1"}));
}

TEST_F(CriaObjetoTest, NamesTheClassThatIsNotRegistered) {
  EXPECT_EQ(RaisedBy([&] { Made(); }),
            (Raised{429, "modProva::Chamador", R"(Não foi possível criar objeto da classe "KodraProva.Classe".)"}));
}

TEST_F(CriaObjetoTest, ReturnsNothingAfterAnyOtherError) {
  around_.Register(L"KodraProva.Classe", {});
  around_.journal.FailOn(L"CreateObject", Failure(Erro(-2147024891, L"", L"Acesso negado")));
  EXPECT_EQ(Made(), nullptr);
}

}  // namespace
}  // namespace kodra::data
