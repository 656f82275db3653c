// The types of the values that a client reads from a report's fields.
#include "tests/wine/report_rows.h"

namespace kodra::face {
namespace {

struct ReadField {
  const char* name;
  const wchar_t* report;
  const wchar_t* method;
  const wchar_t* field;
  VARTYPE type;
  Properties properties = {};

  friend void PrintTo(const ReadField& field, std::ostream* out) { *out << field.name; }
};

class FieldTypes : public testing::TestWithParam<std::tuple<ReadField, Engine>> {};

// The type on the first row where the field is not null.
TEST_P(FieldTypes, AreThoseOfTheirValues) {
  const auto& [asked, engine] = GetParam();
  const auto rows = ArchiveClient(engine).Open(asked.report, asked.method, asked.properties);
  const auto field = Got(Call(rows, L"Fields", {asked.field})).object();
  while (Got(Get(field, L"Value")).type() == VT_NULL) ASSERT_EQ(S_OK, Call(rows, L"MoveNext").hr);
  EXPECT_EQ(asked.type, Got(Get(field, L"Value")).type());
}

// The events of kind LOG begin with short actions: the pieces beyond them are never assigned.
const Properties kShortActions = {{L"Evento", L"LOG"}};

const ReadField kFields[] = {
    {"DateOfAMedium", L"CCDRpt", L"RelatorioMidias", L"DATA_GRAVACAO", VT_DATE},
    {"DescriptionOfAMediaType", L"CTipo_MidiaRpt", L"RelatorioTiposMidia", L"DESCR_MIDIA", VT_BSTR},
    {"TermOfAMediaType", L"CTipo_MidiaRpt", L"RelatorioTiposMidia", L"VALIDADE_MIDIA", VT_I4},
    {"CodeOfADocument", L"CDocumentoRpt", L"RelatorioSintetico", L"COD_DOCTO", VT_BSTR},
    {"MomentOfADocument", L"CDocumentoRpt", L"RelatorioSintetico", L"DT_ARMAZ", VT_DATE},
    {"DateOfADocument", L"CDocumentoRpt", L"RelatorioSintetico", L"DT_VENC", VT_DATE},
    {"FrontPagesOfADocument", L"CDocumentoRpt", L"RelatorioSintetico", L"FRENTE", VT_I4},
    {"BackPagesOfADocument", L"CDocumentoRpt", L"RelatorioSintetico", L"VERSO", VT_I4},
    {"FlagOfAnOperator", L"COperadorRpt", L"RelatorioOperadores", L"ATIVO", VT_BOOL},
    {"MomentOfAnEvent", L"CLogRpt", L"RelatorioLog", L"DATA", VT_DATE, kShortActions},
    {"TimeOfAnEvent", L"CLogRpt", L"RelatorioLog", L"HORA", VT_BSTR, kShortActions},
    {"DocumentOfAnEvent", L"CLogRpt", L"RelatorioLog", L"COD_DOCTO", VT_BSTR, kShortActions},
    {"FirstPieceOfAnAction", L"CLogRpt", L"RelatorioLog", L"ACAO1", VT_BSTR, kShortActions},
    {"PieceBeyondAnAction", L"CLogRpt", L"RelatorioLog", L"ACAO2", VT_EMPTY, kShortActions},
    {"LastPieceBeyondAnAction", L"CLogRpt", L"RelatorioLog", L"ACAO32", VT_EMPTY, kShortActions},
    {"DateInAUnionOfDiscardedModules", L"CCaixaRpt", L"ModulosExcluidos", L"DATA_FECHAMENTO", VT_DATE},
    {"DateInAUnionOfDueModules", L"CCaixaRpt", L"ModulosVencidos", L"DATA_FECHAMENTO", VT_DATE},
    {"DateInAUnionOfAllModules", L"CCaixaRpt", L"RelatoriosModulos", L"DATA_FECHAMENTO", VT_DATE},
};
INSTANTIATE_TEST_SUITE_P(, FieldTypes, testing::Combine(testing::ValuesIn(kFields), rows::BothEngines()),
                         [](const auto& info) {
                           return std::get<ReadField>(info.param).name + rows::NameOf(std::get<Engine>(info.param));
                         });

}  // namespace
}  // namespace kodra::face
