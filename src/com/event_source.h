// The events of an object: one outgoing dispinterface, any number of sinks.
//
// Both classes are parts of their object: references to them are references to the object, in whose apartment they
// live. Firing goes over a snapshot of the sinks, so a sink may remove itself while it is called; a sink that fails
// never stops the next.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "comkit/automation_headers.h"
#include "comkit/com_ptr.h"

namespace kodra::com {

// Where sinks are advised. As COM asks of a connection point, it has an identity of its own.
class EventPoint final : public IConnectionPoint {
 public:
  EventPoint(IUnknown& object, REFIID events) : object_(object), events_(events) {}
  EventPoint(const EventPoint&) = delete;
  EventPoint& operator=(const EventPoint&) = delete;
  ~EventPoint();

  REFIID Events() const noexcept { return events_; }
  // Tells every sink of an event with one text. A sink may read the text; what it writes to it is discarded.
  void Fire(DISPID event, const std::wstring& text);

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return object_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() noexcept override { return object_.Release(); }

  STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
  STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) noexcept override;

 private:
  std::vector<comkit::com_ptr<IDispatch>> Snapshot() const;

  IUnknown& object_;
  const IID events_;
  // By cookie, in the order in which they were advised.
  std::map<DWORD, comkit::com_ptr<IDispatch>> sinks_;
  DWORD lastCookie_ = 0;
};

// The object's face as a source of events; a request for any other interface is passed on to its object.
class EventSource final : public IConnectionPointContainer {
 public:
  // `object` owns this; `events` is the dispinterface of its events.
  EventSource(IUnknown& object, REFIID events) : object_(object), point_(object, events) {}
  EventSource(const EventSource&) = delete;
  EventSource& operator=(const EventSource&) = delete;

  void Fire(DISPID event, const std::wstring& text) { point_.Fire(event, text); }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
    return object_.QueryInterface(iid, object);
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return object_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() noexcept override { return object_.Release(); }

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
  STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;

 private:
  IUnknown& object_;
  EventPoint point_;
};

}  // namespace kodra::com
