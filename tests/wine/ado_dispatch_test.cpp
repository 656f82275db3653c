// ADO as a late-bound client uses it: by member name through IDispatch, in a script, and by the ids of its older
// interfaces.
#include <oledberr.h>

#include "tests/wine/ado_support.h"
#include "tests/wine/commands.h"

namespace kodra::face {
namespace {

class AdoDispatch : public AdoTest {
 protected:
  static Ref<IDispatch> RowsOf(const wchar_t* statement) {
    auto rows = Create(L"ADODB.Recordset");
    Got(Call(rows, L"Open",
             {statement, ConnectionString(), int{adOpenForwardOnly}, int{adLockReadOnly}, int{adCmdText}}));
    return rows;
  }
  // The default property of a recordset or of a collection, which a script reads as `rows("NOME")`.
  static Outcome Default(const Ref<IDispatch>& object, const std::vector<Var>& arguments) {
    return Invoke(object.get(), DISPID_VALUE, DISPATCH_PROPERTYGET, arguments);
  }
  static Outcome PutDefault(const Ref<IDispatch>& object, const std::vector<Var>& arguments) {
    return Invoke(object.get(), DISPID_VALUE, DISPATCH_PROPERTYPUT, arguments);
  }
};

TEST_F(AdoDispatch, EveryClassIsCreatedByItsProgIdWithAndWithoutTheVersion) {
  for (const wchar_t* progId :
       {L"ADODB.Connection", L"ADODB.Recordset", L"ADODB.Command", L"ADODB.Parameter", L"ADODB.Connection.2.8",
        L"ADODB.Recordset.2.8", L"ADODB.Command.2.8", L"ADODB.Parameter.2.8"}) {
    auto object = Create(progId);
    ASSERT_TRUE(object) << testing::PrintToString(std::wstring(progId));
    EXPECT_EQ(0U, object.Release());
  }
}

TEST_F(AdoDispatch, NamesAreFoundWithoutRegardToLetterCase) {
  const auto rows = Create(L"ADODB.Recordset");
  EXPECT_NE(DISPID_UNKNOWN, IdOf(rows.get(), L"EOF"));
  EXPECT_EQ(IdOf(rows.get(), L"EOF"), IdOf(rows.get(), L"eof"));
  DISPID id = 0;
  wchar_t unknown[] = L"NaoExiste";
  LPOLESTR names[] = {unknown};
  EXPECT_EQ(DISP_E_UNKNOWNNAME, rows->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
}

TEST_F(AdoDispatch, ACommandReturnsItsTypeName) {
  const auto command = Create(L"ADODB.Command");
  Ref<ITypeInfo> type;
  ASSERT_EQ(S_OK, command->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.put()));
  Bstr name;
  ASSERT_EQ(S_OK, type->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
  EXPECT_EQ(L"_Command", name.text());
}

TEST_F(AdoDispatch, TheDefaultPropertyOfARecordsetIsAField) {
  OpenWithDepartments();
  const auto rows = RowsOf(L"select COD, DESCR from DEPTO order by COD");
  const Var byName =
      Got(Invoke(rows.get(), DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, std::vector<Var>{L"DESCR"}));
  ASSERT_EQ(VT_DISPATCH, byName.type());
  EXPECT_EQ(L"DESCR", Got(Get(byName.object(), L"Name")).text());
  EXPECT_EQ(L"Administração", Got(Default(byName.object(), {})).text());
  const Var byNumber = Got(Default(rows, {0}));
  ASSERT_EQ(VT_DISPATCH, byNumber.type());
  EXPECT_EQ(L"COD", Got(Get(byNumber.object(), L"Name")).text());
}

TEST_F(AdoDispatch, AnErrorCarriesItsNumberSourceAndDescription) {
  OpenWithDepartments();
  const auto rows = RowsOf(L"select COD from DEPTO");
  for (const auto& object : {rows, Got(Get(rows, L"Fields")).object()}) {
    const Outcome outcome =
        Invoke(object.get(), DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, std::vector<Var>{L"NADA"});
    EXPECT_EQ(DISP_E_EXCEPTION, outcome.hr);
    EXPECT_EQ((Failure{ControlError(adErrItemNotFound), L"ADODB.Fields",
                       L"Item cannot be found in the collection corresponding to the requested name or ordinal."}),
              outcome.failure);
    EXPECT_EQ(VT_EMPTY, outcome.value.type());
  }
}

TEST_F(AdoDispatch, AssigningToARecordsetsItemAssignsTheField) {
  const auto rows = Create(L"ADODB.Recordset");
  const auto fields = Got(Get(rows, L"Fields")).object();
  Got(Call(fields, L"Append", {L"A", int{adVarChar}, 5}));
  Got(Call(fields, L"Append", {L"B", int{adInteger}}));
  Got(Call(rows, L"Open"));
  Got(Call(rows, L"AddNew"));
  EXPECT_EQ(S_OK, PutDefault(rows, {L"A", L"x"}).hr);
  EXPECT_EQ(S_OK, PutDefault(fields, {1, 7}).hr);
  Got(Call(rows, L"Update"));
  EXPECT_EQ(L"x", Got(Get(Got(Default(rows, {L"A"})).object(), L"Value")).text());
  EXPECT_EQ(7, Got(Get(Got(Default(rows, {L"B"})).object(), L"Value")).number());
  const Outcome wrong = PutDefault(rows, {L"A", L"longo demais"});
  EXPECT_EQ(DISP_E_EXCEPTION, wrong.hr);
  EXPECT_EQ((Failure{DB_E_ERRORSOCCURRED, L"Microsoft Cursor Engine",
                     L"Multiple-step operation generated errors. Check each status value."}),
            wrong.failure);
}

TEST_F(AdoDispatch, ACollectionIsEnumerated) {
  OpenWithDepartments();
  const auto rows = RowsOf(L"select COD, DESCR, ANDAR from DEPTO");
  const auto fields = Got(Get(rows, L"Fields")).object();
  const Var result = Got(Invoke(fields.get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET | DISPATCH_METHOD));
  ASSERT_EQ(VT_UNKNOWN, result.type());
  const auto enumerator = Ref<IUnknown>::Sharing(result.raw().punkVal).As<IEnumVARIANT>();
  ASSERT_TRUE(enumerator);
  std::wstring names;
  ULONG fetched = 0;
  for (Var member; enumerator->Next(1, member.put(), &fetched) == S_OK;)
    names += Got(Get(member.object(), L"Name")).text().value() + L";";
  EXPECT_EQ(L"COD;DESCR;ANDAR;", names);
}

// Expects that an object has these interfaces, with one identity, and not every other one.
template <class... Interfaces>
void ExpectInterfaces(const Ref<IDispatch>& object) {
  const auto identity = object.As<IUnknown>();
  const auto same = [&](IUnknown* other) {
    return other != nullptr && Ref<IUnknown>::Sharing(other).As<IUnknown>().get() == identity.get();
  };
  EXPECT_TRUE((... && same(object.As<Interfaces>().get())));
  EXPECT_FALSE(object.As<IPersist>());
}

TEST_F(AdoDispatch, AnswersToTheIdsOfItsOlderInterfaces) {
  ExpectInterfaces<_Connection, Connection15, _ADO, ISupportErrorInfo>(Create(L"ADODB.Connection"));
  ExpectInterfaces<_Recordset, Recordset21, Recordset20, Recordset15, _ADO, ISupportErrorInfo>(
      Create(L"ADODB.Recordset"));
  ExpectInterfaces<_Command, Command25, Command15, _ADO, ISupportErrorInfo>(Create(L"ADODB.Command"));
  ExpectInterfaces<_Parameter, _ADO, ISupportErrorInfo>(Create(L"ADODB.Parameter"));
  ExpectInterfaces<Fields, Fields20, Fields15, _Collection, ISupportErrorInfo>(
      Got(Get(Create(L"ADODB.Recordset"), L"Fields")).object());
}

TEST_F(AdoDispatch, EveryIdiomOfAScriptWorks) {
  EXPECT_EQ(
      "state 1\n"
      "changed 2\n"
      "COD DESCR ANDAR 3 COD\n"
      "00001 Arquivo 1 00001\n"
      "Biblioteca True False\n"
      "end True\n"
      "00001\n"
      "0\n"
      "00001\n"
      "00002\n"
      "3\n"
      "1 00002 Biblioteca\n"
      "Arquivo\n"
      "2 True\n"
      "1 1 00002 True\n"
      "x7 2 True\n"
      "y4\n"
      "5000000000\n"
      "80040E14 Microsoft OLE DB Provider for ODBC Drivers\n"
      "1 1 True\n"
      "3704 ADODB.Recordset: Operation is not allowed when the object is closed.\n"
      "3265\n"
      "80004001 ADODB: Recordset.Sort is not implemented by this ADO over ODBC.\n"
      "0 0\n",
      OutputOf(L"cscript.exe //nologo scripts\\ado.vbs " + DatabasePath()));
}

}  // namespace
}  // namespace kodra::face
