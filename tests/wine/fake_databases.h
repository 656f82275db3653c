// Fake databases of all systems, without a server: a connection string with "Simulado=1" opens nothing, and a statement
// on it returns two rows with the columns that it selects. Every other connection string works as usual.
//
//   const FakeDatabases databases;
//   report.StringConexao = L"Provider=MSDAORA;Simulado=1"; report.RelatorioMidias(…);
//   FakeDatabases::LastStatement();   // the statement that Oracle would have received
#pragma once

#include <string>
#include <vector>

#include "ado/adoint.h"
#include "tests/secret.h"
#include "tests/wine/automation.h"
#include "tests/wine/environment.h"
#include "tests/wine/replaced_entries.h"

namespace kodra::face {

// The names of the columns that a statement's first SELECT returns.
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

// While it exists, Connection.Open and Recordset.Open of every ADO object of the process lead here.
class FakeDatabases {
 public:
  FakeDatabases() {
    const auto connection = Create(L"ADODB.Connection").As<_Connection>();
    const auto recordset = Create(L"ADODB.Recordset").As<_Recordset>();
    connectionOpen_ = entries_.Replace(EntryOfMethod<&_Connection::Open>(connection.get()), &OpenConnection);
    recordsetOpen_ = entries_.Replace(EntryOfMethod<&_Recordset::Open>(recordset.get()), &OpenRecordset);
  }

  // The last statement that this thread opened, on a fake or a real database.
  static std::wstring& LastStatement() {
    thread_local std::wstring statement;
    return statement;
  }

  // Words of a connection string that make a fake database refuse the connection or each statement. Either message
  // repeats the whole connection string.
  static constexpr const wchar_t* kRefuseConnection = L"Recusa=conexao";
  static constexpr const wchar_t* kRefuseStatement = L"Recusa=comando";
  static constexpr const wchar_t* kProvider = L"Provedor simulado";

 private:
  using ConnectionOpen = HRESULT(STDMETHODCALLTYPE*)(_Connection*, BSTR, BSTR, BSTR, LONG);
  using RecordsetOpen = HRESULT(STDMETHODCALLTYPE*)(_Recordset*, VARIANT, VARIANT, CursorTypeEnum, LockTypeEnum, LONG);

  static inline ConnectionOpen connectionOpen_ = nullptr;
  static inline RecordsetOpen recordsetOpen_ = nullptr;

  static bool Has(const std::wstring& text, const wchar_t* word) { return text.find(word) != std::wstring::npos; }

  static HRESULT Refuse(const std::wstring& text) {
    LeaveErrorInfo(kProvider, (L"Recusado: " + text).c_str());
    return E_FAIL;
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

  // The connection string of a recordset's connection.
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

  // Fills the recordset with two rows. A column whose name is that of a date contains a day, every other one "1".
  static HRESULT Fill(_Recordset* recordset, const std::wstring& statement) {
    const Var missing = Var::Missing();
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

  ReplacedEntries entries_;
};

enum class System { kOracle, kSqlServer, kMySql, kDb2, kSqlite };
inline constexpr int kSystems = 5;

// The connection string of a fake database. The siblings do not use ADO; where the string is that of MySQL or SQLite,
// they read the sample archive with it.
inline const std::wstring& FakeConnection(System system) {
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
