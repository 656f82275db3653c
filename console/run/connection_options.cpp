#include "console/run/connection_options.h"

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <optional>

#include "console/command_line/program.h"
#include "console/command_line/usage_error.h"
#include "values/password.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::FromUtf8;

std::optional<std::wstring> Variable(const std::string& name) {
#ifdef _WIN32
  const wchar_t* const value = _wgetenv(FromUtf8(name).c_str());
  return value == nullptr ? std::nullopt : std::optional<std::wstring>(value);
#else
  const char* const value = std::getenv(name.c_str());
  return value == nullptr ? std::nullopt : std::optional(FromUtf8(value));
#endif
}

}  // namespace

void ConnectionOptions::AddTo(CLI::App& command) {
  command.add_option("--conexao", text_, "A string de conexão do banco de dados")->option_text("STRING")->required();
  command
      .add_option("--senha-de", passwordVariable_,
                  std::string("A variável de ambiente que contém a senha (sem esta opção, ") + kPasswordVariable + ")")
      ->option_text("VARIÁVEL");
  command.add_flag(kDetailsOption, details_, "Em um erro, mostra também a mensagem completa do componente");
}

std::wstring ConnectionOptions::Text() const {
  std::wstring text = FromUtf8(text_);
  const bool named = !passwordVariable_.empty();
  if (values::HasPassword(text)) {
    if (named) throw UsageError("a string de conexão já tem uma senha: remova-a ou não use --senha-de");
    return text;
  }
  const std::optional<std::wstring> password = Variable(named ? passwordVariable_ : kPasswordVariable);
  if (password) return WithPassword(text, *password);
  if (named) throw UsageError("a variável de ambiente \"" + passwordVariable_ + "\", de --senha-de, não existe");
  return text;
}

std::wstring WithPassword(std::wstring connectionString, std::wstring_view password) {
  std::wstring value(password);
  const bool plain = !value.empty() && value.find_first_of(L" ;={}\"'") == std::wstring::npos;
  if (!plain) {
    value = L'"';
    for (const wchar_t c : password) value.append(c == L'"' ? 2 : 1, c);
    value += L'"';
  }
  if (!connectionString.empty() && connectionString.back() != L';') connectionString += L';';
  return connectionString + L"PWD=" + value + L";";
}

}  // namespace kodra::console
