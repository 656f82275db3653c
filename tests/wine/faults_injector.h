// Makes the component's calls to ADO and to the siblings fail.
//
// The real objects do the work. A class object of the test replaces each of their classes. In the objects that it
// returns, some entries of the interfaces' tables are replaced by functions that count the call, fail it when it is the
// one to fail, and otherwise pass it on. Calls that the real objects make among themselves do not count.
//
//   Injector injector;
//   injector.Arm(7, Mishap::kRaised);
//   report->RelatorioDeptos(...);                  // its seventh call fails
//   injector.calls();                              // "New KodraConexao.StrCon", "IDispatch.GetIDsOfNames", …
#pragma once

#include <array>
#include <cstring>
#include <exception>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ado/adoint.h"
#include "tests/wine/automation.h"
#include "tests/wine/environment.h"

namespace kodra::face {

// How a call fails. A creation and the look-up of a name have no text: raised, they are bare.
enum class Mishap {
  kRaised,       // with source and description
  kBare,         // with a number that has no text anywhere
  kOutOfMemory,  // E_OUTOFMEMORY, with nothing else
  kNothing,      // the call succeeds, and does nothing
};

constexpr HRESULT kMishapNumber = static_cast<HRESULT>(0x80047777);
constexpr const wchar_t* kMishapSource = L"Prova.Fonte";
constexpr const wchar_t* kMishapText = L"Falha provocada";

// The only call of the component to its surroundings that reaches no object here.
constexpr const char* kFileLength = "FileLength";

class Injector {
 public:
  Injector();
  ~Injector();
  Injector(const Injector&) = delete;
  Injector& operator=(const Injector&) = delete;

  // Counts from here on, from 1; fails call `number` (0: none), or every one from it on.
  void Arm(std::size_t number, Mishap mishap, bool everyLater = false) {
    calls_.clear();
    number_ = number;
    mishap_ = mishap;
    everyLater_ = everyLater;
    armed_ = true;
  }
  // The same, with a C++ exception. REQUIRES: the calls come from this program.
  void ArmThrow(std::size_t number, std::exception_ptr exception) {
    Arm(number, Mishap::kBare);
    thrown_ = std::move(exception);
  }
  void Disarm() {
    armed_ = false;
    thrown_ = nullptr;
  }
  // For calls that are not made to an object: counts one, or throws instead. A creation counts itself and is only
  // announced: no exception passes through COM.
  static void Meet(const std::string& call) {
    if (Instance() != nullptr && Instance()->Fails(call)) Instance()->Throw();
  }
  static void MeetCreation(const std::wstring& progId) {
    Injector* const injector = Instance();
    if (injector == nullptr || injector->thrown_ == nullptr) return;
    if (injector->calls_.size() + 1 == injector->number_) Meet("New " + std::string(progId.begin(), progId.end()));
  }
  // The calls since Arm, by interface and member.
  const std::vector<std::string>& calls() const { return calls_; }

  // Whether no object of ADO and the siblings is alive.
  bool NothingAlive() const {
    for (const HMODULE module : modules_)
      if (Entry<HRESULT(WINAPI*)()>(module, "DllCanUnloadNow")() != S_OK) return false;
    return true;
  }

 private:
  template <auto kMethod>
  struct Replaced;

  // While a call is passed on, the calls that it makes do not count.
  class Passing {
   public:
    Passing() { ++Instance()->passing_; }
    ~Passing() { --Instance()->passing_; }
  };

