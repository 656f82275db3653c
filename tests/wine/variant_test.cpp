// Values and errors across COM: each type of a VARIANT, and each way in which a call can fail.
#include "ado/variant.h"

#include <gtest/gtest.h>

#include <limits>

#include "ado/automation_object.h"
#include "tests/wine/foreign_object.h"
#include "values/convert.h"

namespace kodra::ado {
namespace {

// A VARIANT of a type whose value is written by `write`.
template <class Write>
VARIANT Of(VARTYPE type, Write write) {
  VARIANT v;
  VariantInit(&v);
  write(v);
  v.vt = type;
  return v;
}

// The error of reading the VARIANT; 0 when it does not fail.
std::int32_t Raised(const VARIANT& variant) {
  try {
    ToValue(variant);
    return 0;
  } catch (const Erro& erro) {
    return erro.Number();
  }
}

constexpr std::int32_t kTypeMismatch = 13;

// Windows' own text for a number, in the language of the system.
std::wstring SystemTextOf(HRESULT hr) {
  wchar_t text[512] = {};
  FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, static_cast<DWORD>(hr), 0, text,
                 512, nullptr);
  std::wstring line(text);
  EXPECT_GT(line.size(), 2U);
  return line.substr(0, line.find_last_not_of(L"\r\n ") + 1);
}

TEST(VariantToValue, KeepsTheTypesThatAValueHas) {
  EXPECT_EQ(Value(Empty{}), ToValue(Of(VT_EMPTY, [](VARIANT&) {})));
  EXPECT_EQ(Value(Null{}), ToValue(Of(VT_NULL, [](VARIANT&) {})));
  EXPECT_EQ(Value(std::int32_t{-7}), ToValue(Of(VT_I4, [](VARIANT& v) { v.lVal = -7; })));
  EXPECT_EQ(Value(2.5), ToValue(Of(VT_R8, [](VARIANT& v) { v.dblVal = 2.5; })));
  EXPECT_EQ(Value(Date{36526.75}), ToValue(Of(VT_DATE, [](VARIANT& v) { v.date = 36526.75; })));
}

TEST(VariantToValue, ABooleanIsTrueForAnythingButZero) {
  EXPECT_EQ(Value(true), ToValue(Of(VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_TRUE; })));
  EXPECT_EQ(Value(true), ToValue(Of(VT_BOOL, [](VARIANT& v) { v.boolVal = 1; })));
  EXPECT_EQ(Value(false), ToValue(Of(VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_FALSE; })));
}

TEST(VariantToValue, EveryIntegerThatFitsIsA32BitOne) {
  EXPECT_EQ(Value(std::int32_t{-5}), ToValue(Of(VT_I1, [](VARIANT& v) { v.cVal = -5; })));
  EXPECT_EQ(Value(std::int32_t{200}), ToValue(Of(VT_UI1, [](VARIANT& v) { v.bVal = 200; })));
  EXPECT_EQ(Value(std::int32_t{-300}), ToValue(Of(VT_I2, [](VARIANT& v) { v.iVal = -300; })));
  EXPECT_EQ(Value(std::int32_t{60000}), ToValue(Of(VT_UI2, [](VARIANT& v) { v.uiVal = 60000; })));
  EXPECT_EQ(Value(std::int32_t{12}), ToValue(Of(VT_UI4, [](VARIANT& v) { v.ulVal = 12; })));
  EXPECT_EQ(Value(std::int32_t{-13}), ToValue(Of(VT_INT, [](VARIANT& v) { v.intVal = -13; })));
  EXPECT_EQ(Value(std::int32_t{14}), ToValue(Of(VT_UINT, [](VARIANT& v) { v.uintVal = 14; })));
  EXPECT_EQ(Value(std::int32_t{-15}), ToValue(Of(VT_I8, [](VARIANT& v) { v.llVal = -15; })));
  EXPECT_EQ(Value(std::int32_t{16}), ToValue(Of(VT_UI8, [](VARIANT& v) { v.ullVal = 16; })));
}

