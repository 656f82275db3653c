#include "console/profiles/profiles.h"

#include <fmt/format.h>
#include <algorithm>
#include <cctype>

#include "console/command_line/environment.h"
#include "console/command_line/path_text.h"
#include "console/command_line/suggest.h"
#include "console/command_line/terminal_text.h"
#include "console/command_line/usage_error.h"
#include "console/profiles/private_file.h"
#include "values/password.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

namespace fs = std::filesystem;
using values::FromUtf8;

constexpr const char* kConnection = "conexao";
constexpr const char* kVariable = "senha-de";
constexpr const char* kCommand = "senha-comando";
constexpr const char* kAsks = "pergunta-senha";
const std::vector<std::string> kKeys = {kConnection, kVariable, kCommand, kAsks};

constexpr std::size_t kLongestName = 60;

constexpr const char* kPasswordAdvice =
    "tire-a da string de conexão e use senha-de, senha-comando ou pergunta-senha (veja kodrarpt perfil --help)";

// A name is written in brackets in the file of profiles, and the name of another file may contain it.
void CheckName(const std::string& name) {
  const bool isPlain = std::ranges::all_of(name, [](char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    return byte >= 0x80 || std::isalnum(byte) != 0 || letter == '-' || letter == '_' || letter == '.';
  });
  if (!isPlain || name.empty() || name.front() == '.' || FromUtf8(name).size() > kLongestName)
    throw UsageError(
        "o nome de um perfil tem até 60 caracteres, só letras, algarismos, hífen, sublinhado e ponto, e não começa com "
        "ponto");
}

bool HasControls(const std::string& text) { return std::ranges::any_of(FromUtf8(text), IsControl); }

// Why a profile cannot be used, or nothing.
std::string ProblemWith(const Profile& profile) {
  if (profile.connection.empty()) return "falta conexao";
  if (values::HasPassword(FromUtf8(profile.connection)))
    return std::string("a conexão contém uma senha: ") + kPasswordAdvice;
  const int sources = (profile.password.variable.empty() ? 0 : 1) + (profile.password.command.empty() ? 0 : 1) +
                      (profile.password.asks ? 1 : 0);
  return sources > 1 ? "só um de senha-de, senha-comando e pergunta-senha pode ser usado" : "";
}

Profile ProfileOf(const IniSection& section) {
  Profile profile = {.name = section.name, .connection = {}, .password = {}};
  for (const auto& [key, value] : section.entries) {
    const std::string folded = Folded(key);
    if (folded == kConnection)
      profile.connection = value;
    else if (folded == kVariable)
      profile.password.variable = value;
    else if (folded == kCommand)
      profile.password.command = value;
    else if (folded == kAsks)
      profile.password.asks = Folded(value) == "sim";
    else
      profile.problem = fmt::format("\"{}\" não existe em um perfil; há {}", key, fmt::join(kKeys, ", "));
    if (folded == kAsks && Folded(value) != "sim" && Folded(value) != "nao")
      profile.problem = "pergunta-senha deve ser sim ou não";
  }
  if (profile.problem.empty()) profile.problem = ProblemWith(profile);
  return profile;
}

}  // namespace

#ifdef _WIN32

fs::path ProfilesPath() {
  const auto folder = EnvironmentVariable("APPDATA");
  if (!folder || folder->empty())
    throw UsageError(
        "a variável de ambiente APPDATA, que diz onde ficam os perfis, não existe: saia do Windows e entre de novo, e "
        "ele a define");
  return PathOf(*folder) / "kodrarpt" / "perfis.ini";
}

#else

fs::path ProfilesPath() {
  const auto settings = EnvironmentVariable("XDG_CONFIG_HOME");
  if (settings && settings->starts_with('/')) return PathOf(*settings) / "kodrarpt" / "perfis.ini";
  const auto home = EnvironmentVariable("HOME");
  if (!home || home->empty())
    throw UsageError(
        "a variável de ambiente HOME, que diz onde ficam os perfis, não existe: defina-a com a sua pasta pessoal");
  return PathOf(*home) / ".config" / "kodrarpt" / "perfis.ini";
}

#endif

Profiles::Profiles() : path_(ProfilesPath()) {
  file_ = std::make_unique<IniFile>(ReadPrivateFile(path_).value_or(""), TextOf(path_));
  for (const IniSection& section : file_->Sections()) {
    if (section.name.empty())
      throw UsageError(fmt::format("\"{}\" tem linhas antes do primeiro perfil, que começa com [nome]", TextOf(path_)));
    profiles_.push_back(ProfileOf(section));
  }
}

const Profile* Profiles::Named(const std::string& name) const {
  const auto found = std::ranges::find(profiles_, Folded(name), [](const Profile& one) { return Folded(one.name); });
  return found == profiles_.end() ? nullptr : &*found;
}

void Profiles::RaiseUnknown(const std::string& name) const {
  std::vector<std::string> known;
  for (const Profile& profile : profiles_) known.push_back(profile.name);
  throw UsageError(
      fmt::format("o perfil \"{}\" não existe{}; kodrarpt perfil lista mostra todos", name, DidYouMean(name, known)));
}

const Profile& Profiles::Find(const std::string& name) const {
  const Profile* const profile = Named(name);
  if (profile == nullptr) RaiseUnknown(name);
  if (!profile->problem.empty())
    throw UsageError(fmt::format("o perfil \"{}\" não pode ser usado: {}", profile->name, profile->problem));
  return *profile;
}

void Profiles::Add(const Profile& profile, bool replaces) {
  CheckName(profile.name);
  const PasswordSource& password = profile.password;
  if (HasControls(profile.connection + password.variable + password.command))
    throw UsageError("um perfil não pode conter uma quebra de linha nem outro caractere de controle");
  if (const std::string problem = ProblemWith(profile); !problem.empty()) throw UsageError(problem);
  if (const Profile* const former = Named(profile.name); former != nullptr) {
    if (!replaces)
      throw UsageError(fmt::format("o perfil \"{}\" já existe: para trocá-lo, acrescente --substitui", former->name));
    file_->Remove(former->name);
  }
  file_->Set(profile.name, kConnection, profile.connection);
  if (!password.variable.empty()) file_->Set(profile.name, kVariable, password.variable);
  if (!password.command.empty()) file_->Set(profile.name, kCommand, password.command);
  if (password.asks) file_->Set(profile.name, kAsks, "sim");
  WritePrivateFile(path_, file_->Text());
}

std::string Profiles::Remove(const std::string& name) {
  const Profile* const profile = Named(name);
  if (profile == nullptr) RaiseUnknown(name);
  file_->Remove(profile->name);
  WritePrivateFile(path_, file_->Text());
  return profile->name;
}

}  // namespace kodra::console
