#include "bench/wine/datasets.h"

#include <vector>

#include "bench/wine/reports.h"
#include "bench/wine/rows.h"

namespace kodra::bench {
namespace {

constexpr UINT kActionSize = 250;
constexpr int kActionFields = 32;

// A recordset in memory; its fields are looked up once.
class Dataset {
 public:
  void Append(const std::wstring& name, DataTypeEnum type, LONG size) {
    com_ptr<::Fields> fields;
    Must(rows_->get_Fields(fields.put()), "Fields");
    Must(fields->Append(Bstr(name).get(), type, size, adFldUnspecified, Var::Missing().raw()), "Append");
  }
  void Open() {
    Must(
        rows_->Open(Var::Missing().raw(), Var::Missing().raw(), adOpenUnspecified, adLockUnspecified, adCmdUnspecified),
        "Open");
    fields_ = FieldsOf(rows_.get());
  }
  void AddNew() { Must(rows_->AddNew(missing_.raw(), missing_.raw()), "AddNew"); }
  void Put(std::size_t field, const VARIANT& value) { Must(fields_[field]->put_Value(value), "Value"); }
  void Update() { Must(rows_->Update(missing_.raw(), missing_.raw()), "Update"); }
  com_ptr<_Recordset> Finish() {
    Must(rows_->MoveFirst(), "MoveFirst");
    return rows_;
  }

 private:
  com_ptr<_Recordset> rows_ = Create<_Recordset>(L"ADODB.Recordset");
  std::vector<com_ptr<::Field>> fields_;
  const Var missing_ = Var::Missing();
};

// A text's first characters; null stays null.
Var Cut(Var value, UINT size) {
  if (value.raw().vt != VT_BSTR || SysStringLen(value.raw().bstrVal) <= size) return value;
  return Var(std::wstring(value.raw().bstrVal, size));
}

// The empty text for a null.
Var OrEmpty(Var value) { return value.raw().vt == VT_NULL ? Var(std::wstring()) : std::move(value); }

Var TimeOf(const VARIANT& moment) {
  SYSTEMTIME time = {};
  VariantTimeToSystemTime(moment.date, &time);
  wchar_t text[16];
  wsprintfW(text, L"%02d:%02d:%02d", time.wHour, time.wMinute, time.wSecond);
  return Var(std::wstring(text));
}

void FillEvent(Dataset& output, IDispatch* event) {
  output.AddNew();
  const Var moment = Get(event, L"DataInicial");
  output.Put(0, moment.raw());
  output.Put(1, TimeOf(moment.raw()).raw());
  output.Put(2, Cut(Get(event, L"Nome_Operador"), 250).raw());
  output.Put(3, Cut(Get(event, L"Maquina"), 250).raw());
  output.Put(4, Cut(OrEmpty(Get(event, L"Cod_Docto")), 10).raw());
  output.Put(5, Cut(Get(event, L"Tipo_Evento"), 10).raw());
  const Var action = Get(event, L"Acao");
  const std::wstring_view text(action.raw().bstrVal, SysStringLen(action.raw().bstrVal));
  if (text.size() <= kActionSize) {
    output.Put(6, action.raw());
  } else {
    for (std::size_t start = 0; start < text.size(); start += kActionSize)
      output.Put(6 + start / kActionSize, Var(std::wstring(text.substr(start, kActionSize))).raw());
  }
  output.Update();
}

// The events of the log, as KodraRegEvt.RegEvtDAO returns them.
Var FindEvents(const std::wstring& connectionString) {
  DatabaseCode(connectionString);
  const auto filter = Create<IDispatch>(L"KodraRegEvt.RegEvtFind");
  const Var none{std::wstring()};
  for (const wchar_t* text : {L"Acao", L"Cod_Docto"}) Put(filter.get(), text, none);
  for (const wchar_t* date : {L"DataFinal", L"DataInicial"}) Put(filter.get(), date, Var::Date(0));
  for (const wchar_t* text : {L"Maquina", L"Nome_Operador", L"Tipo_Evento"}) Put(filter.get(), text, none);
  const auto reader = Create<IDispatch>(L"KodraRegEvt.RegEvtDAO");
  Put(reader.get(), L"StringConexao", Var(connectionString));
  Put(reader.get(), L"Caller", Var(std::wstring(L"KodraRpt.CLogRpt::RelatorioLog")));
  return Call(reader.get(), L"Localiza", Var(filter.get()));
}

Var TypeOf(const std::wstring& connectionString, const VARIANT& code) {
  const auto types = Create<IDispatch>(L"KodraBsnV3.ObtedorDeTiposOperadores");
  Put(types.get(), L"StringConexao", Var(connectionString));
  return Call(types.get(), L"ObtemDescricao", Var(code.vt == VT_BSTR ? wcstod(code.bstrVal, nullptr) : 0.0));
}

bool IsYes(const VARIANT& value) {
  return value.vt == VT_BSTR && SysStringLen(value.bstrVal) > 0 &&
         std::wstring_view(L"1,YySsTtVv").find(value.bstrVal[0]) != std::wstring_view::npos;
}

}  // namespace

const wchar_t* const kOperatorsStatement =
    L"SELECT o.DESCR_OPERADOR, o.NOME_COMPLETO, o.TIPO, d.DESCR_DEPTO, "
    L"o.CHAPA, o.RAMAL, o.IDC_ATIVO AS ATIVO, "
    L"gp.DESCR_GRPOP AS DESCR_GRUPO_OP "
    L"FROM OPERADOR o "
    L"INNER JOIN DEPTO d ON o.COD_DEPTO = d.COD_DEPTO "
    L"INNER JOIN GRUPOS_OPERADORES gp ON o.COD_GRPOP = gp.COD_GRPOP "
    L"WHERE o.OPCOES_PESSOAIS <> 'APAGADO' OR o.OPCOES_PESSOAIS IS NULL "
    L"ORDER BY o.DESCR_OPERADOR";

com_ptr<_Recordset> BareLog(const std::wstring& connectionString) {
  const Var events = FindEvents(connectionString);
  Dataset output;
  output.Append(L"DATA", adDBTimeStamp, 0);
  output.Append(L"HORA", adVarChar, 8);
  output.Append(L"DESCR_OPERADOR", adVarChar, 250);
  output.Append(L"MAQUINA", adVarChar, 250);
  output.Append(L"COD_DOCTO", adVarChar, 10);
  output.Append(L"COD_ACAO", adVarChar, 10);
  for (int number = 1; number <= kActionFields; ++number)
    output.Append(L"ACAO" + std::to_wstring(number), adVarChar, kActionSize);
  output.Open();
  DISPPARAMS none = {};
  Var enumeration;
  Must(events.raw().pdispVal->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                     enumeration.put(), nullptr, nullptr),
       "_NewEnum");
  const auto members = com_ptr<IUnknown>(enumeration.raw().punkVal).as<IEnumVARIANT>();
  for (Var event; members->Next(1, event.put(), nullptr) == S_OK;) FillEvent(output, event.raw().pdispVal);
  return output.Finish();
}

