// An in-process server with one class that does nothing: the least that loading a DLL and creating an object can cost.
// It is compiled as the component is, and linked as such a server usually is, with the whole C++ library.
#include "comkit/class_factory.h"

using kodra::comkit::com_ptr;

namespace {

class Nothing final : public kodra::comkit::Object<IUnknown> {};

}  // namespace

HRESULT kodra::comkit::CurrentHresult(REFIID) noexcept { return E_OUTOFMEMORY; }

STDAPI DllGetClassObject(REFCLSID, REFIID iid, void** factory) {
  return kodra::comkit::CreateFactory([] { return com_ptr<IUnknown>::adopt(new Nothing); }, iid, factory);
}
