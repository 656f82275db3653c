#include "siblings/fn_log.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "siblings/ini_file.h"
#include "tests/recorder/raised.h"
#include "tests/testbed/sqlite_reader.h"
#include "values/dates.h"
#include "values/erro.h"

namespace kodra::siblings {
namespace {

using recorder::Raised;
using recorder::RaisedBy;

std::string BytesOf(const testbed::TemporaryFile& file) {
  std::ostringstream bytes;
  bytes << std::ifstream(file.Path(), std::ios::binary).rdbuf();
  return bytes.str();
}

// The bytes with "<agora>" in place of the date and time of each line.
std::string WithoutTimes(const std::string& bytes) {
  constexpr std::string_view kForm = "00/00/0000 00:00:00";
  std::string lines;
  std::istringstream in(bytes);
  for (std::string line; std::getline(in, line); lines += line + '\n') {
    std::string form = line.substr(0, kForm.size());
    std::replace_if(
        form.begin(), form.end(), [](char c) { return c >= '0' && c <= '9'; }, '0');
    if (form == kForm) line.replace(0, kForm.size(), "<agora>");
  }
  return lines;
}

class FnLogTest : public testing::Test {
 protected:
  FnLogTest() {
    log.Let(L"LogFile", DecodeText(file.Path()));
    log.Let(L"Ativar", true);
  }
  void DebugLog(const Value& text) { log.Call(L"DebugLog", {&text, 1}); }

  const testbed::TemporaryFile file{"depuração.log"};
  FnLog log;
};

TEST_F(FnLogTest, AppendsALineInUtf8WithDateAndTime) {
  DebugLog(L"obtendo dados do módulo “AA001”");
  DebugLog(L"fim");
  EXPECT_EQ(WithoutTimes(BytesOf(file)),
            "<agora> obtendo dados do m\xc3\xb3"
            "dulo \xe2\x80\x9c"
            "AA001\xe2\x80\x9d\r\n<agora> fim\r\n");
}

TEST_F(FnLogTest, WritesTheTimeOfTheCall) {
  const Date before = values::Now();
  DebugLog(L"agora");
  const Date after = values::Now();
  const auto written = values::ParseDate(DecodeText(BytesOf(file).substr(0, 19)));
  ASSERT_TRUE(written);
  constexpr double kHalfASecond = 0.5 / 86400;
  EXPECT_GE(written->days, before.days - kHalfASecond);
  EXPECT_LE(written->days, after.days + kHalfASecond);
}

TEST_F(FnLogTest, HasEveryLineInTheFileWhenTheCallReturns) {
  for (int line = 1; line <= 3; ++line) {
    DebugLog(line);
    const std::string bytes = BytesOf(file);
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), line);
  }
}

TEST_F(FnLogTest, KeepsTheFormerContentOfTheFile) {
  std::ofstream(file.Path(), std::ios::binary) << "de ontem\r\n";
  DebugLog(L"de hoje");
  EXPECT_EQ(WithoutTimes(BytesOf(file)), "de ontem\r\n<agora> de hoje\r\n");
}

TEST_F(FnLogTest, WritesATextOfSeveralLinesAsOne) {
  DebugLog(L"SELECT *\r\nFROM CAIXA\nWHERE 1=1");
  EXPECT_EQ(WithoutTimes(BytesOf(file)), "<agora> SELECT *  FROM CAIXA WHERE 1=1\r\n");
}

TEST_F(FnLogTest, WritesNothingUntilItIsSwitchedOn) {
  FnLog fresh;
  EXPECT_EQ(fresh.Get(L"Ativar"), Value(false));
  fresh.Let(L"LogFile", DecodeText(file.Path()));
  const Value text = L"perdida";
  fresh.Call(L"DebugLog", {&text, 1});
  EXPECT_FALSE(std::filesystem::exists(file.Path()));
}

TEST_F(FnLogTest, WritesNothingWhileItIsSwitchedOff) {
  DebugLog(L"antes");
  log.Let(L"Ativar", false);
  DebugLog(L"perdida");
  log.Let(L"Ativar", true);
  DebugLog(L"depois");
  EXPECT_EQ(WithoutTimes(BytesOf(file)), "<agora> antes\r\n<agora> depois\r\n");
}

TEST_F(FnLogTest, WritesNothingWithoutAFile) {
  log.Let(L"LogFile", L"");
  DebugLog(L"perdida");
  EXPECT_FALSE(std::filesystem::exists(file.Path()));
}

TEST_F(FnLogTest, SwitchesToAnotherFileAtOnce) {
  const testbed::TemporaryFile other("outro.log");
  DebugLog(L"um");
  log.Let(L"LogFile", DecodeText(other.Path()));
  DebugLog(L"dois");
  EXPECT_EQ(WithoutTimes(BytesOf(file)), "<agora> um\r\n");
  EXPECT_EQ(WithoutTimes(BytesOf(other)), "<agora> dois\r\n");
}

TEST_F(FnLogTest, WritesToAFileWhoseNameHasHalfASurrogatePair) {
  const testbed::TemporaryFile replaced("metade \xef\xbf\xbd.log");
  std::wstring name = DecodeText(replaced.Path());
  name.at(name.find(L'\uFFFD')) = static_cast<wchar_t>(0xD800);
  log.Let(L"LogFile", name);
  DebugLog(L"um");
  EXPECT_EQ(WithoutTimes(BytesOf(replaced)), "<agora> um\r\n");
}

TEST_F(FnLogTest, RaisesForAFileThatItCannotWrite) {
  log.Let(L"LogFile", L"/não/há/pasta.log");
  EXPECT_EQ(RaisedBy([&] { DebugLog(L"perdida"); }),
            (Raised{kErrBase + 1, "VantLog.FnLog::DebugLog",
                    "Não foi possível gravar no arquivo de log \"/não/há/pasta.log\"."}));
}

}  // namespace
}  // namespace kodra::siblings