TEST(VariantToValue, ALargerIntegerIsA64BitOne) {
  EXPECT_EQ(Value(std::int64_t{4000000000}), ToValue(Of(VT_UI4, [](VARIANT& v) { v.ulVal = 4000000000U; })));
  EXPECT_EQ(Value(std::int64_t{-5000000000}), ToValue(Of(VT_I8, [](VARIANT& v) { v.llVal = -5000000000; })));
  EXPECT_EQ(Value(std::int64_t{5000000000}), ToValue(Of(VT_UI8, [](VARIANT& v) { v.ullVal = 5000000000U; })));
}

TEST(VariantToValue, AnUnsignedIntegerBeyond63BitsKeepsItsDigits) {
  constexpr ULONGLONG kLargest = std::numeric_limits<ULONGLONG>::max();
  EXPECT_EQ(Value(std::uint64_t{kLargest}), ToValue(Of(VT_UI8, [](VARIANT& v) { v.ullVal = kLargest; })));
}

VARIANT DecimalOf(BYTE sign, BYTE scale, ULONG high, ULONGLONG low) {
  VARIANT v = Of(VT_EMPTY, [&](VARIANT& variant) {
    variant.decVal.sign = sign;
    variant.decVal.scale = scale;
    variant.decVal.Hi32 = high;
    variant.decVal.Lo64 = low;
  });
  v.vt = VT_DECIMAL;
  return v;
}

TEST(VariantToValue, OtherNumbersKeepTheirTypeAndDigits) {
  EXPECT_EQ(Value(0.1F), ToValue(Of(VT_R4, [](VARIANT& v) { v.fltVal = 0.1F; })));
  EXPECT_EQ(Value(Currency{-123456}), ToValue(Of(VT_CY, [](VARIANT& v) { v.cyVal.int64 = -123456; })));
  EXPECT_EQ(Value(Decimal{.low = 2, .high = 1, .scale = 3, .negative = true}),
            ToValue(DecimalOf(DECIMAL_NEG, 3, 1, 2)));
}

TEST(VariantToValue, ADecimalWithMoreDecimalsThanThereAreIsRefused) {
  EXPECT_EQ(Value(Decimal{.low = 1, .scale = 28}), ToValue(DecimalOf(0, 28, 0, 1)));
  EXPECT_EQ(kTypeMismatch, Raised(DecimalOf(0, 29, 0, 1)));
  EXPECT_EQ(kTypeMismatch, Raised(DecimalOf(0x40, 0, 0, 1)));
}

TEST(VariantToValue, ATextKeepsEveryCharacterAndANullOneIsEmpty) {
  const face::Bstr text(std::wstring(L"São\0João", 8));
  EXPECT_EQ(Value(std::wstring(L"São\0João", 8)), ToValue(Of(VT_BSTR, [&](VARIANT& v) { v.bstrVal = text; })));
  EXPECT_EQ(Value(L""), ToValue(Of(VT_BSTR, [](VARIANT& v) { v.bstrVal = nullptr; })));
}

TEST(VariantToValue, AnObjectIsSharedAndNothingIsANullReference) {
  auto object = face::ForeignObject::With(L"Nome", L"Ana");
  {
    const Value value = ToValue(Of(VT_DISPATCH, [&](VARIANT& v) { v.pdispVal = object.get(); }));
    ASSERT_TRUE(value.Is<ObjectRef>());
    EXPECT_EQ(Value(L"Ana"), value.As<ObjectRef>()->Get(L"nome"));
    EXPECT_EQ(object.get(), DispatchOf(value.As<ObjectRef>()).get());
    const Value unknown = ToValue(Of(VT_UNKNOWN, [&](VARIANT& v) { v.punkVal = object.get(); }));
    EXPECT_TRUE(unknown.Is<ObjectRef>());
  }
  EXPECT_EQ(0U, object.Release());
  EXPECT_EQ(Value(ObjectRef()), ToValue(Of(VT_DISPATCH, [](VARIANT& v) { v.pdispVal = nullptr; })));
  EXPECT_EQ(Value(ObjectRef()), ToValue(Of(VT_UNKNOWN, [](VARIANT& v) { v.punkVal = nullptr; })));
}

