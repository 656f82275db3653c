#include "console/formats/xlsx_writer.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include "console/command_line/file_error.h"
#include "console/command_line/system_reason.h"
#include "console/formats/cell_text.h"
#include "console/formats/display_width.h"
#include "console/formats/silenced_errors.h"
#include "console/formats/xlsx_path.h"
#include "console/formats/xlsx_text.h"
#include "console/reports/guide.h"
#include "values/dates.h"
#include "values/decimal.h"
#include "values/utf16.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::FromUtf8;

// 1 March 1900. A spreadsheet takes 1900 for a leap year, so that its day numbers are those of automation dates only
// from here on.
constexpr double kFirstCountedDay = 61;
// The largest whole number that a spreadsheet shows with all its digits.
constexpr std::uint64_t kMostDigits = 999'999'999'999'999;
constexpr std::size_t kMostUnits = 32767;
// Widths are in characters. A wider text continues on the next line of its cell.
constexpr std::size_t kWidestColumn = 60;
constexpr std::size_t kNarrowestColumn = 8;
// The room that the arrow of the filter takes beside a name.
constexpr std::size_t kFilterWidth = 3;
// What fits across an upright A4 page in full size.
constexpr std::size_t kPortraitWidth = 95;

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
  XlsxWriter(const std::wstring& path, XlsxOptions options) : options_(options) {
    lxw_workbook_options workbookOptions{};
    workbookOptions.constant_memory = LXW_TRUE;
    const std::string narrowPath = XlsxPath(path);
    const SilencedErrors silenced;
    errno = 0;
    workbook_.reset(workbook_new_opt(narrowPath.c_str(), &workbookOptions));
    if (workbook_) sheet_ = workbook_add_worksheet(workbook_.get(), "Relatório");
    if (sheet_ == nullptr) throw FileError(L"não foi possível criar o arquivo temporário da planilha" + Because(errno));
    bold_ = workbook_add_format(workbook_.get());
    format_set_bold(bold_);
    day_ = NewFormat("dd/mm/yyyy");
    moment_ = NewFormat("dd/mm/yyyy hh:mm:ss");
    wrapped_ = workbook_add_format(workbook_.get());
    format_set_text_wrap(wrapped_);
  }

  void Begin(const Heading& heading, std::span<const Column> columns) override {
    const guide::Report* const report = guide::Find(heading.className, heading.method);
    SetProperties(heading);
    SetPage(report != nullptr && !report->page.title.empty() ? FromUtf8(report->page.title) : heading.title);
    for (const Column& column : columns)
      columns_.push_back(
          {column.name, column.kind, report == nullptr ? nullptr : guide::FindColumn(*report, column.name)});
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const auto at = static_cast<lxw_col_t>(i);
      const std::wstring text = HeadingOf(columns_[i]);
      Widen(at, DisplayWidth(text) + kFilterWidth);
      Check(worksheet_write_string(sheet_, 0, at, CellText(text).c_str(), bold_), at);
    }
  }

  void Row(std::span<const Value> values) override {
    if (++row_ >= LXW_ROW_MAX) {
      throw FileError(L"o relatório tem mais linhas do que cabem em uma planilha (" + CountText(LXW_ROW_MAX - 1) +
                      L"): use --formato csv.");
    }
    errno = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
      const auto at = static_cast<lxw_col_t>(i);
      if (!IsNothing(values[i])) Check(WriteCell(at, values[i]), at);
    }
    RequireRowsKept();
  }

  void End() override {
    std::size_t shown = columns_.size();
    while (shown > 0 && columns_[shown - 1].IsEmptyContinuation()) --shown;
    std::size_t pageWidth = 0;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const auto at = static_cast<lxw_col_t>(i);
      const std::size_t width = std::min(kWidestColumn, columns_[i].width + 1);
      lxw_row_col_options options{};
      options.hidden = i < shown ? LXW_FALSE : LXW_TRUE;
      Check(worksheet_set_column_opt(sheet_, at, at, static_cast<double>(width), nullptr, &options), at);
      if (i < shown) pageWidth += width;
    }
    if (pageWidth > kPortraitWidth) worksheet_set_landscape(sheet_);
    if (shown > 0) {
      worksheet_freeze_panes(sheet_, 1, 0);
      worksheet_repeat_rows(sheet_, 0, 0);
      Check(worksheet_autofilter(sheet_, 0, 0, row_, static_cast<lxw_col_t>(shown - 1)), 0);
    }
    errno = 0;
    std::fflush(sheet_->optimize_tmpfile);
    RequireRowsKept();
    RequireRoomForACopy();
    const SilencedErrors silenced;
    errno = 0;
    // Closing frees the workbook whether it succeeds or not.
    if (workbook_close(workbook_.release()) != LXW_NO_ERROR)
      throw FileError(L"não foi possível gravar a planilha" + Because(errno));
  }

 private:
  struct SheetColumn {
    std::wstring name;
    ColumnKind kind;
    const guide::Column* about;  // null for a column that the guide does not know
    std::size_t width = kNarrowestColumn;
    bool hasText = false;

    bool IsEmptyContinuation() const {
      return !hasText && about != nullptr && about->place == guide::Place::kContinuation;
    }
  };

  // The library ignores an error of its temporary files and would leave rows out. REQUIRES: errno was 0 before the rows
  // were written.
  void RequireRowsKept() const {
    if (std::ferror(sheet_->optimize_tmpfile) != 0) FailToKeepRows(errno);
  }

  // At the end the library copies the rows to a second temporary file, with a head and a foot, and writes small parts
  // of the spreadsheet to others.
  void RequireRoomForACopy() const {
    std::error_code error;
    const std::filesystem::space_info disk = std::filesystem::space(std::filesystem::temp_directory_path(error), error);
    constexpr std::uintmax_t kOtherParts = 64 << 10;
    const long size = std::ftell(sheet_->optimize_tmpfile);
    if (!error && size >= 0 && disk.available < static_cast<std::uintmax_t>(size) + kOtherParts) FailToKeepRows(ENOSPC);
  }

  [[noreturn]] static void FailToKeepRows(int systemError) {
    throw FileError(L"não foi possível gravar o arquivo temporário da planilha" + Because(systemError));
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

  // A4, all columns on the width of a page, the title above the names, the page numbers below the rows. A title that is
  // too long for the library is left out.
  void SetPage(std::wstring_view title) {
    constexpr std::uint8_t kA4 = 9;
    worksheet_set_paper(sheet_, kA4);
    worksheet_fit_to_pages(sheet_, 1, 0);
    worksheet_set_header(sheet_, ("&L&B" + PageText(title)).c_str());
    worksheet_set_footer(sheet_, "&RPágina &P de &N");
  }

  // The caption, if the option asks for it and no other column has the same, or else the name.
  std::wstring HeadingOf(const SheetColumn& column) const {
    if (!options_.captions || column.about == nullptr || column.about->caption.empty()) return column.name;
    const auto hasSame = [&](const SheetColumn& other) {
      return other.about != nullptr && other.about->caption == column.about->caption;
    };
    return std::ranges::count_if(columns_, hasSame) == 1 ? FromUtf8(column.about->caption) : column.name;
  }

  lxw_error WriteCell(lxw_col_t at, const Value& value) {
    if (value.Is<std::wstring>()) return WriteText(at, value.As<std::wstring>());
    if (value.Is<bool>()) return worksheet_write_boolean(sheet_, row_, at, value.As<bool>() ? 1 : 0, nullptr);
    if (value.Is<Date>()) return WriteDate(at, value.As<Date>());
    const std::optional<double> number = NumberIn(value);
    if (number && FitsASpreadsheet(value, *number)) return WriteNumber(at, *number);
    if (value.Is<double>() && HasMoreDigits(*number))
      return WriteText(at, FromUtf8(IsoText(value, ColumnKind::kNumber)));
    return WriteText(at, BrazilianText(value, columns_[at].kind));
  }

  lxw_error WriteDate(lxw_col_t at, Date date) {
    const bool counted = date.days >= kFirstCountedDay && date.days < values::kLastDay + 1;
    if (!counted) return WriteText(at, BrazilianText(date, columns_[at].kind));
    const bool day = columns_[at].kind != ColumnKind::kMoment && date.days == std::floor(date.days);
    Widen(at, day ? std::size_t{10} : std::size_t{19});
    return worksheet_write_number(sheet_, row_, at, date.days, day ? day_ : moment_);
  }

  lxw_error WriteNumber(lxw_col_t at, double number) {
    Widen(at, BrazilianText(number, ColumnKind::kNumber).size());
    return worksheet_write_number(sheet_, row_, at, number, nullptr);
  }

  lxw_error WriteText(lxw_col_t at, const std::wstring& text) {
    if (text.empty()) return LXW_NO_ERROR;
    // A character has at most two units.
    if (text.size() > kMostUnits / 2 && values::ToUtf16(text).size() > kMostUnits)
      return LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED;
    const std::size_t width = DisplayWidth(text);
    Widen(at, width);
    columns_[at].hasText = true;
    return worksheet_write_string(sheet_, row_, at, CellText(text).c_str(), width > kWidestColumn ? wrapped_ : nullptr);
  }

  void Widen(lxw_col_t at, std::size_t width) { columns_[at].width = std::max(columns_[at].width, width); }

  void Check(lxw_error error, lxw_col_t at) const {
    if (error == LXW_NO_ERROR) return;
    const std::wstring where = L"linha " + CountText(row_) + L", coluna " + columns_[at].name;
    if (error == LXW_ERROR_MAX_STRING_LENGTH_EXCEEDED) {
      throw FileError(L"um texto é mais longo do que cabe em uma célula de planilha (" + where +
                      L"): use --formato csv.");
    }
    throw FileError(L"não foi possível escrever na planilha (" + where + L"): erro " + std::to_wstring(error) +
                    L" da libxlsxwriter.");
  }

  XlsxOptions options_;
  std::unique_ptr<lxw_workbook, FreeWorkbook> workbook_;
  lxw_worksheet* sheet_ = nullptr;
  lxw_format* bold_ = nullptr;
  lxw_format* day_ = nullptr;
  lxw_format* moment_ = nullptr;
  lxw_format* wrapped_ = nullptr;
  std::vector<SheetColumn> columns_;
  lxw_row_t row_ = 0;  // the row written last; row 0 has the names
};

}  // namespace

std::unique_ptr<RowWriter> NewXlsxWriter(const std::wstring& path, XlsxOptions options) {
  return std::make_unique<XlsxWriter>(path, options);
}

}  // namespace kodra::console
