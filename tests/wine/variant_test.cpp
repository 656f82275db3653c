// Values and errors that cross COM: each type of a VARIANT, and each way in which a call can fail.
#include "ado/variant.h"

#include <gtest/gtest.h>
#include <oledberr.h>

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

VARIANT DecimalOf(BYTE sign, BYTE scale, ULONG high, ULONGLONG low) {
  return Of(VT_DECIMAL, [&](VARIANT& v) {
    v.decVal.sign = sign;
    v.decVal.scale = scale;
    v.decVal.Hi32 = high;
    v.decVal.Lo64 = low;
  });
}

// The number of the error that a call raises; 0 when it raises none.
template <class Call>
std::int32_t NumberRaisedBy(Call call) {
  try {
    call();
    return 0;
  } catch (const Erro& erro) {
    return erro.Number();
  }
}
// The same for the reading of a VARIANT.
std::int32_t Raised(const VARIANT& variant) {
  return NumberRaisedBy([&] { ToValue(variant); });
}

// Errors of the runtime by their small numbers, as an Erro has them.
constexpr std::int32_t kTypeMismatch = 13;
constexpr std::int32_t kObjectNotSet = 91;
constexpr std::int32_t kNoSuchMember = 438;
// A number that has no text anywhere, with letters among its hexadecimal digits.
constexpr auto kUnknownNumber = static_cast<HRESULT>(0x8004ABCD);

// The text of Windows for a number, in the language of the system.
std::wstring SystemTextOf(HRESULT hr) {
  wchar_t text[512] = {};
  FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, static_cast<DWORD>(hr), 0, text,
                 512, nullptr);
  std::wstring line(text);
  EXPECT_GT(line.size(), 2U);
  return line.substr(0, line.find_last_not_of(L"\r\n ") + 1);
}

// A VARIANT, and the value that the component reads from it.
struct ReadVariant {
  // In letters and digits only: the test is named after it.
  const char* name;
  VARIANT variant;
  Value value;

  friend void PrintTo(const ReadVariant& read, std::ostream* out) { *out << read.name; }
};

class ReadVariants : public testing::TestWithParam<ReadVariant> {};

TEST_P(ReadVariants, HaveTheirValue) { EXPECT_EQ(GetParam().value, ToValue(GetParam().variant)); }