TEST(VariantToValue, AReferenceIsFollowed) {
  LONG number = 7;
  EXPECT_EQ(Value(std::int32_t{7}), ToValue(Of(VT_BYREF | VT_I4, [&](VARIANT& v) { v.plVal = &number; })));
  const face::Bstr text(L"ação");
  BSTR pointed = text;
  EXPECT_EQ(Value(L"ação"), ToValue(Of(VT_BYREF | VT_BSTR, [&](VARIANT& v) { v.pbstrVal = &pointed; })));
  FLOAT single = 0.1F;
  EXPECT_EQ(Value(0.1F), ToValue(Of(VT_BYREF | VT_R4, [&](VARIANT& v) { v.pfltVal = &single; })));
  CY amount = {.int64 = 5};
  EXPECT_EQ(Value(Currency{5}), ToValue(Of(VT_BYREF | VT_CY, [&](VARIANT& v) { v.pcyVal = &amount; })));
  DECIMAL decimal = DecimalOf(0, 1, 0, 15).decVal;
  EXPECT_EQ(Value(Decimal{.low = 15, .scale = 1}),
            ToValue(Of(VT_BYREF | VT_DECIMAL, [&](VARIANT& v) { v.pdecVal = &decimal; })));
  DATE date = 2.5;
  EXPECT_EQ(Value(Date{2.5}), ToValue(Of(VT_BYREF | VT_DATE, [&](VARIANT& v) { v.pdate = &date; })));
}

TEST(VariantToValue, AReferenceToAVariantIsFollowedToItsValue) {
  LONG number = 7;
  VARIANT inner = Of(VT_BYREF | VT_I4, [&](VARIANT& v) { v.plVal = &number; });
  EXPECT_EQ(Value(std::int32_t{7}), ToValue(Of(VT_BYREF | VT_VARIANT, [&](VARIANT& v) { v.pvarVal = &inner; })));
}

TEST(VariantToValue, AReferenceToNothingIsRefused) {
  for (const VARTYPE type : {VT_VARIANT, VT_BOOL, VT_I4, VT_R8, VT_DATE, VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_DECIMAL})
    EXPECT_EQ(kTypeMismatch, Raised(Of(VT_BYREF | type, [](VARIANT& v) { v.byref = nullptr; }))) << type;
  VARIANT inner = Of(VT_BYREF | VT_I4, [](VARIANT& v) { v.byref = nullptr; });
  EXPECT_EQ(kTypeMismatch, Raised(Of(VT_BYREF | VT_VARIANT, [&](VARIANT& v) { v.pvarVal = &inner; })));
}

TEST(VariantToValue, AReferenceToAReferenceToAVariantIsRefused) {
  VARIANT number = Of(VT_I4, [](VARIANT& v) { v.lVal = 7; });
  VARIANT inner = Of(VT_BYREF | VT_VARIANT, [&](VARIANT& v) { v.pvarVal = &number; });
  EXPECT_EQ(kTypeMismatch, Raised(Of(VT_BYREF | VT_VARIANT, [&](VARIANT& v) { v.pvarVal = &inner; })));
  inner.pvarVal = &inner;
  EXPECT_EQ(kTypeMismatch, Raised(inner));
  VARIANT other = Of(VT_BYREF | VT_VARIANT, [&](VARIANT& v) { v.pvarVal = &inner; });
  inner.pvarVal = &other;
  EXPECT_EQ(kTypeMismatch, Raised(other));
}

TEST(VariantToValue, AReferenceDoesNotReleaseItsTarget) {
  auto object = face::ForeignObject::With(L"Nome", L"Ana");
  IDispatch* pointed = object.get();
  ToValue(Of(VT_BYREF | VT_DISPATCH, [&](VARIANT& v) { v.ppdispVal = &pointed; }));
  EXPECT_EQ(0U, object.Release());
}

TEST(VariantToValue, ArraysAndErrorsAreRefused) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 2);
  EXPECT_EQ(kTypeMismatch, Raised(Of(VT_ARRAY | VT_I4, [&](VARIANT& v) { v.parray = array; })));
  EXPECT_EQ(kTypeMismatch, Raised(Of(VT_ARRAY | VT_I4 | VT_BYREF, [&](VARIANT& v) { v.pparray = &array; })));
  SafeArrayDestroy(array);
  EXPECT_EQ(kTypeMismatch, Raised(Of(VT_ERROR, [](VARIANT& v) { v.scode = DISP_E_PARAMNOTFOUND; })));
}

