// kodra-reference: writes the reference pages from the IDL and the guide.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "tools/reference/pages.h"

namespace {

void Write(const std::string& idl, const std::filesystem::path& folder) {
  std::ifstream in(idl);
  if (!in) throw std::runtime_error(idl + ": não foi possível ler o arquivo");
  std::filesystem::create_directories(folder);
  for (const auto& [name, text] : kodra::console::reference::Pages(kodra::console::reference::ReadIdl(in)))
    if (!(std::ofstream(folder / name, std::ios::binary) << text))
      throw std::runtime_error(name + ": não foi possível gravar o arquivo");
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Escreve as páginas de referência a partir da IDL e do guia de kodrarpt.");
  std::string idl;
  std::string folder;
  app.add_option("idl", idl, "O arquivo IDL do componente")->required();
  app.add_option("pasta", folder, "A pasta em que as páginas são gravadas")->required();
  CLI11_PARSE(app, argc, argv);
  try {
    Write(idl, folder);
  } catch (const std::exception& error) {
    std::cerr << "kodra-reference: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
