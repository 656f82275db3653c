// A report as an early-bound client in C++ or Visual Basic uses it.
#pragma once

#include "tests/wine/faults_cases.h"

namespace kodra::face {

// A report object with its parameter object. Its members are called through the table of its interface.
class EarlyBoundReport {
 public:
  explicit EarlyBoundReport(const ReportCase& tested)
      : object_(tested.NewReport()), parameters_(tested.NewParameters()) {
    Ref<ITypeInfo> type;
    EXPECT_EQ(S_OK, object_->GetTypeInfo(0, 0, type.put()));
    put_ = EntryOf(type, L"StringConexao", INVOKE_PROPERTYPUT);
    method_ = EntryOf(type, tested.method, INVOKE_FUNC);
  }

  Outcome Run(const std::wstring& connection) const {
    using Put = HRESULT(STDMETHODCALLTYPE*)(void*, BSTR);
    using Method = HRESULT(STDMETHODCALLTYPE*)(void*, IDispatch*, IDispatch**);
    Outcome outcome;
    EXPECT_EQ(S_OK, reinterpret_cast<Put>(put_)(object_.get(), Bstr(connection)));
    Ref<IDispatch> rows;
    outcome.hr = reinterpret_cast<Method>(method_)(object_.get(), parameters_.get(), rows.put());
    outcome.value = Var(rows.get());
    if (FAILED(outcome.hr)) outcome.failure = TakeFailure(outcome.hr, object_);
    return outcome;
  }

 private:
  // The function of a member, whose position in the table the type information says.
  void* EntryOf(const Ref<ITypeInfo>& type, const std::wstring& name, INVOKEKIND kind) const {
    Ref<ITypeInfo> table;
    HREFTYPE reference = 0;
    EXPECT_EQ(S_OK, type->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    EXPECT_EQ(S_OK, type->GetRefTypeInfo(reference, table.put()));
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(S_OK, table->GetTypeAttr(&attributes));
    const UINT functions = attributes->cFuncs;
    table->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < functions; ++i) {
      FUNCDESC* function = nullptr;
      Bstr found;
      EXPECT_EQ(S_OK, table->GetFuncDesc(i, &function));
      const std::size_t position = static_cast<std::size_t>(function->oVft) / sizeof(void*);
      const bool isKind = function->invkind == kind;
      UINT count = 0;
      table->GetNames(function->memid, found.put(), 1, &count);
      table->ReleaseFuncDesc(function);
      if (isKind && found.text() == name) return (*reinterpret_cast<void***>(object_.get()))[position];
    }
    ADD_FAILURE() << testing::PrintToString(name);
    return nullptr;
  }

  Ref<IDispatch> object_;
  Ref<IDispatch> parameters_;
  void* put_ = nullptr;
  void* method_ = nullptr;
};

}  // namespace kodra::face