const ReadVariant kReadVariants[] = {
    {"Empty", Of(VT_EMPTY, [](VARIANT&) {}), Empty{}},
    {"Null", Of(VT_NULL, [](VARIANT&) {}), Null{}},
    {"Double", Of(VT_R8, [](VARIANT& v) { v.dblVal = 2.5; }), 2.5},
    {"Date", Of(VT_DATE, [](VARIANT& v) { v.date = 36526.75; }), Date{36526.75}},
    {"NullText", Of(VT_BSTR, [](VARIANT& v) { v.bstrVal = nullptr; }), L""},
    {"Nothing", Of(VT_DISPATCH, [](VARIANT& v) { v.pdispVal = nullptr; }), ObjectRef()},
    {"UnknownThatIsNothing", Of(VT_UNKNOWN, [](VARIANT& v) { v.punkVal = nullptr; }), ObjectRef()},
    // A boolean is true for every number but 0.
    {"True", Of(VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_TRUE; }), true},
    {"OneAsABoolean", Of(VT_BOOL, [](VARIANT& v) { v.boolVal = 1; }), true},
    {"False", Of(VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_FALSE; }), false},
    // An integer of any type becomes one of 32 bits where it fits …
    {"Int8", Of(VT_I1, [](VARIANT& v) { v.cVal = -5; }), std::int32_t{-5}},
    {"UInt8", Of(VT_UI1, [](VARIANT& v) { v.bVal = 200; }), std::int32_t{200}},
    {"Int16", Of(VT_I2, [](VARIANT& v) { v.iVal = -300; }), std::int32_t{-300}},
    {"UInt16", Of(VT_UI2, [](VARIANT& v) { v.uiVal = 60000; }), std::int32_t{60000}},
    {"Int32", Of(VT_I4, [](VARIANT& v) { v.lVal = -7; }), std::int32_t{-7}},
    {"UInt32", Of(VT_UI4, [](VARIANT& v) { v.ulVal = 12; }), std::int32_t{12}},
    {"Int", Of(VT_INT, [](VARIANT& v) { v.intVal = -13; }), std::int32_t{-13}},
    {"UInt", Of(VT_UINT, [](VARIANT& v) { v.uintVal = 14; }), std::int32_t{14}},
    {"Int64", Of(VT_I8, [](VARIANT& v) { v.llVal = -15; }), std::int32_t{-15}},
    {"UInt64", Of(VT_UI8, [](VARIANT& v) { v.ullVal = 16; }), std::int32_t{16}},
    // … otherwise one of 64 bits, and without a sign only beyond these.
    {"LargeUInt32", Of(VT_UI4, [](VARIANT& v) { v.ulVal = 4000000000U; }), std::int64_t{4000000000}},
    {"LargeInt64", Of(VT_I8, [](VARIANT& v) { v.llVal = -5000000000; }), std::int64_t{-5000000000}},
    {"LargeUInt64", Of(VT_UI8, [](VARIANT& v) { v.ullVal = 5000000000U; }), std::int64_t{5000000000}},
    {"LargestUInt64", Of(VT_UI8, [](VARIANT& v) { v.ullVal = std::numeric_limits<ULONGLONG>::max(); }),
     std::numeric_limits<std::uint64_t>::max()},
    // Other numbers keep their types and digits.
    {"Float", Of(VT_R4, [](VARIANT& v) { v.fltVal = 0.1F; }), 0.1F},
    {"Currency", Of(VT_CY, [](VARIANT& v) { v.cyVal.int64 = -123456; }), Currency{-123456}},
    {"Decimal", DecimalOf(DECIMAL_NEG, 3, 1, 2), Decimal{.low = 2, .high = 1, .scale = 3, .negative = true}},
    {"DecimalOfTheLargestScale", DecimalOf(0, 28, 0, 1), Decimal{.low = 1, .scale = 28}},
};
INSTANTIATE_TEST_SUITE_P(, ReadVariants, testing::ValuesIn(kReadVariants),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(VariantToValue, ADecimalWithAnInvalidScaleOrSignIsRefused) {
  EXPECT_EQ(kTypeMismatch, Raised(DecimalOf(0, 29, 0, 1)));
  EXPECT_EQ(kTypeMismatch, Raised(DecimalOf(0x40, 0, 0, 1)));
}

TEST(VariantToValue, ATextKeepsEveryCharacter) {
  const face::Bstr text(std::wstring(L"São\0João", 8));
  EXPECT_EQ(Value(std::wstring(L"São\0João", 8)), ToValue(Of(VT_BSTR, [&](VARIANT& v) { v.bstrVal = text; })));
}

TEST(VariantToValue, AnObjectIsShared) {
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

// A value, and the type of the VARIANT that the component makes of it.
struct WrittenValue {
  const char* name;
  Value value;
  VARTYPE type;

  friend void PrintTo(const WrittenValue& written, std::ostream* out) { *out << written.name; }
};

class WrittenValues : public testing::TestWithParam<WrittenValue> {};

TEST_P(WrittenValues, HaveTheirTypeAndComeBackAsTheSameValue) {
  const ScopedVariant variant(GetParam().value);
  EXPECT_EQ(GetParam().type, (*variant).vt);
  EXPECT_EQ(GetParam().value, ToValue(*variant));
}

const WrittenValue kWrittenValues[] = {
    {"Empty", Value(), VT_EMPTY},
    {"Null", Null{}, VT_NULL},
    {"True", true, VT_BOOL},
    {"False", false, VT_BOOL},
    {"Int32", std::int32_t{-1}, VT_I4},
    {"Int64", std::int64_t{5000000000}, VT_I8},
    {"UInt64", std::numeric_limits<std::uint64_t>::max(), VT_UI8},
    {"Float", 0.1F, VT_R4},
    {"Double", 0.25, VT_R8},
    {"Currency", Currency{-1}, VT_CY},
    {"Decimal", Decimal{.low = 5, .high = 4294967295U, .scale = 28, .negative = true}, VT_DECIMAL},
    {"Date", Date{-1.5}, VT_DATE},
    {"Text", L"ação", VT_BSTR},
    {"TextWithAZero", std::wstring(L"a\0b", 3), VT_BSTR},
    {"Nothing", ObjectRef(), VT_DISPATCH},
};
INSTANTIATE_TEST_SUITE_P(, WrittenValues, testing::ValuesIn(kWrittenValues),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(VariantFromValue, OfSmallNumbersKeepsTheTypeOfTheValue) {
  EXPECT_EQ(VT_I4, (*ScopedVariant(Value(std::int32_t{1}))).vt);
  EXPECT_EQ(VT_I8, (*ScopedVariant(Value(std::int64_t{1}))).vt);
  EXPECT_EQ(VT_UI8, (*ScopedVariant(Value(std::uint64_t{1}))).vt);
}

TEST(VariantFromValue, HasAutomationsTrueAndNothing) {
  EXPECT_EQ(VARIANT_TRUE, (*ScopedVariant(Value(true))).boolVal);
  EXPECT_EQ(nullptr, (*ScopedVariant(Value(ObjectRef()))).pdispVal);
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
      return held_.CopyTo(result);
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
  const auto raised = [](const Value& value) { return NumberRaisedBy([&] { values::ToTextOrEmpty(value); }); };
  const auto without = face::ForeignObject::With(L"Nome", L"Ana");
  EXPECT_EQ(kNoSuchMember, raised(WrapDispatch(without.get())));
  EXPECT_EQ(kNoSuchMember, raised(WrapDispatch(WithDefault(face::Var(without.get())).get())));
  EXPECT_EQ(kObjectNotSet, raised(WrapDispatch(nullptr)));
  EXPECT_EQ(kObjectNotSet, raised(WrapDispatch(WithDefault(face::Var::Nothing()).get())));
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
  EXPECT_EQ(3704, NumberOf(face::ControlError(3704)));
  EXPECT_EQ(13, NumberOf(face::kTypeMismatch));
  EXPECT_EQ(DB_E_ERRORSINCOMMAND, NumberOf(DB_E_ERRORSINCOMMAND));
  EXPECT_EQ(face::ControlError(3704), HresultOf(3704));
  EXPECT_EQ(face::kReportError, HresultOf(face::kReportError));
}

TEST(ErrorNumbers, ANumberThatIsNoErrorStillFails) {
  EXPECT_EQ(E_FAIL, HresultOf(0));
  EXPECT_EQ(E_FAIL, HresultOf(0x10000));
  EXPECT_EQ(static_cast<HRESULT>(0x800AFFFF), HresultOf(0xFFFF));
}

TEST(ErrorOfACallByName, TakesNumberSourceAndDescriptionAndClearsTheExcepInfo) {
  EXCEPINFO info = {};
  face::Raise(&info, face::ControlError(3021), L"ADODB.Field", L"Sem registro.");
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
  info->scode = face::kSiblingError;
  info->bstrDescription = SysAllocString(L"Tardia.");
  return S_OK;
}

TEST(ErrorOfACallByName, AsksForDeferredDetails) {
  EXCEPINFO info = {};
  info.pfnDeferredFillIn = FillInLate;
  const Erro erro = ErrorOf(DISP_E_EXCEPTION, info);
  EXPECT_EQ(face::kSiblingError, erro.Number());
  EXPECT_EQ(L"Tardia.", erro.Description());
}

// The numbers of an EXCEPINFO, and the error that the component makes of it when it has no description.
struct Undescribed {
  const char* name;
  SCODE scode;
  WORD wCode;
  std::int32_t number;
  std::wstring description;

  friend void PrintTo(const Undescribed& info, std::ostream* out) { *out << info.name; }
};

class UndescribedErrors : public testing::TestWithParam<Undescribed> {};

TEST_P(UndescribedErrors, HaveTheTextOfTheirNumber) {
  for (const wchar_t* empty : {static_cast<const wchar_t*>(nullptr), L""}) {
    EXCEPINFO info = {};
    info.wCode = GetParam().wCode;
    face::Raise(&info, GetParam().scode, L"Cliente", empty);
    const Erro erro = ErrorOf(DISP_E_EXCEPTION, info);
    EXPECT_EQ(GetParam().number, erro.Number());
    EXPECT_EQ(L"Cliente", erro.Source());
    EXPECT_EQ(GetParam().description, erro.Description());
  }
}

const Undescribed kUndescribed[] = {
    {"TypeMismatch", face::kTypeMismatch, 0, kTypeMismatch, L"Tipos incompatíveis"},
    {"NoSuchMember", face::kNoSuchMember, 0, kNoSuchMember, L"O objeto não aceita esta propriedade ou método"},
    {"ObjectNotSetAsAnOldCode", 0, kObjectNotSet, kObjectNotSet,
     L"A variável do objeto ou a variável do bloco 'With' não foi definida"},
    {"TypeMismatchOfAutomation", DISP_E_TYPEMISMATCH, 0, DISP_E_TYPEMISMATCH, L"Tipos incompatíveis"},
    {"AccessDenied", E_ACCESSDENIED, 0, E_ACCESSDENIED, SystemTextOf(E_ACCESSDENIED)},
    {"NumberWithoutText", face::kNumberWithoutText, 0, face::kNumberWithoutText, L"Erro de automação (80047777)"},
    {"OldCodeWithoutText", 0, 0x4321, 0x4321, L"Erro de automação (800A4321)"},
};
INSTANTIATE_TEST_SUITE_P(, UndescribedErrors, testing::ValuesIn(kUndescribed),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ErrorOfACallByName, WithoutASourceHasNone) {
  EXCEPINFO info = {};
  info.scode = face::kTypeMismatch;
  const Erro erro = ErrorOf(DISP_E_EXCEPTION, info);
  EXPECT_EQ(L"", erro.Source());
  EXPECT_EQ(L"Tipos incompatíveis", erro.Description());
}

// A call that fails without an EXCEPINFO, and the error that the component makes of it.
struct BareFailure {
  const char* name;
  HRESULT hr;
  std::int32_t number;
  std::wstring description;

  friend void PrintTo(const BareFailure& failure, std::ostream* out) { *out << failure.name; }
};

class BareFailures : public testing::TestWithParam<BareFailure> {};

TEST_P(BareFailures, AreErrorsOfTheComponentsRuntime) {
  EXCEPINFO info = {};
  const Erro erro = ErrorOf(GetParam().hr, info);
  EXPECT_EQ(GetParam().number, erro.Number());
  EXPECT_EQ(L"KodraRpt", erro.Source());
  EXPECT_EQ(GetParam().description, erro.Description());
}

const BareFailure kBareFailures[] = {
    {"UnknownName", DISP_E_UNKNOWNNAME, kNoSuchMember, L"O objeto não aceita esta propriedade ou método"},
    {"MemberNotFound", DISP_E_MEMBERNOTFOUND, kNoSuchMember, L"O objeto não aceita esta propriedade ou método"},
    {"TypeMismatch", DISP_E_TYPEMISMATCH, kTypeMismatch, L"Tipos incompatíveis"},
    {"Overflow", DISP_E_OVERFLOW, 6, L"Estouro"},
    {"OutOfMemory", E_OUTOFMEMORY, 7, L"Memória insuficiente"},
    {"InvalidUseOfNull", face::kInvalidUseOfNull, 94, L"Uso de 'Null' inválido"},
    {"NumberWithoutText", kUnknownNumber, kUnknownNumber, L"Erro de automação (8004ABCD)"},
};
INSTANTIATE_TEST_SUITE_P(, BareFailures, testing::ValuesIn(kBareFailures),
                         [](const auto& info) { return std::string(info.param.name); });

// An object that supports error information or does not.
class ErrorInfoSupport final : public ISupportErrorInfo {
 public:
  explicit ErrorInfoSupport(HRESULT answer) : answer_(answer) {}
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

constexpr const wchar_t* kConnectionSource = L"ADODB.Connection";

TEST(ErrorOfACallByVtable, IsTakenFromTheErrorInformationOfTheObject) {
  ErrorInfoSupport object(S_OK);
  face::LeaveErrorInfo(kConnectionSource, L"Falhou.");
  const Erro erro = ErrorOf(DB_SEC_E_AUTH_FAILED, &object, IID_IDispatch);
  EXPECT_EQ(DB_SEC_E_AUTH_FAILED, erro.Number());
  EXPECT_EQ(kConnectionSource, erro.Source());
  EXPECT_EQ(L"Falhou.", erro.Description());
}

TEST(ErrorOfACallByVtable, WithoutADescriptionHasTheTextOfItsNumber) {
  ErrorInfoSupport object(S_OK);
  for (const wchar_t* empty : {static_cast<const wchar_t*>(nullptr), L""}) {
    face::LeaveErrorInfo(kConnectionSource, empty);
    const Erro erro = ErrorOf(E_ACCESSDENIED, &object, IID_IDispatch);
    EXPECT_EQ(E_ACCESSDENIED, erro.Number());
    EXPECT_EQ(kConnectionSource, erro.Source());
    EXPECT_EQ(SystemTextOf(E_ACCESSDENIED), erro.Description());
  }
}

TEST(ErrorOfACallByVtable, IsNotTakenFromAnObjectThatDoesNotSupportIt) {
  ErrorInfoSupport object(S_FALSE);
  face::LeaveErrorInfo(kConnectionSource, L"Falhou.");
  const Erro erro = ErrorOf(DISP_E_TYPEMISMATCH, &object, IID_IDispatch);
  EXPECT_EQ(L"KodraRpt", erro.Source());
  EXPECT_EQ(L"Tipos incompatíveis", erro.Description());
  SetErrorInfo(0, nullptr);
}

TEST(ErrorOfACallByVtable, WithoutErrorInformationIsTheNumberAlone) {
  ErrorInfoSupport object(S_OK);
  SetErrorInfo(0, nullptr);
  EXPECT_EQ(L"Erro de automação (8004ABCD)", ErrorOf(kUnknownNumber, &object, IID_IDispatch).Description());
  EXPECT_EQ(7, ErrorOf(E_OUTOFMEMORY, nullptr, IID_NULL).Number());
}

TEST(LateBoundObject, RaisesWhatTheObjectRaises) {
  const auto object = face::ForeignObject::With(L"Nome", face::Raising(face::kRaisedNumber, L"Cliente", L"Recusado."));
  try {
    WrapDispatch(object.get())->Get(L"Nome");
    FAIL();
  } catch (const Erro& erro) {
    EXPECT_EQ(face::kRaisedNumber, erro.Number());
    EXPECT_EQ(L"Cliente", erro.Source());
    EXPECT_EQ(L"Recusado.", erro.Description());
  }
}

TEST(LateBoundObject, HasNoMemberThatTheObjectDoesNotHave) {
  const auto object = face::ForeignObject::With(L"Nome", L"Ana");
  const auto late = WrapDispatch(object.get());
  EXPECT_EQ(kNoSuchMember, NumberRaisedBy([&] { late->Get(L"Idade"); }));
  EXPECT_EQ(kNoSuchMember, NumberRaisedBy([&] { late->Let(L"Idade", Value(L"x")); }));
  EXPECT_EQ(kNoSuchMember, NumberRaisedBy([&] { late->Let(L"Nome", Value(L"x")); }));
  EXPECT_EQ(kNoSuchMember, NumberRaisedBy([&] { late->Call(L"Idade", {}); }));
}

// An object whose every member is one method, which gets its arguments from the last to the first.
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
  EXPECT_EQ(E_FAIL, NumberRaisedBy([&] { WrapDispatch(method.get())->CallByReference(L"Metodo", first, {}); }));
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
    EXPECT_EQ(kNoSuchMember, NumberRaisedBy([&] { WrapDispatch(object.get())->Get(longer); }));
  }
}

TEST(LateBoundObject, OverNothingIsNothing) {
  EXPECT_EQ(nullptr, WrapDispatch(nullptr));
  EXPECT_FALSE(DispatchOf(nullptr));
}

}  // namespace
}  // namespace kodra::ado
