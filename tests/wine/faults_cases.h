// Every report method with parameters that lead it through all of its steps, on an archive so small that each of them
// can run hundreds of times.
#pragma once

// clang-format off
#include <windows.h>
#include <kodrarpt.h>
// clang-format on

#include "tests/wine/environment.h"
#include "tests/wine/public_face.h"
#include "tests/wine/report_rows.h"

namespace kodra::face {

// The sample archive with two operators and two events.
class SmallArchive : public ArchiveCopy {
 public:
  SmallArchive()
      : ArchiveCopy(
            {
                L"DELETE FROM EVENTO WHERE COD_EVENTO > 2",
                L"UPDATE OPERADOR SET OPCOES_PESSOAIS = 'APAGADO'",
                L"UPDATE OPERADOR SET OPCOES_PESSOAIS = NULL, COD_DEPTO = (SELECT MIN(COD_DEPTO) FROM DEPTO),"
                L" COD_GRPOP = (SELECT MIN(COD_GRPOP) FROM GRUPOS_OPERADORES)"
                L" WHERE COD_OPERADOR IN (SELECT COD_OPERADOR FROM OPERADOR ORDER BY 1 LIMIT 2)",
                L"UPDATE CAIXA SET CONTAINER = NULL WHERE NUM_CAIXA NOT IN ('AA001', 'AA002', 'AA006')",
            },
            L"acervo-pequeno.db") {}
};

// A report method with its parameters.
struct ReportCase {
  const wchar_t* report;
  const wchar_t* method;
  Properties properties;
  // Whether the report runs on the client's connection.
  bool onConexao = false;
  // SQLite's message where it refuses the statement of the report; null where the report returns rows.
  const wchar_t* refusal = nullptr;

  bool IsOf(const std::wstring& className) const { return className == report; }
  bool Is(const std::wstring& className, const std::wstring& methodName) const {
    return IsOf(className) && methodName == method;
  }
  // The only report method without the common frame of errors.
  bool HasNoFrame() const { return Is(L"CCaixaRpt", L"DocsNoModuloSubRpt"); }

