// The formats of the files that the page offers, and the answer that is such a file.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "console/formats/formats.h"
#include "console/panel/http.h"
#include "console/panel/temporary_file.h"

namespace kodra::console::panel {

struct FileFormat {
  std::string_view name;  // "excel"
  Format format;
  std::string_view ending;  // "csv"
  const char* type;
};

// Raises UsageError for an unknown name.
const FileFormat& FileFormatNamed(const std::string& name);

// The options that the console has without further arguments.
FormatOptions OptionsOf(const FileFormat& format);

// The file as a download of that name, without its ending.
Answer FileAnswer(const std::shared_ptr<TemporaryFile>& file, const FileFormat& format, const std::string& name);

}  // namespace kodra::console::panel
