#include "testbed/archive/generator.h"

#include <algorithm>
#include <stdexcept>

#include "testbed/archive/vocabulary.h"

namespace kodra::testbed {
namespace {

constexpr Day kFirstDay = std::chrono::year(2010) / 1 / 4;
constexpr std::int64_t kDaysOfStorage =
    4378;  // until the end of 2021, so that whatever was due soon after is overdue today

struct AccentedLetters {
  std::wstring_view accented;
  wchar_t plain;
};
constexpr AccentedLetters kAccentedLetters[] = {
    {L"ÁÂÃÀÄáâãàä", L'a'}, {L"Çç", L'c'}, {L"ÉÊéê", L'e'}, {L"Íí", L'i'}, {L"ÓÔÕóôõ", L'o'}, {L"ÚÜúü", L'u'},
};

wchar_t WithoutAccent(wchar_t letter) {
  for (const auto& [accented, plain] : kAccentedLetters)
    if (accented.find(letter) != accented.npos) return plain;
  return letter;
}

}  // namespace

Generator::Generator(Size size)
    : documents_(size.documents),
      sites_(std::clamp<std::int64_t>(documents_ / 25000, 1, static_cast<std::int64_t>(Cities().size()))),
      operators_(std::clamp<std::int64_t>(documents_ / 2500, 36, 400)),
      documentsPerModule_(std::clamp<std::int64_t>(documents_ / 24, 1, 60)),
      modules_(1 + std::max<std::int64_t>(26, (documents_ + documentsPerModule_ - 1) / documentsPerModule_)),
      containers_(std::max<std::int64_t>(6, modules_ / 24)),
      documentsPerCd_(std::clamp<std::int64_t>(documents_ / 10, 1, 2000)),
      cds_(std::max<std::int64_t>(12, (documents_ + documentsPerCd_ - 1) / documentsPerCd_)) {
  constexpr std::int64_t kModuleCodes = 26LL * 26 * 1000;
  if (documents_ < 0) throw std::invalid_argument("a quantidade de documentos não pode ser negativa");
  if (modules_ > kModuleCodes) throw std::invalid_argument("documentos demais: faltam números de módulo");
}

MaybeText Generator::DocumentCode(std::int64_t document) const {
  if (document >= documents_) return {};
  return Padded(document + 1, 10);
}

Day Generator::StorageDay(std::int64_t document) const {
  return kFirstDay + std::chrono::days(document * kDaysOfStorage / std::max<std::int64_t>(documents_, 1));
}

Text Padded(std::int64_t number, int digits) {
  Text text = std::to_wstring(number);
  const auto width = static_cast<std::size_t>(digits);
  return text.size() < width ? Text(width - text.size(), L'0') + text : text;
}

Text SeriesCode(std::int64_t row) { return Padded(row + 1, 4); }
Text SubgroupCode(std::int64_t row) { return Padded(row + 1, 3); }
Text GroupCode(std::int64_t row) { return Padded(row + 1, 2); }
Text OperatorCode(std::int64_t row) { return std::to_wstring(row + 1); }
Text DepartmentCode(std::int64_t row) { return Padded(row + 1, 3); }
Text DepositoryCode(std::int64_t row) { return std::to_wstring(row + 1); }
Text ContainerCode(std::int64_t row) { return L"CT" + Padded(row + 1, 4); }
Text CdCode(std::int64_t row) { return L"CD" + Padded(row + 1, 6); }

Text ModuleCode(std::int64_t row) {
  const std::int64_t letters = row / 1000;
  Text code;
  code += static_cast<wchar_t>(L'A' + letters / 26);
  code += static_cast<wchar_t>(L'A' + letters % 26);
  return code + Padded(row % 1000, 3);
}

Text PersonName(std::int64_t row) {
  const auto number = static_cast<std::size_t>(row);
  const auto firstNames = FirstNames();
  const auto surnames = Surnames();
  // The surnames shift with every round of first names, so that no pair occurs twice.
  const std::size_t surname = number * 7 + number / firstNames.size();
  return Text(firstNames[number % firstNames.size()]) + L" " + Text(surnames[surname % surnames.size()]);
}

Text AsLogin(std::wstring_view name) {
  Text login;
  for (wchar_t c : name) {
    c = WithoutAccent(c);
    if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c + (L'a' - L'A'));
    if (c == L' ') c = L'.';
    if (c != L'\'') login += c;
  }
  return login;
}

Text BrazilianDate(Day day) {
  const std::chrono::year_month_day date{day};
  return Padded(static_cast<unsigned>(date.day()), 2) + L"/" + Padded(static_cast<unsigned>(date.month()), 2) + L"/" +
         Padded(static_cast<int>(date.year()), 4);
}

Day AddYears(Day day, std::int64_t years) {
  const auto date = std::chrono::year_month_day{day} + std::chrono::years(years);
  return date.ok() ? Day(date) : Day(date.year() / date.month() / std::chrono::last);
}

}  // namespace kodra::testbed
