// The type library as early-bound clients have compiled it in: every class and member with its order, id and types.
#include <algorithm>
#include <map>

#include "tests/wine/automation.h"
#include "tests/wine/environment.h"
#include "tests/wine/public_face.h"

namespace kodra::face {
namespace {

using Lines = std::vector<std::wstring>;

std::wstring TypeText(const TYPEDESC& type) {
  switch (type.vt) {
    case VT_BSTR:
      return L"text";
    case VT_DATE:
      return L"date";
    case VT_BOOL:
      return L"flag";
    case VT_DISPATCH:
      return L"object";
    case VT_PTR:
      return type.lptdesc->vt == VT_DISPATCH ? L"object" : L"reference to " + TypeText(*type.lptdesc);
    case VT_HRESULT:
      return L"HRESULT";
    default:
      return L"VARTYPE " + std::to_wstring(type.vt);
  }
}

std::wstring KindText(INVOKEKIND kind) {
  switch (kind) {
    case INVOKE_PROPERTYGET:
      return L"get";
    case INVOKE_PROPERTYPUT:
      return L"let";
    case INVOKE_PROPERTYPUTREF:
      return L"set";
    default:
      return L"call";
  }
}

// "<id> <use> <name>(<argument>: <type>) [-> <type>]".
std::wstring MemberText(ITypeInfo* info, const FUNCDESC& member) {
  BSTR names[4] = {};
  UINT count = 0;
  EXPECT_EQ(S_OK, info->GetNames(member.memid, names, 4, &count));
  std::wstring arguments;
  std::wstring result;
  for (int i = 0; i < member.cParams; ++i) {
    const ELEMDESC& parameter = member.lprgelemdescParam[i];
    if ((parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0) {
      EXPECT_EQ(VT_PTR, parameter.tdesc.vt);
      result = L" -> " + TypeText(*parameter.tdesc.lptdesc);
      continue;
    }
    const bool named = static_cast<UINT>(i) + 1 < count;
    arguments += (named ? names[i + 1] : L"") + std::wstring(L": ") + TypeText(parameter.tdesc);
  }
  std::wstring text = std::to_wstring(member.memid) + L" " + KindText(member.invkind) + L" " + names[0];
  if (member.invkind == INVOKE_FUNC) text += L"(" + arguments + L")";
  if (member.invkind == INVOKE_PROPERTYPUT || member.invkind == INVOKE_PROPERTYPUTREF)
    text += arguments.substr(arguments.find(L':'));
  for (BSTR name : names) SysFreeString(name);
  EXPECT_EQ(VT_HRESULT, member.elemdescFunc.tdesc.vt) << testing::PrintToString(text);
  EXPECT_EQ(0, member.wFuncFlags) << testing::PrintToString(text);
  return text + result;
}

Ref<ITypeLib> Library() {
  Ref<ITypeLib> library;
  EXPECT_EQ(S_OK, LoadTypeLibEx(DllPath().c_str(), REGKIND_NONE, library.put()));
  return library;
}

std::wstring NameOf(ITypeInfo* info) {
  Bstr name;
  info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr);
  return name.text();
}

// The default interface of a class, with its vtable.
Ref<ITypeInfo> DefaultInterface(ITypeInfo* coclass) {
  HREFTYPE type = 0;
  EXPECT_EQ(S_OK, coclass->GetRefTypeOfImplType(0, &type));
  Ref<ITypeInfo> dispatch;
  EXPECT_EQ(S_OK, coclass->GetRefTypeInfo(type, dispatch.put()));
  Ref<ITypeInfo> vtable;
  EXPECT_EQ(S_OK, dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &type));
  EXPECT_EQ(S_OK, dispatch->GetRefTypeInfo(type, vtable.put()));
  return vtable;
}

// The interface's own members in the order of the vtable, where each must be in the slot after the one before.
Lines Members(ITypeInfo* info) {
  TYPEATTR* attributes = nullptr;
  EXPECT_EQ(S_OK, info->GetTypeAttr(&attributes));
  EXPECT_EQ(TYPEFLAG_FDUAL, attributes->wTypeFlags & TYPEFLAG_FDUAL);
  Lines lines;
  constexpr int kDispatchMembers = 7;
  for (WORD i = 0; i < attributes->cFuncs; ++i) {
    FUNCDESC* member = nullptr;
    EXPECT_EQ(S_OK, info->GetFuncDesc(i, &member));
    EXPECT_EQ(static_cast<int>((kDispatchMembers + i) * sizeof(void*)), member->oVft);
    lines.push_back(MemberText(info, *member));
    info->ReleaseFuncDesc(member);
  }
  info->ReleaseTypeAttr(attributes);
  return lines;
}

// The members of each class of the library, by the name of the class.
std::map<std::wstring, Lines> ClassesOfLibrary() {
  std::map<std::wstring, Lines> classes;
  const auto library = Library();
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    TYPEKIND kind = TKIND_ALIAS;
    EXPECT_EQ(S_OK, library->GetTypeInfoType(i, &kind));
    if (kind != TKIND_COCLASS) continue;
    Ref<ITypeInfo> info;
    EXPECT_EQ(S_OK, library->GetTypeInfo(i, info.put()));
    classes[NameOf(info.get())] = Members(DefaultInterface(info.get()).get());
  }
  return classes;
}