TEST(VariantFromValue, HasTheTypeOfTheValue) {
  EXPECT_EQ(VT_EMPTY, (*ScopedVariant(Value())).vt);
  EXPECT_EQ(VT_NULL, (*ScopedVariant(Value(Null{}))).vt);
  EXPECT_EQ(VT_I4, (*ScopedVariant(Value(std::int32_t{1}))).vt);
  EXPECT_EQ(VT_I8, (*ScopedVariant(Value(std::int64_t{1}))).vt);
  EXPECT_EQ(VT_UI8, (*ScopedVariant(Value(std::uint64_t{1}))).vt);
  EXPECT_EQ(VT_R4, (*ScopedVariant(Value(1.0F))).vt);
  EXPECT_EQ(VT_R8, (*ScopedVariant(Value(1.0))).vt);
  EXPECT_EQ(VT_CY, (*ScopedVariant(Value(Currency{1}))).vt);
  EXPECT_EQ(VT_DECIMAL, (*ScopedVariant(Value(Decimal{.low = 1}))).vt);
  EXPECT_EQ(VT_DATE, (*ScopedVariant(Value(Date{1}))).vt);
  EXPECT_EQ(VT_BSTR, (*ScopedVariant(Value(L"a"))).vt);
  EXPECT_EQ(VT_BOOL, (*ScopedVariant(Value(true))).vt);
  EXPECT_EQ(-1, (*ScopedVariant(Value(true))).boolVal);
  EXPECT_EQ(VT_DISPATCH, (*ScopedVariant(Value(ObjectRef()))).vt);
  EXPECT_EQ(nullptr, (*ScopedVariant(Value(ObjectRef()))).pdispVal);
}

TEST(VariantFromValue, ComesBackAsTheSameValue) {
  for (const Value& value :
       {Value(), Value(Null{}), Value(true), Value(false), Value(std::int32_t{-1}), Value(std::int64_t{5000000000}),
        Value(std::uint64_t{18446744073709551615U}), Value(0.1F), Value(0.25), Value(Currency{-1}),
        Value(Decimal{.low = 5, .high = 4294967295U, .scale = 28, .negative = true}), Value(Date{-1.5}), Value(L"ação"),
        Value(std::wstring(L"a\0b", 3)), Value(ObjectRef())})
    EXPECT_EQ(value, ToValue(*ScopedVariant(value)));
}

TEST(VariantFromValue, SharesAnObject) {
  auto object = face::ForeignObject::With(L"Nome", L"Ana");
  {
    const ScopedVariant variant{Value(WrapDispatch(object.get()))};
    EXPECT_EQ(object.get(), (*variant).pdispVal);
    const ScopedVariant other = ScopedVariant::Object(object.get());
    EXPECT_EQ(object.get(), (*other).pdispVal);
  }
  EXPECT_EQ(0U, object.Release());
}

// An object whose default property has the value.
face::Ref<IDispatch> WithDefault(const face::Var& value) {
  class Object final : public face::ClientObject {
   public:
    explicit Object(const face::Var& held) : held_(held) {}
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) override {
      if (id != DISPID_VALUE || (kind & DISPATCH_PROPERTYGET) == 0) return DISP_E_MEMBERNOTFOUND;
      return VariantCopy(result, const_cast<VARIANT*>(&held_.raw()));
    }

   private:
    face::Var held_;
  };
  return face::Ref<IDispatch>::Owning(new Object(value));
}

TEST(LateBoundObject, JoinedToATextIsItsDefaultProperty) {
  const auto joined = [](const face::Ref<IDispatch>& object) {
    return values::ToTextOrEmpty(ToValue(*ScopedVariant::Object(object.get())));
  };
  EXPECT_EQ(L"ação", joined(WithDefault(L"ação")));
  EXPECT_EQ(L"", joined(WithDefault(face::Var::Null())));
  EXPECT_EQ(L"2,5", joined(WithDefault(2.5)));
  EXPECT_EQ(L"7", joined(WithDefault(face::Var(WithDefault(7).get()))));
}

