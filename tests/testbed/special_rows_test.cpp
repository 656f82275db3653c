// Every archive of 64 documents or more contains all kinds of rows that reports treat differently.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "testbed/archive/archive.h"

namespace kodra::testbed {
namespace {

class SpecialRows : public testing::TestWithParam<std::int64_t> {
 protected:
  template <class Record>
  const std::vector<Record>& Of() const {
    return archive_.Of<Record>();
  }
  template <class Record, class Condition>
  bool Has(Condition condition) const {
    return std::ranges::any_of(Of<Record>(), condition);
  }
  // The distinct values of a column.
  template <class Record, class Column>
  auto Values(Column column) const {
    std::set<std::remove_cvref_t<decltype(Of<Record>().front().*column)>> values;
    for (const Record& record : Of<Record>()) values.insert(record.*column);
    return values;
  }

  // The archive of each size is generated once for all tests.
  static const Archive& OfSize(std::int64_t documents) {
    static std::map<std::int64_t, Archive> archives;
    const auto found = archives.find(documents);
    return found != archives.end() ? found->second
                                   : archives.emplace(documents, Generate({.documents = documents})).first->second;
  }

  const Archive& archive_ = OfSize(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Sizes, SpecialRows, testing::Values(64, 1000, 60000));

TEST_P(SpecialRows, HaveMediaPastTheirTermAndMediaWithinIt) {
  std::map<MaybeText, MaybeNumber> years;
  for (const TipoMidia& type : Of<TipoMidia>()) years[type.codMidia] = type.validadeMidia;
  const Day longAgo = std::chrono::year(2025) / 1 / 1;
  const Day farAway = std::chrono::year(2075) / 1 / 1;
  const auto endsWithin = [&](Day from, Day to) {
    return Has<Cd>([&](const Cd& cd) {
      if (!cd.dataGravacao || !cd.codMidia || !years[cd.codMidia]) return false;
      const Day end = AddYears(*cd.dataGravacao, *years[cd.codMidia]);
      return end >= from && end < to;
    });
  };
  EXPECT_TRUE(endsWithin(Day(), longAgo));
  EXPECT_TRUE(endsWithin(farAway, Day::max()));
  EXPECT_TRUE(Has<Cd>([](const Cd& cd) { return !cd.dataGravacao; }));
  EXPECT_TRUE(Has<Cd>([](const Cd& cd) { return !cd.codMidia; }));
  EXPECT_TRUE(Has<Cd>([](const Cd& cd) { return cd.dataGravacao == Day(std::chrono::year(2020) / 2 / 29); }));
  EXPECT_TRUE(Has<TipoMidia>([](const TipoMidia& type) { return !type.validadeMidia; }));
}

TEST_P(SpecialRows, HaveSeriesWithAndWithoutAnOwner) {
  EXPECT_TRUE(Has<Assunto>([](const Assunto& series) { return series.dono.has_value(); }));
  EXPECT_TRUE(Has<Assunto>([](const Assunto& series) { return !series.dono; }));
}

TEST_P(SpecialRows, HaveEveryMandatoryFlagOnKeysWithCaptionsAndWithout) {
  std::set<MaybeText> onCaptions;
  bool nullCaption = false;
  bool blankCaption = false;
  for (const Assunto& series : Of<Assunto>()) {
    for (std::size_t key = 1; key < 5; ++key) {
      const MaybeText& caption = series.descrChave[key];
      const MaybeText& flag = series.obrigatoria[key - 1];
      nullCaption = nullCaption || (!caption && flag == L"1");
      blankCaption = blankCaption || (caption == L"" && flag.has_value());
      if (caption && !caption->empty()) onCaptions.insert(flag);
    }
  }
  const std::set<MaybeText> expected = {std::nullopt, L"", L"0", L"1", L"N", L"S", L"T", L"Y", L"s"};
  EXPECT_EQ(onCaptions, expected);
  EXPECT_TRUE(nullCaption);
  EXPECT_TRUE(blankCaption);
}

TEST_P(SpecialRows, HaveAModelWhoseSubgroupHasNoGroup) {
  std::set<MaybeText> groupless;
  for (const Grupo& subgroup : Of<Grupo>()) {
    if (!subgroup.codClasse) groupless.insert(subgroup.codGrupo);
  }
  EXPECT_TRUE(Has<Modelo>([&](const Modelo& model) { return groupless.contains(model.codGrupo); }));
}

TEST_P(SpecialRows, HaveModelCodesInCapitalAndSmallLetters) {
  const auto has = [&](std::wstring_view letters) {
    return Has<Modelo>([&](const Modelo& model) { return model.codModelo.find_first_of(letters) != Text::npos; });
  };
  EXPECT_TRUE(has(L"abcdefghijklmnopqrstuvwxyz"));
  EXPECT_TRUE(has(L"ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
}

TEST_P(SpecialRows, HaveTheReservedModuleType) {
  const auto codes = Values<TipoCaixa>(&TipoCaixa::codTipoCx);
  EXPECT_TRUE(codes.contains(L"0"));
  EXPECT_GT(codes.size(), 3U);
}

TEST_P(SpecialRows, HaveDeletedOperatorsAndOthersWithAndWithoutOptions) {
  const auto options = Values<Operador>(&Operador::opcoesPessoais);
  const std::set<MaybeText> expected = {std::nullopt, L"APAGADO", L"TEMA=CLARO;PÁGINA=50"};
  EXPECT_EQ(options, expected);
}

TEST_P(SpecialRows, HaveOperatorsOfEveryTypeAndActiveMark) {
  const std::set<MaybeText> types = {std::nullopt, L"0", L"1", L"12abc", L"2", L"3", L"x"};
  EXPECT_EQ(Values<Operador>(&Operador::tipo), types);
  const std::set<MaybeText> marks = {std::nullopt, L"",  L",", L"0", L"1",   L"F",          L"N",
                                     L"S",         L"T", L"V", L"Y", L"sim", L"Verdadeiro", L"false"};
  EXPECT_EQ(Values<Operador>(&Operador::idcAtivo), marks);
}

TEST_P(SpecialRows, HaveOperatorsWithoutDepartmentGroupOrFullName) {
  EXPECT_TRUE(Has<Operador>([](const Operador& person) { return !person.codDepto; }));
  EXPECT_TRUE(Has<Operador>([](const Operador& person) { return !person.codGrpop; }));
  EXPECT_TRUE(Has<Operador>([](const Operador& person) { return !person.nomeCompleto; }));
  EXPECT_TRUE(Has<Operador>([](const Operador& person) { return person.nomeCompleto == L""; }));
}

TEST_P(SpecialRows, HaveASecondParameterRow) {
  EXPECT_EQ(Values<Parametro>(&Parametro::codigo), (std::set<Text>{L"1", L"2"}));
}

TEST_P(SpecialRows, HaveTheModuleOfWaitingDocumentsAndEveryRetentionKind) {
  EXPECT_EQ(Of<Caixa>().front().numCaixa, L"AA000");
  const std::set<MaybeText> kinds = {std::nullopt, L"D", L"E", L"P", L"T"};
  EXPECT_EQ(Values<Caixa>(&Caixa::tipoGuarda), kinds);
  EXPECT_EQ(Values<CaixaSubordinada>(&CaixaSubordinada::tipoGuarda), kinds);
}

template <class Module>
bool IsDue(const Module& module) {
  return module.tipoGuarda == L"T" && module.dataVencimento &&
         *module.dataVencimento < Day(std::chrono::year(2025) / 1 / 1);
}
template <class Module>
bool IsNotDue(const Module& module) {
  return module.tipoGuarda == L"T" && module.dataVencimento &&
         *module.dataVencimento > Day(std::chrono::year(2075) / 1 / 1);
}

TEST_P(SpecialRows, HaveModulesThatAreDueAndModulesThatAreNot) {
  EXPECT_TRUE(Has<Caixa>(IsDue<Caixa>));
  EXPECT_TRUE(Has<Caixa>(IsNotDue<Caixa>));
  EXPECT_TRUE(Has<CaixaSubordinada>(IsDue<CaixaSubordinada>));
  EXPECT_TRUE(Has<CaixaSubordinada>(IsNotDue<CaixaSubordinada>));
  const auto hasD = [&](bool closed) {
    return Has<Caixa>(
        [=](const Caixa& module) { return module.tipoGuarda == L"D" && module.dataFechamento.has_value() == closed; });
  };
  EXPECT_TRUE(hasD(true));
  EXPECT_TRUE(hasD(false));
  EXPECT_TRUE(Has<Caixa>([](const Caixa& module) { return module.tipoGuarda == L"T" && !module.dataVencimento; }));
}

TEST_P(SpecialRows, HaveModulesOfEveryPlaceAndBackCatalogueMark) {
  EXPECT_TRUE(Has<Caixa>([](const Caixa& m) { return m.coordX && !m.coordX->empty() && m.coordY && m.coordZ; }));
  EXPECT_TRUE(Has<Caixa>([](const Caixa& m) { return m.coordX == L"" && m.coordY == L"" && m.coordZ == L""; }));
  EXPECT_TRUE(Has<Caixa>([](const Caixa& m) { return !m.coordX && !m.coordY && !m.coordZ; }));
  EXPECT_TRUE(
      Has<Caixa>([](const Caixa& m) { return m.coordX == L"" && !m.coordY && m.coordZ && !m.coordZ->empty(); }));
  EXPECT_EQ(Values<Caixa>(&Caixa::docsPregressos), (std::set<MaybeNumber>{std::nullopt, 0, 1}));
  EXPECT_TRUE(Has<Caixa>([](const Caixa& m) { return !m.codDepto; }));
  EXPECT_TRUE(Has<Caixa>([](const Caixa& m) { return m.codDepto == L"007"; }));
  EXPECT_TRUE(Has<Caixa>([](const Caixa& m) { return !m.container && !m.codDeposito && m.numCaixa != L"AA000"; }));
}

TEST_P(SpecialRows, HaveParentsWithClosedSubordinatesAndParentsWithOpenOnesOnly) {
  std::map<Text, bool> anyClosed;
  std::set<std::int64_t> sequences;
  std::map<Text, MaybeText> kinds;
  for (const Caixa& module : Of<Caixa>()) kinds[module.numCaixa] = module.tipoGuarda;
  std::set<MaybeText> parentKinds;
  for (const CaixaSubordinada& module : Of<CaixaSubordinada>()) {
    ASSERT_TRUE(kinds.contains(module.numCaixa)) << "no parent";
    parentKinds.insert(kinds[module.numCaixa]);
    sequences.insert(module.numSeq);
    anyClosed[module.numCaixa] = anyClosed[module.numCaixa] || module.dataFechamento.has_value();
  }
  const auto has = [&](bool closed) {
    return std::ranges::any_of(anyClosed, [=](const auto& parent) { return parent.second == closed; });
  };
  EXPECT_TRUE(has(true));
  EXPECT_TRUE(has(false));
  EXPECT_EQ(sequences, (std::set<std::int64_t>{1, 2, 3, 9, 10, 11}));
  const std::set<MaybeText> allKinds = {std::nullopt, L"D", L"E", L"P", L"T"};
  EXPECT_EQ(parentKinds, allKinds);
}

TEST_P(SpecialRows, HaveContainersWithAndWithoutDatedModulesAndAnEmptyOne) {
  struct Contents {
    int dated = 0, undated = 0;
    std::set<MaybeText> kinds;
  };
  std::map<MaybeText, Contents> contents;
  for (const Caixa& module : Of<Caixa>()) {
    Contents& inside = contents[module.container];
    ++(module.dataVencimento ? inside.dated : inside.undated);
    inside.kinds.insert(module.tipoGuarda);
  }
  const auto has = [&](auto condition) {
    return std::ranges::any_of(Of<Container>(),
                               [&](const Container& container) { return condition(contents[container.numContainer]); });
  };
  EXPECT_TRUE(has([](const Contents& c) { return c.dated > 0 && c.undated > 0; }));
  EXPECT_TRUE(has([](const Contents& c) { return c.dated == 0 && c.undated > 0; }));
  EXPECT_TRUE(has([](const Contents& c) { return c.dated == 0 && c.undated == 0; }));
  EXPECT_TRUE(has([](const Contents& c) { return c.dated > 0 && c.kinds.contains(L"E") && c.kinds.contains(L"T"); }));
}

TEST_P(SpecialRows, HaveDocumentsNotIndexedAndDocumentsIndexedToTheirSubgroupOnly) {
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return !d.codGrupo && !d.codAssunto && !d.dataIndexacao; }));
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return d.codGrupo && !d.codAssunto; }));
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return d.codGrupo && d.codAssunto && d.codIndexador; }));
}

