#include "bench/native/bare_export.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace kodra::bench {
namespace {

constexpr std::string_view kStatement =
    "SELECT d.COD_DOCTO, s.DESCR_SUPORTE, d.NUM_CAIXA, d.NUM_CD, d.DT_ARMAZ, d.DT_VENC, d.FRENTE, d.VERSO  "
    "FROM DOCUMENTO d INNER JOIN SUPORTE s ON d.COD_SUPORTE = s.COD_SUPORTE WHERE (1=1)  ORDER BY d.COD_DOCTO";

enum class Kind { kText, kMoment, kDay, kNumber };

struct Column {
  const char* name;
  Kind kind;
};

constexpr std::array kColumns = {
    Column{"COD_DOCTO", Kind::kText}, Column{"DESCR_SUPORTE", Kind::kText}, Column{"NUM_CAIXA", Kind::kText},
    Column{"NUM_CD", Kind::kText},    Column{"DT_ARMAZ", Kind::kMoment},    Column{"DT_VENC", Kind::kDay},
    Column{"FRENTE", Kind::kNumber},  Column{"VERSO", Kind::kNumber},
};

constexpr lxw_col_t kColumnCount = kColumns.size();

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File Create(const std::string& path) {
  File file(std::fopen(path.c_str(), "wb"));
  if (!file) throw std::runtime_error("não foi possível gravar " + path);
  return file;
}

void Write(std::FILE* file, std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) throw std::runtime_error("disco cheio");
}

void Must(SQLRETURN result, const char* call) {
  if (!SQL_SUCCEEDED(result)) throw std::runtime_error(std::string(call) + " falhou");
}

// The rows of the statement, each cell as the text of the driver.
class Rows {
 public:
  explicit Rows(const std::string& archive) {
    Must(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_), "SQLAllocHandle");
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the interface requires it
    Must(SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0), "versão");
    Must(SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_), "SQLAllocHandle");
    std::u16string connection = Wide("Driver={SQLite3};Database=" + archive + ";StepAPI=1;");
    Must(SQLDriverConnectW(connection_, nullptr, reinterpret_cast<SQLWCHAR*>(connection.data()), SQL_NTS, nullptr, 0,
                           nullptr, SQL_DRIVER_NOPROMPT),
         "SQLDriverConnect");
    Must(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement_), "SQLAllocHandle");
    std::u16string text = Wide(std::string(kStatement));
    Must(SQLPrepareW(statement_, reinterpret_cast<SQLWCHAR*>(text.data()), SQL_NTS), "SQLPrepare");
    Must(SQLExecute(statement_), "SQLExecute");
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
      Cell& cell = cells_[i];
      Must(SQLBindCol(statement_, static_cast<SQLUSMALLINT>(i + 1), SQL_C_CHAR, cell.text, sizeof cell.text,
                      &cell.length),
           "SQLBindCol");
    }
  }
  ~Rows() {
    SQLFreeHandle(SQL_HANDLE_STMT, statement_);
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
  }
  Rows(const Rows&) = delete;
  Rows& operator=(const Rows&) = delete;

  bool Next() { return SQL_SUCCEEDED(SQLFetch(statement_)); }
  bool IsNull(std::size_t column) const { return cells_[column].length == SQL_NULL_DATA; }
  // Empty for a null.
  std::string_view Text(std::size_t column) const {
    const Cell& cell = cells_[column];
    return {cell.text, cell.length < 0 ? 0 : static_cast<std::size_t>(cell.length)};
  }

 private:
  struct Cell {
    char text[64];
    SQLLEN length;
  };

  static std::u16string Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

  SQLHENV environment_ = nullptr;
  SQLHDBC connection_ = nullptr;
  SQLHSTMT statement_ = nullptr;
  std::array<Cell, kColumns.size()> cells_{};
};

// "2024-03-01 10:20:30" with a T.
void AppendIsoMoment(std::string_view text, std::string& line) {
  line += text.substr(0, 10);
  line += 'T';
  line += text.substr(11);
}

