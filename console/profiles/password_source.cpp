#include "console/profiles/password_source.h"

#include <fmt/format.h>
#include <array>
#include <cstdio>
#include <memory>

#include "console/command_line/environment.h"
#include "console/command_line/usage_error.h"
#include "console/profiles/ask_password.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::FromUtf8;

constexpr std::size_t kLongest = 1024;

#ifdef _WIN32
constexpr const wchar_t* kRead = L"rb";
std::FILE* Start(const std::string& command) { return _wpopen(FromUtf8(command).c_str(), kRead); }
int End(std::FILE* output) { return _pclose(output); }
#else
std::FILE* Start(const std::string& command) { return popen(command.c_str(), "re"); }
int End(std::FILE* output) { return pclose(output); }
#endif

std::wstring PasswordOfCommand(const std::string& command) {
  std::fflush(nullptr);
  std::FILE* const output = Start(command);
  if (output == nullptr)
    throw UsageError("não foi possível executar o comando de senha-comando: feche outros programas e tente de novo");
  // All of it is read, so that the command does not fail for want of a reader.
  std::string text;
  for (int byte = std::fgetc(output); byte != EOF; byte = std::fgetc(output))
    if (text.size() <= kLongest) text += static_cast<char>(byte);
  if (End(output) != 0)
    throw UsageError(
        "o comando de senha-comando terminou com erro, e não há senha: execute-o no terminal para ver por quê");
  const std::string line = text.substr(0, text.find_first_of("\r\n"));
  if (line.empty())
    throw UsageError(
        "o comando de senha-comando não escreveu nenhuma senha, que deve ser a primeira linha da sua saída");
  if (line.size() > kLongest)
    throw UsageError(
        "a primeira linha que o comando de senha-comando escreveu passa de 1.024 bytes, e é longa demais para ser a "
        "senha");
  return FromUtf8(line);
}

}  // namespace

std::wstring PasswordFrom(const PasswordSource& source, const std::string& whose) {
  if (source.asks) return AskPassword("Senha " + whose + ": ");
  if (!source.command.empty()) return PasswordOfCommand(source.command);
  const std::optional<std::string> value = EnvironmentVariable(source.variable);
  if (!value)
    throw UsageError(fmt::format("a variável de ambiente \"{}\", que deve conter a senha, não existe: defina-a antes",
                                 source.variable));
  return FromUtf8(*value);
}

}  // namespace kodra::console