com_ptr<_Recordset> BareOperators(const std::wstring& connectionString, const std::wstring& prepared,
                                  const std::wstring& statement) {
  DatabaseCode(connectionString);
  const auto rows = OpenOnce(prepared, statement);
  const auto source = FieldsOf(rows.get());
  Dataset output;
  for (const wchar_t* name :
       {L"DESCR_OPERADOR", L"NOME_COMPLETO", L"DESCR_TIPO", L"DESCR_DEPTO", L"CHAPA", L"RAMAL", L"DESCR_GRUPO_OP"})
    output.Append(name, adVarChar, 255);
  output.Append(L"ATIVO", adBoolean, 0);
  output.Open();
  const auto value = [&](std::size_t field) {
    Var read;
    Must(source[field]->get_Value(read.put()), "Value");
    return read;
  };
  VARIANT_BOOL end = VARIANT_FALSE;
  for (Must(rows->get_EOF(&end), "EOF"); end == VARIANT_FALSE; Must(rows->get_EOF(&end), "EOF")) {
    output.AddNew();
    output.Put(0, OrEmpty(value(0)).raw());
    output.Put(1, OrEmpty(value(1)).raw());
    output.Put(2, TypeOf(connectionString, value(2).raw()).raw());
    output.Put(3, OrEmpty(value(3)).raw());
    output.Put(4, OrEmpty(value(4)).raw());
    output.Put(5, OrEmpty(value(5)).raw());
    output.Put(6, OrEmpty(value(7)).raw());
    output.Put(7, Var(IsYes(value(6).raw())).raw());
    output.Update();
    Must(rows->MoveNext(), "MoveNext");
  }
  return output.Finish();
}

}  // namespace kodra::bench
