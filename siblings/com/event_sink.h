// Events of any source, passed on to an object late-bound, by their names.
#pragma once

#include <atomic>
#include <map>
#include <string>

#include "ado/automation_headers.h"
#include "ado/com_ptr.h"
#include "siblings/com/module_lock.h"

namespace kodra::siblings {

// A source's default outgoing dispinterface: its id and the names of its events.
struct EventSet {
  IID iid;
  std::map<DISPID, std::wstring> names;
};

// What the source's type library says. Raises kErrBase + 1, source "KodraSuporte.Ouvinte::Conecta", for an object that
// describes no events.
EventSet EventsOf(IUnknown* source);

// Calls the listener's method of an event's name with the event's arguments, by value; an event without such a method
// goes by. What the method raises goes back to the source. Keeps the listener alive.
class EventSink final : public IDispatch {
 public:
  static ado::com_ptr<IUnknown> Make(EventSet events, ado::com_ptr<IDispatch> listener) {
    return ado::com_ptr<IUnknown>::adopt(new EventSink(std::move(events), std::move(listener)));
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* info, UINT* badArgument) override;

 private:
  EventSink(EventSet events, ado::com_ptr<IDispatch> listener)
      : events_(std::move(events)), listener_(std::move(listener)) {}
  ~EventSink() = default;

  ModuleLock lock_;
  std::atomic<ULONG> references_ = 1;
  EventSet events_;
  ado::com_ptr<IDispatch> listener_;
};

}  // namespace kodra::siblings
