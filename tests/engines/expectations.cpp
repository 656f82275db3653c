#include "tests/engines/expectations.h"

#include <algorithm>

namespace kodra::engines {
namespace {

using enum Kind;

// The statistics whose statements have a period in their conditions.
const std::vector<std::string_view> kOverAPeriod = {"CEstatImgRpt", "CEstatIndexRpt.RelatorioEstatisticasPorDocumento",
                                                    "CEstatSuporteRpt", "CEstatSubgrupoRpt", "CEstatSerieRpt"};

// The engines' words for a statement that cannot be parsed.
const std::vector<std::string_view> kSyntax = {"syntax", "Syntax", "unexpected token"};

const std::vector<Expectation> kRefusals = {
    {.methods = {"CDocumentoRpt"},
     .labels = {"quote in the department"},
     .errors = kSyntax,
     .kind = kOddity,
     .cause = "codes are put between quotes without escaping, so a code that contains a quote is a syntax error"},
    {.methods = {"CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave"},
     .labels = {"missing counts"},
     .errors = kSyntax,
     .kind = kOddity,
     .cause = "an empty count leaves its column empty, which is a syntax error"},
    {.engines = {"SQLite"},
     .methods = {"CDocumentoRpt"},
     .labels = {"both days", "last day only"},
     .errors = kSyntax,
     .kind = kOddity,
     .cause = "date bounds are not quoted, so a bound with a time is a syntax error"},
    {.engines = {"SQLite"},
     .methods = kOverAPeriod,
     .labels = {"period with hours", "period left unset"},
     .errors = kSyntax,
     .kind = kOddity,
     .cause = "date bounds are not quoted, so a bound that has a time, or is only a time, is a syntax error"},
    {.engines = {"SQLite"},
     .methods = {"CSolicitacaoRpt.RelatorioDevolucaoOriginal"},
     .errors = kSyntax,
     .kind = kOddity,
     .cause = "the dialect cannot write a date as text, so the column is empty, which is a syntax error"},
    {.engines = {"Derby"},
     .methods = {"CCaixaRpt.ModulosExcluidos", "CCaixaRpt.ModulosVencidos"},
     .text = L" UNION ",
     .errors = {"'NUM_CAIXA' is not in the result"},
     .kind = kOddity,
     .cause = "the second half of the UNION does not name the code of a subordinate, and rows can be sorted only by a "
              "column "
              "that has the same name in both halves; DB2 has the same rule"},
    {.engines = {"HSQLDB"},
     .methods = {"CCaixaRpt.AutorizacaoDescarteModuloSubRpt"},
     .otherCode = true,
     .errors = {"unexpected end of statement"},
     .kind = kOddity,
     .cause = "for Oracle's second code the blank row is selected from no table; HSQLDB requires a table, H2 does not"},
    {.engines = {"HSQLDB"},
     .methods = {"CCaixaRpt.ModulosVencidos", "CCaixaRpt.AutorizacaoDescarteModuloSubRpt", "CEstatSerieRpt"},
     .text = L"TO_NUMBER(",
     .errors = {"incompatible data type in operation"},
     .kind = kGap,
     .cause = "TO_NUMBER accepts only texts; Oracle's, and the one added to H2, also accept numbers, such as the page "
              "counts"},
};

const std::vector<Expectation> kDifferences = {
    {.engines = {"SQLite"},
     .methods = {"CCDRpt"},
     .labels = {"expired"},
     .kind = kOddity,
     .cause = "the years are added to the quoted name of the date column, so no medium ever expires"},
    {.engines = {"SQLite"},
     .methods = kOverAPeriod,
     .labels = {"period"},
     .kind = kOddity,
     .cause = "date bounds are not quoted: 01/01/2013 is a division, its result is a day in the year -4713, and no "
              "document is "
              "in the period"},
};

bool Names(const std::vector<std::string_view>& methods, std::string_view method) {
  return std::ranges::any_of(methods, [&](std::string_view name) {
    return method == name || (method.starts_with(name) && method[name.size()] == '.');
  });
}

bool ContainsOne(std::string_view text, const std::vector<std::string_view>& words) {
  return words.empty() ||
         std::ranges::any_of(words, [&](std::string_view word) { return text.find(word) != text.npos; });
}

}  // namespace

std::span<const Expectation> ExpectedRefusals() { return kRefusals; }
std::span<const Expectation> ExpectedDifferences() { return kDifferences; }

bool IsOf(const Expectation& refusal, std::string_view error) { return ContainsOne(error, refusal.errors); }

bool Covers(const Expectation& expectation, const Engine& engine, const Statement& statement) {
  const std::vector<std::string_view>& engines = expectation.engines;
  return (engines.empty() || std::ranges::find(engines, engine.name) != engines.end()) &&
         Names(expectation.methods, statement.method) && ContainsOne(statement.label, expectation.labels) &&
         statement.text.find(expectation.text) != std::wstring::npos && (!expectation.otherCode || statement.otherCode);
}

const Expectation* Find(std::span<const Expectation> expectations, const Engine& engine, const Statement& statement) {
  const auto found = std::ranges::find_if(
      expectations, [&](const Expectation& candidate) { return Covers(candidate, engine, statement); });
  return found == expectations.end() ? nullptr : &*found;
}

}  // namespace kodra::engines
