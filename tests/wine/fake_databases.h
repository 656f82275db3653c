// Database systems that need no server: a connection string with "Simulado=1" opens nothing, and a statement on it
// returns two rows with the columns that it selects. Every other string works as usual.
//
// Two entries of the tables of ADO's classes lead here while a PretendDatabases exists, for every object of the
// process. The last statement that each thread opened, on whatever database, is recorded.
//
//   const PretendDatabases databases;
//   report.StringConexao = L"Provider=MSDAORA;Simulado=1"; report.RelatorioMidias(…);
//   PretendDatabases::LastStatement();   // the statement that Oracle would have received
#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "ado/adoint.h"
#include "tests/secret.h"
#include "tests/wine/automation.h"
#include "tests/wine/environment.h"

namespace kodra::face {

// The names of the columns of a statement's first SELECT.
inline std::vector<std::wstring> SelectedColumns(const std::wstring& statement) {
  std::vector<std::wstring> columns;
  std::wstring item;
  int depth = 0;
  bool quoted = false;
  const auto end = [&] {
    const std::size_t last = item.find_last_not_of(L' ');
    const std::wstring trimmed = item.substr(0, last + 1);
    columns.push_back(trimmed.substr(trimmed.find_last_of(L" .") + 1));
    item.clear();
  };
  for (std::size_t at = std::wstring(L"SELECT ").size(); at < statement.size(); ++at) {
    const wchar_t c = statement[at];
    if (c == L'\'') quoted = !quoted;
    if (!quoted && c == L'(') ++depth;
    if (!quoted && c == L')') --depth;
    const bool plain = !quoted && depth == 0;
    if (plain && statement.compare(at, 6, L" FROM ") == 0) break;
    if (plain && c == L',')
      end();
    else
      item += c;
  }
  end();
  return columns;
}

class PretendDatabases {
 public:
  PretendDatabases() {
    Take<&_Connection::Open>(Create(L"ADODB.Connection").As<_Connection>().get(), connectionOpen_, &OpenConnection);
    Take<&_Recordset::Open>(Create(L"ADODB.Recordset").As<_Recordset>().get(), recordsetOpen_, &OpenRecordset);
  }
  PretendDatabases(const PretendDatabases&) = delete;
  PretendDatabases& operator=(const PretendDatabases&) = delete;
  ~PretendDatabases() {
    for (const auto& [entry, original] : taken_) Exchange(entry, original);
  }

  static std::wstring& LastStatement() {
    thread_local std::wstring statement;
    return statement;
  }

  // Words of a connection string that make a pretended database refuse the connection or each statement. Either message
  // repeats the whole connection string.
  static constexpr const wchar_t* kRefuseConnection = L"Recusa=conexao";
  static constexpr const wchar_t* kRefuseStatement = L"Recusa=comando";
  static constexpr HRESULT kRefusal = static_cast<HRESULT>(0x80004005);
  static constexpr const wchar_t* kProvider = L"Provedor simulado";

 private:
  using ConnectionOpen = HRESULT(STDMETHODCALLTYPE*)(_Connection*, BSTR, BSTR, BSTR, LONG);
  using RecordsetOpen = HRESULT(STDMETHODCALLTYPE*)(_Recordset*, VARIANT, VARIANT, CursorTypeEnum, LockTypeEnum, LONG);

  static inline ConnectionOpen connectionOpen_ = nullptr;
  static inline RecordsetOpen recordsetOpen_ = nullptr;

  static bool Has(const std::wstring& text, const wchar_t* word) { return text.find(word) != std::wstring::npos; }

  static HRESULT Refuse(const std::wstring& text) {
    Ref<ICreateErrorInfo> info;
    if (FAILED(CreateErrorInfo(info.put()))) return kRefusal;
    info->SetSource(Bstr(kProvider));
    info->SetDescription(Bstr(L"Recusado: " + text));
    SetErrorInfo(0, info.As<IErrorInfo>().get());
    return kRefusal;
  }

  static HRESULT STDMETHODCALLTYPE OpenConnection(_Connection* self, BSTR given, BSTR user, BSTR password,
                                                  LONG options) {
    Bstr property;
    self->get_ConnectionString(property.put());
    const std::wstring text = SysStringLen(given) != 0 ? given : property.text();
    if (!Has(text, L"Simulado=1")) return connectionOpen_(self, given, user, password, options);
    if (Has(text, kRefuseConnection)) return Refuse(text);
    return self->put_ConnectionString(Bstr(text));
  }

  // The connection string of the connection that a recordset is opened on.
  static std::wstring TextOf(const VARIANT& connection) {
    if (V_VT(&connection) == VT_BSTR) return V_BSTR(&connection);
    if (V_VT(&connection) != VT_DISPATCH || V_DISPATCH(&connection) == nullptr) return {};
    Ref<_Connection> object;
    V_DISPATCH(&connection)->QueryInterface(__uuidof(_Connection), object.put_void());
    Bstr text;
    if (object) object->get_ConnectionString(text.put());
    return text.text();
  }

