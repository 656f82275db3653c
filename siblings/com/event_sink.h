// Passes the events of any source on to a late-bound object, by their names.
#pragma once

#include <map>
#include <string>

#include "comkit/automation_headers.h"
#include "comkit/com_ptr.h"
#include "comkit/object.h"

namespace kodra::siblings {

// A source's default outgoing dispinterface: its id and the names of its events.
struct EventSet {
  IID iid;
  std::map<DISPID, std::wstring> names;
};

// The events that the source's type library describes. Raises kErrBase + 1, source "KodraSuporte.Ouvinte::Conecta", for
// an object that describes no events.
EventSet EventsOf(IUnknown* source);

// Calls the listener's method of an event's name with the event's arguments, by value; an event without such a method
// is ignored. What the method raises is returned to the source. Keeps the listener alive.
class EventSink final : public comkit::Object<IDispatch> {
 public:
  static comkit::com_ptr<IUnknown> Make(EventSet events, comkit::com_ptr<IDispatch> listener) {
    return comkit::com_ptr<IUnknown>::adopt(new EventSink(std::move(events), std::move(listener)));
  }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* info, UINT* badArgument) override;

 private:
  // It answers the source's own dispinterface too.
  void* Find(REFIID iid) noexcept override {
    return comkit::Object<IDispatch>::Find(iid == events_.iid ? IID_IDispatch : iid);
  }

  EventSink(EventSet events, comkit::com_ptr<IDispatch> listener)
      : events_(std::move(events)), listener_(std::move(listener)) {}

  EventSet events_;
  comkit::com_ptr<IDispatch> listener_;
};

}  // namespace kodra::siblings
