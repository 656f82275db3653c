// kodra-demo-data: writes the sample archive in the requested size.
#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>

#include "testbed/archive/writer.h"

namespace {

void WriteScript(const std::string& path, kodra::testbed::Size size) {
  std::ofstream script(path, std::ios::binary | std::ios::trunc);
  if (!script) throw std::runtime_error(path + ": não foi possível criar o arquivo");
  kodra::testbed::WriteMySql(script, size);
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Gera o arquivo de demonstração: sempre os mesmos dados para o mesmo tamanho.");
  app.require_subcommand(1);
  std::string path;
  kodra::testbed::Size size;
  const auto addTarget = [&](const char* name, const char* description) {
    CLI::App* target = app.add_subcommand(name, description);
    target->add_option("arquivo", path, "Arquivo a gravar")->required();
    target->add_option("--documents", size.documents, "Quantidade de documentos")
        ->check(CLI::NonNegativeNumber)
        ->capture_default_str();
    return target;
  };
  const CLI::App* sqlite = addTarget("sqlite", "Grava um banco de dados SQLite");
  addTarget("mysql", "Grava um script SQL para o cliente mariadb ou mysql");
  CLI11_PARSE(app, argc, argv);

  try {
    if (sqlite->parsed()) {
      kodra::testbed::WriteSqlite(path, size);
    } else {
      WriteScript(path, size);
    }
  } catch (const std::exception& error) {
    std::cerr << "kodra-demo-data: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
