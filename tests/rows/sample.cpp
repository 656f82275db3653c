#include "tests/rows/sample.h"

namespace kodra::rows {
namespace {

using testbed::Caixa;
using testbed::CaixaSubordinada;
using testbed::Container;

CaixaSubordinada Subordinate(const testbed::Text& parent, std::int64_t number, const testbed::MaybeText& kind,
                             testbed::MaybeDay due = {}) {
  CaixaSubordinada module;
  module.numCaixa = parent;
  module.numSeq = number;
  module.tipoGuarda = kind;
  module.dataVencimento = due;
  return module;
}

// Calls visit with each row that is added to the generated rows.
template <class Visitor>
void ForEachExtraRow(Visitor&& visit) {
  Caixa dueToday;
  dueToday.numCaixa = L"ZZ001";
  dueToday.descCaixa = L"Vence hoje";
  dueToday.tipoGuarda = L"T";
  dueToday.dataVencimento = Today();
  dueToday.codDepto = L"001";
  dueToday.container = L"CT9002";
  Caixa dueTomorrow = dueToday;
  dueTomorrow.container.reset();
  dueTomorrow.numCaixa = L"ZZ002";
  dueTomorrow.descCaixa = L"Vence amanhã";
  dueTomorrow.dataVencimento = Today() + std::chrono::days(1);
  // It has no kind: only its subordinates are ever listed by kind.
  Caixa parent;
  parent.numCaixa = L"ZZ003";
  parent.descCaixa = L"Tem subordinados";
  parent.codDepto = L"002";
  parent.container = L"CT9001";
  Caixa discarded;
  discarded.numCaixa = L"ZZ004";
  discarded.descCaixa = L"Descartado, fora do acervo pregresso";
  discarded.tipoGuarda = L"E";
  discarded.docsPregressos = 0;
  discarded.container = L"CT9001";
  Caixa besideDueToday = discarded;
  besideDueToday.numCaixa = L"ZZ005";
  besideDueToday.container = dueToday.container;
  for (const Caixa& module : {dueToday, dueTomorrow, parent, discarded, besideDueToday}) visit(module);
  visit(Container{L"CT9001", L"Só módulos sem prazo"});
  visit(Container{L"CT9002", L"Um módulo com prazo e um descartado"});
  visit(Subordinate(L"ZZ003", 1, L"T", Today()));
  visit(Subordinate(L"ZZ003", 2, L"T", Today() + std::chrono::days(1)));
  // A code holds only two digits. Of 103 MariaDB keeps the first two and SQLite the last two, so on either
  // database one of these rows has the code of another.
  for (const std::int64_t number : {3, 10, 103}) visit(Subordinate(L"ZZ003", number, L"E"));
}

std::wstring Literal(const testbed::Cell& cell) {
  if (const auto* number = std::get_if<std::int64_t>(&cell)) return std::to_wstring(*number);
  if (const auto* text = std::get_if<std::wstring_view>(&cell)) return L"'" + std::wstring(*text) + L"'";
  const auto quoted = [](const std::string& iso) { return L"'" + std::wstring(iso.begin(), iso.end()) + L"'"; };
  if (const auto* day = std::get_if<testbed::Day>(&cell)) return quoted(testbed::IsoText(*day));
  if (const auto* moment = std::get_if<testbed::Moment>(&cell)) return quoted(testbed::IsoText(*moment));
  return L"NULL";
}

}  // namespace

const testbed::Archive& SampleArchive() {
  static const testbed::Archive archive = [] {
    testbed::Archive rows = testbed::Generate(kSampleSize);
    ForEachExtraRow([&]<class Record>(const Record& record) { rows.Of<Record>().push_back(record); });
    return rows;
  }();
  return archive;
}

std::vector<std::wstring> ExtraRowStatements() {
  std::vector<std::wstring> statements;
  ForEachExtraRow([&]<class Record>(const Record& record) {
    const testbed::Table<Record>& table = testbed::TableOf<Record>();
    std::vector<testbed::Cell> cells;
    table.Read(record, cells);
    std::wstring values;
    for (const testbed::Cell& cell : cells) values.append(values.empty() ? L"" : L",").append(Literal(cell));
    statements.push_back(L"INSERT INTO " + InsertTarget(table.shape) + L" VALUES (" + values + L")");
  });
  return statements;
}

testbed::Day Today() { return std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()); }

}  // namespace kodra::rows
