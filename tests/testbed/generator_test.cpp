#include "testbed/archive/generator.h"

#include <gtest/gtest.h>

#include <set>

#include "testbed/archive/archive.h"
#include "values/utf8.h"

namespace kodra::testbed {
namespace {

std::string Shown(const Cell& cell) {
  if (const auto* number = std::get_if<std::int64_t>(&cell)) return std::to_string(*number);
  if (const auto* text = std::get_if<std::wstring_view>(&cell)) return "'" + values::ToUtf8(*text) + "'";
  if (const auto* day = std::get_if<Day>(&cell)) return IsoText(*day);
  if (const auto* moment = std::get_if<Moment>(&cell)) return IsoText(*moment);
  return "NULL";
}

template <class Record>
std::string Shown(const Record& record) {
  std::vector<Cell> cells;
  TableOf<Record>().Read(record, cells);
  std::string line;
  for (const Cell& cell : cells) line += Shown(cell) + "|";
  return line;
}

// Every row of an archive, one per line.
std::vector<std::string> Lines(const Archive& archive) {
  std::vector<std::string> lines;
  ForEachRecordType([&]<class Record>() {
    for (const Record& record : archive.Of<Record>()) {
      lines.push_back(values::ToUtf8(TableOf<Record>().shape.name) + ": " + Shown(record));
    }
  });
  return lines;
}

TEST(Generator, MakesTheSameRowsForTheSameSize) {
  EXPECT_EQ(Lines(Generate({.documents = 300})), Lines(Generate({.documents = 300})));
}

// Programs of different compilers read and compare one archive.
TEST(Generator, MakesTheSameRowsWhicheverCompilerBuiltIt) {
  const Generator generator({.documents = 500});
  const Deposito place = generator.Row<Deposito>(0);
  EXPECT_EQ(place.endereco, L"Alameda das Acácias, 2544");
  EXPECT_EQ(place.telefone, L"(69) 3197-4762");
  EXPECT_EQ(IsoText(*generator.Row<Documento>(1).dataIndexacao), "2010-02-01 08:42:23");
}

TEST(Generator, MakesTheSameRowAloneAndInSequence) {
  const Generator generator({.documents = 300});
  const Archive archive = Generate({.documents = 300});
  EXPECT_EQ(Shown(generator.Row<Documento>(299)), Shown(archive.Of<Documento>().back()));
  EXPECT_EQ(Shown(generator.Row<Caixa>(17)), Shown(archive.Of<Caixa>()[17]));
  EXPECT_EQ(Shown(generator.Row<Evento>(3)), Shown(archive.Of<Evento>()[3]));
}

TEST(Generator, MakesDocumentsWithDifferentContents) {
  const Archive archive = Generate({.documents = 1000});
  std::set<std::wstring> numbers;
  std::size_t withNumber = 0;
  for (const Documento& document : archive.Of<Documento>()) {
    if (!document.codAssunto) continue;
    ++withNumber;
    numbers.insert(document.descrChave[0].value());
  }
  EXPECT_GT(withNumber, 800U);
  EXPECT_GE(numbers.size(), withNumber - 1);
}

TEST(Generator, MakesExactlyTheRequestedDocuments) {
  for (const std::int64_t documents : {0, 1, 64, 1000, 12345}) {
    EXPECT_EQ(Generator({.documents = documents}).Count<Documento>(), documents);
  }
}

TEST(Generator, MakesAnArchiveWithoutDocuments) {
  const Archive archive = Generate({.documents = 0});
  EXPECT_TRUE(archive.Of<Documento>().empty());
  EXPECT_TRUE(archive.Of<Solicitacao>().empty());
  EXPECT_EQ(archive.Of<Parametro>().size(), 2U);
}

TEST(Generator, SizesTheOtherTablesByTheDocuments) {
  const Generator small({.documents = 1000});
  EXPECT_EQ(small.Count<Assunto>(), 25);
  EXPECT_EQ(small.Count<Caixa>(), 27);
  EXPECT_EQ(small.Count<Operador>(), 36);
  EXPECT_EQ(small.Count<Solicitacao>(), 40);
  EXPECT_EQ(small.Count<Evento>(), 100);
  const Generator large({.documents = 1000000});
  EXPECT_EQ(large.Count<Assunto>(), 25 * 36);
  EXPECT_EQ(large.Count<Caixa>(), 1 + 16667);
  EXPECT_EQ(large.Count<Cd>(), 500);
  EXPECT_EQ(large.Count<Operador>(), 400);
  EXPECT_EQ(large.Count<Solicitacao>(), 10000);
  EXPECT_EQ(large.Count<Evento>(), 100000);
}

TEST(Generator, RefusesASizeThatItCannotMake) {
  EXPECT_THROW(Generator({.documents = -1}), std::invalid_argument);
  EXPECT_THROW(Generator({.documents = 60LL * 676000}), std::invalid_argument);
}

TEST(Generator, MakesEveryPrimaryKeyOnceInEverySize) {
  for (const std::int64_t documents : {64, 1000, 60000}) {
    const Archive archive = Generate({.documents = documents});
    ForEachRecordType([&]<class Record>() {
      std::set<std::string> keys;
      std::vector<Cell> cells;
      for (const Record& record : archive.Of<Record>()) {
        TableOf<Record>().Read(record, cells);
        std::string key;
        for (std::size_t i = 0; i < TableOf<Record>().shape.keyColumns; ++i) key += Shown(cells[i]) + "|";
        EXPECT_TRUE(keys.insert(key).second) << values::ToUtf8(TableOf<Record>().shape.name) << " " << key;
      }
    });
  }
}

TEST(Generator, FitsEveryTextIntoItsColumn) {
  const Archive archive = Generate({.documents = 60000});
  ForEachRecordType([&]<class Record>() {
    const auto& table = TableOf<Record>();
    std::vector<Cell> cells;
    for (const Record& record : archive.Of<Record>()) {
      table.Read(record, cells);
      for (std::size_t i = 0; i < cells.size(); ++i) {
        const Column& column = table.shape.columns[i];
        const auto* text = std::get_if<std::wstring_view>(&cells[i]);
        if (text == nullptr || column.type != ColumnType::kText) continue;
        EXPECT_LE(text->size(), static_cast<std::size_t>(column.length))
            << values::ToUtf8(column.name) << " " << values::ToUtf8(*text);
      }
    }
  });
}

TEST(Generator, NamesModulesByTwoLettersAndThreeDigits) {
  EXPECT_EQ(ModuleCode(0), L"AA000");
  EXPECT_EQ(ModuleCode(999), L"AA999");
  EXPECT_EQ(ModuleCode(1000), L"AB000");
  EXPECT_EQ(ModuleCode(26000), L"BA000");
  EXPECT_EQ(ModuleCode(675999), L"ZZ999");
}

TEST(Generator, TurnsNamesIntoLogins) {
  EXPECT_EQ(AsLogin(L"Íris D'Ávila"), L"iris.davila");
  EXPECT_EQ(AsLogin(L"Conceição Araújo"), L"conceicao.araujo");
}

TEST(Generator, MakesADifferentLoginForEveryOperator) {
  std::set<std::wstring> logins;
  for (std::int64_t row = 0; row < 400; ++row) logins.insert(AsLogin(PersonName(row)));
  EXPECT_EQ(logins.size(), 400U);
}

TEST(Generator, AddsYearsByTheCalendar) {
  using std::chrono::year;
  EXPECT_EQ(AddYears(year(2020) / 2 / 29, 5), Day(year(2025) / 2 / 28));
  EXPECT_EQ(AddYears(year(2020) / 2 / 29, 4), Day(year(2024) / 2 / 29));
  EXPECT_EQ(AddYears(year(2021) / 12 / 31, 100), Day(year(2121) / 12 / 31));
}

}  // namespace
}  // namespace kodra::testbed
