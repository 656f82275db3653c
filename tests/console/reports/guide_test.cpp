// Compares the guide with the component (methods, parameter classes, statements, list of behaviours), and checks what
// its entries say about the printed page. Its columns are compared with real rows in db/guide_rows_test.cpp.
#include "console/reports/guide.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "console/command_line/databases.h"
#include "console/command_line/parameter_value.h"
#include "console/command_line/report_name.h"
#include "console/reports/errors.h"
#include "console/statements/capture.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using enum frame::PropertyRule;
using guide::PageKind;
using guide::Parameter;
using guide::Place;
using reports::ReportMethod;
using values::ToUtf8;

const frame::Property* PropertyNamed(const ReportMethod& method, std::string_view name) {
  for (const frame::Property& property : frame::ParameterClassNamed(method.parameterClass).properties)
    if (ToUtf8(property.name) == name) return &property;
  return nullptr;
}

// A parameter object with the samples of all parameters of a report except the omitted one.
frame::ParameterObject SamplesWithout(std::string_view omitted, const ReportMethod& method) {
  frame::ParameterObject object(frame::ParameterClassNamed(method.parameterClass));
  for (const Parameter& parameter : guide::About(method).parameters) {
    if (parameter.name == omitted) continue;
    const frame::Property& property = *PropertyNamed(method, parameter.name);
    object.Let(property.name, ParameterValue(property, parameter.sample));
  }
  return object;
}

// The statements and values that a report sends to all databases.
std::wstring SentBy(const ReportMethod& method, frame::ParameterObject object) {
  std::wstring sent;
  for (const Database& database : Databases()) {
    for (const Statement& statement : Capture(method, database.code, object).statements) {
      sent += statement.text + L"\n";
      for (const std::wstring& value : statement.parameters) sent += value + L"\n";
    }
  }
  return sent;
}

std::string NameOfEntry(const guide::Report& report) {
  return std::string(report.className) + "." + std::string(report.method);
}

TEST(GuideTest, HasOneEntryForEachMethodAndNoOther) {
  std::multiset<std::string> entries;
  for (const guide::Report& report : guide::Reports()) entries.insert(NameOfEntry(report));
  std::multiset<std::string> methods;
  for (const ReportMethod& method : reports::ReportMethods()) methods.insert(NameOf(method));
  EXPECT_EQ(entries, methods);
}

TEST(GuideTest, FindsTheEntryOfAMethodByItsExactNames) {
  for (const ReportMethod& method : reports::ReportMethods())
    EXPECT_EQ(NameOfEntry(guide::About(method)), NameOf(method));
  EXPECT_EQ(guide::Find(L"CDeptoRpt", L"RELATORIODEPTOS"), nullptr);
  EXPECT_EQ(guide::Find(L"CGrupoRpt", L"RelatorioDeptos"), nullptr);
}

TEST(GuideTest, DescribesParametersThatTheirClassesHave) {
  for (const ReportMethod& method : reports::ReportMethods())
    for (const Parameter& parameter : guide::About(method).parameters)
      EXPECT_NE(PropertyNamed(method, parameter.name), nullptr) << NameOf(method) << " " << parameter.name;
}

TEST(GuideTest, SaysForEachParameterWhetherItChangesTheSql) {
  for (const ReportMethod& method : reports::ReportMethods()) {
    const std::wstring whole = SentBy(method, SamplesWithout("", method));
    for (const Parameter& parameter : guide::About(method).parameters)
      EXPECT_EQ(SentBy(method, SamplesWithout(parameter.name, method)) != whole, parameter.ChangesSql())
          << NameOf(method) << " " << parameter.name;
  }
}

TEST(GuideTest, LeavesOutParametersThatChangeNothing) {
  for (const ReportMethod& method : reports::ReportMethods()) {
    const std::wstring whole = SentBy(method, SamplesWithout("", method));
    const auto parameters = guide::About(method).parameters;
    for (const frame::Property& property : frame::ParameterClassNamed(method.parameterClass).properties) {
      if (std::ranges::find(parameters, ToUtf8(property.name), &Parameter::name) != parameters.end()) continue;
      frame::ParameterObject object = SamplesWithout("", method);
      object.Let(property.name, ParameterValue(property, property.rule == kDate ? "31/05/2021" : "1"));
      EXPECT_EQ(SentBy(method, std::move(object)), whole) << NameOf(method) << " " << ToUtf8(property.name);
    }
  }
}

TEST(GuideTest, LinksEachOddityToItsEntry) {
  std::ostringstream behaviours;
  behaviours << std::ifstream(KODRA_SOURCE_DIR "/docs/behaviours.md").rdbuf();
  for (const guide::Report& report : guide::Reports())
    for (const guide::Oddity& oddity : report.oddities)
      EXPECT_NE(behaviours.str().find("\n**" + std::string(oddity.entry)), std::string::npos) << oddity.entry;
}

