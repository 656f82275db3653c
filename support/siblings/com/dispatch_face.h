// Any automation object of portable code as an IDispatch.
//
// Every name gets an id of its own per object, known or not: what the object does not have is refused when it is
// called, with DISP_E_MEMBERNOTFOUND, which clients report as error 438. Other errors arrive as EXCEPINFO with the
// object's number, source and description. Objects in results are faces too. Used on the thread that made it.
#pragma once

#include <windows.h>
// Needs the types above.
#include <oaidl.h>

#include <atomic>
#include <string>
#include <vector>

#include "platform/automation.h"
#include "platform/windows/com_ptr.h"

namespace kodra::support {

class DispatchFace final : public IDispatch {
 public:
  // A face of its own for an object; null gives null.
  static platform::windows::com_ptr<IDispatch> Make(platform::ObjectRef object);
  // The number of faces alive, in all threads.
  static long Alive() noexcept { return alive_; }

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
  explicit DispatchFace(platform::ObjectRef object) : object_(std::move(object)) { ++alive_; }
  ~DispatchFace() { --alive_; }

  DISPID IdOf(std::wstring_view name);
  platform::Value Perform(const std::wstring& member, WORD kind, const DISPPARAMS& parameters);

  static std::atomic<long> alive_;
  std::atomic<ULONG> references_ = 1;
  platform::ObjectRef object_;
  std::vector<std::wstring> names_;  // a name's id is its place, from 1
};

}  // namespace kodra::support