  static HRESULT STDMETHODCALLTYPE OpenRecordset(_Recordset* self, VARIANT source, VARIANT connection,
                                                 CursorTypeEnum cursor, LockTypeEnum lock, LONG options) {
    std::wstring statement = V_VT(&source) == VT_BSTR ? std::wstring(V_BSTR(&source)) : std::wstring();
    std::wstring text = TextOf(connection);
    if (V_VT(&source) == VT_DISPATCH && V_DISPATCH(&source) != nullptr) {
      Ref<_Command> command;
      V_DISPATCH(&source)->QueryInterface(__uuidof(_Command), command.put_void());
      Ref<_Connection> active;
      Bstr value;
      if (command && SUCCEEDED(command->get_ActiveConnection(active.put())) && active)
        active->get_ConnectionString(value.put());
      text = value.text();
      if (command) command->get_CommandText(value.put());
      statement = value.text();
    }
    LastStatement() = statement;
    if (statement.empty() || !Has(text, L"Simulado=1"))
      return recordsetOpen_(self, source, connection, cursor, lock, options);
    const bool refused = Has(text, kRefuseStatement) || Has(text, kRefuseConnection);
    return refused ? Refuse(text) : Fill(self, statement);
  }

  // Makes the recordset one of two rows. A column that is a date by its name has a day, every other one "1".
  static HRESULT Fill(_Recordset* recordset, const std::wstring& statement) {
    const Var missing = Missing();
    const std::vector<std::wstring> columns = SelectedColumns(statement);
    Ref<Fields> fields;
    recordset->put_CursorLocation(adUseClient);
    recordset->get_Fields(fields.put());
    for (const std::wstring& column : columns)
      fields->Append(Bstr(column), adVarChar, 20, adFldUnspecified, missing.raw());
    HRESULT hr = recordsetOpen_(recordset, missing.raw(), missing.raw(), adOpenUnspecified, adLockUnspecified, -1);
    for (int row = 0; row < 2 && SUCCEEDED(hr); ++row) {
      hr = recordset->AddNew(missing.raw(), missing.raw());
      for (std::size_t i = 0; i < columns.size() && SUCCEEDED(hr); ++i) {
        const bool isDate = columns[i].starts_with(L"DATA") || columns[i].starts_with(L"DT_");
        Ref<Field> field;
        hr = fields->get_Item(Var(static_cast<int>(i)).raw(), field.put());
        if (SUCCEEDED(hr)) hr = field->put_Value(Var(isDate ? L"01/07/2010" : L"1").raw());
      }
      if (SUCCEEDED(hr)) hr = recordset->Update(missing.raw(), missing.raw());
    }
    return SUCCEEDED(hr) ? recordset->MoveFirst() : hr;
  }
  static Var Missing() {
    Var missing;
    V_VT(missing.put()) = VT_ERROR;
    V_ERROR(const_cast<VARIANT*>(&missing.raw())) = DISP_E_PARAMNOTFOUND;
    return missing;
  }

  static void Exchange(void** entry, void* function) {
    DWORD before = 0;
    VirtualProtect(entry, sizeof(void*), PAGE_READWRITE, &before);
    *entry = function;
    VirtualProtect(entry, sizeof(void*), before, &before);
  }
  // Redirects a member of the object's class to `function`.
  template <auto kMethod, class Interface, class Function>
  void Take(Interface* object, Function& original, Function function) {
    // A pointer to a virtual member holds its offset in the table, plus one.
    auto method = kMethod;
    std::size_t offset = 0;
    std::memcpy(&offset, &method, sizeof offset);
    void** const entry = *reinterpret_cast<void***>(object) + (offset - 1) / sizeof(void*);
    original = reinterpret_cast<Function>(*entry);
    taken_.emplace_back(entry, *entry);
    Exchange(entry, reinterpret_cast<void*>(function));
  }

  // Entries with their original content.
  std::vector<std::pair<void**, void*>> taken_;
};

// The pretended systems; the connection string of each names it differently.
enum class System { kOracle, kSqlServer, kMySql, kDb2, kSqlite };
inline constexpr int kSystems = 5;

// A connection string of a pretended database. The siblings, which do not use ADO, read the archive with the same
// string, when it is that of MySQL or SQLite.
inline const std::wstring& Pretended(System system) {
  static const std::wstring strings[] = {
      ArchiveConnection() + L";Descricao=MSDAORA;User ID=arquivo;Password=" + tests::kSecret + L";Simulado=1",
      L"Provider=SQLNCLI11;Server=acervo;Uid=arquivo;Pwd={antes;" + tests::kSecret + L"};Simulado=1",
      Variable(L"KODRA_MYSQL") + L"Simulado=1",
      ArchiveConnection() + L";Descricao=IBMDADB2;pwd = \"" + tests::kSecret + L";depois\";Simulado=1",
      ArchiveConnection() + L";PASSWORD='" + tests::kSecret + L"';Simulado=1",
  };
  return strings[static_cast<int>(system)];
}

}  // namespace kodra::face
