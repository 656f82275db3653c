// The objects of kodra_siblings.dll: collections, objects that read each other, and the log file.
#include <algorithm>
#include <set>

#include "ado/adoint.h"
#include "tests/rows/module_rows.h"
#include "tests/wine/commands.h"
#include "tests/wine/foreign_object.h"

namespace kodra::siblings {
namespace {

using face::Call;
using face::Create;
using face::Failure;
using face::Get;
using face::Got;
using face::Put;
using face::Ref;
using face::TemporaryFile;
using face::Var;

// The first module with subordinates.
std::wstring SomeParent() { return rows::All<testbed::CaixaSubordinada>().front().numCaixa; }

std::vector<std::wstring> SubordinatesOf(const std::wstring& parent) {
  std::set<std::wstring> codes;
  for (const testbed::CaixaSubordinada& subordinate : rows::All<testbed::CaixaSubordinada>()) {
    if (subordinate.numCaixa == parent) codes.insert(rows::CodeOf(subordinate));
  }
  return {codes.begin(), codes.end()};
}

std::ptrdiff_t EventsOfKind(const wchar_t* kind) {
  const auto& events = rows::All<testbed::Evento>();
  return std::count_if(events.begin(), events.end(), [&](const testbed::Evento& e) { return e.tipoEvento == kind; });
}

Ref<IDispatch> Filter(const std::wstring& parent, int closed) {
  const auto filter = Create(L"KodraBsnV3.ModulosFiltro");
  EXPECT_EQ(Put(filter, L"NumCaixa", parent).hr, S_OK);
  EXPECT_EQ(Put(filter, L"Fechados", closed).hr, S_OK);
  return filter;
}

Ref<IDispatch> Subordinates(const std::wstring& parent) {
  const auto reader = Create(L"KodraBsnV3.ObtedorDeModulos");
  EXPECT_EQ(Put(reader, L"StringConexao", face::ArchiveConnection()).hr, S_OK);
  return Got(Call(reader, L"ObtemSubordinados", {Var(Filter(parent, 0).get())})).object();
}

std::wstring NumCaixaOf(const VARIANT& module) {
  if (module.vt != VT_DISPATCH) return L"(no object)";
  return Got(Get(Ref<IDispatch>::Sharing(module.pdispVal), L"NumCaixa")).text().value();
}

// The enumerator that `For Each` asks a collection for.
Ref<IEnumVARIANT> EnumeratorOf(const Ref<IDispatch>& collection) {
  const Var result = Got(face::Invoke(collection.get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET | DISPATCH_METHOD));
  EXPECT_EQ(result.type(), VT_UNKNOWN);
  if (result.type() != VT_UNKNOWN) return {};
  return Ref<IUnknown>::Sharing(result.raw().punkVal).As<IEnumVARIANT>();
}

TEST(SiblingCollections, CountTheirItemsAndReturnThemFromOneOn) {
  const std::wstring parent = SomeParent();
  const auto expected = SubordinatesOf(parent);
  const auto collection = Subordinates(parent);
  ASSERT_TRUE(collection);
  ASSERT_EQ(Got(Get(collection, L"Count")).number(), static_cast<int>(expected.size()));
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const auto module = Got(Call(collection, L"Item", {static_cast<int>(i) + 1})).object();
    EXPECT_EQ(Got(Get(module, L"NumCaixa")).text(), expected[i]);
  }
}

TEST(SiblingCollections, RaiseForAnIndexThatTheyDoNotHave) {
  const auto collection = Subordinates(SomeParent());
  for (const int index : {0, -1, 1000}) {
    EXPECT_EQ(Call(collection, L"Item", {index}).failure,
              (Failure{face::kSubscriptOutOfRange, L"KodraRpt", L"Subscrito fora do intervalo"}));
  }
}

TEST(SiblingCollections, AreEnumeratedInTheirOrder) {
  const std::wstring parent = SomeParent();
  const auto enumerator = EnumeratorOf(Subordinates(parent));
  ASSERT_TRUE(enumerator);
  std::vector<std::wstring> codes;
  for (Var module; enumerator->Next(1, module.put(), nullptr) == S_OK;) codes.push_back(NumCaixaOf(module.raw()));
  EXPECT_EQ(codes, SubordinatesOf(parent));
}

TEST(SiblingCollections, HaveAnEnumeratorThatCanSkipRestartAndBeCloned) {
  const std::wstring parent = SomeParent();
  const auto expected = SubordinatesOf(parent);
  ASSERT_EQ(expected.size(), 3U);
  auto enumerator = EnumeratorOf(Subordinates(parent));
  ASSERT_TRUE(enumerator);
  VARIANT items[4];
  ULONG count = 9;
  EXPECT_EQ(enumerator->Next(2, items, nullptr), E_POINTER);
  EXPECT_EQ(enumerator->Skip(2), S_OK);
  Ref<IEnumVARIANT> clone;
  EXPECT_EQ(enumerator->Clone(clone.put()), S_OK);
  EXPECT_EQ(enumerator->Next(4, items, &count), S_FALSE);
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(NumCaixaOf(items[0]), expected[2]);
  VariantClear(&items[0]);
  EXPECT_EQ(enumerator->Skip(1), S_FALSE);
  EXPECT_EQ(enumerator->Reset(), S_OK);
  EXPECT_EQ(enumerator->Next(3, items, &count), S_OK);
  EXPECT_EQ(NumCaixaOf(items[0]), expected[0]);
  for (int i = 0; i < 3; ++i) VariantClear(&items[i]);
  EXPECT_EQ(enumerator.Release(), 0U);
  EXPECT_EQ(clone->Next(1, items, nullptr), S_OK);
  EXPECT_EQ(NumCaixaOf(items[0]), expected[2]);
  VariantClear(&items[0]);
  EXPECT_EQ(clone.Release(), 0U);
}

TEST(SiblingCollections, AreTheOnlyObjectsThatCanBeEnumerated) {
  const auto filter = Filter(L"AA001", 1);
  for (const DISPID id : {DISPID_NEWENUM, DISPID_VALUE}) {
    EXPECT_EQ(face::Invoke(filter.get(), id, DISPATCH_PROPERTYGET).hr, DISP_E_MEMBERNOTFOUND);
  }
}

TEST(ObtedorDeModulos, ReturnsNothingForAModuleThatTheArchiveDoesNotHave) {
  const auto reader = Create(L"KodraBsnV3.ObtedorDeModulos");
  EXPECT_EQ(Put(reader, L"StringConexao", face::ArchiveConnection()).hr, S_OK);
  const Var none = Got(Call(reader, L"ObtemSubordinados", {Var(Filter(L"ZZ999", 1).get())}));
  EXPECT_EQ(none.type(), VT_DISPATCH);
  EXPECT_EQ(none.raw().pdispVal, nullptr);
}

TEST(ObtedorDeModulos, ReadsThroughAnAdoConnectionThatItLeavesOpen) {
  const std::wstring parent = SomeParent();
  const auto connection = Create(L"ADODB.Connection");
  ASSERT_EQ(Call(connection, L"Open", {face::ArchiveConnection()}).hr, S_OK);
  const auto reader = Create(L"KodraBsnV3.ObtedorDeModulos");
  EXPECT_EQ(Put(reader, L"StringConexao", L"Driver={SQLite3};Database=/none.db").hr, S_OK);
  EXPECT_EQ(Put(reader, L"Conexao", Var(connection.get())).hr, S_OK);
  EXPECT_EQ(Got(Get(reader, L"Conexao")).object().get(), connection.get());
  const auto collection = Got(Call(reader, L"ObtemSubordinados", {Var(Filter(parent, 0).get())})).object();
  ASSERT_TRUE(collection);
  const auto expected = SubordinatesOf(parent);
  ASSERT_EQ(Got(Get(collection, L"Count")).number(), static_cast<int>(expected.size()));
  EXPECT_EQ(Got(Get(Got(Call(collection, L"Item", {1})).object(), L"NumCaixa")).text(), expected.front());
  EXPECT_EQ(Got(Get(connection, L"State")).number(), adStateOpen);
}

TEST(ObtedorDeModulos, PassesTheErrorOfTheDatabaseOn) {
  const auto connection = Create(L"ADODB.Connection");  // never opened
  const auto reader = Create(L"KodraBsnV3.ObtedorDeModulos");
  EXPECT_EQ(Put(connection, L"ConnectionString", face::ArchiveConnection()).hr, S_OK);
  EXPECT_EQ(Put(reader, L"Conexao", Var(connection.get())).hr, S_OK);
  EXPECT_EQ(Call(reader, L"ObtemSubordinados", {Var(Filter(L"AA001", 1).get())}).failure.number,
            face::ControlError(adErrObjectClosed));
}

TEST(ModulosBsn, ReturnsTheExpressionOfASystem) {
  const auto modules = Create(L"KodraBsnV3.ModulosBsn");
  EXPECT_EQ(Got(Call(modules, L"NumCxSubordinadaSQL", {2, L"s"})).text(),
            L"s.NUM_CAIXA + RIGHT('0' + CAST(s.NUM_SEQ AS VARCHAR(10)), 2)");
  EXPECT_EQ(Call(modules, L"NumCxSubordinadaSQL", {4, L"s"}).failure,
            (Failure{face::kSiblingError, L"KodraBsnV3.ModulosBsn::NumCxSubordinadaSQL",
                     L"Não há entrada para o banco tipo 4"}));
}

TEST(ObtedorDeTiposOperadores, DescribesATypeByItsNumber) {
  const auto types = Create(L"KodraBsnV3.ObtedorDeTiposOperadores");
  EXPECT_EQ(Put(types, L"StringConexao", face::ArchiveConnection()).hr, S_OK);
  EXPECT_EQ(Got(Call(types, L"ObtemDescricao", {1.0})).text(), L"Administrador");
  EXPECT_EQ(Got(Call(types, L"ObtemDescricao", {77.0})).text(), L"Tipo desconhecido (77)");
}

TEST(Conversoes, ReturnADateForTextsNumbersAndFields) {
  const auto conversions = Create(L"VantLib.Conversoes");
  const auto dateOf = [&](const Var& value) {
    const Var date = Got(Call(conversions, L"ToDate", {value}));
    EXPECT_EQ(date.type(), VT_DATE);
    return date.raw().date;
  };
  EXPECT_EQ(dateOf(L"31/12/2023"), 45291.0);
  EXPECT_EQ(dateOf(45291), 45291.0);
  EXPECT_EQ(dateOf(Var::Date(45291.25)), 45291.25);
  EXPECT_EQ(dateOf(Var::Null()), 0.0);
  EXPECT_EQ(dateOf(L"amanhã"), 0.0);
  EXPECT_EQ(dateOf(Var(face::ForeignObject::With(L"Value", Var::Date(45291)).get())), 45291.0);
  EXPECT_EQ(dateOf(Var(face::ForeignObject::With(L"Value", Var::Null()).get())), 0.0);
}

TEST(RegEvtDao, FindsEventsByAFilterAndNoneWhereNoneMatches) {
  const auto reader = Create(L"KodraRegEvt.RegEvtDAO");
  EXPECT_EQ(Put(reader, L"StringConexao", face::ArchiveConnection()).hr, S_OK);
  EXPECT_EQ(Put(reader, L"Caller", L"teste").hr, S_OK);
  const auto filter = Create(L"KodraRegEvt.RegEvtFind");
  EXPECT_EQ(Put(filter, L"Tipo_Evento", L"IMP").hr, S_OK);
  const auto events = Got(Call(reader, L"Localiza", {Var(filter.get())})).object();
  ASSERT_TRUE(events);
  ASSERT_GT(EventsOfKind(L"IMP"), 0);
  EXPECT_EQ(Got(Get(events, L"Count")).number(), EventsOfKind(L"IMP"));
  const auto first = Got(Call(events, L"Item", {1})).object();
  EXPECT_EQ(Got(Get(first, L"DataInicial")).type(), VT_DATE);
  EXPECT_EQ(Got(Get(first, L"Tipo_Evento")).text(), L"IMP");
  EXPECT_EQ(Put(filter, L"Tipo_Evento", L"XXX").hr, S_OK);
  EXPECT_FALSE(Got(Call(reader, L"Localiza", {Var(filter.get())})).object());
}

TEST(FnLog, WritesUtf8LinesWhileItIsSwitchedOn) {
  const TemporaryFile file(L"depuração.log");
  const auto log = Create(L"VantLog.FnLog");
  EXPECT_EQ(Put(log, L"LogFile", file.windowsPath()).hr, S_OK);
  EXPECT_EQ(Call(log, L"DebugLog", {L"perdida"}).hr, S_OK);
  EXPECT_EQ(Put(log, L"Ativar", true).hr, S_OK);
  EXPECT_EQ(Call(log, L"DebugLog", {L"módulo"}).hr, S_OK);
  EXPECT_EQ(Put(log, L"Ativar", false).hr, S_OK);
  EXPECT_EQ(Call(log, L"DebugLog", {L"perdida"}).hr, S_OK);
  const std::string bytes = face::BytesOf(file.windowsPath());
  ASSERT_EQ(bytes.size(), 20U + 9U);
  EXPECT_EQ(bytes.substr(19),
            " m\xc3\xb3"
            "dulo\r\n");
}

TEST(SiblingsInAScript, AreEnumeratedIndexedAndPassedToEachOther) {
  const std::wstring parent = SomeParent();
  std::wstring each = L"each";
  std::wstring item = L"item";
  for (const std::wstring& code : SubordinatesOf(parent)) {
    each += L" " + code;
    item += L" " + code + std::to_wstring(std::stoi(code.substr(5)));
  }
  EXPECT_EQ(face::OutputOfScript(L"siblings.vbs", {face::ArchiveConnection(), parent}),
            each + L"\n" + item +
                L"\nmissing True\n"
                L"beyond 9 Subscrito fora do intervalo\n"
                L"no collection True\n"
                L"s.NUM_CAIXA || substr('0' || s.NUM_SEQ, -2)\n"
                L"Auditor\n"
                L"null 0\n"
                L"field 40574\n"  // 31 January 2011
                L"events " +
                std::to_wstring(EventsOfKind(L"IMP")) + L"\n");
}

}  // namespace
}  // namespace kodra::siblings