  // Replaces one class.
  class ClassObject final : public IClassFactory {
   public:
    ClassObject(std::wstring progId, HMODULE module) : progId_(std::move(progId)), module_(module) {
      EXPECT_EQ(S_OK, CLSIDFromProgID(progId_.c_str(), &id_));
      EXPECT_EQ(S_OK, CoRegisterClassObject(id_, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_));
    }
    ~ClassObject() { CoRevokeClassObject(cookie_); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
      *object = iid == IID_IUnknown || iid == IID_IClassFactory ? this : nullptr;
      return *object == nullptr ? E_NOINTERFACE : S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
      *object = nullptr;
      if (Instance()->Fails("New " + std::string(progId_.begin(), progId_.end()))) return Instance()->FailBare();
      const Passing passing;
      Ref<IClassFactory> real;
      HRESULT hr = Entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>(module_, "DllGetClassObject")(
          id_, IID_IClassFactory, real.put_void());
      if (SUCCEEDED(hr)) hr = real->CreateInstance(outer, iid, object);
      if (SUCCEEDED(hr)) Watch(iid, *object);
      return hr;
    }

   private:
    std::wstring progId_;
    HMODULE module_;
    CLSID id_ = {};
    DWORD cookie_ = 0;
  };

  static Injector*& Instance() {
    static Injector* instance = nullptr;
    return instance;
  }
  template <class Function>
  static Function Entry(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
  }
  static void** TableOf(void* object) { return *static_cast<void***>(object); }

  // Counts a call; whether it is to fail.
  bool Fails(const std::string& call) {
    if (!armed_ || passing_ > 0) return false;
    calls_.push_back(call);
    return number_ != 0 && (everyLater_ ? calls_.size() >= number_ : calls_.size() == number_);
  }

  void Throw() const {
    if (thrown_ != nullptr) std::rethrow_exception(thrown_);
  }
  HRESULT FailBare() const {
    SetErrorInfo(0, nullptr);
    if (mishap_ == Mishap::kNothing) return S_OK;
    return mishap_ == Mishap::kOutOfMemory ? E_OUTOFMEMORY : kMishapNumber;
  }
  // A member of a dual interface fails with an IErrorInfo …
  template <class... Arguments>
  HRESULT Fail(Arguments...) const {
    Throw();
    const HRESULT hr = FailBare();
    Ref<ICreateErrorInfo> info;
    if (mishap_ != Mishap::kRaised || FAILED(CreateErrorInfo(info.put()))) return hr;
    info->SetSource(Bstr(kMishapSource));
    info->SetDescription(Bstr(kMishapText));
    SetErrorInfo(0, info.As<IErrorInfo>().get());
    return hr;
  }
  // … and a late-bound call with an EXCEPINFO.
  HRESULT Fail(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* info, UINT*) const {
    Throw();
    if (mishap_ != Mishap::kRaised) return FailBare();
    info->scode = kMishapNumber;
    info->bstrSource = SysAllocString(kMishapSource);
    info->bstrDescription = SysAllocString(kMishapText);
    return DISP_E_EXCEPTION;
  }

  template <auto kMethod, class Interface>
  static void Replace(Interface* object, const char* name) {
    Replaced<kMethod>::In(object, name);
  }

  static void Watch(REFIID iid, void* object);
  static void Watch(_Connection* connection);
  static void Watch(_Command* command);
  static void Watch(_Recordset* recordset);
  static void Watch(Errors* errors);
  static void Watch(Error* error);
  static void Watch(Parameters* parameters);
  static void Watch(Fields* fields);
  static void Watch(Field* field);
  static void Watch(IDispatch* sibling);
  static void Watch(IEnumVARIANT* members);

  // The result of a call, when it is an object with calls of its own.
  template <class T>
  static void WatchResult(const T&) {}
  template <class T>
  requires requires(T* object) { Watch(object); }
  static void WatchResult(T** result) {
    if (*result != nullptr) Watch(*result);
  }
  static void WatchResult(VARIANT* result) {
    if (result == nullptr || V_VT(result) == VT_EMPTY) return;
    if (V_VT(result) == VT_DISPATCH && V_DISPATCH(result) != nullptr) Watch(V_DISPATCH(result));
    if (V_VT(result) != VT_UNKNOWN || V_UNKNOWN(result) == nullptr) return;
    Ref<IEnumVARIANT> members;
    if (SUCCEEDED(V_UNKNOWN(result)->QueryInterface(IID_IEnumVARIANT, members.put_void()))) Watch(members.get());
  }

