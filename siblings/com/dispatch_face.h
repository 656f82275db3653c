// Any automation object of portable code as an IDispatch.
//
// Every name gets its own id in each object, known or not: a member that the object does not have is refused when it is
// called, with DISP_E_MEMBERNOTFOUND, which clients report as error 438. Other errors are returned as EXCEPINFO with
// the object's number, source and description. Objects in results are faces too. The default member is Item, and `For
// Each` visits a collection. Used on the thread that made it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "comkit/com_ptr.h"
#include "comkit/object.h"
#include "values/automation.h"

namespace kodra::siblings {

// A result in the form for a client: an object of portable code gets a face, one that came from COM is returned
// unchanged.
Value Outward(const Value& value);

class DispatchFace final : public comkit::Object<IDispatch> {
 public:
  // A face of its own for an object; null returns null.
  static comkit::com_ptr<IDispatch> Make(ObjectRef object);

  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* info, UINT* badArgument) override;

 private:
  explicit DispatchFace(ObjectRef object) : object_(std::move(object)) {}

  DISPID IdOf(std::wstring_view name);
  // The name of an id; nothing for an id that no name has.
  std::optional<std::wstring> NameOf(DISPID id) const;
  Value Perform(const std::wstring& member, WORD kind, const DISPPARAMS& parameters);
  comkit::com_ptr<IUnknown> Enumerate();

  ObjectRef object_;
  std::vector<std::wstring> names_;  // the id of a name is its place, from 1
};

}  // namespace kodra::siblings