// The databases have the same column as a day or as a day with its time; the entries say which it is.
TEST(GuideTest, HasTheTimeOfDayWhereTheTablesHaveIt) {
  std::set<std::string> days, moments;
  for (const guide::Report& report : guide::Reports()) {
    for (const guide::Column& column : report.columns) {
      if (column.type == guide::ValueType::kDate) days.emplace(column.name);
      if (column.type == guide::ValueType::kMoment) moments.emplace(column.name);
    }
  }
  EXPECT_EQ(days, (std::set<std::string>{"DATA_FECHAMENTO", "DATA_GRAVACAO", "DATA_VENCIMENTO", "DT_VENC"}));
  EXPECT_EQ(moments, (std::set<std::string>{"DATA", "DATA_INDEXACAO", "DT_ARMAZ"}));
}

TEST(GuideTest, FindsAColumnInAnyLetterCase) {
  const guide::Report& report = *guide::Find(L"CDeptoRpt", L"RelatorioDeptos");
  EXPECT_EQ(guide::FindColumn(report, L"cidade"), guide::FindColumn(report, L"CIDADE"));
  EXPECT_EQ(guide::FindColumn(report, L"CIDADE")->name, "CIDADE");
  EXPECT_EQ(guide::FindColumn(report, L"CIDADES"), nullptr);
}

TEST(GuideTest, EndsNoTextWithAFullStop) {
  for (const guide::Report& report : guide::Reports()) {
    EXPECT_FALSE(report.purpose.empty() || report.purpose.ends_with('.')) << NameOfEntry(report);
    EXPECT_FALSE(report.sqlNote.ends_with('.')) << report.sqlNote;
    for (const guide::Oddity& oddity : report.oddities) EXPECT_FALSE(oddity.text.ends_with('.')) << oddity.text;
    for (const Parameter& parameter : report.parameters)
      EXPECT_FALSE(parameter.effect.ends_with('.')) << parameter.effect;
  }
}

// The places that each kind of page has.
std::set<Place> PlacesOn(PageKind kind) {
  switch (kind) {
    case PageKind::kListing:
      return {Place::kColumn, Place::kDetail, Place::kContinuation, Place::kTitle, Place::kFact, Place::kNowhere};
    case PageKind::kStatistic:
      return {Place::kColumn, Place::kTitle, Place::kSubtitle, Place::kFact,
              Place::kBlock,  Place::kLine,  Place::kCount,    Place::kTotal};
    default:
      return {Place::kColumn};
  }
}

// Every sentence of the guide that people read.
std::vector<std::string> Texts() {
  std::vector<std::string> texts;
  const auto add = [&](std::string_view text) { texts.emplace_back(text); };
  for (const guide::Report& report : guide::Reports()) {
    add(report.purpose);
    add(report.sqlNote);
    for (const Parameter& parameter : report.parameters) add(parameter.effect);
    for (const guide::Column& column : report.columns) {
      add(column.meaning);
      add(column.legend);
    }
    for (const guide::Oddity& oddity : report.oddities) add(oddity.text);
    for (const guide::Note& note : report.page.notes) add(note.text);
    for (const guide::Failure& failure : report.failures) {
      add(failure.whatHappened);
      add(failure.remedy);
    }
  }
  for (const auto errors : {guide::Errors(), guide::Causes()})
    for (const guide::Error& error : errors) {
      add(error.whatHappened);
      add(error.remedy);
    }
  for (const guide::Answer& answer : guide::Answers()) {
    add(answer.whatHappened);
    add(answer.remedy);
  }
  return texts;
}

// Somebody who says the text aloud stumbles over these.
TEST(GuideTest, HasNoWordsThatReadBadlyAloud) {
  static const std::regex stumbles(R"(\bcontainers?\b|\b0 não|\bum sim ou não\b|\bnão há o\b|, e 007 )");
  for (const std::string& text : Texts()) EXPECT_FALSE(std::regex_search(text, stumbles)) << text;
}

TEST(GuideTest, PutsColumnsOnlyInPlacesThatTheirPageHas) {
  for (const guide::Report& report : guide::Reports()) {
    for (const guide::Column& column : report.columns)
      EXPECT_TRUE(PlacesOn(report.page.kind).contains(column.place)) << NameOfEntry(report) << " " << column.name;
  }
}

TEST(GuideTest, HasACaptionForEachColumnThatIsPrintedWithOne) {
  for (const guide::Report& report : guide::Reports()) {
    if (report.page.kind != PageKind::kListing && report.page.kind != PageKind::kStatistic) continue;
    EXPECT_FALSE(report.page.title.empty()) << NameOfEntry(report);
    const bool isListing = report.page.kind == PageKind::kListing;
    EXPECT_TRUE(!isListing || !guide::ColumnsIn(Place::kColumn, report).empty()) << NameOfEntry(report);
    for (const guide::Column& column : report.columns) {
      const bool hasCaption = (column.place == Place::kColumn && isListing) || column.place == Place::kDetail ||
                              column.place == Place::kFact || column.place == Place::kLine ||
                              column.place == Place::kCount || column.place == Place::kTotal;
      EXPECT_TRUE(!hasCaption || !column.caption.empty()) << NameOfEntry(report) << " " << column.name;
    }
  }
}

