#include "siblings/reg_evt_dao.h"

#include <memory>

#include "siblings/collection.h"
#include "siblings/database.h"
#include "values/format_date.h"

namespace kodra::siblings {
namespace {

class Evento final : public Sibling<Evento> {
 public:
  // REQUIRES: the values are in the order of the statement's columns.
  explicit Evento(const Row& row)
      : dataInicial_(row[0].Is<Null>() ? Date() : values::ToDate(row[0])),
        nomeOperador_(values::ToTextOrEmpty(row[1])),
        maquina_(values::ToTextOrEmpty(row[2])),
        codDocto_(values::ToTextOrEmpty(row[3])),
        tipoEvento_(values::ToTextOrEmpty(row[4])),
        acao_(values::ToTextOrEmpty(row[5])) {}

  static std::span<const Member<Evento>> Members() {
    static const Member<Evento> kMembers[] = {
        ReadOnly<&Evento::dataInicial_>(L"DataInicial"), ReadOnly<&Evento::nomeOperador_>(L"Nome_Operador"),
        ReadOnly<&Evento::maquina_>(L"Maquina"),         ReadOnly<&Evento::codDocto_>(L"Cod_Docto"),
        ReadOnly<&Evento::tipoEvento_>(L"Tipo_Evento"),  ReadOnly<&Evento::acao_>(L"Acao"),
    };
    return kMembers;
  }

 private:
  Date dataInicial_;
  std::wstring nomeOperador_;
  std::wstring maquina_;
  std::wstring codDocto_;
  std::wstring tipoEvento_;
  std::wstring acao_;
};

// A text as a pattern that matches it literally, with "!" as the escape.
std::wstring Literally(std::wstring_view text) {
  std::wstring pattern;
  for (const wchar_t c : text) {
    if (c == L'%' || c == L'_' || c == L'!') pattern += L'!';
    pattern += c;
  }
  return pattern;
}

// The conditions of a statement, gathered from those members of a filter that are set.
class Conditions {
 public:
  Conditions(const Database& database, AutomationObject& filter) : database_(database), filter_(filter) {}

  void Contains(std::wstring_view column, std::wstring_view member) {
    const std::wstring text = values::ToText(filter_.Get(member));
    if (!text.empty()) Add(column, L" LIKE " + database_.Quoted(L"%" + Literally(text) + L"%") + L" ESCAPE '!'");
  }
  void Equals(std::wstring_view column, std::wstring_view member) {
    const std::wstring text = values::ToText(filter_.Get(member));
    if (!text.empty()) Add(column, L" = " + database_.Quoted(text));
  }
  void From(std::wstring_view column, std::wstring_view member) {
    const Date date = values::ToDate(filter_.Get(member));
    if (date.days != 0) Add(column, L" >= " + values::FormatDate(date, L"'yyyy-mm-dd hh:nn:ss'"));
  }
  // The last second counts to its end, also where times are stored with fractions.
  void To(std::wstring_view column, std::wstring_view member) {
    const Date date = values::ToDate(filter_.Get(member));
    if (date.days == 0) return;
    const values::Calendar moment = values::ToCalendar(date);
    const bool wholeDay = moment.hour == 0 && moment.minute == 0 && moment.second == 0;
    Add(column, L" <= " + (wholeDay ? values::FormatDate(date, L"'yyyy-mm-dd 23:59:59.999'")
                                    : values::FormatDate(date, L"'yyyy-mm-dd hh:nn:ss.999'")));
  }

  // The WHERE clause with a blank behind it; empty when there is no condition.
  std::wstring Clause() const { return text_.empty() ? std::wstring() : L"WHERE " + text_ + L" "; }

 private:
  void Add(std::wstring_view column, const std::wstring& rest) {
    if (!text_.empty()) text_ += L" AND ";
    text_ += column;
    text_ += rest;
  }

  const Database& database_;
  AutomationObject& filter_;
  std::wstring text_;
};

std::wstring ClauseOf(const Database& database, AutomationObject& filter) {
  Conditions conditions(database, filter);
  conditions.Contains(L"e.ACAO", L"Acao");
  conditions.Equals(L"e.COD_DOCTO", L"Cod_Docto");
  conditions.Equals(L"e.MAQUINA", L"Maquina");
  conditions.Equals(L"e.NOME_OPERADOR", L"Nome_Operador");
  conditions.Equals(L"e.TIPO_EVENTO", L"Tipo_Evento");
  conditions.From(L"e.DATA_INICIAL", L"DataInicial");
  conditions.To(L"e.DATA_INICIAL", L"DataFinal");
  return conditions.Clause();
}

}  // namespace

Value RegEvtDao::Localiza(std::span<const Value> arguments) {
  if (stringConexao_.empty()) {
    throw ForeignErro(kErrBase + 1, L"KodraRegEvt.RegEvtDAO::Localiza", L"É preciso definir \"StringConexao\".");
  }
  AutomationObject& filter = RequiredObject(arguments[0]);
  const Database database(surroundings_, stringConexao_);
  const std::wstring statement =
      L"SELECT e.DATA_INICIAL, e.NOME_OPERADOR, e.MAQUINA, e.COD_DOCTO, e.TIPO_EVENTO, e.ACAO "
      L"FROM EVENTO e " +
      ClauseOf(database, filter) + L"ORDER BY e.DATA_INICIAL, e.COD_EVENTO";
  std::vector<Value> events;
  for (const Row& row : database.Read(
           statement, {L"DATA_INICIAL", L"NOME_OPERADOR", L"MAQUINA", L"COD_DOCTO", L"TIPO_EVENTO", L"ACAO"})) {
    events.emplace_back(ObjectRef(std::make_shared<Evento>(row)));
  }
  if (events.empty()) return ObjectRef();
  return ObjectRef(std::make_shared<Collection>(std::move(events)));
}

std::span<const Member<RegEvtDao>> RegEvtDao::Members() {
  static const Member<RegEvtDao> kMembers[] = {
      Property<&RegEvtDao::stringConexao_>(L"StringConexao"),
      Property<&RegEvtDao::caller_>(L"Caller"),
      Method<&RegEvtDao::Localiza, 1>(L"Localiza"),
  };
  return kMembers;
}

}  // namespace kodra::siblings
