#include "reports/modules/container_rpt.h"

#include <array>
#include <cmath>
#include <optional>

#include "data/compiled_statement.h"
#include "frame/parameter_reader.h"
#include "reports/output_dataset.h"
#include "values/writer.h"

namespace kodra::reports {
namespace {

namespace ad = platform::ad;

constexpr std::array<std::wstring_view, 3> kContainers = {L"Container1", L"Container2", L"Container3"};

constexpr void SelectContainers(data::SelectBuilder& builder) {
  builder.SetColumns(L"NUM_CONTAINER, DESC_CONTAINER");
  builder.SetFrom(L"CONTAINER");
  builder.SetOrderBy(L"NUM_CONTAINER, DESC_CONTAINER");
}

values::LocalText<200> ModulesStatement(const std::wstring& container) {
  return values::LocalText<200>(
      L"SELECT cx.CONTAINER, cx.DATA_VENCIMENTO, cx.TIPO_GUARDA, p.EMPRESA AS NOME_EMPRESA "
      L"FROM CAIXA cx INNER JOIN PARAMETRO p ON 1=1 "
      L"WHERE cx.CONTAINER='",
      container, L"'");
}

// Whole seconds from one date to another.
double SecondsBetween(Date from, Date to) {
  constexpr double kSecondsADay = 86400;
  return std::round(to.days * kSecondsADay) - std::round(from.days * kSecondsADay);
}

// The label of the container whose modules these are; nothing when there is none.
std::optional<ContainerLabel> ReadLabel(platform::Recordset& modules, AutomationObject& conversions) {
  if (modules.Eof()) return std::nullopt;
  SourceField company(modules, L"NOME_EMPRESA");
  SourceField kind(modules, L"TIPO_GUARDA");
  SourceField date(modules, L"DATA_VENCIMENTO");
  const Value dateObject = (*date).AsObject();
  ContainerLabel label;
  for (; !modules.Eof(); modules.MoveNext()) {
    const std::wstring companyName = company.Text();
    const std::wstring moduleKind = kind.Text();
    label.Add(values::ToDate(conversions.Call(L"ToDate", {&dateObject, 1})), moduleKind, companyName);
  }
  return label;
}

void EnsureOpen(OutputDataset& output) {
  if (output.Rows().State() != ad::kStateOpen) output.Open();
}

}  // namespace

void ContainerLabel::Add(Date date, std::wstring_view moduleKind, std::wstring_view companyName) {
  company = companyName;
  if (date.days > 0) kind = L"T";
  if (kind != L"T") kind = moduleKind;
  if (SecondsBetween(latest, date) > 0) latest = date;
}

frame::ReportRows CContainerRpt::RelatorioContainers(AutomationObject* obj) {
  return Report(L"RelatorioContainers", [&] {
    InicializaPS(obj);
    return Open(data::kCompiledStatement<SelectContainers>);
  });
}

frame::ReportRows CContainerRpt::EtiquetaAbertura(AutomationObject* obj) {
  return Report(L"EtiquetaAbertura", [&] {
    InicializaPS(obj);
    const ObjectRef conversions = Around().CreateObject(L"VantLib.Conversoes");
    OutputDataset output(Around());
    output.AppendText(L"CONTAINER", 10);
    output.Append(L"DATA_VENCIMENTO", ad::kDBDate);
    output.AppendText(L"TIPO_GUARDA", 1);
    output.AppendText(L"NOME_EMPRESA", 64);
    bool anyLabel = false;
    for (const std::wstring_view property : kContainers) {
      const std::wstring container = frame::ReadText(*obj, property);
      const frame::ReportRows modules = Open(ModulesStatement(container));
      const std::optional<ContainerLabel> label = ReadLabel(*modules, *conversions);
      modules->Close();
      if (!label) continue;
      EnsureOpen(output);
      output.AddNew();
      output[0].Let(container);
      output[1].Let(label->latest);
      output[2].Let(label->kind);
      output[3].Let(label->company);
      output.Update();
      anyLabel = true;
    }
    EnsureOpen(output);
    if (anyLabel) output.MoveFirst();  // an empty recordset has no first row to move to
    return output.Release();
  });
}

frame::ReportRows CContainerRpt::EtiquetaAberturaSubRpt(AutomationObject* obj) {
  return Report(L"EtiquetaAberturaSubRpt", [&] {
    InicializaPS(obj);
    const std::wstring first = frame::ReadText(*obj, L"Container1");
    const std::wstring second = frame::ReadText(*obj, L"Container2");
    const std::wstring third = frame::ReadText(*obj, L"Container3");
    return Open(
        values::LocalText<200>(L"SELECT cx.CONTAINER, cx.NUM_CAIXA "
                               L"FROM CAIXA cx "
                               L"WHERE cx.CONTAINER = '",
                               first, L"' OR cx.CONTAINER = '", second, L"' OR cx.CONTAINER = '", third,
                               L"' "
                               L"ORDER BY cx.CONTAINER, cx.NUM_CAIXA"));
  });
}

}  // namespace kodra::reports
