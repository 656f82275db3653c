#include "console/formats/xlsx_writer.h"

#include <fmt/format.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include "console/command_line/output_error.h"
#include "console/command_line/system_reason.h"
#include "console/formats/cell_text.h"
#include "console/formats/display_width.h"
#include "console/formats/silenced_errors.h"
#include "console/formats/xlsx_path.h"
#include "values/dates.h"
#include "values/decimal.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::FromUtf8;
using values::ToUtf8;

// 1 March 1900. A spreadsheet takes 1900 for a leap year, so that its day numbers are those of automation dates only
// from here on.
constexpr double kFirstCountedDay = 61;
constexpr double kBeyondLastDay = 2958466;  // 1 January 10000
// The largest whole number that a spreadsheet shows with all its digits.
constexpr std::uint64_t kMostDigits = 999'999'999'999'999;
constexpr std::size_t kMostUnits = 32767;
// In characters. A wider text is in the cell in full, but only its beginning is visible.
constexpr std::size_t kWidestColumn = 60;
constexpr std::size_t kNarrowestColumn = 8;
// The room that the arrow of the filter takes beside a name.
constexpr std::size_t kFilterWidth = 3;

bool KeepsDigits(const Decimal& number) {
  const Decimal shortest = values::WithoutTrailingZeros(number);
  return shortest.high == 0 && shortest.low <= kMostDigits;
}

// Whether it is a whole number of more than 15 digits that is not written with an exponent: 9223372036854775808, but
// not 1e+30.
bool HasMoreDigits(double number) {
  return std::isfinite(number) && std::abs(number) > double{kMostDigits} && number == std::trunc(number) &&
         IsoText(number, ColumnKind::kNumber).find('e') == std::string::npos;
}

// Whether a spreadsheet, which shows 15 digits of a double, shows the number unchanged.
bool FitsASpreadsheet(const Value& value, double number) {
  if (value.Is<std::int64_t>() || value.Is<std::uint64_t>()) return std::abs(number) <= double{kMostDigits};
  if (value.Is<Currency>()) return KeepsDigits(values::ToDecimal(value.As<Currency>()));
  if (value.Is<Decimal>()) return KeepsDigits(value.As<Decimal>());
  return std::isfinite(number) && !HasMoreDigits(number);
}

// The length of a text as a spreadsheet counts it, in units of UTF-16; the library counts characters.
std::size_t UnitsOf(std::wstring_view text) {
  return text.size() + static_cast<std::size_t>(
                           std::ranges::count_if(text, [](wchar_t c) { return static_cast<char32_t>(c) > 0xFFFF; }));
}

// Whether XML can contain the character. ToUtf8 replaces unpaired surrogates.
bool IsXmlCharacter(wchar_t c) { return (c >= 0x20 || c == L'\t' || c == L'\n') && c != 0xFFFE && c != 0xFFFF; }

// Whether the text has "_xHHHH_" at that place, which a spreadsheet reads as the character of that number. Its last "_"
// may be the one with which the next character is written.
bool IsEscape(std::wstring_view text, std::size_t at) {
  const auto isHexadecimal = [](wchar_t c) {
    return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'F') || (c >= L'a' && c <= L'f');
  };
  const std::wstring_view piece = text.substr(at, 7);
  return piece.size() == 7 && piece.starts_with(L"_x") && std::ranges::all_of(piece.substr(2, 4), isHexadecimal) &&
         (piece.back() == L'_' || !IsXmlCharacter(piece.back()));
}

// The text of a cell in UTF-8. A character that XML cannot contain is written as "_xHHHH_", and so is the "_" at the
// beginning of such a form in the text itself. This includes the carriage return, which XML turns into a line feed.
std::string CellText(std::wstring_view text) {
  std::wstring escaped;
  escaped.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsXmlCharacter(text[i]) && !IsEscape(text, i)) {
      escaped += text[i];
    } else {
      escaped += values::FromUtf8(fmt::format("_x{:04X}_", static_cast<unsigned>(text[i])));
    }
  }
  return ToUtf8(escaped);
}

