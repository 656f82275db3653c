// The labels of storage modules ("módulos") and their subordinates.
#include "frame/parameter_reader.h"
#include "reports/modules/module_code.h"
#include "reports/reports.h"
#include "values/convert.h"

namespace kodra::reports {
namespace {

// The three modules of a label sheet.
struct Modules {
  std::wstring first;
  std::wstring second;
  std::wstring third;
};

Modules ReadModules(AutomationObject& parameters) {
  Modules modules;
  modules.first = frame::ReadText(parameters, L"Modulo1");
  modules.second = frame::ReadText(parameters, L"Modulo2");
  modules.third = frame::ReadText(parameters, L"Modulo3");
  return modules;
}

std::wstring IsAnyModule(const Modules& modules) {
  return L"c.NUM_CAIXA='" + modules.first + L"' OR c.NUM_CAIXA='" + modules.second + L"' OR c.NUM_CAIXA='" +
         modules.third + L"'";
}

// The condition that picks a subordinate module by its 7-character code.
std::wstring IsSubordinate(const std::wstring& code) {
  return L"(s.NUM_CAIXA='" + MainModule(code) + L"' AND s.NUM_SEQ=" + SubordinateNumber(code) + L")";
}

std::wstring IsAnySubordinate(const Modules& modules) {
  return IsSubordinate(modules.first) + L"  OR " + IsSubordinate(modules.second) + L"  OR " +
         IsSubordinate(modules.third);
}

// The closed subordinates of a module: a collection, null when the component returns none, with the objects that it
// comes from and through which it may be read.
struct ClosedSubordinates {
  ObjectRef filter;
  ObjectRef reader;
  ObjectRef modules;
};

ClosedSubordinates ObtemSubordinadosFechados(ModuleCall& call, const std::wstring& module) {
  constexpr std::int32_t kClosedOnly = 1;
  const std::wstring source = call.SourceOf(L"ObtemSubordinadosFechados");
  call.DebugLog(source + L": gerando filtro");
  ObjectRef filter = call.Around().CreateObject(L"KodraBsnV3.ModulosFiltro");
  filter->Let(L"NumCaixa", module);
  filter->Let(L"Fechados", kClosedOnly);
  call.DebugLog(source + L": obtendo dados");
  ObjectRef reader = call.CreateBusinessObject(L"KodraBsnV3.ObtedorDeModulos");
  Value argument = filter;
  ObjectRef modules = ObjectIn(reader->CallByReference(L"ObtemSubordinados", argument, {}));
  return {std::move(filter), std::move(reader), std::move(modules)};
}

// Raises unless there is a collection with a member.
void RequireAny(const ClosedSubordinates& closed, const std::wstring& module) {
  const std::wstring source(kApplicationTitle);
  if (!closed.modules)
    throw Erro(kErrBase + 10, source,
               L"Não foi possível obter uma lista dos módulos subordinados fechados associados ao módulo " + module);
  if (values::ToInt32(closed.modules->Get(L"Count")) == 0)
    throw Erro(kErrBase + 11, source, L"Não há módulos subordinados fechados associados ao módulo " + module);
}

}  // namespace

// Reads Tipo ("S": subordinate modules) and Modulo1 to Modulo3.
frame::ReportRows CCaixaRpt::EtiquetaAbertura(Call& call) {
  call.InicializaPS();
  std::wstring once;
  if (frame::ReadText(call.Parameters(), L"Tipo") == L"S") {
    const std::wstring code = call.SubordinateCode();
    once = L"SELECT c.DESC_CAIXA, " + code +
           L" AS NUM_CAIXA, s.TIPO_GUARDA, s.ANOS_VENCIMENTO "
           L"FROM CAIXA c "
           L"INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA "
           L"WHERE " +
           IsAnySubordinate(ReadModules(call.Parameters()));
  } else {
    once =
        L"SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.TIPO_GUARDA, c.ANOS_VENCIMENTO "
        L"FROM CAIXA c "
        L"WHERE " +
        IsAnyModule(ReadModules(call.Parameters()));
  }
  if (call.HasConexao()) return call.OpenResult(once);
  // Each module gets two opening labels.
  return call.OpenResult(once + L" UNION ALL " + once + L" ORDER BY NUM_CAIXA");
}

// Reads Modulo1 to Modulo3.
frame::ReportRows CCaixaRpt::EtiquetaFechamento(Call& call) {
  call.InicializaPS();
  return call.OpenResult(
      L"SELECT c.DESC_CAIXA, c.NUM_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.TIPO_GUARDA, "
      L"p.EMPRESA AS Nome_Empresa "
      L"FROM CAIXA c "
      L"INNER JOIN PARAMETRO p ON p.CODIGO = '1' "
      L"WHERE (" +
      IsAnyModule(ReadModules(call.Parameters())) +
      L") "
      L"ORDER BY c.NUM_CAIXA");
}

// Reads Modulo1. The labels of every subordinate once at least one is closed.
frame::ReportRows CCaixaRpt::EtiquetaFechamentoSubordinada(Call& call) {
  call.InicializaPS();
  const std::wstring module = frame::ReadText(call.Parameters(), L"Modulo1");
  const ClosedSubordinates closed = ObtemSubordinadosFechados(call, module);
  RequireAny(closed, module);
  return call.OpenResult(L"SELECT c.DESC_CAIXA, " + call.SubordinateCode() +
                         L" AS NUM_CAIXA, "
                         L"s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.TIPO_GUARDA, "
                         L"p.EMPRESA AS Nome_Empresa "
                         L"FROM CAIXA c "
                         L"INNER JOIN PARAMETRO p ON p.CODIGO = '1' "
                         L"INNER JOIN CAIXA_SUBORDINADA s ON c.NUM_CAIXA = s.NUM_CAIXA "
                         L"WHERE s.NUM_CAIXA = '" +
                         module +
                         L"' "
                         L"ORDER BY NUM_CAIXA");
}

// Reads Modulo1. One row per document of the module; a subordinate's code returns those of its parent.
frame::ReportRows CCaixaRpt::EtiquetaDivisoria(Call& call) {
  call.InicializaPS();
  const std::wstring module = frame::ReadText(call.Parameters(), L"Modulo1");
  return call.OpenResult(
      L"SELECT d.COD_DOCTO "
      L"FROM DOCUMENTO d "
      L"WHERE d.NUM_CAIXA = '" +
      MainModule(module) +
      L"' "
      L"ORDER BY d.COD_DOCTO");
}

}  // namespace kodra::reports
