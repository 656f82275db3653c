// Texts and dates that no client should set.
#include <cmath>
#include <limits>

#include "tests/wine/hostile_client.h"

namespace kodra::face {
namespace {

class HostileValues : public Hostile {
 protected:
  // Whether the report failed with an error in its frame, whatever the cause.
  static bool IsFramed(const ReportCase& tested, const Outcome& outcome) {
    if (outcome.hr != DISP_E_EXCEPTION || outcome.value.object()) return false;
    if (tested.HasNoFrame()) return !outcome.failure.description.empty();
    // The module reports name the source of the cause.
    const std::wstring& source = outcome.failure.source;
    const bool isNamed =
        tested.IsOf(L"CCaixaRpt") ? !source.empty() && source != L"KodraRpt" : source == tested.Source();
    return outcome.failure.number == kReportError && outcome.failure.description.starts_with(L"Erro ") && isNamed;
  }
  static bool HasRowsOrIsFramed(const ReportCase& tested, const Outcome& outcome) {
    return outcome.hr == S_OK || IsFramed(tested, outcome);
  }

  // Texts with zeros, halves of surrogate pairs, invalid code units, and characters that have a meaning in SQL.
  static std::vector<std::wstring> OddTexts() {
    return {std::wstring(L"AA\0001", 4),
            std::wstring(3, L'\0'),
            std::wstring(L"AA\xD800", 3),
            std::wstring(L"\xDC00"
                         L"AA",
                         3),
            std::wstring(L"\xDC00\xD800", 2),
            L"\xFFFF\xFFFE",
            L"'",
            L"' OR '1'='1",
            L"%_\\;--/*",
            L"?",
            L":NUM\r\n\t\x1"};
  }

  static const std::wstring& Million() {
    static const std::wstring text(1000000, L'x');
    return text;
  }
};

TEST_F(HostileValues, AConnectionStringIsKeptWithEveryCharacter) {
  for (const ReportEntry& entry : ReportClasses()) {
    const auto report = Create(std::wstring(L"KodraRpt.") + entry.name);
    for (const std::wstring& text : OddTexts()) {
      EXPECT_EQ(S_OK, Put(report, L"StringConexao", text).hr);
      EXPECT_EQ(text, Got(Get(report, L"StringConexao")).text());
    }
    EXPECT_EQ(S_OK, Put(report, L"StringConexao", Million()).hr);
    EXPECT_EQ(Million(), Got(Get(report, L"StringConexao")).text());
  }
}

TEST_F(HostileValues, AnOddConnectionStringIsAnErrorInTheFrame) {
  ForEach(CasesOnStrings(), [&](const ReportCase& tested, const Subject& subject) {
    for (const std::wstring& text : OddTexts()) {
      Put(subject.report(), L"StringConexao", text);
      const Outcome outcome = subject.Run();
      EXPECT_TRUE(IsFramed(tested, outcome)) << testing::PrintToString(outcome.failure);
    }
    Put(subject.report(), L"StringConexao", archive_.Connection());
  });
}

TEST_F(HostileValues, AConnectionStringOfAMillionCharactersIsAnErrorInTheFrame) {
  ForEach(CasesOnStrings(), [&](const ReportCase& tested, const Subject& subject) {
    // The real connection string begins beyond the last position where a key is found.
    Put(subject.report(), L"StringConexao", Million() + L";" + archive_.Connection());
    const Outcome outcome = subject.Run();
    EXPECT_TRUE(IsFramed(tested, outcome)) << testing::PrintToString(outcome.failure);
    Put(subject.report(), L"StringConexao", archive_.Connection());
  });
}

TEST_F(HostileValues, ADatabaseNamedBeyondTheLastPositionOfAKeyIsAnOverflow) {
  EXPECT_EQ((Failure{kReportError, L"KodraRpt.CDeptoRpt::RelatorioDeptos",
                     L"Erro ao gerar dados para o relatório: [modADO.AbreCn]: [KodraRpt]: Estouro"}),
            RunReport(L"CDeptoRpt", L"RelatorioDeptos", Var(Create(L"KodraRpt.CDeptoRptObj").get()),
                      Million() + L";" + archive_.Connection())
                .failure);
}

// Runs a case with one of its properties changed.
Outcome RunWith(const ReportCase& tested, const Subject& subject, const wchar_t* property, const Var& value) {
  const auto parameters = tested.NewParameters();
  EXPECT_EQ(S_OK, Put(parameters, property, value).hr);
  return Call(subject.report(), tested.method, {Var(parameters.get())});
}

TEST_F(HostileValues, OddTextsInAFilterReturnRowsOrAnErrorInTheFrame) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    for (const auto& [property, given] : tested.properties) {
      if (given.type() != VT_BSTR) continue;
      for (const std::wstring& text : OddTexts()) {
        const Outcome outcome = RunWith(tested, subject, property, text);
        EXPECT_TRUE(HasRowsOrIsFramed(tested, outcome)) << testing::PrintToString(outcome.failure);
      }
    }
  });
}

TEST_F(HostileValues, AFilterOfAMillionCharactersReturnsRowsOrAnErrorInTheFrame) {
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    for (const auto& [property, given] : tested.properties) {
      if (given.type() != VT_BSTR) continue;
      const Outcome outcome = RunWith(tested, subject, property, Million());
      EXPECT_TRUE(HasRowsOrIsFramed(tested, outcome)) << testing::PrintToString(outcome.failure.number);
    }
  });
}

TEST_F(HostileValues, ADateOutsideTheCalendarReturnsRowsOrAnErrorInTheFrame) {
  const double dates[] = {-657434,
                          -657435,
                          2958465.99999999,
                          2958466,
                          1e18,
                          -1e18,
                          1e300,
                          -1e300,
                          -0.5,
                          std::nan(""),
                          HUGE_VAL,
                          -HUGE_VAL,
                          std::numeric_limits<double>::denorm_min()};
  ForEach(ReadingCases(), [&](const ReportCase& tested, const Subject& subject) {
    for (const auto& [property, given] : tested.properties) {
      if (given.type() != VT_DATE) continue;
      for (const double date : dates) {
        // COM checks only numbers that it converts to dates, not a value that is a date already.
        const Outcome outcome = RunWith(tested, subject, property, Var::Date(date));
        EXPECT_TRUE(HasRowsOrIsFramed(tested, outcome)) << date << " " << testing::PrintToString(outcome.failure);
        const auto foreign = ScriptedParameters::Returning(Var::Date(date));
        const Outcome read = Call(subject.report(), tested.method, {Var(foreign.get())});
        EXPECT_TRUE(HasRowsOrIsFramed(tested, read)) << date << " " << testing::PrintToString(read.failure);
      }
    }
  });
}

TEST_F(HostileValues, ATextThatIsNoDateIsRefusedByADateProperty) {
  for (const ParameterEntry& entry : ParameterClasses())
    for (const PropertyEntry& property : entry.properties) {
      if (property.kind != Kind::kDate) continue;
      const auto object = Create(std::wstring(L"KodraRpt.") + entry.name);
      ASSERT_EQ(S_OK, Put(object, property.name, Var::Date(45000)).hr);
      for (const wchar_t* text : {L"", L"ontem", L"99/99/9999", L"31/02/2024 25:61"})
        EXPECT_EQ(DISP_E_TYPEMISMATCH, Put(object, property.name, text).hr) << testing::PrintToString(text);
      EXPECT_EQ(45000, Got(Get(object, property.name)).raw().date);
    }
}

}  // namespace
}  // namespace kodra::face