// A text of the file's properties, in UTF-8. They know no such form: a character that XML cannot contain becomes a
// blank.
std::string PropertyText(std::wstring text) {
  std::ranges::replace_if(
      text, [](wchar_t c) { return !IsXmlCharacter(c); }, L' ');
  return ToUtf8(text);
}

// The end of a message about a library call that failed: with the reason, unless errno is 0.
std::wstring Because(int systemError) {
  if (systemError == 0) return L".";
  return L": " + SystemReason({systemError, std::generic_category()}) + L".";
}

struct FreeWorkbook {
  void operator()(lxw_workbook* workbook) const { lxw_workbook_free(workbook); }
};

class XlsxWriter final : public RowWriter {
 public:
  explicit XlsxWriter(const std::wstring& path) {
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    const std::string narrowPath = XlsxPath(path);
    const SilencedErrors silenced;
    errno = 0;
    workbook_.reset(workbook_new_opt(narrowPath.c_str(), &options));
    if (workbook_) sheet_ = workbook_add_worksheet(workbook_.get(), "Relatório");
    if (sheet_ == nullptr)
      throw OutputError(L"não foi possível criar o arquivo temporário da planilha" + Because(errno));
    bold_ = workbook_add_format(workbook_.get());
    format_set_bold(bold_);
    day_ = NewFormat("dd/mm/yyyy");
    moment_ = NewFormat("dd/mm/yyyy hh:mm:ss");
  }

  void Begin(const Heading& heading, std::span<const Column> columns) override {
    SetProperties(heading);
    for (const Column& column : columns) {
      const auto at = static_cast<lxw_col_t>(names_.size());
      names_.push_back(column.name);
      kinds_.push_back(column.kind);
      widths_.push_back(std::max(kNarrowestColumn, DisplayWidth(column.name) + kFilterWidth));
      Check(worksheet_write_string(sheet_, 0, at, CellText(column.name).c_str(), bold_), at);
    }
  }

  void Row(std::span<const Value> values) override {
    if (++row_ >= LXW_ROW_MAX) {
      throw OutputError(L"o relatório tem mais linhas do que cabem em uma planilha (" + CountText(LXW_ROW_MAX - 1) +
                        L"): use --formato csv.");
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
      const auto at = static_cast<lxw_col_t>(i);
      if (!IsNothing(values[i])) Check(WriteCell(at, values[i]), at);
    }
    RequireRowsKept();
  }

