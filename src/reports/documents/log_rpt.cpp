// The event log: who did what, where and when, in a recordset made in memory.
#include "frame/parameter_reader.h"
#include "reports/output_dataset.h"
#include "reports/reports.h"
#include "values/convert.h"
#include "values/format_date.h"
#include "values/numbers.h"
#include "values/upper.h"

namespace kodra::reports {
namespace {

namespace ad = platform::ad;

constexpr std::size_t kActionFields = 32;
constexpr std::size_t kActionSize = 250;

std::wstring Shortened(std::wstring text, std::size_t count) {
  if (text.size() > count) text.resize(count);
  return text;
}

// The first characters of a text; null stays null.
Value FirstCharacters(Value value, std::size_t count) {
  if (value.Is<Null>()) return value;
  return Shortened(values::ToText(std::move(value)), count);
}

Value TimeText(const Value& moment) {
  if (moment.Is<Null>()) return L"";
  return values::FormatDate(values::ToDate(moment), L"hh:mm:ss");
}

std::wstring ActionField(std::size_t number) {
  return L"ACAO" + values::NumberToText(static_cast<std::int64_t>(number));
}

// Raises for a text too long for all fields: the recordset has no field for the rest.
void FillAction(OutputDataset& output, const std::wstring& action) {
  for (std::size_t start = 0, number = 1; start < action.size(); start += kActionSize, ++number)
    output.Let(ActionField(number), action.substr(start, kActionSize));
}

void FillEvent(OutputDataset& output, AutomationObject& event) {
  output.AddNew();
  const Value moment = event.Get(L"DataInicial");
  output.Let(L"DATA", moment);
  output.Let(L"HORA", TimeText(moment));
  output.Let(L"DESCR_OPERADOR", FirstCharacters(event.Get(L"Nome_Operador"), 250));
  output.Let(L"MAQUINA", FirstCharacters(event.Get(L"Maquina"), 250));
  output.Let(L"COD_DOCTO", Shortened(values::ToTextOrEmpty(event.Get(L"Cod_Docto")), 10));
  output.Let(L"COD_ACAO", FirstCharacters(event.Get(L"Tipo_Evento"), 10));
  FillAction(output, values::ToText(event.Get(L"Acao")));
  output.Update();
}

ObjectRef NewFilter(const Call& call) {
  AutomationObject& parameters = call.Parameters();
  ObjectRef filter = call.Around().CreateObject(L"KodraRegEvt.RegEvtFind");
  filter->Let(L"Acao", frame::ReadText(parameters, L"Acao"));
  filter->Let(L"Cod_Docto", frame::ReadText(parameters, L"CodDocto"));
  filter->Let(L"DataFinal", frame::ReadDate(parameters, L"DataFinal"));
  filter->Let(L"DataInicial", frame::ReadDate(parameters, L"DataInicial"));
  filter->Let(L"Maquina", frame::ReadText(parameters, L"MaquinaOrigem"));
  filter->Let(L"Nome_Operador", frame::ReadText(parameters, L"Operador"));
  filter->Let(L"Tipo_Evento", values::UpperCase(frame::ReadText(parameters, L"Evento").substr(0, 3)));
  return filter;
}

ObjectRef NewReader(const Call& call) {
  ObjectRef reader = call.Around().CreateObject(L"KodraRegEvt.RegEvtDAO");
  reader->Let(L"StringConexao", call.StringConexao());
  reader->Let(L"Caller", call.Source());
  return reader;
}

frame::ReportRows Fill(const Call& call, AutomationObject& events) {
  OutputDataset output(call.Around());
  output.Append(L"DATA", ad::kDBTimeStamp);
  output.AppendText(L"HORA", 8);
  output.AppendText(L"DESCR_OPERADOR", 250);
  output.AppendText(L"MAQUINA", 250);
  output.AppendText(L"COD_DOCTO", 10);
  output.AppendText(L"COD_ACAO", 10);
  for (std::size_t number = 1; number <= kActionFields; ++number) output.AppendText(ActionField(number), kActionSize);
  output.Open();
  events.ForEach([&](const Value& event) { FillEvent(output, RequiredObject(event)); });
  output.MoveFirst();
  return output.Release();
}

}  // namespace

// Reads MaquinaOrigem, Operador, Acao, Evento (its first three characters), CodDocto, DataInicial and DataFinal and
// hands them to the event-log component, which decides what they mean. An action text is cut into fields of 250
// characters, ACAO1 to ACAO32. Null when the component returns no collection.
frame::ReportRows CLogRpt::RelatorioLog(Call& call) {
  call.InicializaPS();
  // Both live until the rows are filled: the events may be read through them.
  const ObjectRef filter = NewFilter(call);
  const ObjectRef reader = NewReader(call);
  Value argument = filter;
  const ObjectRef events = ObjectIn(reader->CallByReference(L"Localiza", argument, {}));
  return events ? Fill(call, *events) : nullptr;
}

}  // namespace kodra::reports
