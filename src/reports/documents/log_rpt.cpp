#include "reports/documents/log_rpt.h"

#include "frame/parameter_reader.h"
#include "reports/output_dataset.h"
#include "values/convert.h"
#include "values/format_date.h"
#include "values/numbers.h"
#include "values/upper.h"

namespace kodra::reports {
namespace {

namespace ad = platform::ad;

constexpr std::size_t kActionFields = 32;
constexpr std::size_t kActionSize = 250;
// The position of ACAO1 among the fields.
constexpr std::size_t kFirstAction = 6;

std::wstring Shortened(std::wstring text, std::size_t count) {
  if (text.size() > count) text.resize(count);
  return text;
}

// The first characters of a text; null stays null.
Value FirstCharacters(Value value, std::size_t count) {
  if (value.Is<Null>()) return value;
  return Shortened(values::ToText(std::move(value)), count);
}

// The same, with null as the empty text.
Value FirstCharactersOrEmpty(Value value, std::size_t count) {
  return Shortened(values::ToTextOrEmpty(std::move(value)), count);
}

Value TimeText(const Value& moment) {
  if (moment.Is<Null>()) return L"";
  return values::FormatDate<L"hh:mm:ss">(values::ToDate(moment));
}

std::wstring ActionField(std::size_t number) {
  return L"ACAO" + values::NumberToText(static_cast<std::int64_t>(number));
}

void FillAction(OutputDataset& output, const std::wstring& action) {
  for (std::size_t start = 0, number = 1; start < action.size(); start += kActionSize, ++number) {
    const std::wstring piece = action.substr(start, kActionSize);
    if (number <= kActionFields)
      output[kFirstAction + number - 1].Let(piece);
    else
      output.Rows().FieldByName(ActionField(number))->Let(piece);  // no such field: the report fails
  }
}

// A member of an event in a field of `size` characters, by way of `convert` unless it is a text that fits as it is.
void Copy(AutomationObject& event, std::wstring_view member, platform::Field& field, std::size_t size,
          Value (*convert)(Value, std::size_t) = FirstCharacters) {
  std::optional<Value> other = field.LetText(event, member, size);
  if (other) field.Let(convert(*std::move(other), size));
}

void FillEvent(OutputDataset& output, AutomationObject& event) {
  output.AddNew();
  const Value moment = event.Get(L"DataInicial");
  output[0].Let(moment);
  output[1].Let(TimeText(moment));
  Copy(event, L"Nome_Operador", output[2], 250);
  Copy(event, L"Maquina", output[3], 250);
  Copy(event, L"Cod_Docto", output[4], 10, FirstCharactersOrEmpty);
  Copy(event, L"Tipo_Evento", output[5], 10);
  std::optional<Value> action = output[kFirstAction].LetText(event, L"Acao", kActionSize);
  if (action) FillAction(output, values::ToText(*std::move(action)));
  output.Update();
}

}  // namespace

frame::ReportRows CLogRpt::RelatorioLog(AutomationObject* obj) {
  return Report(L"RelatorioLog", [&]() -> frame::ReportRows {
    InicializaPS(obj);
    // Both live until the rows are filled: the events may be read through them.
    const ObjectRef filter = NewFilter(*obj);
    const ObjectRef reader = NewReader();
    Value argument = filter;
    const ObjectRef events = ObjectIn(reader->CallByReference(L"Localiza", argument, {}));
    return events ? Fill(*events) : nullptr;
  });
}

ObjectRef CLogRpt::NewFilter(AutomationObject& parameters) const {
  ObjectRef filter = Around().CreateObject(L"KodraRegEvt.RegEvtFind");
  filter->Let(L"Acao", frame::ReadText(parameters, L"Acao"));
  filter->Let(L"Cod_Docto", frame::ReadText(parameters, L"CodDocto"));
  filter->Let(L"DataFinal", frame::ReadDate(parameters, L"DataFinal"));
  filter->Let(L"DataInicial", frame::ReadDate(parameters, L"DataInicial"));
  filter->Let(L"Maquina", frame::ReadText(parameters, L"MaquinaOrigem"));
  filter->Let(L"Nome_Operador", frame::ReadText(parameters, L"Operador"));
  filter->Let(L"Tipo_Evento", values::UpperCase(frame::ReadText(parameters, L"Evento").substr(0, 3)));
  return filter;
}

ObjectRef CLogRpt::NewReader() const {
  ObjectRef reader = Around().CreateObject(L"KodraRegEvt.RegEvtDAO");
  reader->Let(L"StringConexao", StringConexao());
  reader->Let(L"Caller", SourceOf(L"RelatorioLog"));
  return reader;
}

frame::ReportRows CLogRpt::Fill(AutomationObject& events) const {
  OutputDataset output(Around());
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

}  // namespace kodra::reports
