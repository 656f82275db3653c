// The error that a report's client gets when the report's call to ADO, to a sibling or to its surroundings fails.
#pragma once

#include <algorithm>

#include "tests/wine/faults_cases.h"
#include "tests/wine/faults_injector.h"

namespace kodra::face {

inline constexpr const wchar_t* kTitle = L"KodraRpt";

// An error on its way up through the component.
struct Cause {
  unsigned long number = 0;
  std::wstring source;
  std::wstring text;
};

// The calls of one undisturbed run, as places where the run may fail.
class Course {
 public:
  Course(const ReportCase& tested, std::vector<std::string> calls) : tested_(tested), calls_(std::move(calls)) {}

  std::size_t size() const { return calls_.size(); }
  const std::string& operator[](std::size_t at) const { return calls_[at]; }

  // Failures that a report ignores: a command that cannot be detached from its rows stays attached.
  bool IsIgnored(std::size_t at) const { return IsModels() && At(at, "Command.") && After(at, "Recordset.Open"); }
  // The creation of the system parameters: an error there, except that they cannot be created, shows only at their
  // first use.
  bool IsMissedLater(std::size_t at) const { return At(at, "New KodraParamSist.Obtedor"); }
  static Cause ObjectNotSet() {
    return {0x800A005B, kTitle, L"A variável do objeto ou a variável do bloco 'With' não foi definida"};
  }
  // Calls for the provider's code, made when a statement was refused: when they fail, the error has no code.
  bool AsksForCode(std::size_t at) const { return tested_.refusal != nullptr && After(at, "Recordset.Open"); }

  // The error that the client gets for a failure.
  Failure Expected(std::size_t at, Mishap mishap) const { return Expected(at, Caught(at, mishap)); }
  // The same, when the component takes the failing call for this cause.
  Failure Expected(std::size_t at, const Cause& caught) const {
    if (IsIgnored(at)) return {};
    if (AsksForCode(at)) return tested_.Refused(L"");
    const Cause cause = Layered(at, caught);
    if (Is(L"CCaixaRpt", L"DocsNoModuloSubRpt")) return {cause.number, cause.source, cause.text};
    const bool namesCause = tested_.report == std::wstring(L"CCaixaRpt") && cause.source != kTitle;
    const std::wstring prefix = Is(L"COperadorRpt", L"RelatorioOperadores") ? L"Erro " + Step(at) + L": "
                                                                            : L"Erro ao gerar dados para o relatório: ";
    return {0x80041FAB, namesCause ? cause.source : tested_.Source(), prefix + cause.text};
  }

 private:
  bool Is(const std::wstring& report, const std::wstring& method) const {
    return tested_.report == report && tested_.method == method;
  }
  bool IsModels() const { return Is(L"CModeloRpt", L"RelatorioModelos"); }
  bool At(std::size_t at, const char* start) const { return calls_[at].starts_with(start); }
  // How often a call has been made before.
  std::ptrdiff_t Before(std::size_t at, const char* call) const {
    return std::count(calls_.begin(), calls_.begin() + static_cast<std::ptrdiff_t>(at), call);
  }
  bool After(std::size_t at, const char* call) const { return Before(at, call) > 0; }

  // The cause that the component takes the failing call for.
  Cause Caught(std::size_t at, Mishap mishap) const {
    if (mishap == Mishap::kOutOfMemory)
      return IsMissedLater(at) ? ObjectNotSet() : Cause{0x800A0007, kTitle, L"Memória insuficiente"};
    if (IsMissedLater(at))
      return {0x800A01AD, L"modObtedorParamSist::ObtemParametroSistema",
              L"Não foi possível criar objeto da classe \"KodraParamSist.Obtedor\"."};
    if (At(at, "New ")) return {0x800A01AD, kTitle, L"O componente ActiveX não pode criar o objeto"};
    const bool hasText = !At(at, "IDispatch.GetIDsOfNames") && !At(at, "IEnumVARIANT.Next");
    if (mishap == Mishap::kRaised && hasText) return {0x80047777, kMishapSource, kMishapText};
    return {0x80047777, kTitle, L"Erro de automação (80047777)"};
  }

  bool OpensConnection(std::size_t at) const {
    if (At(at, kFileLength)) return true;
    return At(at, "New ADODB.Connection") || (At(at, "Connection.") && !At(at, "Connection.get_ConnectionString"));
  }
  // Whether it opens the rows of a connection opened just before.
  bool OpensRows(std::size_t at) const {
    if (!At(at, "New ADODB.Recordset") && !At(at, "Recordset.")) return false;
    std::size_t made = at;
    while (made > 0 && !At(made, "New ADODB.Recordset")) --made;
    if (made == 0 || !OpensConnection(made - 1)) return false;
    return Before(at, "Recordset.Open") == Before(made, "Recordset.Open");
  }
  // The cause after the layers of the functions that open connections and rows.
  Cause Layered(std::size_t at, const Cause& caught) const {
    const std::wstring text = L"[" + caught.source + L"]: " + caught.text;
    if (OpensConnection(at) && IsModels()) return {caught.number, L"modADO.AbreCn", text};
    if (OpensConnection(at)) return {caught.number, L"modADO.AbreFirehoseRs", L"[modADO.AbreCn]: " + text};
    return OpensRows(at) ? Cause{caught.number, L"modADO.AbreFirehoseRs", text} : caught;
  }

  // The step that the operators report names.
  std::wstring Step(std::size_t at) const {
    // How many connections and recordsets have been reached, including this call.
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