  // "CDeptoRpt::RelatorioDeptos", and the same as the source of an error.
  std::wstring Name() const { return std::wstring(report) + L"::" + method; }
  std::wstring Source() const { return L"KodraRpt." + Name(); }
  // The error of the report where SQLite refuses its statement, otherwise none; `code` follows the driver's text.
  Failure Refused(const std::wstring& code = L" [N:1]") const {
    if (refusal == nullptr) return {};
    return Framed(Name(), L"[Microsoft OLE DB Provider for ODBC Drivers]: " + (refusal + code));
  }
  Ref<IDispatch> NewReport() const { return Create(std::wstring(L"KodraRpt.") + report); }
  Ref<IDispatch> NewParameters() const { return ParametersOf(report, properties); }
};

inline void PrintTo(const ReportCase& tested, std::ostream* out) { *out << testing::PrintToString(tested.Source()); }

// The 39 methods, some of them with different parameters; those of the modules on a connection string and on a client's
// connection.
inline std::vector<ReportCase> ReportCases() {
  std::vector<ReportCase> cases;
  for (const ReportEntry& entry : CatalogReports()) cases.push_back({entry.name, entry.method(), {}});
  cases.push_back({L"CCDRpt", L"RelatorioMidias", {{L"TipoRpt", L"V"}}});
  cases.push_back({L"CModeloRpt", L"RelatorioModelos", {{L"CodModelo", L"MODELO-0002"}}});
  const Var start = Var::Date(40179);  // 2010
  const Var end = Var::Date(45657);    // 2024
  const Properties period = {{L"DataInicial", start}, {L"DataFinal", end}};
  const Properties stored = {{L"DataArmazenamento1", start}, {L"DataArmazenamento2", end}};
  constexpr const wchar_t* kUnquotedDate = L"[SQLite]near \"00\": syntax error (1)";
  const Properties production = {
      {L"DataInicial", start}, {L"DataFinal", end}, {L"CodOperador", L"1"}, {L"CodDepto", L"1"}};
  const std::vector<ReportCase> others = {
      {L"COperadorRpt", L"RelatorioOperadores", {}},
      {L"CDocumentoRpt", L"RelatorioSintetico", stored, false, kUnquotedDate},
      {L"CDocumentoRpt", L"RelatorioAnalitico", stored, false, kUnquotedDate},
      {L"CDocumentoRpt", L"RelatorioInventarios", {}},
      {L"CSolicitacaoRpt", L"RelatorioRetiradaOriginal", {{L"CodSolicit", L"2"}}},
      {L"CSolicitacaoRpt", L"RelatorioDevolucaoOriginal", {}, false, L"[SQLite]near \"AS\": syntax error (1)"},
      {L"CLogRpt", L"RelatorioLog", {}},
      {L"CContainerRpt", L"RelatorioContainers", {}},
      {L"CContainerRpt",
       L"EtiquetaAbertura",
       {{L"Container1", L"CT0001"}, {L"Container2", L"CT0003"}, {L"Container3", L"CT0009"}}},
      {L"CContainerRpt", L"EtiquetaAberturaSubRpt", {{L"Container1", L"CT0001"}}},
      {L"CEstatImgRpt", L"RelatorioEstatisticas", production},
      {L"CEstatIndexRpt", L"RelatorioEstatisticasPorDocumento", production},
      {L"CEstatIndexRpt",
       L"RelatorioEstatisticasPorPalavrasChave",
       {{L"NumeroPC1", L"1"},
        {L"NumeroPC2", L"2"},
        {L"NumeroPC3", L"3"},
        {L"NumeroPC4", L"4"},
        {L"NumeroPC5", L"5"},
        {L"NumeroObs", L"6"}}},
      {L"CEstatSuporteRpt", L"RelatorioEstatisticas", period},
      {L"CEstatSubgrupoRpt", L"RelatorioEstatisticas", period},
      {L"CEstatSerieRpt", L"RelatorioEstatisticas", period},
  };
  cases.insert(cases.end(), others.begin(), others.end());
  for (const bool onConexao : {false, true}) {
    const std::vector<ReportCase> modules = {
        {L"CCaixaRpt", L"EtiquetaAbertura", {{L"Modulo1", L"AA00101"}, {L"Tipo", L"S"}}, onConexao},
        {L"CCaixaRpt", L"EtiquetaFechamento", {{L"Modulo1", L"AA001"}}, onConexao},
        {L"CCaixaRpt", L"EtiquetaFechamentoSubordinada", {{L"Modulo1", L"AA001"}}, onConexao},
        {L"CCaixaRpt", L"EtiquetaDivisoria", {{L"Modulo1", L"AA001"}}, onConexao},
        {L"CCaixaRpt", L"ModulosExcluidos", {}, onConexao},
        {L"CCaixaRpt", L"ModulosVencidos", {}, onConexao},
        {L"CCaixaRpt", L"DocsNoModulo", {{L"Modulo1", L"AA00101"}}, onConexao},
        {L"CCaixaRpt", L"DocsNoModuloSubRpt", {{L"Modulo1", L"AA001"}}, onConexao},
        {L"CCaixaRpt", L"DocsNaoIndexadosNosModulos", {}, onConexao},
        {L"CCaixaRpt", L"RelatoriosModulos", {}, onConexao},
        {L"CCaixaRpt", L"AutorizacaoDescarteModuloSubRpt", {{L"Modulo1", L"ZZ999"}}, onConexao},
    };
    cases.insert(cases.end(), modules.begin(), modules.end());
  }
  return cases;
}

// "CDeptoRpt_RelatorioDeptos_7": a method occurs in several cases, so the name ends with the number of the case.
inline std::string CaseName(const testing::TestParamInfo<ReportCase>& info) {
  const std::wstring name =
      std::wstring(info.param.report) + L"_" + info.param.method + L"_" + std::to_wstring(info.index);
  return std::string(name.begin(), name.end());
}

// The report object and the parameter object of a case, ready to run on a connection string.
class Subject {
 public:
  Subject(const ReportCase& tested, const std::wstring& connection)
      : tested_(tested), report_(tested.NewReport()), parameters_(tested.NewParameters()) {
    if (!tested.onConexao) {
      EXPECT_EQ(S_OK, Put(report_, L"StringConexao", connection).hr);
      return;
    }
    const auto conexao = Create(L"ADODB.Connection");
    Got(Call(conexao, L"Open", {connection}));
    EXPECT_EQ(S_OK, report_.As<ICCaixaRpt>()->putref_Conexao(conexao.get()));
  }

  Outcome Run() const { return Call(report_, tested_.method, {Var(parameters_.get())}); }
  const Ref<IDispatch>& report() const { return report_; }
  const Ref<IDispatch>& parameters() const { return parameters_; }
  void ExpectToWork() const { EXPECT_EQ(tested_.Refused(), Run().failure); }

 private:
  const ReportCase& tested_;
  Ref<IDispatch> report_;
  Ref<IDispatch> parameters_;
};

}  // namespace kodra::face
