// ADO as a late-bound client uses it: by member name through IDispatch, and by the ids of its older interfaces.
#include <initializer_list>
#include <vector>

#include "tests/wine/ado_support.h"

namespace kodra::wine {
namespace {

// The result of a call by name.
struct Outcome {
  HRESULT hr = E_FAIL;
  Variant result;
  HRESULT errorCode = S_OK;
  std::wstring source;
  std::wstring description;
};

DISPID IdOf(IDispatch* object, const wchar_t* name) {
  DISPID id = DISPID_UNKNOWN;
  LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
  EXPECT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
  return id;
}

Outcome InvokeId(IDispatch* object, DISPID id, WORD flags, std::initializer_list<Variant> arguments) {
  std::vector<VARIANT> reversed;
  for (const Variant& argument : arguments) reversed.insert(reversed.begin(), argument);
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS params{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
    params.rgdispidNamedArgs = &put;
    params.cNamedArgs = 1;
  }
  Outcome outcome;
  EXCEPINFO info{};
  outcome.hr = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, outcome.result.put(), &info, nullptr);
  if (outcome.hr == DISP_E_EXCEPTION) {
    outcome.errorCode = info.scode;
    if (info.bstrSource != nullptr) outcome.source = info.bstrSource;
    if (info.bstrDescription != nullptr) outcome.description = info.bstrDescription;
  }
  SysFreeString(info.bstrSource);
  SysFreeString(info.bstrDescription);
  SysFreeString(info.bstrHelpFile);
  return outcome;
}

Variant Get(IDispatch* object, const wchar_t* name, std::initializer_list<Variant> arguments = {}) {
  Outcome outcome = InvokeId(object, IdOf(object, name), DISPATCH_PROPERTYGET, arguments);
  EXPECT_EQ(S_OK, outcome.hr) << std::hex << outcome.hr;
  return outcome.result;
}
Variant Call(IDispatch* object, const wchar_t* name, std::initializer_list<Variant> arguments = {}) {
  Outcome outcome = InvokeId(object, IdOf(object, name), DISPATCH_METHOD, arguments);
  EXPECT_EQ(S_OK, outcome.hr) << std::hex << outcome.hr;
  return outcome.result;
}

class AdoDispatch : public AdoTest {
 protected:
  static com_ptr<IDispatch> ByProgId(const wchar_t* progId) {
    CLSID id{};
    EXPECT_EQ(S_OK, CLSIDFromProgID(progId, &id));
    return Create<IDispatch>(id);
  }
  static com_ptr<IDispatch> RowsOf(const wchar_t* statement) {
    auto rows = ByProgId(L"ADODB.Recordset");
    Call(rows.get(), L"Open", {statement, ConnectionString().c_str(), LONG{0}, LONG{1}, LONG{1}});
    return rows;
  }
};

TEST_F(AdoDispatch, EveryClassIsMadeByItsProgIdWithAndWithoutTheVersion) {
  for (const wchar_t* progId :
       {L"ADODB.Connection", L"ADODB.Recordset", L"ADODB.Command", L"ADODB.Parameter", L"ADODB.Connection.2.8",
        L"ADODB.Recordset.2.8", L"ADODB.Command.2.8", L"ADODB.Parameter.2.8"}) {
    auto object = ByProgId(progId);
    ASSERT_TRUE(object);
    EXPECT_EQ(0u, ReleaseLast(object));
  }
}

TEST_F(AdoDispatch, NamesAreFoundWithoutRegardToLetterCase) {
  const auto rows = ByProgId(L"ADODB.Recordset");
  EXPECT_EQ(IdOf(rows.get(), L"EOF"), IdOf(rows.get(), L"eof"));
  DISPID id = 0;
  wchar_t unknown[] = L"NaoExiste";
  LPOLESTR names[] = {unknown};
  EXPECT_EQ(DISP_E_UNKNOWNNAME, rows->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
}

TEST_F(AdoDispatch, ACommandReturnsItsTypeName) {
  const auto command = ByProgId(L"ADODB.Command");
  com_ptr<ITypeInfo> type;
  ASSERT_EQ(S_OK, command->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.put()));
  Bstr name;
  ASSERT_EQ(S_OK, type->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
  EXPECT_EQ(L"_Command", name.Text());
}

TEST_F(AdoDispatch, TheDefaultPropertyOfARecordsetIsAField) {
  OpenWithDepartments();
  const auto rows = RowsOf(L"select COD, DESCR from DEPTO order by COD");
  const Outcome byName = InvokeId(rows.get(), DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {L"DESCR"});
  ASSERT_EQ(S_OK, byName.hr);
  ASSERT_EQ(VT_DISPATCH, byName.result.Type());
  EXPECT_EQ(L"DESCR", Get(byName.result.Object(), L"Name").Text());
  const Outcome value = InvokeId(byName.result.Object(), DISPID_VALUE, DISPATCH_PROPERTYGET, {});
  EXPECT_EQ(L"Administra\u00e7\u00e3o", value.result.Text());
  const Outcome byNumber = InvokeId(rows.get(), DISPID_VALUE, DISPATCH_PROPERTYGET, {LONG{0}});
  ASSERT_EQ(S_OK, byNumber.hr);
  EXPECT_EQ(L"COD", Get(byNumber.result.Object(), L"Name").Text());
}

TEST_F(AdoDispatch, AnErrorCarriesItsNumberSourceAndDescription) {
  OpenWithDepartments();
  const auto rows = RowsOf(L"select COD from DEPTO");
  const Variant fields = Get(rows.get(), L"Fields");
  for (IDispatch* object : {rows.get(), fields.Object()}) {
    const Outcome outcome = InvokeId(object, DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {L"NADA"});
    EXPECT_EQ(DISP_E_EXCEPTION, outcome.hr);
    EXPECT_EQ(static_cast<HRESULT>(0x800A0CC1), outcome.errorCode);
    EXPECT_EQ(L"ADODB.Fields", outcome.source);
    EXPECT_EQ(L"Item cannot be found in the collection corresponding to the requested name or ordinal.",
              outcome.description);
    EXPECT_EQ(VT_EMPTY, outcome.result.Type());
  }
}

TEST_F(AdoDispatch, AssigningToARecordsetsItemAssignsTheField) {
  const auto rows = ByProgId(L"ADODB.Recordset");
  const Variant fields = Get(rows.get(), L"Fields");
  Call(fields.Object(), L"Append", {L"A", LONG{adVarChar}, LONG{5}});
  Call(fields.Object(), L"Append", {L"B", LONG{adInteger}});
  Call(rows.get(), L"Open");
  Call(rows.get(), L"AddNew");
  EXPECT_EQ(S_OK, InvokeId(rows.get(), DISPID_VALUE, DISPATCH_PROPERTYPUT, {L"A", L"x"}).hr);
  EXPECT_EQ(S_OK, InvokeId(fields.Object(), DISPID_VALUE, DISPATCH_PROPERTYPUT, {LONG{1}, LONG{7}}).hr);
  Call(rows.get(), L"Update");
  EXPECT_EQ(L"x",
            Get(InvokeId(rows.get(), DISPID_VALUE, DISPATCH_PROPERTYGET, {L"A"}).result.Object(), L"Value").Text());
  EXPECT_EQ(7,
            Get(InvokeId(rows.get(), DISPID_VALUE, DISPATCH_PROPERTYGET, {L"B"}).result.Object(), L"Value").Number());
  const Outcome wrong = InvokeId(rows.get(), DISPID_VALUE, DISPATCH_PROPERTYPUT, {L"A", L"longo demais"});
  EXPECT_EQ(DISP_E_EXCEPTION, wrong.hr);
  EXPECT_EQ(static_cast<HRESULT>(0x80040E21), wrong.errorCode);
  EXPECT_EQ(L"Microsoft Cursor Engine", wrong.source);
  EXPECT_EQ(L"Multiple-step operation generated errors. Check each status value.", wrong.description);
}

TEST_F(AdoDispatch, ACollectionIsEnumerated) {
  OpenWithDepartments();
  const auto rows = RowsOf(L"select COD, DESCR, ANDAR from DEPTO");
  const Variant fields = Get(rows.get(), L"Fields");
  const Outcome asked = InvokeId(fields.Object(), DISPID_NEWENUM, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {});
  ASSERT_EQ(S_OK, asked.hr);
  ASSERT_EQ(VT_UNKNOWN, asked.result.Type());
  const auto walker = com_ptr<IUnknown>(asked.result.Object()).as<IEnumVARIANT>();
  ASSERT_TRUE(walker);
  std::wstring names;
  Variant member;
  ULONG fetched = 0;
  while (walker->Next(1, member.put(), &fetched) == S_OK) names += Get(member.Object(), L"Name").Text() + L";";
  EXPECT_EQ(L"COD;DESCR;ANDAR;", names);
}

template <class... Interfaces>
void AnswersTo(const com_ptr<IDispatch>& object) {
  const auto identity = object.as<IUnknown>();
  const auto same = [&](IUnknown* other) {
    return other != nullptr && com_ptr<IUnknown>(other).as<IUnknown>().get() == identity.get();
  };
  EXPECT_TRUE((... && same(object.as<Interfaces>().get())));
  EXPECT_FALSE(object.as<IPersist>());
}

TEST_F(AdoDispatch, AnswersToTheIdsOfItsOlderInterfaces) {
  AnswersTo<_Connection, Connection15, _ADO, ISupportErrorInfo>(ByProgId(L"ADODB.Connection"));
  AnswersTo<_Recordset, Recordset21, Recordset20, Recordset15, _ADO, ISupportErrorInfo>(ByProgId(L"ADODB.Recordset"));
  AnswersTo<_Command, Command25, Command15, _ADO, ISupportErrorInfo>(ByProgId(L"ADODB.Command"));
  AnswersTo<_Parameter, _ADO, ISupportErrorInfo>(ByProgId(L"ADODB.Parameter"));
  const Variant fields = Get(ByProgId(L"ADODB.Recordset").get(), L"Fields");
  AnswersTo<Fields, Fields20, Fields15, _Collection, ISupportErrorInfo>(com_ptr<IDispatch>(fields.Object()));
}

}  // namespace
}  // namespace kodra::wine
