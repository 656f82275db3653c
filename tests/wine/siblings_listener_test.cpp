// KodraSuporte.Ouvinte, which passes the events of an object on to the methods of another object.
#include <cwchar>
#include <functional>
#include <sstream>

#include "tests/rows/sample.h"
#include "tests/wine/automation.h"
#include "tests/wine/client_object.h"
#include "tests/wine/commands.h"
#include "tests/wine/event_sink.h"

namespace kodra::siblings {
namespace {

using face::Call;
using face::ClientObject;
using face::Create;
using face::Failure;
using face::Put;
using face::Ref;
using face::TemporaryFile;
using face::Var;

// A client's object with one method, which records each text that it receives and then runs the test's action.
class Receiver final : public ClientObject {
 public:
  static Ref<Receiver> New(const wchar_t* method) { return Ref<Receiver>::Owning(new Receiver(method)); }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    *ids = _wcsicmp(names[0], method_.c_str()) == 0 ? kMethod : DISPID_UNKNOWN;
    return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*, UINT*) override {
    EXPECT_EQ(id, kMethod);
    EXPECT_EQ(kind, DISPATCH_METHOD);
    EXPECT_EQ(arguments->cArgs, 1U);
    EXPECT_EQ(arguments->rgvarg[0].vt, VT_BSTR);
    lines.emplace_back(arguments->rgvarg[0].bstrVal);
    return then();
  }

  std::vector<std::wstring> lines;
  std::function<HRESULT()> then = [] { return S_OK; };

 private:
  static constexpr DISPID kMethod = 5;

  explicit Receiver(const wchar_t* method) : method_(method) {}

  std::wstring method_;
};

class SiblingsListener : public testing::Test {
 protected:
  SiblingsListener() : report_(Create(L"KodraRpt.CCaixaRpt")), listener_(Create(L"KodraSuporte.Ouvinte")) {}

  face::Outcome Connect(const Ref<Receiver>& receiver) {
    return Call(listener_, L"Conecta", {Var(report_.get()), Var(receiver.get())});
  }
  // Runs a report that fails; its error is the one line that it announces.
  void Fail() { EXPECT_EQ(Call(report_, L"EtiquetaDivisoria", {Var::Nothing()}).failure.number, face::kReportError); }