  void Exchange(void** entry, void* replacement) {
    DWORD before = 0;
    VirtualProtect(entry, sizeof(void*), PAGE_READWRITE, &before);
    *entry = replacement;
    VirtualProtect(entry, sizeof(void*), before, &before);
  }

  std::array<HMODULE, 2> modules_;
  std::vector<std::unique_ptr<ClassObject>> classes_;
  // The original table entries.
  std::vector<std::pair<void**, void*>> replaced_;
  std::vector<std::string> calls_;
  std::size_t number_ = 0;
  Mishap mishap_ = Mishap::kRaised;
  bool everyLater_ = false;
  bool armed_ = false;
  std::exception_ptr thrown_;
  int passing_ = 0;
};

// A member of an interface, which several classes may have in tables of their own.
template <class Interface, class... Arguments, HRESULT (STDMETHODCALLTYPE Interface::*kMethod)(Arguments...)>
struct Injector::Replaced<kMethod> {
  using Function = HRESULT(STDMETHODCALLTYPE*)(void*, Arguments...);
  struct Original {
    Function function;
    const char* name;
  };
  static inline std::map<void**, Original> originals;

  static HRESULT STDMETHODCALLTYPE Call(void* self, Arguments... arguments) {
    const Original original = originals.at(TableOf(self));
    if (Instance()->Fails(original.name)) return Instance()->Fail(arguments...);
    const Passing passing;
    const HRESULT hr = original.function(self, arguments...);
    if (SUCCEEDED(hr)) (WatchResult(arguments), ...);
    return hr;
  }