TEST_P(SpecialRows, HaveInventoryEntriesIndexedAndNot) {
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return d.extensao == L"#INV" && d.codAssunto && d.maco; }));
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return d.extensao == L"#INV" && !d.codGrupo; }));
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return d.extensao == L"PDF"; }));
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return !d.extensao; }));
}

TEST_P(SpecialRows, HaveDocumentsOfEveryAwkwardPlaceAndSupport) {
  std::map<Text, MaybeText> supports;
  for (const Suporte& support : Of<Suporte>()) supports[support.codSuporte] = support.descrSuporte;
  EXPECT_TRUE(
      Has<Documento>([&](const Documento& d) { return d.codSuporte && supports[*d.codSuporte] == L"DIGITAL"; }));
  EXPECT_TRUE(Has<Documento>([&](const Documento& d) { return !d.codSuporte; }));
  EXPECT_TRUE(Has<Documento>([&](const Documento& d) { return d.codSuporte && !supports[*d.codSuporte]; }));
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return d.numCaixa == L"AA000"; }));
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return !d.numCaixa; }));
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return !d.codDepto; }));
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return !d.codOperador; }));
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return !d.frente; }));
  EXPECT_TRUE(Has<Documento>([](const Documento& d) { return d.frente && !d.verso; }));
}