void AppendIso(Kind kind, std::string_view text, std::string& line) {
  if (kind == Kind::kMoment)
    AppendIsoMoment(text, line);
  else
    line += text;
}

void WriteCsv(Rows& rows, std::FILE* file) {
  std::string line;
  for (const Column& column : kColumns) line.append(line.empty() ? "" : ",").append(column.name);
  Write(file, line + "\r\n");
  while (rows.Next()) {
    line.clear();
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
      if (i > 0) line += ',';
      if (rows.IsNull(i)) continue;
      const std::string_view text = rows.Text(i);
      const bool isQuoted = std::ranges::any_of(text, [](char c) { return c == ',' || c == '"' || c < 0x20; });
      if (isQuoted) throw std::runtime_error("o acervo tem um texto com vírgula, aspas ou quebra de linha");
      AppendIso(kColumns[i].kind, text, line);
    }
    line += "\r\n";
    Write(file, line);
  }
}

void WriteJson(Rows& rows, std::FILE* file) {
  Write(file, "[");
  std::string line;
  bool isFirst = true;
  while (rows.Next()) {
    line = isFirst ? "\n{" : ",\n{";
    isFirst = false;
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
      if (i > 0) line += ',';
      line.append(1, '"').append(kColumns[i].name).append("\":");
      const std::string_view text = rows.Text(i);
      if (rows.IsNull(i)) {
        line += "null";
      } else if (kColumns[i].kind == Kind::kNumber) {
        line += text;
      } else {
        const bool isEscaped = std::ranges::any_of(text, [](char c) { return c == '\\' || c == '"' || c < 0x20; });
        if (isEscaped) throw std::runtime_error("o acervo tem um texto com barra, aspas ou caractere de controle");
        line += '"';
        AppendIso(kColumns[i].kind, text, line);
        line += '"';
      }
    }
    line += '}';
    Write(file, line);
  }
  Write(file, "\n]\n");
}

// "01/03/2024", and the time of day after it for a moment.
void AppendBrazilian(std::string_view iso, Kind kind, std::string& line) {
  line.append(iso.substr(8, 2)).append(1, '/').append(iso.substr(5, 2)).append(1, '/').append(iso.substr(0, 4));
  if (kind == Kind::kMoment) line.append(1, ' ').append(iso.substr(11));
}

void AppendEscaped(std::string_view text, std::string& line) {
  for (const char c : text) {
    if (c == '&')
      line += "&amp;";
    else if (c == '<')
      line += "&lt;";
    else if (c == '>')
      line += "&gt;";
    else if (c == '"')
      line += "&quot;";
    else
      line += c;
  }
}

std::string_view HtmlClass(Kind kind, std::string_view text, bool isNull) {
  constexpr std::size_t kUnbroken = 14;
  if (kind == Kind::kNumber) return isNull ? "" : " class=\"numero\"";
  if (kind != Kind::kText) return " class=\"inteiro\"";
  return !isNull && text.size() <= kUnbroken && text.find(' ') == text.npos ? " class=\"inteiro\"" : "";
}

std::string Read(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return std::move(text).str();
}

void WriteHtml(Rows& rows, std::FILE* file, const std::string& page) {
  const std::string example = Read(page);
  Write(file, std::string_view(example).substr(0, example.find("<tbody")));
  std::string line;
  for (bool isEven = false; rows.Next(); isEven = !isEven) {
    line = isEven ? "<tbody class=\"par\"><tr>" : "<tbody><tr>";
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
      const Kind kind = kColumns[i].kind;
      const std::string_view text = rows.Text(i);
      line.append("<td").append(HtmlClass(kind, text, rows.IsNull(i))).append(1, '>');
      if (kind == Kind::kText || kind == Kind::kNumber)
        AppendEscaped(text, line);
      else if (!rows.IsNull(i))
        AppendBrazilian(text, kind, line);
      line += "</td>";
    }
    line += "</tr></tbody>\n";
    Write(file, line);
  }
  Write(file, std::string_view(example).substr(example.rfind("<tbody")));
}

