// Makes objects of one public class.
#pragma once

#include <atomic>

#include "com/class_table.h"
#include "com/module.h"

namespace kodra::com {

// Starts with one reference, its creator's.
class ClassFactory final : public IClassFactory {
 public:
  // REQUIRES: the class stands in PublicClasses().
  explicit ClassFactory(const PublicClass& publicClass) : class_(publicClass) {}
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override;
  STDMETHODIMP_(ULONG) Release() noexcept override;
  // No class of the component can be aggregated.
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override;
  // An unlock without a lock is E_UNEXPECTED.
  STDMETHODIMP LockServer(BOOL lock) noexcept override;

 private:
  ~ClassFactory() = default;

  const PublicClass& class_;
  ModuleLock lock_;
  std::atomic<ULONG> references_ = 1;
};

}  // namespace kodra::com