  static void In(void* object, const char* name) {
    // A pointer to a virtual member holds its offset in the table, plus one.
    auto method = kMethod;
    std::size_t offset = 0;
    std::memcpy(&offset, &method, sizeof offset);
    void** const table = TableOf(object);
    void** const entry = table + (offset - 1) / sizeof(void*);
    void* const replacement = reinterpret_cast<void*>(&Call);
    if (*entry == replacement) return;
    originals[table] = {reinterpret_cast<Function>(*entry), name};
    Instance()->replaced_.emplace_back(entry, *entry);
    Instance()->Exchange(entry, replacement);
  }
};

inline void Injector::Watch(REFIID iid, void* object) {
  if (iid == __uuidof(_Connection))
    Watch(static_cast<_Connection*>(object));
  else if (iid == __uuidof(_Command))
    Watch(static_cast<_Command*>(object));
  else if (iid == __uuidof(_Recordset))
    Watch(static_cast<_Recordset*>(object));
  else if (iid == IID_IDispatch)
    Watch(static_cast<IDispatch*>(object));
}
inline void Injector::Watch(_Connection* connection) {
  Replace<&_Connection::get_ConnectionString>(connection, "Connection.get_ConnectionString");
  Replace<&_Connection::put_ConnectionString>(connection, "Connection.put_ConnectionString");
  Replace<&_Connection::put_CursorLocation>(connection, "Connection.put_CursorLocation");
  Replace<&_Connection::put_IsolationLevel>(connection, "Connection.put_IsolationLevel");
  Replace<&_Connection::Open>(connection, "Connection.Open");
  Replace<&_Connection::get_State>(connection, "Connection.get_State");
  Replace<&_Connection::Execute>(connection, "Connection.Execute");
  Replace<&_Connection::get_Errors>(connection, "Connection.get_Errors");
}
inline void Injector::Watch(Errors* errors) {
  Replace<&Errors::get_Count>(errors, "Errors.get_Count");
  Replace<&Errors::get_Item>(errors, "Errors.get_Item");
}
inline void Injector::Watch(Error* error) { Replace<&Error::get_NativeError>(error, "Error.get_NativeError"); }
inline void Injector::Watch(_Command* command) {
  Replace<&_Command::putref_ActiveConnection>(command, "Command.putref_ActiveConnection");
  Replace<&_Command::get_ActiveConnection>(command, "Command.get_ActiveConnection");
  Replace<&_Command::put_CommandText>(command, "Command.put_CommandText");
  Replace<&_Command::put_CommandType>(command, "Command.put_CommandType");
  Replace<&_Command::CreateParameter>(command, "Command.CreateParameter");
  Replace<&_Command::get_Parameters>(command, "Command.get_Parameters");
}
inline void Injector::Watch(Parameters* parameters) { Replace<&Parameters::Append>(parameters, "Parameters.Append"); }
inline void Injector::Watch(_Recordset* recordset) {
  Replace<&_Recordset::put_CursorLocation>(recordset, "Recordset.put_CursorLocation");
  Replace<&_Recordset::put_CursorType>(recordset, "Recordset.put_CursorType");
  Replace<&_Recordset::put_CacheSize>(recordset, "Recordset.put_CacheSize");
  Replace<&_Recordset::Open>(recordset, "Recordset.Open");
  Replace<&_Recordset::Close>(recordset, "Recordset.Close");
  Replace<&_Recordset::get_State>(recordset, "Recordset.get_State");
  Replace<&_Recordset::get_EOF>(recordset, "Recordset.get_EOF");
  Replace<&_Recordset::MoveFirst>(recordset, "Recordset.MoveFirst");
  Replace<&_Recordset::MoveNext>(recordset, "Recordset.MoveNext");
  Replace<&_Recordset::get_Fields>(recordset, "Recordset.get_Fields");
  Replace<&_Recordset::AddNew>(recordset, "Recordset.AddNew");
  Replace<&_Recordset::Update>(recordset, "Recordset.Update");
}
inline void Injector::Watch(Fields* fields) {
  Replace<&Fields::Append>(fields, "Fields.Append");
  Replace<&Fields::get_Item>(fields, "Fields.get_Item");
}
inline void Injector::Watch(Field* field) {
  Replace<&Field::get_Value>(field, "Field.get_Value");
  Replace<&Field::put_Value>(field, "Field.put_Value");
}
inline void Injector::Watch(IDispatch* sibling) {
  Replace<&IDispatch::GetIDsOfNames>(sibling, "IDispatch.GetIDsOfNames");
  Replace<&IDispatch::Invoke>(sibling, "IDispatch.Invoke");
}
inline void Injector::Watch(IEnumVARIANT* members) { Replace<&IEnumVARIANT::Next>(members, "IEnumVARIANT.Next"); }

inline Injector::Injector() {
  Instance() = this;
  const std::wstring folder = WindowsPath(Variable(L"KODRA_BIN"));
  modules_ = {LoadLibraryW((folder + L"\\kodra_ado.dll").c_str()),
              LoadLibraryW((folder + L"\\kodra_siblings.dll").c_str())};
  for (const wchar_t* progId : {L"ADODB.Connection", L"ADODB.Command", L"ADODB.Recordset"})
    classes_.push_back(std::make_unique<ClassObject>(progId, modules_[0]));
  for (const wchar_t* progId :
       {L"KodraConexao.StrCon", L"KodraParamSist.Obtedor", L"KodraBsnV3.ObtedorDeTiposOperadores",
        L"KodraBsnV3.ModulosBsn", L"KodraBsnV3.ModulosFiltro", L"KodraBsnV3.ObtedorDeModulos",
        L"KodraRegEvt.RegEvtFind", L"KodraRegEvt.RegEvtDAO", L"VantLog.FnLog", L"VantLib.Conversoes"})
    classes_.push_back(std::make_unique<ClassObject>(progId, modules_[1]));
}

inline Injector::~Injector() {
  for (const auto& [entry, original] : replaced_) Exchange(entry, original);
  classes_.clear();
  for (const HMODULE module : modules_) FreeLibrary(module);
  Instance() = nullptr;
}

}  // namespace kodra::face
