// In place of xlsx_writer.cpp where the library that writes spreadsheets is not to be had.
#include "client/formats/xlsx_writer.h"
#include "client/output_error.h"

namespace kodra::client {

std::unique_ptr<RowWriter> NewXlsxWriter(const std::wstring& /*path*/) {
  throw OutputError(
      L"o formato xlsx não existe nesta versão do programa: use --formato csv --bom, que a planilha também abre.");
}

}  // namespace kodra::client
