// The error that the client of a report gets when a call of the report to ADO, to a sibling or to its surroundings
// fails.
#pragma once

#include <algorithm>

#include "tests/wine/faults_cases.h"
#include "tests/wine/faults_injector.h"

namespace kodra::face {

inline constexpr const wchar_t* kTitle = L"KodraRpt";

// An error inside the component, before the frame of the report.
struct Cause {
  HRESULT number = S_OK;
  std::wstring source;
  std::wstring text;
};

// The calls of a run without a fault; each of them may fail in another run.
class CallSequence {
 public:
  CallSequence(const ReportCase& tested, std::vector<std::string> calls) : tested_(tested), calls_(std::move(calls)) {}

  std::size_t size() const { return calls_.size(); }
  const std::string& operator[](std::size_t at) const { return calls_[at]; }

  // Whether the report ignores the failure of the call: a command that cannot be detached from its rows stays attached.
  bool IsIgnored(std::size_t at) const { return IsModels() && At(at, "Command.") && After(at, "Recordset.Open"); }
  // Whether an error of the call shows only at the first use of its result: that of the system parameters does, unless
  // they cannot be created.
  bool ShowsAtFirstUse(std::size_t at) const { return At(at, "New KodraParamSist.Obtedor"); }
  static Cause ObjectNotSet() {
    return {kObjectNotSet, kTitle, L"A variável do objeto ou a variável do bloco 'With' não foi definida"};
  }
  // Whether the call reads the provider's code of a refused statement: if it fails, the error has no code.
  bool ReadsCode(std::size_t at) const { return tested_.refusal != nullptr && After(at, "Recordset.Open"); }

  // The error that the client gets when the call fails.
  Failure Expected(std::size_t at, Fault fault) const { return Expected(at, CauseOf(at, fault)); }
  // The same, when the component makes this cause of the failing call.
  Failure Expected(std::size_t at, const Cause& caught) const {
    if (IsIgnored(at)) return {};
    if (ReadsCode(at)) return tested_.Refused(L"");
    const Cause cause = Layered(at, caught);
    if (tested_.HasNoFrame()) return {cause.number, cause.source, cause.text};
    const bool namesCause = tested_.IsOf(L"CCaixaRpt") && cause.source != kTitle;
    const std::wstring prefix =
        tested_.IsOf(L"COperadorRpt") ? L"Erro " + Step(at) + L": " : L"Erro ao gerar dados para o relatório: ";
    return {kReportError, namesCause ? cause.source : tested_.Source(), prefix + cause.text};
  }

 private:
  bool IsModels() const { return tested_.Is(L"CModeloRpt", L"RelatorioModelos"); }
  bool At(std::size_t at, const char* start) const { return calls_[at].starts_with(start); }
  // How many of the calls before this one have the name.
  std::ptrdiff_t Before(std::size_t at, const char* call) const {
    return std::count(calls_.begin(), calls_.begin() + static_cast<std::ptrdiff_t>(at), call);
  }
  bool After(std::size_t at, const char* call) const { return Before(at, call) > 0; }

  // The cause that the component makes of the failing call.
  Cause CauseOf(std::size_t at, Fault fault) const {
    if (fault == Fault::kOutOfMemory)
      return ShowsAtFirstUse(at) ? ObjectNotSet() : Cause{kOutOfMemory, kTitle, L"Memória insuficiente"};
    if (ShowsAtFirstUse(at))
      return {kCannotCreateObject, L"modObtedorParamSist::ObtemParametroSistema",
              L"Não foi possível criar objeto da classe \"KodraParamSist.Obtedor\"."};
    if (At(at, "New ")) return {kCannotCreateObject, kTitle, L"O componente ActiveX não pode criar o objeto"};
    const bool hasText = !At(at, "IDispatch.GetIDsOfNames") && !At(at, "IEnumVARIANT.Next");
    if (fault == Fault::kRaised && hasText) return {kNumberWithoutText, kFaultSource, kFaultText};
    return {kNumberWithoutText, kTitle, L"Erro de automação (80047777)"};
  }

  bool OpensConnection(std::size_t at) const {
    if (At(at, kFileLength)) return true;
    return At(at, "New ADODB.Connection") || (At(at, "Connection.") && !At(at, "Connection.get_ConnectionString"));
  }
  // Whether the call opens rows on a connection that was opened just before.
  bool OpensRows(std::size_t at) const {
    if (!At(at, "New ADODB.Recordset") && !At(at, "Recordset.")) return false;
    std::size_t made = at;
    while (made > 0 && !At(made, "New ADODB.Recordset")) --made;
    if (made == 0 || !OpensConnection(made - 1)) return false;
    return Before(at, "Recordset.Open") == Before(made, "Recordset.Open");
  }
  // The cause after the functions that open connections and rows have added their names.
  Cause Layered(std::size_t at, const Cause& caught) const {
    const std::wstring text = L"[" + caught.source + L"]: " + caught.text;
    if (OpensConnection(at) && IsModels()) return {caught.number, L"modADO.AbreCn", text};
    if (OpensConnection(at)) return {caught.number, L"modADO.AbreFirehoseRs", L"[modADO.AbreCn]: " + text};
    return OpensRows(at) ? Cause{caught.number, L"modADO.AbreFirehoseRs", text} : caught;
  }

  // The step that the operators report names.
  std::wstring Step(std::size_t at) const {
    // How many of the calls up to this one, which is included, have the name.
    const auto reached = [&](const char* call) { return Before(at + 1, call); };
    if (reached("New ADODB.Connection") + reached(kFileLength) == 0) return L"";
    if (reached("New ADODB.Recordset") < 2) return L"ao obter dados do SGBD";
    return reached("Recordset.Open") < 2 ? L"ao criar conjunto de dados de saída"
                                         : L"ao preencher conjunto de dados de saída";
  }

  const ReportCase& tested_;
  std::vector<std::string> calls_;
};

}  // namespace kodra::face