TEST_P(SpecialRows, HaveDocumentsStoredAtMidnightDuringTheDayAndInItsLastSecond) {
  const auto has = [&](auto condition) {
    return Has<Documento>(
        [&](const Documento& d) { return condition(*d.dtArmaz - std::chrono::floor<std::chrono::days>(*d.dtArmaz)); });
  };
  using std::chrono::hours;
  using std::chrono::seconds;
  EXPECT_TRUE(has([](auto time) { return time == seconds(0); }));
  EXPECT_TRUE(has([](auto time) { return time >= hours(8) && time < hours(18); }));
  EXPECT_TRUE(has([](auto time) { return time == hours(24) - seconds(1); }));
}

TEST_P(SpecialRows, HaveRequestsForOneAndForThreeDocumentsInEveryReturnMode) {
  std::map<std::int64_t, std::size_t> documents;
  for (const Solicitacao& request : Of<Solicitacao>()) ++documents[request.codSolicit];
  std::map<std::size_t, std::set<MaybeText>> modes;
  for (const Solicitacao& request : Of<Solicitacao>()) modes[documents[request.codSolicit]].insert(request.devolvido);
  const std::set<MaybeText> allModes = {std::nullopt, L"D", L"I", L"P", L"S", L"X"};
  EXPECT_EQ(modes, (std::map<std::size_t, std::set<MaybeText>>{{1, allModes}, {3, allModes}}));
}

