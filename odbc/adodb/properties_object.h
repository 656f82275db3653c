// The Properties collection of every ADO object here: the dynamic properties of a provider, of which there are none.
#pragma once

#include "odbc/adodb/collection_object.h"

namespace kodra::adodb {

class PropertiesObject final : public CollectionObject<Properties> {
 public:
  STDMETHODIMP get_Item(VARIANT, Property** property) noexcept override {
    return this->Get(property, [&]() -> com_ptr<Property> { Raise(ControlError::kItemNotFound); });
  }

 protected:
  std::int32_t Size() override { return 0; }
  com_ptr<IDispatch> Member(std::int32_t) override { return nullptr; }
};

}  // namespace kodra::adodb
