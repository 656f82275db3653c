// Makes the component's calls to ADO and to the siblings fail.
//
// The real objects do the work. For each of their classes a class object of the test is registered. In the tables of
// the objects that it creates, some entries lead to functions that count the call and either fail it or pass it on.
// Calls that the real objects make to each other do not count.
//
//   Injector injector;
//   injector.Arm(7, Fault::kRaised);
//   report->RelatorioDeptos(...);                  // its seventh call fails
//   injector.calls();                              // "New KodraConexao.StrCon", "IDispatch.GetIDsOfNames", …
#pragma once

#include <exception>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ado/adoint.h"
#include "tests/wine/automation.h"
#include "tests/wine/environment.h"
#include "tests/wine/replaced_entries.h"
#include "tests/wine/server.h"

namespace kodra::face {

// How a call fails.
enum class Fault {
  kRaised,       // with source and description, which the creation of an object and the look-up of a name cannot return
  kBare,         // only with a number that has no text anywhere
  kOutOfMemory,  // only with E_OUTOFMEMORY
  kNoResult,     // the call succeeds but returns nothing
};

constexpr const wchar_t* kFaultSource = L"Prova.Fonte";
constexpr const wchar_t* kFaultText = L"Falha provocada";

// The name under which a call for the length of a file is counted: it reaches no object.
constexpr const char* kFileLength = "FileLength";

class Injector {
 public:
  Injector();
  ~Injector();
  Injector(const Injector&) = delete;
  Injector& operator=(const Injector&) = delete;

  // Starts to count calls, from 1. Call `number` fails (none when it is 0), and with `everyLater` all calls after it.
  void Arm(std::size_t number, Fault fault, bool everyLater = false) {
    calls_.clear();
    number_ = number;
    fault_ = fault;
    everyLater_ = everyLater;
    armed_ = true;
  }
  // Makes call `number` throw a C++ exception. REQUIRES: the calls come from this program, not from the DLL.
  void ArmThrow(std::size_t number, std::exception_ptr exception) {
    Arm(number, Fault::kBare);
    thrown_ = std::move(exception);
  }
  void Disarm() {
    armed_ = false;
    thrown_ = nullptr;
  }
  // Counts a call that reaches no object, or throws.
  static void CountOrThrow(const std::string& call) {
    if (Instance() != nullptr && Instance()->Fails(call)) Instance()->Throw();
  }
  // Throws when the creation of an object, which follows, is the call to throw. The class object counts a creation, but
  // no exception can pass through COM.
  static void ThrowAtCreation(const std::wstring& progId) {
    Injector* const injector = Instance();
    if (injector == nullptr || injector->thrown_ == nullptr) return;
    if (injector->calls_.size() + 1 == injector->number_)
      CountOrThrow("New " + std::string(progId.begin(), progId.end()));
  }
  // The calls since Arm, by interface and member.
  const std::vector<std::string>& calls() const { return calls_; }

  // Whether no object of ADO and the siblings is alive.
  bool NothingAlive() const { return ado_.CanUnloadNow() == S_OK && siblings_.CanUnloadNow() == S_OK; }

 private:
  template <auto kMethod>
  struct Replaced;

  // While a call is passed on, the calls that it makes do not count.
  class PassedOn {
   public:
    PassedOn() { ++Instance()->passedOn_; }
    ~PassedOn() { --Instance()->passedOn_; }
  };

  // Replaces a class of a DLL and creates the DLL's objects.
  class ClassObject final : public IClassFactory {
   public:
    ClassObject(std::wstring progId, const Server& server) : progId_(std::move(progId)), server_(server) {
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
      const PassedOn passedOn;
      Ref<IClassFactory> real;
      HRESULT hr = server_.GetClassObject(id_, IID_IClassFactory, real.put_void());
      if (SUCCEEDED(hr)) hr = real->CreateInstance(outer, iid, object);
      if (SUCCEEDED(hr)) Watch(iid, *object);
      return hr;
    }

   private:
    std::wstring progId_;
    const Server& server_;
    CLSID id_ = {};
    DWORD cookie_ = 0;
  };

  static Injector*& Instance() {
    static Injector* instance = nullptr;
    return instance;
  }
  static void** TableOf(void* object) { return *static_cast<void***>(object); }

  // Counts a call; returns whether it fails.
  bool Fails(const std::string& call) {
    if (!armed_ || passedOn_ > 0) return false;
    calls_.push_back(call);
    return number_ != 0 && (everyLater_ ? calls_.size() >= number_ : calls_.size() == number_);
  }

  void Throw() const {
    if (thrown_ != nullptr) std::rethrow_exception(thrown_);
  }
  HRESULT FailBare() const {
    SetErrorInfo(0, nullptr);
    if (fault_ == Fault::kNoResult) return S_OK;
    return fault_ == Fault::kOutOfMemory ? E_OUTOFMEMORY : kNumberWithoutText;
  }
  // An early-bound call fails with an IErrorInfo.
  template <class... Arguments>
  HRESULT Fail(Arguments...) const {
    Throw();
    const HRESULT hr = FailBare();
    if (fault_ == Fault::kRaised) LeaveErrorInfo(kFaultSource, kFaultText);
    return hr;
  }
  // A late-bound call fails with an EXCEPINFO.
  HRESULT Fail(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* info, UINT*) const {
    Throw();
    return fault_ == Fault::kRaised ? Raise(info, kNumberWithoutText, kFaultSource, kFaultText) : FailBare();
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

  // Watches the result of a call, when it is an object whose calls count.
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

  const Server ado_{DllPath(L"kodra_ado.dll")};
  const Server siblings_{DllPath(L"kodra_siblings.dll")};
  std::vector<std::unique_ptr<ClassObject>> classes_;
  ReplacedEntries entries_;
  std::vector<std::string> calls_;
  std::size_t number_ = 0;
  Fault fault_ = Fault::kRaised;
  bool everyLater_ = false;
  bool armed_ = false;
  std::exception_ptr thrown_;
  int passedOn_ = 0;
};

// A method of an interface. Each class that has the interface has a table of its own.
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
    const PassedOn passedOn;
    const HRESULT hr = original.function(self, arguments...);
    if (SUCCEEDED(hr)) (WatchResult(arguments), ...);
    return hr;
  }

  static void In(Interface* object, const char* name) {
    void** const entry = EntryOfMethod<kMethod>(object);
    if (*entry == reinterpret_cast<void*>(&Call)) return;
    const auto original = Instance()->entries_.Replace(entry, reinterpret_cast<void*>(&Call));
    originals[TableOf(object)] = {reinterpret_cast<Function>(original), name};
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
  for (const wchar_t* progId : {L"ADODB.Connection", L"ADODB.Command", L"ADODB.Recordset"})
    classes_.push_back(std::make_unique<ClassObject>(progId, ado_));
  for (const wchar_t* progId :
       {L"KodraConexao.StrCon", L"KodraParamSist.Obtedor", L"KodraBsnV3.ObtedorDeTiposOperadores",
        L"KodraBsnV3.ModulosBsn", L"KodraBsnV3.ModulosFiltro", L"KodraBsnV3.ObtedorDeModulos",
        L"KodraRegEvt.RegEvtFind", L"KodraRegEvt.RegEvtDAO", L"VantLog.FnLog", L"VantLib.Conversoes"})
    classes_.push_back(std::make_unique<ClassObject>(progId, siblings_));
}

inline Injector::~Injector() {
  entries_.Restore();
  Instance() = nullptr;
}

}  // namespace kodra::face