TEST(LateBoundObject, WithoutDefaultPropertyHasNoText) {
  const auto raised = [](const Value& value) {
    try {
      values::ToTextOrEmpty(value);
      return 0;
    } catch (const Erro& erro) {
      return static_cast<int>(erro.Number());
    }
  };
  EXPECT_EQ(438, raised(WrapDispatch(face::ForeignObject::With(L"Nome", L"Ana").get())));
  EXPECT_EQ(438, raised(WrapDispatch(WithDefault(face::Var(face::ForeignObject::With(L"Nome", L"Ana").get())).get())));
  EXPECT_EQ(91, raised(WrapDispatch(nullptr)));
  EXPECT_EQ(91, raised(WrapDispatch(WithDefault(face::Var(static_cast<IDispatch*>(nullptr))).get())));
}

// An object that is not a COM object.
class Portable final : public AutomationObject {
 public:
  Value Get(std::wstring_view) override { return {}; }
  void Let(std::wstring_view, const Value&) override {}
  void Set(std::wstring_view, const ObjectRef&) override {}
  Value Call(std::wstring_view, std::span<const Value>) override { return {}; }
};

TEST(VariantFromValue, RefusesAnObjectOfAnotherPlatform) {
  try {
    const ScopedVariant variant{Value(ObjectRef(std::make_shared<Portable>()))};
    FAIL() << (*variant).vt;
  } catch (const Erro& erro) {
    EXPECT_EQ(kTypeMismatch, erro.Number());
  }
}

TEST(ErrorNumbers, AControlErrorIsItsSmallNumberAndEveryOtherIsItself) {
  EXPECT_EQ(3704, NumberOf(static_cast<HRESULT>(0x800A0E78)));
  EXPECT_EQ(13, NumberOf(static_cast<HRESULT>(0x800A000D)));
  EXPECT_EQ(static_cast<std::int32_t>(0x80040E14), NumberOf(static_cast<HRESULT>(0x80040E14)));
  EXPECT_EQ(static_cast<HRESULT>(0x800A0E78), HresultOf(3704));
  EXPECT_EQ(static_cast<HRESULT>(0x80041FAB), HresultOf(static_cast<std::int32_t>(0x80041FAB)));
}

TEST(ErrorNumbers, ANumberThatIsNoErrorStillFails) {
  EXPECT_EQ(E_FAIL, HresultOf(0));
  EXPECT_EQ(E_FAIL, HresultOf(0x10000));
  EXPECT_EQ(static_cast<HRESULT>(0x800AFFFF), HresultOf(0xFFFF));
}

TEST(ErrorOfACallByName, TakesNumberSourceAndDescriptionAndClearsTheExcepInfo) {
  EXCEPINFO info = {};
  info.scode = static_cast<HRESULT>(0x800A0BCD);
  info.bstrSource = SysAllocString(L"ADODB.Field");
  info.bstrDescription = SysAllocString(L"Sem registro.");
  info.bstrHelpFile = SysAllocString(L"x.hlp");
  const Erro erro = ErrorOf(DISP_E_EXCEPTION, info);
  EXPECT_EQ(3021, erro.Number());
  EXPECT_EQ(L"ADODB.Field", erro.Source());
  EXPECT_EQ(L"Sem registro.", erro.Description());
  EXPECT_EQ(nullptr, info.bstrSource);
  EXPECT_EQ(nullptr, info.bstrDescription);
  EXPECT_EQ(nullptr, info.bstrHelpFile);
}

TEST(ErrorOfACallByName, TakesAnOldStyleCodeWhereThereIsNoOther) {
  EXCEPINFO info = {};
  info.wCode = 1005;
  EXPECT_EQ(1005, ErrorOf(DISP_E_EXCEPTION, info).Number());
}

HRESULT STDMETHODCALLTYPE FillInLate(EXCEPINFO* info) {
  info->scode = static_cast<HRESULT>(0x80040001);
  info->bstrDescription = SysAllocString(L"Tardia.");
  return S_OK;
}

