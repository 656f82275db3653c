// In place of xlsx_writer.cpp where the library that writes spreadsheets is not to be had.
#include "console/command_line/output_error.h"
#include "console/formats/xlsx_writer.h"

namespace kodra::console {

std::unique_ptr<RowWriter> NewXlsxWriter(const std::wstring& /*path*/) {
  throw OutputError(
      L"o formato xlsx não existe nesta versão do programa: use --formato csv --bom, que a planilha também abre.");
}

}  // namespace kodra::console
