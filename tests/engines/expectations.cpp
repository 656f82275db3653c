#include "tests/engines/expectations.h"

#include <algorithm>

namespace kodra::engines {
namespace {

using enum Kind;

// The statistics that have a period in their conditions.
const std::vector<std::string_view> kOverAPeriod = {"CEstatImgRpt", "CEstatIndexRpt.RelatorioEstatisticasPorDocumento",
                                                    "CEstatSuporteRpt", "CEstatSubgrupoRpt", "CEstatSerieRpt"};

// The engines' words for a statement that cannot be parsed.
const std::vector<std::string_view> kSyntax = {"syntax", "Syntax", "unexpected token"};

const std::vector<Expectation> kRefusals = {
    {.methods = {"CDocumentoRpt"},
     .labels = {"quote in the department"},
     .errors = kSyntax,
     .kind = kOddity,
     .cause = "a code is pasted between quotes as it is, so one with a quote in it is a syntax error"},
    {.methods = {"CEstatIndexRpt.RelatorioEstatisticasPorPalavrasChave"},
     .labels = {"missing counts"},
     .errors = kSyntax,
     .kind = kOddity,
     .cause = "a count left empty leaves an empty column"},
    {.engines = {"SQLite"},
     .methods = {"CDocumentoRpt"},
     .labels = {"both days", "last day only"},
     .errors = kSyntax,
     .kind = kOddity,
     .cause = "a date bound is not quoted, and one with a time is a syntax error"},
    {.engines = {"SQLite"},
     .methods = kOverAPeriod,
     .labels = {"period with hours", "period left unset"},
     .errors = kSyntax,
     .kind = kOddity,
     .cause = "a date bound is not quoted, and one with a time, or that is only a time, is a syntax error"},
    {.engines = {"SQLite"},
     .methods = {"CSolicitacaoRpt.RelatorioDevolucaoOriginal"},
     .errors = kSyntax,
     .kind = kOddity,
     .cause = "a date has no text, which leaves an empty column"},
    {.engines = {"Derby"},
     .methods = {"CCaixaRpt.ModulosExcluidos", "CCaixaRpt.ModulosVencidos"},
     .text = L" UNION ",
     .errors = {"'NUM_CAIXA' is not in the result"},
     .kind = kOddity,
     .cause =
         "the code of a subordinate has no name in the second half of the UNION, and what has not one name in both "
         "halves is no column to sort by; DB2 has the same rule"},
    {.engines = {"HSQLDB"},
     .methods = {"CCaixaRpt.AutorizacaoDescarteModuloSubRpt"},
     .otherCode = true,
     .errors = {"unexpected end of statement"},
     .kind = kOddity,
     .cause = "Oracle's second code gets no table to select the blank row from; H2 needs none"},
    {.engines = {"HSQLDB"},
     .methods = {"CCaixaRpt.ModulosVencidos", "CCaixaRpt.AutorizacaoDescarteModuloSubRpt", "CEstatSerieRpt"},
     .text = L"TO_NUMBER(",
     .errors = {"incompatible data type in operation"},
     .kind = kGap,
     .cause = "TO_NUMBER takes texts only; Oracle's and the shim's in H2 take numbers too, which the pages are"},
};

const std::vector<Expectation> kDifferences = {
    {.engines = {"SQLite"},
     .methods = {"CCDRpt"},
     .labels = {"expired"},
     .kind = kOddity,
     .cause = "the years are added to the quoted name of the date's column: no medium is ever expired"},
    {.engines = {"SQLite"},
     .methods = kOverAPeriod,
     .labels = {"period"},
     .kind = kOddity,
     .cause =
         "a date bound is not quoted: 01/01/2013 is a division, its result a day in the year -4713, and no document "
         "lies in the period"},
};

bool Names(const std::vector<std::string_view>& methods, std::string_view method) {
  return std::ranges::any_of(methods, [&](std::string_view name) {
    return method == name || (method.starts_with(name) && method[name.size()] == '.');
  });
}

bool HoldsOne(std::string_view text, const std::vector<std::string_view>& words) {
  return words.empty() ||
         std::ranges::any_of(words, [&](std::string_view word) { return text.find(word) != text.npos; });
}

}  // namespace

std::span<const Expectation> ExpectedRefusals() { return kRefusals; }
std::span<const Expectation> ExpectedDifferences() { return kDifferences; }

bool IsOf(const Expectation& refusal, std::string_view error) { return HoldsOne(error, refusal.errors); }

bool Covers(const Expectation& expectation, const Engine& engine, const Statement& statement) {
  const std::vector<std::string_view>& engines = expectation.engines;
  return (engines.empty() || std::ranges::find(engines, engine.name) != engines.end()) &&
         Names(expectation.methods, statement.method) && HoldsOne(statement.label, expectation.labels) &&
         statement.text.find(expectation.text) != std::wstring::npos && (!expectation.otherCode || statement.otherCode);
}

const Expectation* Find(std::span<const Expectation> expectations, const Engine& engine, const Statement& statement) {
  const auto found = std::ranges::find_if(
      expectations, [&](const Expectation& candidate) { return Covers(candidate, engine, statement); });
  return found == expectations.end() ? nullptr : &*found;
}

}  // namespace kodra::engines
