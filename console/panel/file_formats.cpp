#include "console/panel/file_formats.h"

#include <algorithm>
#include <iterator>

#include "console/command_line/usage_error.h"
#include "console/formats/labels/label_arguments.h"
#include "console/formats/pages/letterhead_options.h"

namespace kodra::console::panel {
namespace {

constexpr FileFormat kFormats[] = {
    {"csv", Format::kCsv, "csv", "text/csv; charset=utf-8"},
    {"excel", Format::kCsv, "csv", "text/csv; charset=utf-8"},
    {"xlsx", Format::kXlsx, "xlsx", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"},
    {"json", Format::kJson, "json", "application/json"},
    {"pdf", Format::kPdf, "pdf", "application/pdf"},
};

}  // namespace

const FileFormat& FileFormatNamed(const std::string& name) {
  const auto* const found = std::ranges::find(kFormats, name, &FileFormat::name);
  if (found == std::end(kFormats)) throw UsageError("o formato \"" + name + "\" não existe");
  return *found;
}

FormatOptions OptionsOf(const FileFormat& format) {
  FormatOptions options;
  if (format.name == "excel") options.csv = kCsvForExcel;
  options.html.letterhead = pages::LetterheadOptions().Get();
  options.html.labels.print = labels::PrintOptionsOf({});
  options.html.labels.print.warn = [](const std::string&) {};
  return options;
}

Answer FileAnswer(const std::shared_ptr<TemporaryFile>& file, const FileFormat& format, const std::string& name) {
  const std::string fileName = name + "." + std::string(format.ending);
  return {.type = format.type,
          .headers = {{"Content-Disposition", "attachment; filename=\"" + fileName + "\""}},
          .stream = [file](Output& output) { file->CopyTo(output); }};
}

}  // namespace kodra::console::panel