TEST(GuideTest, NamesOnlyColumnsOfTheReportAsCaptionsAndInTheOrderOnPaper) {
  for (const guide::Report& report : guide::Reports()) {
    const auto named = [&](std::string_view name) {
      return std::ranges::find(report.columns, name, &guide::Column::name);
    };
    for (const std::string_view name : report.page.first)
      EXPECT_NE(named(name), report.columns.end()) << NameOfEntry(report) << " " << name;
    for (const guide::Column& column : report.columns) {
      if (column.captionColumn.empty()) continue;
      ASSERT_NE(named(column.captionColumn), report.columns.end())
          << NameOfEntry(report) << " " << column.captionColumn;
      EXPECT_EQ(named(column.captionColumn)->place, Place::kNowhere)
          << NameOfEntry(report) << " " << column.captionColumn;
    }
  }
}

TEST(GuideTest, ContinuesOnlyDetails) {
  for (const guide::Report& report : guide::Reports()) {
    Place before = Place::kNowhere;
    for (const guide::Column& column : report.columns) {
      if (column.place != Place::kContinuation)
        before = column.place;
      else
        EXPECT_EQ(before, Place::kDetail) << NameOfEntry(report) << " " << column.name;
    }
  }
}

// The lines of a statistic are the values of one column, or the counts, which then have a common caption.
TEST(GuideTest, SaysForEachStatisticWhatItsLinesAre) {
  int statistics = 0;
  for (const guide::Report& report : guide::Reports()) {
    if (report.page.kind != PageKind::kStatistic) continue;
    ++statistics;
    const bool hasCounts = !guide::ColumnsIn(Place::kCount, report).empty();
    EXPECT_EQ(guide::ColumnsIn(Place::kLine, report).size(), hasCounts ? 0U : 1U) << NameOfEntry(report);
    EXPECT_EQ(report.page.lineCaption.empty(), !hasCounts) << NameOfEntry(report);
  }
  EXPECT_EQ(statistics, 6);
}

// Without words are only filters that the page shows otherwise: in its title, its figures or its order.
TEST(GuideTest, HasWordsForEachFilterOfAPage) {
  const std::set<std::string_view> shown = {"TipoRpt",   "Ordenacao", "NumeroPC1", "NumeroPC2",
                                            "NumeroPC3", "NumeroPC4", "NumeroPC5", "NumeroObs"};
  for (const guide::Report& report : guide::Reports()) {
    if (report.page.kind != PageKind::kListing && report.page.kind != PageKind::kStatistic) continue;
    for (const Parameter& parameter : report.parameters)
      EXPECT_EQ(parameter.words.empty(), shown.contains(parameter.name))
          << NameOfEntry(report) << " " << parameter.name;
  }
}

// A flag is mentioned without its value.
TEST(GuideTest, PutsTheValueOfEachOtherFilterIntoItsWords) {
  for (const ReportMethod& method : reports::ReportMethods()) {
    for (const Parameter& parameter : guide::About(method).parameters) {
      if (parameter.words.empty()) continue;
      const bool isFlag = PropertyNamed(method, parameter.name)->rule == kFlag;
      EXPECT_EQ(parameter.words.find("{}") == std::string_view::npos, isFlag)
          << NameOf(method) << " " << parameter.name;
    }
  }
}

std::vector<std::string> NamesIn(Place place, const wchar_t* className, const wchar_t* method) {
  std::vector<std::string> names;
  for (const guide::Column* column : guide::ColumnsIn(place, *guide::Find(className, method)))
    names.emplace_back(column->name);
  return names;
}

TEST(GuideTest, PutsColumnsInTheirOrderOnPaper) {
  EXPECT_EQ(
      NamesIn(Place::kColumn, L"CSerieRpt", L"RelatorioSeries"),
      (std::vector<std::string>{"DESCR_CLASSE", "DESCR_GRUPO", "DESCR_ASSUNTO", "DESCR_OPERADOR", "SERIE_ATIVA"}));
  EXPECT_EQ(NamesIn(Place::kDetail, L"CSerieRpt", L"RelatorioSeries"),
            (std::vector<std::string>{"OBS_ASSUNTO", "DESCR_CHAVE1", "OBRIGATORIA1", "MASK1", "DESCR_CHAVE2",
                                      "OBRIGATORIA2", "MASK2", "DESCR_CHAVE3", "OBRIGATORIA3", "MASK3", "DESCR_CHAVE4",
                                      "OBRIGATORIA4", "MASK4", "DESCR_CHAVE5", "OBRIGATORIA5", "MASK5"}));
  EXPECT_EQ(NamesIn(Place::kColumn, L"CDocumentoRpt", L"RelatorioAnalitico"),
            (std::vector<std::string>{"COD_DOCTO", "DESCR_GRUPO", "DESCR_ASSUNTO", "DESCR_SUPORTE", "NUM_CAIXA",
                                      "NUM_CD", "DT_ARMAZ", "DT_VENC", "FRENTE", "VERSO"}));
  EXPECT_EQ(NamesIn(Place::kFact, L"CEstatImgRpt", L"RelatorioEstatisticas"),
            (std::vector<std::string>{"FUNDO", "OPERADOR", "DEPTO", "OWNER"}));
}

}  // namespace
}  // namespace kodra::console