std::wstring TypeOf(Kind kind) {
  if (kind == Kind::kDate) return L"date";
  return kind == Kind::kFlag ? L"flag" : L"text";
}

Lines Property(int id, const std::wstring& name, const std::wstring& type) {
  const std::wstring number = std::to_wstring(id);
  return {number + L" get " + name + L" -> " + type, number + L" let " + name + L": " + type};
}

Lines Joined(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

// The methods of a report class from an id on.
Lines Methods(int id, const ReportEntry& entry) {
  Lines lines;
  for (const wchar_t* method : entry.methods)
    lines.push_back(std::to_wstring(id++) + L" call " + method + L"(" + entry.argument + L": object) -> object");
  return lines;
}

TEST(TypeLibrary, AReportClassHasItsConnectionStringThenItsMethods) {
  const auto classes = ClassesOfLibrary();
  for (const ReportEntry& entry : ReportClasses()) {
    ASSERT_TRUE(classes.contains(entry.name)) << testing::PrintToString(entry.name);
    if (entry.name == std::wstring(L"CCaixaRpt")) continue;
    EXPECT_EQ(Joined(Property(1, L"StringConexao", L"text"), Methods(2, entry)), classes.at(entry.name))
        << testing::PrintToString(entry.name);
  }
}

TEST(TypeLibrary, TheModuleReportsHaveAConnectionAndALogFileBeforeTheirMethods) {
  Lines expected = Property(1, L"StringConexao", L"text");
  expected = Joined(expected, {L"2 get Conexao -> object", L"2 set Conexao: object"});
  expected = Joined(expected, Property(3, L"LogFile", L"text"));
  ASSERT_STREQ(L"CCaixaRpt", OtherReports().back().name);
  EXPECT_EQ(Joined(expected, Methods(4, OtherReports().back())), ClassesOfLibrary().at(L"CCaixaRpt"));
}

// What an object browser shows of each member of an interface, by the member's name.
std::map<std::wstring, std::wstring> HelpTexts(ITypeInfo* info) {
  TYPEATTR* attributes = nullptr;
  EXPECT_EQ(S_OK, info->GetTypeAttr(&attributes));
  std::map<std::wstring, std::wstring> texts;
  for (WORD i = 0; i < attributes->cFuncs; ++i) {
    FUNCDESC* member = nullptr;
    EXPECT_EQ(S_OK, info->GetFuncDesc(i, &member));
    Bstr name;
    Bstr text;
    EXPECT_EQ(S_OK, info->GetDocumentation(member->memid, name.put(), text.put(), nullptr, nullptr));
    texts[name.text()] = text.text();
    info->ReleaseFuncDesc(member);
  }
  info->ReleaseTypeAttr(attributes);
  return texts;
}

TEST(TypeLibrary, EveryMemberHasAHelpText) {
  const auto library = Library();
  for (const ClassEntry& entry : PublicClasses()) {
    CLSID id = {};
    ASSERT_EQ(S_OK, CLSIDFromString(entry.clsid.c_str(), &id));
    Ref<ITypeInfo> coclass;
    ASSERT_EQ(S_OK, library->GetTypeInfoOfGuid(id, coclass.put()));
    const auto texts = HelpTexts(DefaultInterface(coclass.get()).get());
    EXPECT_FALSE(texts.empty()) << testing::PrintToString(entry.name);
    for (const auto& [name, text] : texts)
      EXPECT_FALSE(text.empty()) << testing::PrintToString(entry.name + L"." + name);
    if (entry.name == L"CCDRpt") {
      EXPECT_EQ(L"As mídias, todas ou só as vencidas", texts.at(L"RelatorioMidias"));
    }
    if (entry.name == L"CCDRptObj") {
      EXPECT_EQ(L"V, ou qualquer texto que comece com v, lista só as mídias vencidas; outro valor lista todas",
                texts.at(L"TipoRpt"));
    }
  }
}

TEST(TypeLibrary, OnlyTheModuleReportsHaveAnEvent) {
  const auto library = Library();
  for (const ClassEntry& entry : PublicClasses()) {
    CLSID id = {};
    ASSERT_EQ(S_OK, CLSIDFromString(entry.clsid.c_str(), &id));
    Ref<ITypeInfo> coclass;
    ASSERT_EQ(S_OK, library->GetTypeInfoOfGuid(id, coclass.put()));
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, coclass->GetTypeAttr(&attributes));
    EXPECT_EQ(entry.name == L"CCaixaRpt" ? 2 : 1, attributes->cImplTypes) << testing::PrintToString(entry.name);
    coclass->ReleaseTypeAttr(attributes);
    if (entry.name != L"CCaixaRpt") continue;
    INT flags = 0;
    EXPECT_EQ(S_OK, coclass->GetImplTypeFlags(1, &flags));
    EXPECT_EQ(IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE, flags);
    HREFTYPE type = 0;
    ASSERT_EQ(S_OK, coclass->GetRefTypeOfImplType(1, &type));
    Ref<ITypeInfo> events;
    ASSERT_EQ(S_OK, coclass->GetRefTypeInfo(type, events.put()));
    FUNCDESC* member = nullptr;
    ASSERT_EQ(S_OK, events->GetFuncDesc(0, &member));
    BSTR names[2] = {};
    UINT count = 0;
    EXPECT_EQ(S_OK, events->GetNames(member->memid, names, 2, &count));
    EXPECT_EQ(2U, count);
    EXPECT_STREQ(L"DebugLog", names[0]);
    EXPECT_STREQ(L"sTexto", names[1]);
    for (BSTR name : names) SysFreeString(name);
    EXPECT_EQ(1, member->memid);
    EXPECT_EQ(1, member->cParams);
    events->ReleaseFuncDesc(member);
  }
}

