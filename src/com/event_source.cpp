#include "com/event_source.h"

#include <utility>

#include "ado/variant.h"
#include "comkit/boundary.h"
#include "comkit/enumerator.h"

namespace kodra::com {

using comkit::AtBoundary;
using comkit::com_ptr;
using comkit::FillAtBoundary;

namespace {

// One connection point, as an enumerator returns it.
struct Point {
  com_ptr<IConnectionPoint> point;
  void CopyTo(IConnectionPoint** out) const { point.copy_to(out); }
};

// One sink with its cookie, as an enumerator returns it.
struct Connection {
  com_ptr<IDispatch> sink;
  DWORD cookie;
  void CopyTo(CONNECTDATA* out) const {
    com_ptr<IUnknown>(sink.get()).copy_to(&out->pUnk);
    out->dwCookie = cookie;
  }
};

}  // namespace

EventPoint::~EventPoint() {
  // The list is emptied first: a sink may call Unadvise in its last Release, and must not find itself listed then.
  const auto last = std::exchange(sinks_, {});
}

void EventPoint::Fire(DISPID event, const std::wstring& text) {
  for (const auto& sink : Snapshot()) {
    comkit::ScopedBstr copy(text);
    VARIANT argument;
    V_VT(&argument) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&argument) = copy.inout();
    DISPPARAMS parameters = {&argument, nullptr, 1, 0};
    sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
  }
}

std::vector<com_ptr<IDispatch>> EventPoint::Snapshot() const {
  std::vector<com_ptr<IDispatch>> sinks;
  sinks.reserve(sinks_.size());
  for (const auto& [cookie, sink] : sinks_) sinks.push_back(sink);
  return sinks;
}

STDMETHODIMP EventPoint::QueryInterface(REFIID iid, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (iid != IID_IUnknown && iid != IID_IConnectionPoint) return E_NOINTERFACE;
  *object = static_cast<IConnectionPoint*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP EventSource::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
  return FillAtBoundary(IID_IConnectionPointContainer, points, [&] {
    return new comkit::Enumerator<IEnumConnectionPoints, IConnectionPoint*, Point>(
        {{com_ptr<IConnectionPoint>(&point_)}});
  });
}

STDMETHODIMP EventSource::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  if (iid != point_.Events()) return CONNECT_E_NOCONNECTION;
  com_ptr<IConnectionPoint>(&point_).copy_to(point);
  return S_OK;
}

STDMETHODIMP EventPoint::GetConnectionInterface(IID* iid) noexcept {
  if (iid == nullptr) return E_POINTER;
  *iid = events_;
  return S_OK;
}

STDMETHODIMP EventPoint::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept {
  if (container == nullptr) return E_POINTER;
  return object_.QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container));
}

STDMETHODIMP EventPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  *cookie = 0;
  const com_ptr<IUnknown> client(sink);
  com_ptr<IDispatch> events = client.as<IDispatch>(events_);
  if (!events) events = client.as<IDispatch>();
  if (!events) return CONNECT_E_CANNOTCONNECT;
  return AtBoundary(IID_IConnectionPoint, [&] {
    sinks_.emplace(lastCookie_ + 1, std::move(events));
    *cookie = ++lastCookie_;
  });
}

STDMETHODIMP EventPoint::Unadvise(DWORD cookie) noexcept {
  const auto found = sinks_.find(cookie);
  if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
  const com_ptr<IDispatch> last = std::move(found->second);  // released when the sink is no longer listed
  sinks_.erase(found);
  return S_OK;
}

STDMETHODIMP EventPoint::EnumConnections(IEnumConnections** connections) noexcept {
  return FillAtBoundary(IID_IConnectionPoint, connections, [&] {
    std::vector<Connection> members;
    for (const auto& [cookie, sink] : sinks_) members.push_back({sink, cookie});
    return new comkit::Enumerator<IEnumConnections, CONNECTDATA, Connection>(std::move(members));
  });
}

}  // namespace kodra::com
