// kodra-reference: writes the reference pages, the guide's table of errors, the help texts of the IDL, and the
// completion and the manual page of kodrarpt, from the IDL, the entries on the reports and the options of the program.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "console/commands/commands.h"
#include "tools/reference/command_line.h"
#include "tools/reference/member_texts.h"
#include "tools/reference/pages.h"

namespace {

namespace reference = kodra::console::reference;

std::string Read(const std::filesystem::path& path) {
  std::ostringstream text;
  if (!(text << std::ifstream(path).rdbuf()))
    throw std::runtime_error(path.string() + ": não foi possível ler o arquivo");
  return text.str();
}

void Write(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  if (!(std::ofstream(path, std::ios::binary) << text))
    throw std::runtime_error(path.string() + ": não foi possível gravar o arquivo");
}

void WriteAll(const std::filesystem::path& sources, const std::filesystem::path& folder) {
  const std::string idl = Read(sources / "idl/kodrarpt.idl");
  std::istringstream reader(idl);
  for (const auto& [name, text] : reference::Pages(reference::ReadIdl(reader)))
    Write(folder / "docs/reference" / name, text);
  const std::filesystem::path guide = "docs/guia.pt-BR.md";
  Write(folder / guide, reference::WithErrorTable(Read(sources / guide)));
  Write(folder / "idl/kodrarpt.idl", reference::WithHelpTexts(idl));
  kodra::console::Program program(std::cout, std::cerr);
  kodra::console::AddCommands(program);
  Write(folder / "packaging/console/kodrarpt.bash", reference::BashCompletion(program));
  Write(folder / "packaging/console/kodrarpt.1", reference::ManPage(program));
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Escreve o que é feito dos fontes: referência, textos de ajuda da IDL, e o que acompanha kodrarpt.");
  std::string sources;
  std::string folder;
  app.add_option("fontes", sources, "A pasta dos fontes")->required();
  app.add_option("pasta", folder, "A pasta em que os arquivos são gravados; pode ser a dos fontes")->required();
  CLI11_PARSE(app, argc, argv);
  try {
    WriteAll(sources, folder);
  } catch (const std::exception& error) {
    std::cerr << "kodra-reference: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