TEST(ErrorOfACallByName, AsksForDeferredDetails) {
  EXCEPINFO info = {};
  info.pfnDeferredFillIn = FillInLate;
  const Erro erro = ErrorOf(DISP_E_EXCEPTION, info);
  EXPECT_EQ(static_cast<std::int32_t>(0x80040001), erro.Number());
  EXPECT_EQ(L"Tardia.", erro.Description());
}

TEST(ErrorOfACallByName, WithoutADescriptionHasTheTextOfItsNumber) {
  const struct {
    HRESULT scode;
    WORD code;
    std::int32_t number;
    std::wstring description;
  } cases[] = {
      {static_cast<HRESULT>(0x800A000D), 0, 13, L"Tipos incompatíveis"},
      {static_cast<HRESULT>(0x800A01B6), 0, 438, L"O objeto não aceita esta propriedade ou método"},
      {0, 91, 91, L"A variável do objeto ou a variável do bloco 'With' não foi definida"},
      {DISP_E_TYPEMISMATCH, 0, DISP_E_TYPEMISMATCH, L"Tipos incompatíveis"},
      {E_ACCESSDENIED, 0, E_ACCESSDENIED, SystemTextOf(E_ACCESSDENIED)},
      {static_cast<HRESULT>(0x80047777), 0, static_cast<std::int32_t>(0x80047777), L"Erro de automação (80047777)"},
      {0, 0x4321, 0x4321, L"Erro de automação (800A4321)"},
  };
  for (const auto& one : cases) {
    for (const wchar_t* empty : {static_cast<const wchar_t*>(nullptr), L""}) {
      EXCEPINFO info = {};
      info.scode = one.scode;
      info.wCode = one.code;
      info.bstrSource = SysAllocString(L"Cliente");
      info.bstrDescription = SysAllocString(empty);
      const Erro erro = ErrorOf(DISP_E_EXCEPTION, info);
      EXPECT_EQ(one.number, erro.Number());
      EXPECT_EQ(L"Cliente", erro.Source());
      EXPECT_EQ(one.description, erro.Description());
    }
  }
}

TEST(ErrorOfACallByName, WithoutASourceHasNone) {
  EXCEPINFO info = {};
  info.scode = static_cast<HRESULT>(0x800A000D);
  const Erro erro = ErrorOf(DISP_E_EXCEPTION, info);
  EXPECT_EQ(L"", erro.Source());
  EXPECT_EQ(L"Tipos incompatíveis", erro.Description());
}

TEST(ErrorOfACallByName, NamesTheRuntimesOwnErrors) {
  const struct {
    HRESULT hr;
    std::int32_t number;
    const wchar_t* description;
  } cases[] = {
      {DISP_E_UNKNOWNNAME, 438, L"O objeto não aceita esta propriedade ou método"},
      {DISP_E_MEMBERNOTFOUND, 438, L"O objeto não aceita esta propriedade ou método"},
      {DISP_E_TYPEMISMATCH, 13, L"Tipos incompatíveis"},
      {DISP_E_OVERFLOW, 6, L"Estouro"},
      {E_OUTOFMEMORY, 7, L"Memória insuficiente"},
      {static_cast<HRESULT>(0x800A005E), 94, L"Uso de 'Null' inválido"},
      {static_cast<HRESULT>(0x8004ABCD), static_cast<std::int32_t>(0x8004ABCD), L"Erro de automação (8004ABCD)"},
  };
  for (const auto& one : cases) {
    EXCEPINFO info = {};
    const Erro erro = ErrorOf(one.hr, info);
    EXPECT_EQ(one.number, erro.Number());
    EXPECT_EQ(L"KodraRpt", erro.Source());
    EXPECT_EQ(one.description, erro.Description());
  }
}

// Answers whether it supports error information.
class Supporting final : public ISupportErrorInfo {
 public:
  explicit Supporting(HRESULT answer) : answer_(answer) {}
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IUnknown || iid == IID_ISupportErrorInfo ? this : nullptr;
    return *object == nullptr ? E_NOINTERFACE : S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID) override { return answer_; }

 private:
  HRESULT answer_;
};

