// What each statistic groups by and adds up.
#include "console/formats/html/statistics.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "values/format_date.h"
#include "values/numbers.h"

namespace kodra::console::html {

struct StatisticsGatherer::Plan {
  std::wstring_view className, method;
  std::wstring_view title;        // where titleColumn is empty
  std::wstring_view titleColumn;  // its text is the title
  std::wstring_view subtitle;     // columns, apart by blanks
  std::wstring_view outer;        // the column of the first level, or none
  std::wstring_view group;        // the column of the lines, or none: the columns of counts are the lines
  std::wstring_view groupCaption;
  std::wstring_view total;  // a column that the report has already added up, or none
};

namespace {

struct Fact {
  std::wstring_view column, caption;
};
constexpr auto kFacts = std::to_array<Fact>(
    {{L"FUNDO", L"Fundo"}, {L"OPERADOR", L"Operador"}, {L"DEPTO", L"Departamento"}, {L"OWNER", L"Responsável"}});

constexpr auto kKeywordCounts = std::to_array<Fact>({{L"PC1", L"Chave 1"},
                                                     {L"PC2", L"Chave 2"},
                                                     {L"PC3", L"Chave 3"},
                                                     {L"PC4", L"Chave 4"},
                                                     {L"PC5", L"Chave 5"},
                                                     {L"OBS", L"Observação"}});

// The letters of Portuguese that differ from a plain letter only by an accent, and that letter.
constexpr std::wstring_view kAccented = L"áàâãäéèêëíìîïóòôõöúùûüçñÁÀÂÃÄÉÈÊËÍÌÎÏÓÒÔÕÖÚÙÛÜÇÑ";
constexpr std::wstring_view kPlain = L"aaaaaeeeeiiiiooooouuuucnaaaaaeeeeiiiiooooouuuucn";

// What texts are put in alphabetical order by: neither case nor accents.
std::wstring AlphabeticalOrder(std::wstring text) {
  for (wchar_t& letter : text) {
    if (const auto at = kAccented.find(letter); at != kAccented.npos)
      letter = kPlain[at];
    else if (letter >= L'A' && letter <= L'Z')
      letter = static_cast<wchar_t>(letter + (L'a' - L'A'));
  }
  return text;
}

double NumberOf(const Value& value) {
  if (const std::optional<double> number = NumberIn(value)) return *number;
  return value.Is<std::wstring>() ? values::LeadingNumber(value.As<std::wstring>()) : 0;
}

void AddTo(std::vector<double>& sums, const std::vector<double>& more) {
  sums.resize(more.size());
  for (std::size_t i = 0; i < more.size(); ++i) sums[i] += more[i];
}

std::wstring JoinedTexts(const RowReader& row, std::wstring_view columns) {
  std::wstring text;
  while (!columns.empty()) {
    const std::wstring_view column = columns.substr(0, columns.find(L' '));
    columns.remove_prefix(std::min(column.size() + 1, columns.size()));
    const std::wstring part = row.Text(column);
    if (!part.empty()) text += (text.empty() ? L"" : L" · ") + part;
  }
  return text;
}

}  // namespace

const StatisticsGatherer::Plan* StatisticsGatherer::PlanOf(const Heading& heading) {
  static constexpr auto kPlans = std::to_array<Plan>({
      {L"CEstatImgRpt", L"RelatorioEstatisticas", L"Estatísticas de digitalização", L"", L"TIT1", L"", L"DT_ARMAZ",
       L"Dia", L""},
      {L"CEstatIndexRpt", L"RelatorioEstatisticasPorDocumento", L"Estatísticas de indexação por documento", L"",
       L"TIT1", L"", L"DATA_INDEXACAO", L"Dia", L""},
      {L"CEstatIndexRpt", L"RelatorioEstatisticasPorPalavrasChave", L"Estatísticas de indexação por palavras-chave",
       L"", L"TIT1", L"", L"", L"Chave", L""},
      {L"CEstatSuporteRpt", L"RelatorioEstatisticas", L"Estatísticas por suporte", L"", L"TIT", L"", L"DESCR_SUPORTE",
       L"Suporte", L""},
      {L"CEstatSubgrupoRpt", L"RelatorioEstatisticas", L"Estatísticas por subgrupo", L"TITULO", L"TIT1", L"",
       L"DESCR_GRUPO", L"Subgrupo", L""},
      {L"CEstatSerieRpt", L"RelatorioEstatisticas", L"Estatísticas por série", L"Titulo", L"Subtitulo Periodo",
       L"Subgrupo", L"Serie", L"Série", L"Total"},
  });
  const auto found = std::ranges::find_if(
      kPlans, [&](const Plan& plan) { return plan.className == heading.className && plan.method == heading.method; });
  return found == kPlans.end() ? nullptr : &*found;
}

bool StatisticsGatherer::Knows(const Heading& heading) { return PlanOf(heading) != nullptr; }

StatisticsGatherer::StatisticsGatherer(const Heading& heading, std::span<const Column> columns)
    : plan_(PlanOf(heading)) {
  const RowReader row(columns, {});
  hasFrente_ = row.Has(L"FRENTE");
  hasVerso_ = row.Has(L"VERSO");
  heading_.title = plan_->title;
  heading_.groupCaption = plan_->groupCaption;
  if (!plan_->total.empty())
    heading_.measures = {L"Total"};
  else if (hasVerso_)
    heading_.measures = {L"Documentos", L"Frente", L"Verso", L"Páginas"};
  else if (hasFrente_)
    heading_.measures = {L"Documentos", L"Folhas"};
  else
    heading_.measures = {L"Documentos"};
  heading_.sums.assign(heading_.measures.size(), 0);
}

std::vector<double> StatisticsGatherer::MeasuresOf(const RowReader& row) const {
  if (!plan_->total.empty()) return {NumberOf(row.Get(plan_->total))};
  std::vector<double> sums = {1};
  if (hasFrente_) sums.push_back(NumberOf(row.Get(L"FRENTE")));
  if (hasVerso_) {
    sums.push_back(NumberOf(row.Get(L"VERSO")));
    sums.push_back(sums[1] + sums[2]);
  }
  return sums;
}

StatisticsGatherer::Key StatisticsGatherer::KeyOf(const RowReader& row, std::wstring_view column) const {
  if (column.empty()) return {};
  const Value value = row.Get(column);
  if (value.Is<Date>()) {
    const Date day{std::floor(value.As<Date>().days)};
    return {values::FormatDate<L"yyyymmdd">(day), values::FormatDate<L"dd/mm/yyyy">(day)};
  }
  std::wstring name = row.Text(column);
  return {AlphabeticalOrder(name), name};
}

void StatisticsGatherer::Add(const RowReader& row) {
  if (std::exchange(first_, false)) {
    if (const std::wstring title = row.Text(plan_->titleColumn); !title.empty()) heading_.title = title;
    heading_.subtitle = JoinedTexts(row, plan_->subtitle);
    for (const Fact& fact : kFacts) {
      if (std::wstring text = row.Text(fact.column); !text.empty())
        heading_.facts.emplace_back(fact.caption, std::move(text));
    }
  }
  if (plan_->group.empty()) {
    for (std::size_t i = 0; i < kKeywordCounts.size(); ++i) {
      const Key key = {std::to_wstring(i), std::wstring(kKeywordCounts[i].caption)};
      AddTo(groups_[{}][key], {NumberOf(row.Get(kKeywordCounts[i].column))});
    }
    return;
  }
  AddTo(groups_[KeyOf(row, plan_->outer)][KeyOf(row, plan_->group)], MeasuresOf(row));
}

Statistics StatisticsGatherer::Result() const {
  Statistics result = heading_;
  for (const auto& [outer, lines] : groups_) {
    StatisticsBlock block = {outer.name, {}, {}};
    for (const auto& [key, sums] : lines) {
      block.lines.push_back({key.name, sums});
      AddTo(block.sums, sums);
    }
    AddTo(result.sums, block.sums);
    result.blocks.push_back(std::move(block));
  }
  return result;
}

}  // namespace kodra::console::html
