// Takes the place of xlsx_writer.cpp in a program that is built without libxlsxwriter.
#include "console/command_line/output_error.h"
#include "console/formats/xlsx_writer.h"

namespace kodra::console {

std::unique_ptr<RowWriter> NewXlsxWriter(const std::wstring& /*path*/) {
  throw OutputError(
      L"esta versão do programa não grava xlsx: use --formato csv --bom, que um programa de planilhas também abre.");
}

}  // namespace kodra::console
