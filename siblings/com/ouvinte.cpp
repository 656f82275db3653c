#include "siblings/com/ouvinte.h"

#include "ado/automation_object.h"
#include "ado/variant.h"
#include "siblings/com/event_sink.h"

namespace kodra::siblings {

using comkit::com_ptr;

Value Ouvinte::Conecta(std::span<const Value> arguments) {
  for (const Value& argument : arguments) RequiredObject(argument);
  const com_ptr<IDispatch> source = ado::DispatchOf(arguments[0].As<ObjectRef>());
  Disconnect();
  EventSet events = EventsOf(source.get());
  const auto container = source.as<IConnectionPointContainer>();
  if (!container) throw ado::ErrorOf(E_NOINTERFACE, nullptr, IID_NULL);
  com_ptr<IConnectionPoint> point;
  ado::Check(container->FindConnectionPoint(events.iid, point.put()), container);
  const auto sink = EventSink::Make(std::move(events), ado::DispatchOf(arguments[1].As<ObjectRef>()));
  ado::Check(point->Advise(sink.get(), &cookie_), point);
  point_ = std::move(point);
  return {};
}

Value Ouvinte::Desconecta(std::span<const Value> /*arguments*/) {
  Disconnect();
  return {};
}

void Ouvinte::Disconnect() noexcept {
  const com_ptr<IConnectionPoint> point = std::move(point_);
  if (point) point->Unadvise(cookie_);
}

std::span<const Member<Ouvinte>> Ouvinte::Members() {
  static const Member<Ouvinte> kMembers[] = {
      Method<&Ouvinte::Conecta, 2>(L"Conecta"),
      Method<&Ouvinte::Desconecta, 0>(L"Desconecta"),
  };
  return kMembers;
}

}  // namespace kodra::siblings