  Ref<IDispatch> report_;
  Ref<IDispatch> listener_;
};

TEST_F(SiblingsListener, CallsTheMethodOfTheEventsName) {
  const auto receiver = Receiver::New(L"debuglog");
  EXPECT_EQ(Connect(receiver).hr, S_OK);
  Fail();
  Fail();
  EXPECT_EQ(receiver->lines, (std::vector<std::wstring>{face::kLineWithoutConnection, face::kLineWithoutConnection}));
}

TEST_F(SiblingsListener, IgnoresAnEventThatTheObjectHasNoMethodFor) {
  const auto receiver = Receiver::New(L"OutroEvento");
  EXPECT_EQ(Connect(receiver).hr, S_OK);
  Fail();
  EXPECT_EQ(receiver->lines, std::vector<std::wstring>());
}

TEST_F(SiblingsListener, EndsWithDesconecta) {
  const auto receiver = Receiver::New(L"DebugLog");
  EXPECT_EQ(Connect(receiver).hr, S_OK);
  EXPECT_EQ(receiver->References(), 2U);
  EXPECT_EQ(Call(listener_, L"Desconecta").hr, S_OK);
  EXPECT_EQ(receiver->References(), 1U);
  Fail();
  EXPECT_EQ(receiver->lines, std::vector<std::wstring>());
  EXPECT_EQ(Call(listener_, L"Desconecta").hr, S_OK);
}

TEST_F(SiblingsListener, EndsWithTheListener) {
  const auto receiver = Receiver::New(L"DebugLog");
  EXPECT_EQ(Connect(receiver).hr, S_OK);
  EXPECT_EQ(listener_.Release(), 0U);
  EXPECT_EQ(receiver->References(), 1U);
  Fail();
  EXPECT_EQ(receiver->lines, std::vector<std::wstring>());
}

TEST_F(SiblingsListener, ListensToOneSourceAtATime) {
  const auto first = Receiver::New(L"DebugLog");
  const auto second = Receiver::New(L"DebugLog");
  EXPECT_EQ(Connect(first).hr, S_OK);
  EXPECT_EQ(Connect(second).hr, S_OK);
  EXPECT_EQ(first->References(), 1U);
  Fail();
  EXPECT_EQ(first->lines, std::vector<std::wstring>());
  EXPECT_EQ(second->lines, std::vector<std::wstring>{face::kLineWithoutConnection});
}

TEST_F(SiblingsListener, MayEndTheConnectionWhileItListens) {
  const auto receiver = Receiver::New(L"DebugLog");
  receiver->then = [&] { return Call(listener_, L"Desconecta").hr; };
  EXPECT_EQ(Connect(receiver).hr, S_OK);
  Fail();
  Fail();
  EXPECT_EQ(receiver->lines, std::vector<std::wstring>{face::kLineWithoutConnection});
  EXPECT_EQ(receiver->References(), 1U);
}

TEST_F(SiblingsListener, LeavesTheReportUndisturbedWhenTheMethodFails) {
  const auto receiver = Receiver::New(L"DebugLog");
  receiver->then = [] { return E_FAIL; };
  EXPECT_EQ(Connect(receiver).hr, S_OK);
  Fail();
  EXPECT_EQ(receiver->lines, std::vector<std::wstring>{face::kLineWithoutConnection});
}

TEST_F(SiblingsListener, RefusesAnObjectWithoutEvents) {
  const auto receiver = Receiver::New(L"DebugLog");
  const Failure expected{face::kSiblingError, L"KodraSuporte.Ouvinte::Conecta", L"O objeto não anuncia eventos."};
  for (const wchar_t* progId : {L"KodraRpt.CDeptoRpt", L"KodraConexao.StrCon"}) {
    EXPECT_EQ(Call(listener_, L"Conecta", {Var(Create(progId).get()), Var(receiver.get())}).failure, expected)
        << progId;
  }
  EXPECT_EQ(receiver->References(), 1U);
}

TEST_F(SiblingsListener, NeedsTwoObjects) {
  const auto receiver = Receiver::New(L"DebugLog");
  const Var nothing = Var::Nothing();
  const Failure notSet{face::kObjectNotSet, L"KodraRpt",
                       L"A variável do objeto ou a variável do bloco 'With' não foi definida"};
  EXPECT_EQ(Call(listener_, L"Conecta", {nothing, Var(receiver.get())}).failure, notSet);
  EXPECT_EQ(Call(listener_, L"Conecta", {Var(report_.get()), nothing}).failure, notSet);
  EXPECT_EQ(Call(listener_, L"Conecta", {Var(report_.get()), 1}).failure,
            (Failure{face::kObjectRequired, L"KodraRpt", L"O objeto é obrigatório"}));
  EXPECT_EQ(Call(listener_, L"Conecta", {Var(report_.get())}).failure.number, face::kWrongArgumentCount);
}

TEST_F(SiblingsListener, KeepsNothingOfTheReportAlive) {
  const auto receiver = Receiver::New(L"DebugLog");
  EXPECT_EQ(Connect(receiver).hr, S_OK);
  EXPECT_EQ(Call(listener_, L"Desconecta").hr, S_OK);
  EXPECT_EQ(report_.Release(), 0U);
}

// The first module with closed subordinates.
std::wstring SomeClosedParent() {
  for (const testbed::CaixaSubordinada& subordinate : rows::All<testbed::CaixaSubordinada>()) {
    if (subordinate.dataFechamento) return subordinate.numCaixa;
  }
  return L"(none)";
}

// The log's lines without date and time.
std::wstring LoggedLines(const TemporaryFile& log) {
  std::istringstream lines(face::BytesOf(log.windowsPath()));
  std::wstring text;
  for (std::string line; std::getline(lines, line); text += L"\n") {
    EXPECT_GT(line.size(), 20U);
    EXPECT_EQ(line.back(), '\r');
    const std::string rest = line.substr(20, line.size() - 21);
    std::wstring wide(rest.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, rest.data(), static_cast<int>(rest.size()),
                                                             wide.data(), static_cast<int>(wide.size()))));
    text += wide;
  }
  return text;
}

TEST(ListeningScript, ReceivesTheLinesThatTheLogFileContains) {
  const std::wstring module = SomeClosedParent();
  const TemporaryFile log(L"eventos.log");
  const std::wstring received =
      face::OutputOfScript(L"eventos.vbs", {face::ArchiveConnection(), log.windowsPath(), module});
  const std::wstring closed = L"KodraRpt.CCaixaRpt::ObtemSubordinadosFechados: ";
  const std::wstring discard = L"KodraRpt.CCaixaRpt::AutorizacaoDescarteModuloSubRpt: ";
  const std::wstring discardLines = discard + L"executando query para o módulo <" + module + L">\n" + discard +
                                    L"retorno da função é a query original\n";
  const std::wstring logged = closed + L"gerando filtro\n" + closed + L"obtendo dados\n" + discardLines +
                              L"KodraRpt.CCaixaRpt::EtiquetaDivisoria: ----> saindo com o erro -2147211505 em "
                              L"KodraRpt.CCaixaRpt::InicializaPS: Objeto não definido.\n";
  EXPECT_EQ(LoggedLines(log), logged);
  EXPECT_EQ(received, logged + L"raised -2147213397\n" + discardLines + L"end\n");
}

}  // namespace
}  // namespace kodra::siblings
