// A client's sink for the DebugLog event of the module reports.
#pragma once

// clang-format off
#include <windows.h>
#include <ocidl.h>
#include <olectl.h>
#include <kodrarpt.h>
// clang-format on

#include <functional>

#include "tests/wine/automation.h"
#include "tests/wine/client_object.h"
#include "tests/wine/rows.h"

namespace kodra::face {

// The line of a module report that is called without a connection.
inline const std::wstring kLineWithoutConnection =
    L"KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro -2147211506 em KodraRpt.CCaixaRpt::InicializaPS: "
    L"Uma das propriedades \"Conexao\" ou \"StringConexao\" precisam ser informadas.";

// Records each line, then runs the test's action. Another action runs when the sink is deleted.
class EventSink : public ClientObject {
 public:
  static Ref<EventSink> New() { return Ref<EventSink>::Owning(new EventSink); }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD kind, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    EXPECT_EQ(1, event);
    EXPECT_EQ(DISPATCH_METHOD, kind);
    EXPECT_EQ(1U, arguments->cArgs);
    EXPECT_EQ(VT_BYREF | VT_BSTR, arguments->rgvarg[0].vt);
    lines.emplace_back(*arguments->rgvarg[0].pbstrVal);
    // A sink may write to its argument; no other sink sees the change.
    SysReAllocString(arguments->rgvarg[0].pbstrVal, L"mudada");
    return afterLine();
  }

  Texts lines;
  std::function<HRESULT()> afterLine = [] { return S_OK; };
  std::function<void()> atEnd = [] {};

 protected:
  EventSink() = default;
  ~EventSink() override { atEnd(); }
};

// The connection point of the event.
template <class Interface>
Ref<IConnectionPoint> EventsOf(const Ref<Interface>& report) {
  Ref<IConnectionPoint> point;
  EXPECT_EQ(S_OK, report.template As<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(DCCaixaRptEvents),
                                                                                       point.put()));
  return point;
}

}  // namespace kodra::face