TEST_P(SpecialRows, HaveRequestsWhoseRowsAgreeOnAllButTheDocument) {
  std::map<std::int64_t, Solicitacao> first;
  for (const Solicitacao& request : Of<Solicitacao>()) {
    const Solicitacao& other = first.try_emplace(request.codSolicit, request).first->second;
    EXPECT_EQ(request.codOperador, other.codOperador);
    EXPECT_EQ(request.devolvido, other.devolvido);
    EXPECT_EQ(request.dtDevolucao, other.dtDevolucao);
    EXPECT_EQ(request.obsSolicit, other.obsSolicit);
    EXPECT_EQ(request.dtDevolucao.has_value(), request.devolvido == L"D" || request.devolvido == L"S");
  }
  EXPECT_EQ((Values<Solicitacao>(&Solicitacao::obsSolicit)),
            (std::set<MaybeText>{std::nullopt, L"", L"Auditoria externa – devolver à expedição."}));
}

TEST_P(SpecialRows, HaveEventsAtTheLimitsOfAReportsFields) {
  std::set<std::size_t> lengths;
  for (const Evento& event : Of<Evento>()) lengths.insert(event.acao ? event.acao->size() : 0);
  for (const std::size_t length : {0, 250, 251, 8000}) EXPECT_TRUE(lengths.contains(length)) << length;
  EXPECT_EQ(*lengths.rbegin(), 8000U);
  EXPECT_TRUE(Has<Evento>([](const Evento& event) { return !event.codDocto; }));
  EXPECT_TRUE(Has<Evento>([](const Evento& event) { return event.nomeOperador->size() > 250; }));
  EXPECT_TRUE(Has<Evento>([](const Evento& event) { return event.maquina->size() > 250; }));
}

TEST_P(SpecialRows, HaveModulesThatNameTheDocumentsInThem) {
  std::map<Text, const Caixa*> modules;
  for (const Caixa& module : Of<Caixa>()) modules[module.numCaixa] = &module;
  for (const Documento& document : Of<Documento>()) {
    if (!document.numCaixa) continue;
    ASSERT_TRUE(modules.contains(*document.numCaixa));
    if (*document.numCaixa == L"AA000") continue;
    const Caixa& module = *modules[*document.numCaixa];
    EXPECT_LE(module.docInicial.value(), document.codDocto);
    if (module.docFinal) {
      EXPECT_GE(*module.docFinal, document.codDocto);
    }
  }
}

}  // namespace
}  // namespace kodra::testbed
