// The provider's errors of the last failing operation: the Errors collection of a connection and its members.
#pragma once

#include "odbc/adodb/collection_object.h"
#include "odbc/engine/connection.h"

namespace kodra::adodb {

// One provider error, as it was when the client asked for it.
class ErrorObject final : public DispatchObject<Error> {
 public:
  explicit ErrorObject(odbc::ProviderError error) : error_(std::move(error)) {}

  STDMETHODIMP get_Number(LONG* number) noexcept override {
    return Get(number, [&] { return error_.number; });
  }
  STDMETHODIMP get_Source(BSTR* source) noexcept override {
    return Get(source, [&] { return error_.source; });
  }
  STDMETHODIMP get_Description(BSTR* description) noexcept override {
    return Get(description, [&] { return error_.description; });
  }
  STDMETHODIMP get_HelpFile(BSTR* path) noexcept override {
    return Get(path, [] { return std::wstring(); });
  }
  STDMETHODIMP get_HelpContext(LONG* context) noexcept override {
    return Get(context, [] { return 0; });
  }
  STDMETHODIMP get_SQLState(BSTR* state) noexcept override {
    return Get(state, [&] { return error_.sqlState; });
  }
  STDMETHODIMP get_NativeError(LONG* code) noexcept override {
    return Get(code, [&] { return error_.nativeError; });
  }

 private:
  odbc::ProviderError error_;
};

// Follows the connection's session: its members change with the next failing operation.
class ErrorsObject final : public CollectionObject<Errors> {
 public:
  explicit ErrorsObject(std::shared_ptr<odbc::Session> session) : connection_(std::move(session)) {}

  STDMETHODIMP get_Item(VARIANT index, Error** error) noexcept override {
    return Get(error, [&] { return At(CheckedIndex(Argument(index).AsInteger())); });
  }
  STDMETHODIMP Clear() noexcept override {
    return Guard([&] { connection_.ClearErrors(); });
  }

 protected:
  std::int32_t Size() override { return connection_.ErrorCount(); }
  com_ptr<IDispatch> Member(std::int32_t index) override { return com_ptr<IDispatch>(At(index).get()); }

 private:
  com_ptr<ErrorObject> At(std::int32_t index) {
    return Make<ErrorObject>(connection_.Errors()[static_cast<std::size_t>(index)]);
  }

  odbc::Connection connection_;
};

}  // namespace kodra::adodb