TEST(TypeLibrary, AParameterClassHasItsPropertiesInOrder) {
  const auto classes = ClassesOfLibrary();
  for (const ParameterEntry& entry : ParameterClasses()) {
    Lines expected;
    int id = 0;
    for (const PropertyEntry& property : entry.properties)
      expected = Joined(expected, Property(++id, property.name, TypeOf(property.kind)));
    ASSERT_TRUE(classes.contains(entry.name)) << testing::PrintToString(entry.name);
    EXPECT_EQ(expected, classes.at(entry.name)) << testing::PrintToString(entry.name);
  }
}

TEST(TypeLibrary, AboutHasItsTwoMethods) {
  EXPECT_EQ((Lines{L"1 call Executavel() -> text", L"2 call Versao() -> text"}), ClassesOfLibrary().at(L"About"));
}

TEST(TypeLibrary, AnOperatorRecordHasItsPropertiesThenItsText) {
  Lines expected;
  int id = 0;
  for (const wchar_t* name :
       {L"Descr_Operador", L"Nome_Completo", L"Tipo", L"Descr_Depto", L"Chapa", L"Ramal", L"Descr_Grupo_Op"})
    expected = Joined(expected, Property(++id, name, L"text"));
  expected = Joined(expected, Property(8, L"Ativo", L"flag"));
  expected = Joined(expected, Property(9, L"Desabilitado_AD", L"text"));
  expected = Joined(expected, Property(10, L"Existe_AD", L"text"));
  expected.push_back(L"11 call ToString() -> text");
  EXPECT_EQ(expected, ClassesOfLibrary().at(L"OperadorObj"));
}

TEST(TypeLibrary, NamesThePublicClassesAndTheOperatorRecordAndNothingElse) {
  Lines expected = {L"OperadorObj"};
  for (const ClassEntry& entry : PublicClasses()) expected.push_back(entry.name);
  std::sort(expected.begin(), expected.end());
  Lines actual;
  for (const auto& [name, members] : ClassesOfLibrary()) actual.push_back(name);
  EXPECT_EQ(expected, actual);
}

TEST(TypeLibrary, OnlyTheOperatorRecordIsMarkedAsNotCreatable) {
  const auto library = Library();
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    Ref<ITypeInfo> info;
    ASSERT_EQ(S_OK, library->GetTypeInfo(i, info.put()));
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, info->GetTypeAttr(&attributes));
    if (attributes->typekind == TKIND_COCLASS) {
      const bool creatable = (attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0;
      EXPECT_EQ(NameOf(info.get()) != L"OperadorObj", creatable) << testing::PrintToString(NameOf(info.get()));
    }
    info->ReleaseTypeAttr(attributes);
  }
}

TEST(TypeLibrary, IsTheFrozenLibraryInVersionOneZero) {
  const auto library = Library();
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(S_OK, library->GetLibAttr(&attributes));
  wchar_t id[39] = {};
  StringFromGUID2(attributes->guid, id, 39);
  EXPECT_STREQ(kLibraryId, id);
  EXPECT_EQ(1, attributes->wMajorVerNum);
  EXPECT_EQ(0, attributes->wMinorVerNum);
  EXPECT_EQ(sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32, attributes->syskind);
  library->ReleaseTLibAttr(attributes);
}

TEST(TypeLibrary, EachClassHasTheFrozenId) {
  const auto library = Library();
  for (const ClassEntry& entry : PublicClasses()) {
    CLSID id = {};
    ASSERT_EQ(S_OK, CLSIDFromString(entry.clsid.c_str(), &id));
    Ref<ITypeInfo> info;
    ASSERT_EQ(S_OK, library->GetTypeInfoOfGuid(id, info.put())) << testing::PrintToString(entry.name);
    EXPECT_EQ(entry.name, NameOf(info.get()));
  }
}

}  // namespace
}  // namespace kodra::face