void LeaveErrorInfo(const wchar_t* description = L"Falhou.") {
  comkit::com_ptr<ICreateErrorInfo> info;
  ASSERT_EQ(S_OK, CreateErrorInfo(info.put()));
  info->SetSource(face::Bstr(L"ADODB.Connection"));
  if (description != nullptr) info->SetDescription(face::Bstr(description));
  SetErrorInfo(0, info.as<IErrorInfo>().get());
}

TEST(ErrorOfACallByVtable, IsTakenFromTheErrorInformationOfTheObject) {
  Supporting object(S_OK);
  LeaveErrorInfo();
  const Erro erro = ErrorOf(static_cast<HRESULT>(0x80040E4D), &object, IID_IDispatch);
  EXPECT_EQ(static_cast<std::int32_t>(0x80040E4D), erro.Number());
  EXPECT_EQ(L"ADODB.Connection", erro.Source());
  EXPECT_EQ(L"Falhou.", erro.Description());
}

TEST(ErrorOfACallByVtable, WithoutADescriptionHasTheTextOfItsNumber) {
  Supporting object(S_OK);
  for (const wchar_t* empty : {static_cast<const wchar_t*>(nullptr), L""}) {
    LeaveErrorInfo(empty);
    const Erro erro = ErrorOf(E_ACCESSDENIED, &object, IID_IDispatch);
    EXPECT_EQ(E_ACCESSDENIED, erro.Number());
    EXPECT_EQ(L"ADODB.Connection", erro.Source());
    EXPECT_EQ(SystemTextOf(E_ACCESSDENIED), erro.Description());
  }
}

TEST(ErrorOfACallByVtable, IsNotTakenFromAnObjectThatDoesNotSupportIt) {
  Supporting object(S_FALSE);
  LeaveErrorInfo();
  const Erro erro = ErrorOf(DISP_E_TYPEMISMATCH, &object, IID_IDispatch);
  EXPECT_EQ(L"KodraRpt", erro.Source());
  EXPECT_EQ(L"Tipos incompatíveis", erro.Description());
  SetErrorInfo(0, nullptr);
}

TEST(ErrorOfACallByVtable, WithoutErrorInformationIsTheNumberAlone) {
  Supporting object(S_OK);
  SetErrorInfo(0, nullptr);
  EXPECT_EQ(L"Erro de automação (8004ABCD)",
            ErrorOf(static_cast<HRESULT>(0x8004ABCD), &object, IID_IDispatch).Description());
  EXPECT_EQ(7, ErrorOf(E_OUTOFMEMORY, nullptr, IID_NULL).Number());
}

TEST(LateBoundObject, RaisesWhatTheObjectRaises) {
  const auto object =
      face::ForeignObject::With(L"Nome", face::Raising(static_cast<HRESULT>(0x8004002A), L"Cliente", L"Recusado."));
  try {
    WrapDispatch(object.get())->Get(L"Nome");
    FAIL();
  } catch (const Erro& erro) {
    EXPECT_EQ(static_cast<std::int32_t>(0x8004002A), erro.Number());
    EXPECT_EQ(L"Cliente", erro.Source());
    EXPECT_EQ(L"Recusado.", erro.Description());
  }
}

TEST(LateBoundObject, HasNoMemberThatTheObjectDoesNotHave) {
  const auto object = face::ForeignObject::With(L"Nome", L"Ana");
  const auto late = WrapDispatch(object.get());
  const auto raised = [](auto call) {
    try {
      call();
      return 0;
    } catch (const Erro& erro) {
      return static_cast<int>(erro.Number());
    }
  };
  EXPECT_EQ(438, raised([&] { late->Get(L"Idade"); }));
  EXPECT_EQ(438, raised([&] { late->Let(L"Idade", Value(L"x")); }));
  EXPECT_EQ(438, raised([&] { late->Let(L"Nome", Value(L"x")); }));
  EXPECT_EQ(438, raised([&] { late->Call(L"Idade", {}); }));
}

// A method that is called with its arguments in their original order, the last one first.
class OneMethod final : public face::ClientObject {
 public:
  using Body = std::function<HRESULT(const DISPPARAMS& parameters, VARIANT* result)>;
  explicit OneMethod(Body body) : body_(std::move(body)) {}
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
    *ids = 1;
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*, UINT*) override {
    return body_(*parameters, result);
  }

 private:
  Body body_;
};

