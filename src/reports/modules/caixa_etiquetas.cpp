// The label methods of CCaixaRpt.
#include "frame/parameter_reader.h"
#include "reports/modules/caixa_logged.h"
#include "reports/modules/module_code.h"

namespace kodra::reports {
namespace {

using data::JoinKind;

// The condition that picks a subordinate module by its 7-character code.
void AddIsSubordinate(data::SelectBuilder& builder, std::wstring_view code) {
  builder.AddToWhere(L"(s.NUM_CAIXA='", MainModule(code), L"' AND s.NUM_SEQ=", SubordinateNumber(code), L")");
}

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

void AddAnyModule(data::SelectBuilder& builder, const Modules& modules) {
  builder.AddToWhere(L"c.NUM_CAIXA='", modules.first, L"' OR c.NUM_CAIXA='", modules.second, L"' OR c.NUM_CAIXA='",
                     modules.third, L"'");
}

void AddAnySubordinate(data::SelectBuilder& builder, const Modules& modules) {
  AddIsSubordinate(builder, modules.first);
  builder.AddToWhere(L"  OR ");
  AddIsSubordinate(builder, modules.second);
  builder.AddToWhere(L"  OR ");
  AddIsSubordinate(builder, modules.third);
}

}  // namespace

frame::ReportRows CCaixaRpt::EtiquetaAbertura(AutomationObject* obj) {
  return Logged(L"EtiquetaAbertura", [&] {
    InicializaPS(obj);
    data::SelectBuilder builder = NewBuilder();
    if (frame::ReadText(*obj, L"Tipo") == L"S") {
      builder.SetColumns(L"c.DESC_CAIXA, ", SubordinateCode(), L" AS NUM_CAIXA, s.TIPO_GUARDA, s.ANOS_VENCIMENTO");
      builder.SetFrom(L"CAIXA c");
      builder.AddJoin(0, JoinKind::kInner, L"CAIXA_SUBORDINADA s", L"c.NUM_CAIXA = s.NUM_CAIXA");
      AddAnySubordinate(builder, ReadModules(*obj));
    } else {
      builder.SetColumns(L"c.DESC_CAIXA, c.NUM_CAIXA, c.TIPO_GUARDA, c.ANOS_VENCIMENTO");
      builder.SetFrom(L"CAIXA c");
      AddAnyModule(builder, ReadModules(*obj));
    }
    const std::wstring_view once = builder.SQL();
    if (HasConexao()) return OpenResult(once);
    // Two opening labels go on each module.
    return OpenResult(values::LocalText<2000>(once, L" UNION ALL ", once, L" ORDER BY NUM_CAIXA"));
  });
}

frame::ReportRows CCaixaRpt::EtiquetaFechamento(AutomationObject* obj) {
  return Logged(L"EtiquetaFechamento", [&] {
    InicializaPS(obj);
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns(
        L"c.DESC_CAIXA, c.NUM_CAIXA, c.DOC_INICIAL, c.DOC_FINAL, c.DATA_VENCIMENTO, c.TIPO_GUARDA, "
        L"p.EMPRESA AS Nome_Empresa");
    builder.SetFrom(L"CAIXA c");
    builder.AddJoin(0, JoinKind::kInner, L"PARAMETRO p", L"p.CODIGO = '1'");
    builder.SetWhere(L"(");
    AddAnyModule(builder, ReadModules(*obj));
    builder.AddToWhere(L")");
    builder.SetOrderBy(L"c.NUM_CAIXA");
    return OpenResult(builder.SQL());
  });
}

frame::ReportRows CCaixaRpt::EtiquetaFechamentoSubordinada(AutomationObject* obj) {
  return Logged(L"EtiquetaFechamentoSubordinada", [&] {
    InicializaPS(obj);
    const std::wstring module = frame::ReadText(*obj, L"Modulo1");
    const ClosedSubordinates closed = ObtemSubordinadosFechados(module);
    RequireAny(closed, module);
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns(L"c.DESC_CAIXA, ", SubordinateCode(),
                       L" AS NUM_CAIXA, "
                       L"s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, s.TIPO_GUARDA, "
                       L"p.EMPRESA AS Nome_Empresa");
    builder.SetFrom(L"CAIXA c");
    builder.AddJoin(0, JoinKind::kInner, L"PARAMETRO p", L"p.CODIGO = '1'");
    builder.AddJoin(1, JoinKind::kInner, L"CAIXA_SUBORDINADA s", L"c.NUM_CAIXA = s.NUM_CAIXA");
    builder.SetWhere(L"s.NUM_CAIXA = '", module, L"'");
    builder.SetOrderBy(L"NUM_CAIXA");
    return OpenResult(builder.SQL());
  });
}

frame::ReportRows CCaixaRpt::EtiquetaDivisoria(AutomationObject* obj) {
  return Logged(L"EtiquetaDivisoria", [&] {
    InicializaPS(obj);
    data::SelectBuilder builder = NewBuilder();
    builder.SetColumns(L"d.COD_DOCTO");
    builder.SetFrom(L"DOCUMENTO d");
    const std::wstring module = frame::ReadText(*obj, L"Modulo1");
    builder.SetWhere(L"d.NUM_CAIXA = '", MainModule(module), L"'");
    builder.SetOrderBy(L"d.COD_DOCTO");
    return OpenResult(builder.SQL());
  });
}

}  // namespace kodra::reports
