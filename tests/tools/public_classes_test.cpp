// The list of the public classes that the build generates from the IDL.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <string>

#include "tests/db/temporary_folder.h"

namespace {

struct Made {
  std::string text;
  bool ended;
};

// The output of idl/public_classes.awk for an IDL, with its messages.
Made ListOf(const std::string& idl) {
  const kodra::tests::TemporaryFolder folder;
  const std::string file = (folder / "classes.idl").string();
  std::ofstream(file) << idl;
  const std::string command = "awk -f " KODRA_SOURCE_DIR "/idl/public_classes.awk " + file + " 2>&1";
  std::FILE* const output = popen(command.c_str(), "r");
  std::string text;
  std::array<char, 4096> buffer;
  for (std::size_t size = 0; (size = std::fread(buffer.data(), 1, buffer.size(), output)) != 0;)
    text.append(buffer.data(), size);
  return {text, pclose(output) == 0};
}

std::string LinesBetween(const std::string& text, const std::string& first, const std::string& last) {
  const std::size_t begin = text.find(first);
  return begin == std::string::npos ? text : text.substr(begin, text.find(last, begin) - begin);
}

constexpr const char* kIdl = R"(
// Ids are frozen.
import "oaidl.idl";
[uuid(0), version(1.0)]
library KodraRpt
{
    importlib("stdole2.tlb");
    [object, uuid(1), dual, helpstring("Filtros de CLogRpt")]
    interface ICLogRptObj : IDispatch
    {
        [id(1), propget] HRESULT Operador([out, retval] BSTR* valor);
        [id(1), propput] HRESULT Operador([in] BSTR valor);
        [id(2), propget] HRESULT DataInicial([out, retval] DATE* valor);
        [id(2), propput] HRESULT DataInicial([in] DATE valor);
        [id(3), propget, helpstring("Sim (ou 1): não filtra")] HRESULT Tudo([out, retval] VARIANT_BOOL* valor);
        [id(3), propput] HRESULT Tudo([in] VARIANT_BOOL valor);
    };
    [object, uuid(2), dual]
    interface ICLogRpt : IDispatch
    {
        [id(1), propget] HRESULT StringConexao([out, retval] BSTR* valor);
        [id(1), propput] HRESULT StringConexao([in] BSTR valor);
        [id(2), helpstring("Os eventos, um por linha")] HRESULT RelatorioLog([in] IDispatch* obj, [out, retval] IDispatch** recordset);
        [id(3)] HRESULT RelatorioDias([in] IDispatch* Params, [out, retval] IDispatch** recordset);
    };
    [object, uuid(3), dual]
    interface IAbout : IDispatch
    {
        [id(1)] HRESULT Versao([out, retval] BSTR* texto);
    };
    [uuid(4)]
    dispinterface DCLogRptEvents
    {
    properties:
    methods:
        [id(1)] void DebugLog([in, out] BSTR* sTexto);
    };
    [uuid(5), helpstring("KodraRpt.CLogRpt")]
    coclass CLogRpt
    {
        [default] interface ICLogRpt;
        [default, source] dispinterface DCLogRptEvents;
    };
    [uuid(6), noncreatable]
    coclass About
    {
        [default] interface IAbout;
    };
    [uuid(7)]
    coclass CLogRptObj
    {
        [default] interface ICLogRptObj;
    };
    [uuid(8)]
    coclass About
    {
        [default] interface IAbout;
    };
};
)";

TEST(PublicClassesTest, AreTheCreatableClassesOfTheIdlWithTheirMembersInOrder) {
  const Made made = ListOf(kIdl);
  EXPECT_TRUE(made.ended);
  EXPECT_EQ(LinesBetween(made.text, "\n\n", "\n\n#undef"),
            "\n\n"
            "KODRA_REPORT_CLASS(CLogRpt,\n"
            "  KODRA_REPORT_METHOD(CLogRpt, RelatorioLog)\n"
            "  KODRA_REPORT_METHOD(CLogRpt, RelatorioDias))\n"
            "KODRA_PARAMETER_CLASS(CLogRptObj,\n"
            "  KODRA_PARAMETER_PROPERTY(CLogRptObj, Operador, BSTR)\n"
            "  KODRA_PARAMETER_PROPERTY(CLogRptObj, DataInicial, DATE)\n"
            "  KODRA_PARAMETER_PROPERTY(CLogRptObj, Tudo, VARIANT_BOOL))\n"
            "KODRA_OTHER_CLASS(About)");
}

// The output for the IDL with another text in place of `line`.
Made ListWithout(const std::string& line, const std::string& instead) {
  std::string idl = kIdl;
  const std::size_t at = idl.find(line);
  EXPECT_NE(at, std::string::npos) << line;
  return ListOf(idl.replace(at, line.size(), instead));
}

TEST(PublicClassesTest, EndTheBuildAtALineThatIsNotRecognised) {
  const std::pair<const char*, const char*> kCases[] = {
      {"[id(2), propget] HRESULT DataInicial([out, retval] DATE* valor);",
       "[id(2), propget] HRESULT DataInicial([out, retval] LONG* valor);"},
      {"[id(2), propget] HRESULT DataInicial([out, retval] DATE* valor);", "[id(2)] HRESULT Limpa();"},
      {"[id(3)] HRESULT RelatorioDias([in] IDispatch* Params, [out, retval] IDispatch** recordset);",
       "[id(3)] HRESULT RelatorioDias([in] BSTR dias, [out, retval] IDispatch** recordset);"},
      {"[id(3)] HRESULT RelatorioDias([in] IDispatch* Params, [out, retval] IDispatch** recordset);",
       "[id(3)] HRESULT RelatorioDias([in] IDispatch* Params,"},
      {"interface ICLogRpt : IDispatch", "interface ICLogRpt : IUnknown"},
      {"[default] interface ICLogRptObj;", "[default] interface ICLogRpt;"},
      {"coclass CLogRptObj", "class CLogRptObj"},
  };
  for (const auto& [line, instead] : kCases) {
    const Made made = ListWithout(line, instead);
    EXPECT_FALSE(made.ended) << instead;
    EXPECT_NE(made.text.find("classes.idl:"), std::string::npos) << made.text;
    EXPECT_NE(made.text.find(instead), std::string::npos) << made.text;
    EXPECT_EQ(made.text.find("KODRA_"), std::string::npos) << made.text;
  }
}

}  // namespace