TEST(LateBoundObject, TakesItsFirstArgumentByReference) {
  const auto method = face::Ref<IDispatch>::Owning(new OneMethod([](const DISPPARAMS& parameters, VARIANT* result) {
    EXPECT_EQ(2U, parameters.cArgs);
    EXPECT_EQ(VT_BSTR, parameters.rgvarg[0].vt);
    EXPECT_STREQ(L"s", parameters.rgvarg[0].bstrVal);
    EXPECT_EQ(VT_BYREF | VT_I4, parameters.rgvarg[1].vt);
    EXPECT_EQ(7, *parameters.rgvarg[1].plVal);
    *parameters.rgvarg[1].plVal = 8;
    result->vt = VT_I4;
    result->lVal = 9;
    return S_OK;
  }));
  Value first = std::int32_t{7};
  const Value other = L"s";
  EXPECT_EQ(Value(std::int32_t{9}), WrapDispatch(method.get())->CallByReference(L"Metodo", first, {&other, 1}));
  EXPECT_EQ(Value(std::int32_t{8}), first);
}

TEST(LateBoundObject, MayReplaceItsArgumentByAnObjectOrAnyValue) {
  auto object = face::ForeignObject::With(L"Nome", L"Ana");
  const auto method = face::Ref<IDispatch>::Owning(new OneMethod([&](const DISPPARAMS& parameters, VARIANT*) {
    VARIANT& argument = parameters.rgvarg[0];
    if (argument.vt == (VT_BYREF | VT_DISPATCH)) {
      EXPECT_EQ(nullptr, *argument.ppdispVal);
      *argument.ppdispVal = object.get();
      object->AddRef();
      return S_OK;
    }
    EXPECT_EQ(VT_BYREF | VT_VARIANT, argument.vt);
    EXPECT_EQ(VT_NULL, argument.pvarVal->vt);
    argument.pvarVal->vt = VT_BSTR;
    argument.pvarVal->bstrVal = SysAllocString(L"deixada");
    return S_OK;
  }));
  {
    Value first = ObjectRef();
    EXPECT_EQ(Value(), WrapDispatch(method.get())->CallByReference(L"Metodo", first, {}));
    EXPECT_EQ(object.get(), DispatchOf(first.As<ObjectRef>()).get());
  }
  EXPECT_EQ(0U, object.Release());
  Value first = Null{};
  WrapDispatch(method.get())->CallByReference(L"Metodo", first, {});
  EXPECT_EQ(Value(L"deixada"), first);
}

TEST(LateBoundObject, LeavesTheArgumentOfAFailedCallUnchanged) {
  const auto method = face::Ref<IDispatch>::Owning(new OneMethod([](const DISPPARAMS& parameters, VARIANT*) {
    SysReAllocString(parameters.rgvarg[0].pbstrVal, L"mudada");
    return E_FAIL;
  }));
  Value first = L"linha";
  EXPECT_THROW(WrapDispatch(method.get())->CallByReference(L"Metodo", first, {}), Erro);
  EXPECT_EQ(Value(L"linha"), first);
}

TEST(LateBoundObject, IsAskedForTheWholeOfANameOfAnyLength) {
  for (const std::size_t length : {1U, 62U, 63U, 64U, 65U, 1000U}) {
    SCOPED_TRACE(length);
    const std::wstring longer = std::wstring(length - 1, L'N') + L"AX";
    const std::wstring name = longer.substr(0, length);
    const auto object = face::ForeignObject::With(name, L"Ana");
    // A view of the name ends where the view does, not where its text does.
    EXPECT_EQ(Value(L"Ana"), WrapDispatch(object.get())->Get(std::wstring_view(longer).substr(0, length)));
    EXPECT_THROW(WrapDispatch(object.get())->Get(longer), Erro);
  }
}

TEST(LateBoundObject, OverNothingIsNothing) {
  EXPECT_EQ(nullptr, WrapDispatch(nullptr));
  EXPECT_FALSE(DispatchOf(nullptr));
}

}  // namespace
}  // namespace kodra::ado
