#include "console/run/connection_options.h"

#include <CLI/CLI.hpp>

#include "console/command_line/environment.h"
#include "console/command_line/program.h"
#include "console/command_line/usage_error.h"
#include "values/password.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::FromUtf8;

// The connection string with the password from the source or, without one, from the environment if it is there.
std::wstring Complete(const std::wstring& connection, PasswordSource source, const std::string& whose) {
  if (source.IsNone() && EnvironmentVariable(kPasswordVariable)) source.variable = kPasswordVariable;
  return source.IsNone() ? connection : WithPassword(connection, PasswordFrom(source, whose));
}

}  // namespace

void ConnectionOptions::AddTo(CLI::App& command) {
  command_ = &command;
  command.add_option("--conexao", text_, "A string de conexão do banco de dados")->option_text("STRING");
  command
      .add_option("--perfil", profile_,
                  std::string("Uma conexão que \"kodrarpt perfil\" guardou (sem --conexao nem esta opção, ") +
                      kProfileVariable + ")")
      ->option_text("PERFIL");
  command
      .add_option("--senha-de", password_.variable,
                  std::string("A variável de ambiente que contém a senha (sem esta opção, ") + kPasswordVariable + ")")
      ->option_text("VARIÁVEL");
  command.add_flag("--pergunta-senha", password_.asks, "Pergunta a senha no terminal, que não a mostra");
  command.add_flag(kDetailsOption, details_, "Em um erro, mostra também a mensagem completa do componente");
}

bool ConnectionOptions::HasConnection() const { return command_->count("--conexao") > 0; }

std::string ConnectionOptions::ChosenProfile() const {
  if (HasConnection() && !profile_.empty()) throw UsageError("--conexao e --perfil não podem ser usados juntos");
  return profile_;
}

std::string ConnectionOptions::ProfileName() const {
  if (std::string chosen = ChosenProfile(); !chosen.empty() || HasConnection()) return chosen;
  return EnvironmentVariable(kProfileVariable).value_or("");
}

PasswordSource ConnectionOptions::Password() const {
  if (password_.asks && !password_.variable.empty())
    throw UsageError("--senha-de e --pergunta-senha não podem ser usados juntos");
  return password_;
}

std::wstring ConnectionOptions::Text() const {
  const std::string profile = ProfileName();
  if (!HasConnection() && profile.empty()) throw UsageError("falta --conexao ou --perfil");
  if (!HasConnection()) return ConnectionOfProfile(profile, Password());
  std::wstring text = FromUtf8(text_);
  const PasswordSource password = Password();
  if (!values::HasPassword(text)) return Complete(text, password, "do banco de dados");
  if (!password.IsNone())
    throw UsageError(std::string("a string de conexão já tem uma senha: remova-a ou não use ") +
                     (password.asks ? "--pergunta-senha" : "--senha-de"));
  return text;
}

std::wstring ConnectionOf(const Profile& profile, const PasswordSource& instead) {
  return Complete(FromUtf8(profile.connection), instead.IsNone() ? profile.password : instead,
                  "do perfil " + profile.name);
}

std::wstring ConnectionOfProfile(const std::string& name, const PasswordSource& instead) {
  return ConnectionOf(Profiles().Find(name), instead);
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
