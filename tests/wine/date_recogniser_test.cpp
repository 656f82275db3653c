// Compares values::ParseDate with OLE Automation's own reading of dates for Brazilian Portuguese.
//
// The automation here is Wine's. Where it is known or documented to differ from that of Windows, ParseDate follows
// Windows, and kDifferences contains the text with both results and the reason. A difference that disappears fails the
// test too. The designators "a" and "p" alone are left out, because Wine reads them differently from call to call.
#include <gtest/gtest.h>
#include <windows.h>
// After windows.h, which it needs.
#include <oleauto.h>

#include <cmath>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "values/dates.h"

namespace kodra::values {
namespace {

constexpr LCID kBrazilianPortuguese = 1046;
// A tenth of a second, in days: both sides count whole seconds.
constexpr double kTolerance = 0.1 / 86400;
// The days from a year of the 1900s to the same year of the 2000s, for the years 30 to 49.
constexpr double kCentury = 36525;

std::optional<double> ByAutomation(std::wstring text) {
  DATE date = 0;
  if (FAILED(VarDateFromStr(text.data(), kBrazilianPortuguese, LOCALE_NOUSEROVERRIDE, &date))) return std::nullopt;
  return date;
}

std::optional<double> ByParser(std::wstring_view text) {
  const auto date = ParseDate(text);
  return date ? std::optional(date->days) : std::nullopt;
}

// Year-month-day hour:minute:second, or "none".
std::wstring Written(std::optional<double> days) {
  SYSTEMTIME time{};
  if (!days || !VariantTimeToSystemTime(*days, &time)) return L"none";
  wchar_t buffer[64];
  swprintf(buffer, std::size(buffer), L"%u-%02u-%02u %02u:%02u:%02u", time.wYear, time.wMonth, time.wDay, time.wHour,
           time.wMinute, time.wSecond);
  return buffer;
}

bool Same(std::optional<double> one, std::optional<double> other) {
  if (!one || !other) return !one && !other;
  return std::abs(*one - *other) < kTolerance;
}

constexpr std::wstring_view kDates[] = {
    L"31/12/2023",
    L"31-12-2023",
    L"31 12 2023",
    L"31,12,2023",
    L"31/12-2023",
    L"12/31/2023",
    L"31/31/2023",
    L"2023/12/31",
    L"2023-12-31",
    L"2023 12 31",
    L"2023/31/12",
    L"31.12.2023",
    L"2023.12.31",
    L"31/12",
    L"12/31",
    L"1/2",
    L"1/13",
    L"13/1",
    L"12/2023",
    L"2023/12",
    L"13/2023",
    L"1/2/3",
    L"1/2/03",
    L"1/2/29",
    L"1/2/50",
    L"1/2/99",
    L"1/2/100",
    L"1/2/0100",
    L"1/2/099",
    L"1/2/1000",
    L"1/2/9999",
    L"1/2/10000",
    L"0/1/2023",
    L"1/0/2023",
    L"1/1/0",
    L"1/1/00",
    L"29/2/2023",
    L"29/2/2024",
    L"29/2/23",
    L"29/02/01",
    L"30/2/2023",
    L"31/4/2023",
    L"30/04/01",
    L"12/13/14",
    L"13/12/14",
    L"14/13/12",
    L"31/12/99",
    L"99/12/31",
    L"32/13/31",
    L" 31/12/2023",
    L"31/12/2023 ",
    L"31 / 12 / 2023",
    L"31//12/2023",
    L"/31/12/2023",
    L"31/12/2023/",
    L"31-12-2023-",
    L"31/12/2023,",
    L"31/12/2023.",
    L"31--12--2023",
    L"1 2",
    L"1 2 3",
    L"1 2 3 4",
    L"12 31",
    L"1-2",
    L"1,2",
    L"31\t12\t2023",
    L"1 2/3",
    L"1/2 3",
    L"1 /2/3",
    L"1,2/3",
    L"1, 2, 3",
    L"1 , 2",
    L"1 - 2 - 3",
    L"1/ 2",
    L"1 ,/ 2",
    L"1-2-2023-3",
    L",1/2/2023",
    L"0000001/02/2003",
    L"1/2/002003",
    L"+1/2/2023",
    L"-1/2/2023",
    L"1/-2/2023",
    L"1/+2",
    L"30/12/1899",
    L"29/12/1899",
    L"1/1/1900",
    L"1/1/0100",
    L"31/12/9999",
    L"1/1/1",
    L"10,5",
    L"10,20",
    L"10,50",
    L"50,10",
    L"1000,50",
    L"1,99",
    L"0,5",
    L"0,05",
    L"12,5",
    L"12,50",
    L"3,14",
    L"1,2,3",
    L"1,234,567",
    L"1,000",
    L"31/12/abc",
    L"31/12/2023 abc",
    L"31\\12\\2023",
    L"31_12_2023",
    L"31|12|2023",
    L"31;12;2023",
    L"(31/12/2023)",
    L"31/12/2023)",
    L"'31/12/2023'",
    L"\"31/12/2023\"",
    L"#31/12/2023#",
};

constexpr std::wstring_view kTimes[] = {
    L"10:20",       L"10:20:30",   L"10:20:30:40", L"24:00",    L"24:00:00", L"23:59:60",  L"10:60",    L"10.20",
    L"10.20.30",    L"10.20.3000", L"25.20",       L"10:20 am", L"10:20 AM", L"10:20AM",   L"10:20 pm", L"12:20 am",
    L"12:20 pm",    L"13:20 pm",   L"13:20 am",    L"10 am",    L"10am",     L"0:20 pm",   L"10.5",     L"1.5",
    L"1.000",       L"1.2",        L"1.2.3",       L"31.12",    L"31.12.23", L"10:",       L":10",      L"10:20:",
    L"10: 20",      L"10 : 20",    L"10:2",        L"1:2:3",    L"010:20",   L"100:20",    L"am 10:20", L"am",
    L"1 . 2",       L"1. 2",       L"1 :2",        L"1:2.3",    L"1.2:3",    L"1:2 pm pm", L"pm",       L"00:00",
    L"0:0",         L"0.0",        L"0.1",         L"1:00pM",   L"1:00 am.", L"1:00 a.m.", L"1:00 apm", L"1:00 amx",
    L"12 am",       L"12 pm",      L"13 pm",       L"23 pm",    L"24 pm",    L"0 am",      L"0 pm",     L"1,5 am",
    L"11:59:59 PM", L".10",        L"10.",         L"10.5.",    L"10 .5",    L" 10:20 ",   L"-3.14",    L"3.14",
    L"12.34",       L"12.99",      L"23.59",       L"23.60",    L"24.00",    L"1.234.567", L"1.000,50",
};

constexpr std::wstring_view kDatesWithTimes[] = {
    L"2023-12-31 10:20:30",
    L"2023-12-31T10:20:30",
    L"2023-12-31 10:20:30.5",
    L"31/12/2023 10:20:30",
    L"10:20:30 31/12/2023",
    L"31/12/2023 10:20",
    L"31/12/2023 10",
    L"31/12/2023 10h",
    L"31/12/2023 25:00",
    L"31/12/2023 23:60",
    L"10:20 31/12",
    L"1/1/2023 am",
    L"10:20 am 31/12/2023",
    L"31/12/2023 am 10:20",
    L"31.12.2023 10:20",
    L"31.12.2023 10.20",
    L"1:2 3",
    L"1 2:3",
    L"1:2 3/4",
    L"3/4 1:2",
    L"3/4/5 1:2:3 pm",
    L"1:2:3 pm 3/4/5",
    L"1:2:3pm3/4/5",
    L"3/4/51:2:3",
    L"3/4 5 1:2",
    L"1:2 3 4",
    L"1:2 3 4 5",
    L"3 4 5 1:2",
    L"3 4 5 1.2",
    L"3 4 5 1.2.3",
    L"1.2.3 3 4 5",
    L"3.4 5/6",
    L"5/6 3.4",
    L"3.4.5/6",
    L"1 pm 2/3",
    L"2/3 1 pm",
    L"2/3/4 1 pm",
    L"2/3/4 1pm",
    L"1 2 3 4 pm",
    L"1 2 3 pm",
    L"1 2 pm",
    L"10.20 1/2/2023",
    L"1/2/2023 10.20",
    L"1/2/2023 10.20.30",
    L"1/2/2023.10:20",
    L"1/2/2023,10:20",
    L"1/2/2023-10:20",
    L"1/2/2023/10:20",
    L"10:20,1/2/2023",
    L"10:20/1/2/2023",
    L"10:20-1/2/2023",
    L"31/12/2023/, 10:00",
    L"31/12/2023-, 10:00",
    L"31/, 12/2023 10:00",
    L"31/12/2023, 10:00",
    L"  1/2/2023  10:20  ",
    L"1/2/2023T10:20",
    L"20231231T102030",
    L"2023-12-31Z",
    L"1/2/2023 00:00:00",
    L"1/2/2023 24:00:00",
    L"1/2/2023 23:59:59",
    L"29/12/1899 06:00",
    L"1/1/100 12:00",
};

constexpr std::wstring_view kNames[] = {
    L"1 janeiro 2023",
    L"1 fevereiro 2023",
    L"1 março 2023",
    L"1 abril 2023",
    L"1 maio 2023",
    L"1 junho 2023",
    L"1 julho 2023",
    L"1 agosto 2023",
    L"1 setembro 2023",
    L"1 outubro 2023",
    L"1 novembro 2023",
    L"1 dezembro 2023",
    L"1 jan. 2023",
    L"1 fev. 2023",
    L"1 mar. 2023",
    L"1 abr. 2023",
    L"1 mai. 2023",
    L"1 jun. 2023",
    L"1 jul. 2023",
    L"1 ago. 2023",
    L"1 set. 2023",
    L"1 out. 2023",
    L"1 nov. 2023",
    L"1 dez. 2023",
    L"1 JANEIRO 2023",
    L"1 Janeiro 2023",
    L"1janeiro2023",
    L"1janeiro 2023",
    L"janeiro2023",
    L"janeiro/2023",
    L"janeiro-1-2023",
    L"janeiro,1,2023",
    L"janeiro 1, 2023",
    L"janeiro/1/2023",
    L"1 janeiro 2023 10:20",
    L"10:20 1 janeiro 2023",
    L"10:20 janeiro 2023",
    L"1 janeiro 2 3",
    L"2 3 janeiro",
    L"2 janeiro 3 4",
    L"1 janeirox",
    L"1 janeir",
    L"1 jan.",
    L"jan. 1",
    L"1/jan./2023",
    L"jan. 2023",
    L"jan.. 2023",
    L"jan.1.2023",
    L"1 . jan. 2023",
    L"janeiro",
    L"janeiro 0",
    L"0 janeiro",
    L"janeiro 99 1",
    L"99 janeiro 1",
    L"99 1 janeiro",
    L"1 99 janeiro",
    L"1 de janeiro de 2023",
    L"1 marco 2023",
    L"1 January 2023",
    L"January 1, 2023",
    L"1 february 2023",
    L"1 feb 2023",
    L"1 apr 2023",
    L"1 may 2023",
    L"1 aug 2023",
    L"1 sep 2023",
    L"1 sept 2023",
    L"1 oct 2023",
    L"1 dec 2023",
    L"29Feb01",
    L"segunda",
    L"segunda-feira",
    L"segunda-feira 1/2/2023",
    L"terça-feira 1/2/2023",
    L"quarta-feira 1/2/2023",
    L"quinta-feira 1/2/2023",
    L"sexta-feira 1/2/2023",
    L"sábado 1/2/2023",
    L"domingo 1/2/2023",
    L"SEGUNDA-FEIRA 1/2/2023",
    L"segunda-feira,1/2/2023",
    L"segunda-feira/1/2/2023",
    L"seg. 1/2/2023",
    L"ter. 1/2/2023",
    L"qua. 1/2/2023",
    L"qui. 1/2/2023",
    L"sex. 1/2/2023",
    L"sáb. 1/2/2023",
    L"dom. 1/2/2023",
    L"segunda-feira, 1 janeiro 2023",
    L"segunda-feira 10:20",
    L"1/2 segunda-feira",
    L"1 segunda-feira 2",
    L"terca-feira 1/2/2023",
    L"sunday 1/1/2023",
    L"sun 1/1/2023",
    L"segunda-feira, 1 de janeiro de 2023",
};

constexpr std::wstring_view kNoDates[] = {
    L"",
    L" ",
    L"10",
    L"2023",
    L"20231231",
    L"45291",
    L"99999999999",
    L"0",
    L"00",
    L"-1",
    L"+10",
    L"1e5",
    L"1d5",
    L"0x10",
    L"&H10",
    L"10%",
    L"$10",
    L"R$ 10",
    L"abc",
    L"a",
    L"p",
    L"c.DATA",
    L"SYSDATE",
    L"d.DT_ARMAZ",
    L"a.X",
    L"NULL",
    L"?",
    L"GETDATE()",
    L"1 + 1",
    L"(1/2)",
    L"date('now')",
    L"CURRENT DATE",
    L"TRUNC(SYSDATE)",
    L"DATE '2023-12-31'",
    L"{d '2023-12-31'}",
    L"d.DATA + 1",
    L"NVL(d, 1)",
    L"/",
    L",",
    L":",
};

template <std::size_t kCount>
void ExpectAgreement(const std::wstring_view (&texts)[kCount]) {
  for (const std::wstring_view text : texts) {
    const auto automation = ByAutomation(std::wstring(text));
    const auto parser = ByParser(text);
    EXPECT_TRUE(Same(automation, parser)) << "text: " << std::wstring(text) << "\n  automation: " << Written(automation)
                                          << "\n  ParseDate:  " << Written(parser);
  }
}

TEST(DateRecogniser, ReadsDatesAsAutomationDoes) { ExpectAgreement(kDates); }
TEST(DateRecogniser, ReadsTimesAsAutomationDoes) { ExpectAgreement(kTimes); }
TEST(DateRecogniser, ReadsDatesWithTimesAsAutomationDoes) { ExpectAgreement(kDatesWithTimes); }
TEST(DateRecogniser, ReadsNamesAsAutomationDoes) { ExpectAgreement(kNames); }
TEST(DateRecogniser, RefusesWhatAutomationRefuses) { ExpectAgreement(kNoDates); }

struct Difference {
  std::wstring_view text;
  std::wstring_view automation;
  std::wstring_view parser;
  std::string_view reason;
};

constexpr std::string_view kTurnOfYears = "two-digit years turn at 30, as documented; Wine turns at 50";
constexpr std::string_view kNoFullStop =
    "Windows abbreviates month and day names without a full stop; Wine only with one";
constexpr std::string_view kAccents =
    "names are compared without regard to case, accented letters included; Wine's are not";
constexpr std::string_view kWrapped = "no number has more than four digits; Wine drops the high bits of larger ones";
constexpr std::string_view kTwoMonths = "a date has one month name; Wine takes a second one as a number";
constexpr std::string_view kNameAsHour = "a name is no part of a time; Wine takes its place in the year as the hour";
constexpr std::string_view kLooseSeparator = "a separator joins two pieces of a date; Wine overlooks some that do not";

constexpr Difference kDifferences[] = {
    {L"1/2/30", L"2030-02-01 00:00:00", L"1930-02-01 00:00:00", kTurnOfYears},
    {L"1/2/49", L"2049-02-01 00:00:00", L"1949-02-01 00:00:00", kTurnOfYears},
    {L"32/12/31", L"2032-12-31 00:00:00", L"1932-12-31 00:00:00", kTurnOfYears},
    {L"32/1", L"2032-01-01 00:00:00", L"1932-01-01 00:00:00", kTurnOfYears},
    {L"1/32", L"2032-01-01 00:00:00", L"1932-01-01 00:00:00", kTurnOfYears},
    {L"31/4/01", L"2031-04-01 00:00:00", L"1931-04-01 00:00:00", kTurnOfYears},
    {L"abril 31", L"2031-04-01 00:00:00", L"1931-04-01 00:00:00", kTurnOfYears},
    {L"1 jan 2023", L"none", L"2023-01-01 00:00:00", kNoFullStop},
    {L"1-jan-2023", L"none", L"2023-01-01 00:00:00", kNoFullStop},
    {L"1/fev/2023", L"none", L"2023-02-01 00:00:00", kNoFullStop},
    {L"1 Mar 2023", L"none", L"2023-03-01 00:00:00", kNoFullStop},
    {L"jan 1, 2023", L"none", L"2023-01-01 00:00:00", kNoFullStop},
    {L"dez 2023", L"none", L"2023-12-01 00:00:00", kNoFullStop},
    {L"29 fev 01", L"none", L"2029-02-01 00:00:00", kNoFullStop},
    {L"seg 1/2/2023", L"none", L"2023-02-01 00:00:00", kNoFullStop},
    {L"1 MARÇO 2023", L"none", L"2023-03-01 00:00:00", kAccents},
    {L"SÁBADO 1/2/2023", L"none", L"2023-02-01 00:00:00", kAccents},
    {L"1/2/65536", L"2000-02-01 00:00:00", L"none", kWrapped},
    {L"1/2/65537", L"2001-02-01 00:00:00", L"none", kWrapped},
    {L"10:65537", L"1899-12-30 10:01:00", L"none", kWrapped},
    {L"65537:10", L"1899-12-30 01:10:00", L"none", kWrapped},
    {L"janeiro fevereiro 1", L"2001-01-02 00:00:00", L"none", kTwoMonths},
    {L"janeiro 1 fevereiro", L"2002-01-01 00:00:00", L"none", kTwoMonths},
    {L"janeiro:1", L"1899-12-30 01:01:00", L"none", kNameAsHour},
    {L"fevereiro.28", L"1899-12-30 02:28:00", L"none", kNameAsHour},
    {L"28 7 2024-sáb.", L"2024-07-28 00:00:00", L"none", kLooseSeparator},
    {L"5:0/segunda-feira", L"1899-12-30 05:00:00", L"none", kLooseSeparator},
    {L"2 - PM", L"1899-12-30 14:00:00", L"none", kLooseSeparator},
};

TEST(DateRecogniser, DiffersFromThisAutomationOnlyAsListed) {
  for (const Difference& difference : kDifferences) {
    const auto automation = Written(ByAutomation(std::wstring(difference.text)));
    const auto parser = Written(ByParser(difference.text));
    EXPECT_EQ(automation, difference.automation) << std::wstring(difference.text);
    EXPECT_EQ(parser, difference.parser) << std::wstring(difference.text);
    EXPECT_NE(automation, parser) << std::wstring(difference.text) << " no longer differs: " << difference.reason;
  }
}

bool SameButForTheTurnOfYears(double automation, double parser) {
  return Same(automation, parser) || Same(automation, parser + kCentury);
}

TEST(DateRecogniser, OrdersEveryThreeNumbersAsAutomationDoes) {
  constexpr int kNumbers[] = {0, 1, 2, 4, 11, 12, 13, 28, 29, 30, 31, 32, 50, 99, 100, 1999, 2023, 2024, 9999, 10000};
  for (const int a : kNumbers) {
    for (const int b : kNumbers) {
      for (const int c : kNumbers) {
        const std::wstring text = std::to_wstring(a) + L'/' + std::to_wstring(b) + L'/' + std::to_wstring(c);
        const auto automation = ByAutomation(text);
        const auto parser = ByParser(text);
        ASSERT_EQ(automation.has_value(), parser.has_value()) << text;
        if (!parser) continue;
        ASSERT_TRUE(SameButForTheTurnOfYears(*automation, *parser)) << text;
      }
    }
  }
}

TEST(DateRecogniser, AcceptsNothingThatAutomationRefuses) {
  // Both sides read each of these pieces alike, so that a difference between them is one of grammar.
  constexpr std::wstring_view kPieces[] = {L"0",    L"1",    L"2",  L"5",  L"07",        L"10",   L"12",
                                           L"13",   L"28",   L"29", L"30", L"31",        L"99",   L"1999",
                                           L"2023", L"2024", L"am", L"pm", L"fevereiro", L"jan.", L"segunda-feira",
                                           L"sáb."};
  constexpr std::wstring_view kSeparators[] = {L"/", L"-", L" ", L",", L".", L":", L"", L", ", L" - ", L"  "};
  std::mt19937 random(20240531);
  const auto pick = [&random](const auto& choices) { return choices[random() % std::size(choices)]; };
  int accepted = 0;
  for (int round = 0; round < 50000; ++round) {
    std::wstring text;
    for (unsigned piece = 1 + random() % 6; piece > 0; --piece) {
      text += pick(kPieces);
      if (piece > 1 || random() % 20 == 0) text += pick(kSeparators);
    }
    const auto parser = ByParser(text);
    if (!parser) continue;
    ++accepted;
    const auto automation = ByAutomation(text);
    ASSERT_TRUE(automation.has_value()) << text;
    ASSERT_TRUE(SameButForTheTurnOfYears(*automation, *parser)) << text;
  }
  EXPECT_GT(accepted, 1000);
}

}  // namespace
}  // namespace kodra::values