  void End() override {
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      const auto at = static_cast<lxw_col_t>(i);
      const auto width = static_cast<double>(std::min(kWidestColumn, widths_[i] + 1));
      Check(worksheet_set_column(sheet_, at, at, width, nullptr), at);
    }
    if (!names_.empty()) {
      worksheet_freeze_panes(sheet_, 1, 0);
      Check(worksheet_autofilter(sheet_, 0, 0, row_, static_cast<lxw_col_t>(names_.size() - 1)), 0);
    }
    std::fflush(sheet_->optimize_tmpfile);
    RequireRowsKept();
    RequireRoomForACopy();
    const SilencedErrors silenced;
    errno = 0;
    // Closing frees the workbook whether it succeeds or not.
    if (workbook_close(workbook_.release()) != LXW_NO_ERROR)
      throw OutputError(L"não foi possível gravar a planilha" + Because(errno));
  }

 private:
  // The library ignores an error of its temporary files and would leave rows out.
  void RequireRowsKept() const {
    if (std::ferror(sheet_->optimize_tmpfile) == 0) return;
    throw OutputError(L"não foi possível gravar o arquivo temporário da planilha: o disco está cheio.");
  }

  // At the end the library copies the rows to a second temporary file.
  void RequireRoomForACopy() const {
    std::error_code error;
    const std::filesystem::space_info disk = std::filesystem::space(std::filesystem::temp_directory_path(error), error);
    const long size = std::ftell(sheet_->optimize_tmpfile);
    if (error || size < 0 || disk.available >= static_cast<std::uintmax_t>(size)) return;
    throw OutputError(L"não foi possível gravar o arquivo temporário da planilha: o disco está cheio.");
  }

  lxw_format* NewFormat(const char* pattern) {
    lxw_format* format = workbook_add_format(workbook_.get());
    format_set_num_format(format, pattern);
    return format;
  }

  void SetProperties(const Heading& heading) {
    std::string title = PropertyText(heading.title);
    std::wstring text;
    for (const auto& [name, value] : heading.parameters)
      text.append(text.empty() ? L"" : L"; ").append(name).append(L": ").append(value);
    std::string comments = PropertyText(text);
    lxw_doc_properties properties{};
    properties.title = title.data();
    properties.comments = comments.data();
    workbook_set_properties(workbook_.get(), &properties);
  }

  lxw_error WriteCell(lxw_col_t at, const Value& value) {
    if (value.Is<bool>()) return worksheet_write_boolean(sheet_, row_, at, value.As<bool>() ? 1 : 0, nullptr);
    if (value.Is<Date>()) return WriteDate(at, value.As<Date>());
    const std::optional<double> number = NumberIn(value);
    if (number && FitsASpreadsheet(value, *number)) return WriteNumber(at, *number);
    if (value.Is<double>() && HasMoreDigits(*number))
      return WriteText(at, FromUtf8(IsoText(value, ColumnKind::kNumber)));
    return WriteText(at, BrazilianText(value));
  }

  lxw_error WriteDate(lxw_col_t at, Date date) {
    const bool counted = date.days >= kFirstCountedDay && date.days < kBeyondLastDay;
    if (!counted) return WriteText(at, BrazilianText(date));
    const bool day = kinds_[at] != ColumnKind::kMoment && date.days == std::floor(date.days);
    Widen(at, day ? std::size_t{10} : std::size_t{19});
    return worksheet_write_number(sheet_, row_, at, date.days, day ? day_ : moment_);
  }

  lxw_error WriteNumber(lxw_col_t at, double number) {
    Widen(at, BrazilianText(number).size());
    return worksheet_write_number(sheet_, row_, at, number, nullptr);
  }

  lxw_error WriteText(lxw_col_t at, const std::wstring& text) {
    if (text.empty()) return LXW_NO_ERROR;
    if (UnitsOf(text) > kMostUnits) return LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED;
    Widen(at, DisplayWidth(text));
    return worksheet_write_string(sheet_, row_, at, CellText(text).c_str(), nullptr);
  }

  void Widen(lxw_col_t at, std::size_t width) { widths_[at] = std::max(widths_[at], width); }

  void Check(lxw_error error, lxw_col_t at) const {
    if (error == LXW_NO_ERROR) return;
    const std::wstring where = L"linha " + CountText(row_) + L", coluna " + names_[at];
    if (error == LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED) {
      throw OutputError(L"um texto é mais longo do que cabe em uma célula de planilha (" + where +
                        L"): use --formato csv.");
    }
    throw OutputError(L"não foi possível escrever na planilha (" + where + L"): erro " + std::to_wstring(error) +
                      L" da libxlsxwriter.");
  }

  std::unique_ptr<lxw_workbook, FreeWorkbook> workbook_;
  lxw_worksheet* sheet_ = nullptr;
  lxw_format* bold_ = nullptr;
  lxw_format* day_ = nullptr;
  lxw_format* moment_ = nullptr;
  std::vector<std::wstring> names_;
  std::vector<ColumnKind> kinds_;
  std::vector<std::size_t> widths_;
  lxw_row_t row_ = 0;  // the row written last; row 0 has the names
};

}  // namespace

std::unique_ptr<RowWriter> NewXlsxWriter(const std::wstring& path) { return std::make_unique<XlsxWriter>(path); }

}  // namespace kodra::console