int Digits(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// The day number of a spreadsheet, with the time of day as its fraction.
double Serial(std::string_view iso) {
  using namespace std::chrono;
  const sys_days day = year(Digits(iso.substr(0, 4))) / Digits(iso.substr(5, 2)) / Digits(iso.substr(8, 2));
  const auto whole = static_cast<double>((day - sys_days(year(1899) / 12 / 30)).count());
  if (iso.size() == 10) return whole;
  const double minutes = Digits(iso.substr(11, 2)) * 60.0 + Digits(iso.substr(14, 2));
  return whole + (minutes * 60.0 + Digits(iso.substr(17, 2))) * 1000.0 / 86400000.0;
}

std::size_t Characters(std::string_view utf8) {
  return static_cast<std::size_t>(std::ranges::count_if(utf8, [](char c) { return (c & 0xC0) != 0x80; }));
}

void WriteXlsx(Rows& rows, const std::string& target) {
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  lxw_workbook* const book = workbook_new_opt(target.c_str(), &options);
  if (book == nullptr) throw std::runtime_error("não foi possível criar " + target);
  lxw_worksheet* const sheet = workbook_add_worksheet(book, "Relatório");
  lxw_format* const bold = workbook_add_format(book);
  format_set_bold(bold);
  lxw_format* const day = workbook_add_format(book);
  format_set_num_format(day, "dd/mm/yyyy");
  lxw_format* const moment = workbook_add_format(book);
  format_set_num_format(moment, "dd/mm/yyyy hh:mm:ss");
  worksheet_set_paper(sheet, 9);
  worksheet_fit_to_pages(sheet, 1, 0);
  worksheet_set_header(sheet, "&L&BDocumentos: relatório sintético");
  worksheet_set_footer(sheet, "&RPágina &P de &N");
  std::array<std::size_t, kColumns.size()> widths{};
  lxw_row_t row = 0;
  for (lxw_col_t i = 0; i < kColumnCount; ++i) {
    worksheet_write_string(sheet, 0, i, kColumns[i].name, bold);
    widths[i] = std::max<std::size_t>(8, Characters(kColumns[i].name) + 3);
  }
  std::string text;
  while (rows.Next()) {
    ++row;
    for (lxw_col_t i = 0; i < kColumnCount; ++i) {
      if (rows.IsNull(i)) continue;
      text = rows.Text(i);
      const Kind kind = kColumns[i].kind;
      std::size_t width = Characters(text);
      if (kind == Kind::kText)
        worksheet_write_string(sheet, row, i, text.c_str(), nullptr);
      else if (kind == Kind::kNumber)
        worksheet_write_number(sheet, row, i, Digits(text), nullptr);
      else
        worksheet_write_number(sheet, row, i, Serial(text), kind == Kind::kDay ? day : moment);
      widths[i] = std::max(widths[i], width);
    }
  }
  for (lxw_col_t i = 0; i < kColumnCount; ++i) {
    lxw_row_col_options shown{};
    worksheet_set_column_opt(sheet, i, i, static_cast<double>(widths[i] + 1), nullptr, &shown);
  }
  worksheet_set_landscape(sheet);
  worksheet_freeze_panes(sheet, 1, 0);
  worksheet_repeat_rows(sheet, 0, 0);
  worksheet_autofilter(sheet, 0, 0, row, static_cast<lxw_col_t>(kColumns.size() - 1));
  if (workbook_close(book) != LXW_NO_ERROR) throw std::runtime_error("não foi possível gravar " + target);
}

}  // namespace

void BareExport(const std::string& format, const std::string& archive, const std::string& target,
                const std::string& page) {
  Rows rows(archive);
  if (format == "xlsx") return WriteXlsx(rows, target);
  const File file = Create(target);
  if (format == "csv") return WriteCsv(rows, file.get());
  if (format == "json") return WriteJson(rows, file.get());
  return WriteHtml(rows, file.get(), page);
}

}  // namespace kodra::bench
