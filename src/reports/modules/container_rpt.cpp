// The containers of storage modules: their list, their opening label and the modules on it.
#include <cmath>
#include <optional>

#include "frame/parameter_reader.h"
#include "reports/modules/container_label.h"
#include "reports/output_dataset.h"
#include "reports/reports.h"

namespace kodra::reports {
namespace {

namespace ad = platform::ad;

// The whole seconds from one date to another.
double SecondsBetween(Date from, Date to) {
  constexpr double kSecondsADay = 86400;
  return std::round(to.days * kSecondsADay) - std::round(from.days * kSecondsADay);
}

// The label of the container of these modules; nothing when there are no modules.
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

frame::ReportRows OpenModules(const Call& call, const std::wstring& container) {
  return call.Open(
      L"SELECT cx.CONTAINER, cx.DATA_VENCIMENTO, cx.TIPO_GUARDA, p.EMPRESA AS NOME_EMPRESA "
      L"FROM CAIXA cx INNER JOIN PARAMETRO p ON 1=1 "
      L"WHERE cx.CONTAINER='" +
      container + L"'");
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

// Every container.
frame::ReportRows CContainerRpt::RelatorioContainers(Call& call) {
  call.InicializaPS();
  return call.Open(
      L"SELECT NUM_CONTAINER, DESC_CONTAINER "
      L"FROM CONTAINER "
      L"ORDER BY NUM_CONTAINER, DESC_CONTAINER");
}

// Reads Container1 to Container3: one row, made in memory, for each that has a module in it. The first row is the
// current one.
frame::ReportRows CContainerRpt::EtiquetaAbertura(Call& call) {
  call.InicializaPS();
  const ObjectRef conversions = call.Around().CreateObject(L"VantLib.Conversoes");
  OutputDataset output(call.Around());
  output.AppendText(L"CONTAINER", 10);
  output.Append(L"DATA_VENCIMENTO", ad::kDBDate);
  output.AppendText(L"TIPO_GUARDA", 1);
  output.AppendText(L"NOME_EMPRESA", 64);
  bool anyLabel = false;
  for (const std::wstring_view property : {L"Container1", L"Container2", L"Container3"}) {
    const std::wstring container = frame::ReadText(call.Parameters(), property);
    const frame::ReportRows modules = OpenModules(call, container);
    const std::optional<ContainerLabel> label = ReadLabel(*modules, *conversions);
    modules->Close();
    if (!label) continue;
    EnsureOpen(output);
    output.AddNew();
    output.Let(L"CONTAINER", container);
    output.Let(L"DATA_VENCIMENTO", label->latest);
    output.Let(L"TIPO_GUARDA", label->kind);
    output.Let(L"NOME_EMPRESA", label->company);
    output.Update();
    anyLabel = true;
  }
  EnsureOpen(output);
  if (anyLabel) output.MoveFirst();  // an empty recordset has no first row to move to
  return output.Release();
}

// Reads Container1 to Container3: their modules.
frame::ReportRows CContainerRpt::EtiquetaAberturaSubRpt(Call& call) {
  call.InicializaPS();
  const std::wstring first = frame::ReadText(call.Parameters(), L"Container1");
  const std::wstring second = frame::ReadText(call.Parameters(), L"Container2");
  const std::wstring third = frame::ReadText(call.Parameters(), L"Container3");
  return call.Open(
      L"SELECT cx.CONTAINER, cx.NUM_CAIXA "
      L"FROM CAIXA cx "
      L"WHERE cx.CONTAINER = '" +
      first + L"' OR cx.CONTAINER = '" + second + L"' OR cx.CONTAINER = '" + third +
      L"' "
      L"ORDER BY cx.CONTAINER, cx.NUM_CAIXA");
}

}  // namespace kodra::reports
