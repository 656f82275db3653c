#include "console/panel/connections.h"

#include <fmt/format.h>
#include <algorithm>

#include "console/command_line/failure.h"
#include "console/command_line/usage_error.h"
#include "console/profiles/profiles.h"
#include "console/run/connection_options.h"

namespace kodra::console::panel {
namespace {

// What is wrong in the file is not said here, because the words may contain a part of it.
std::string ProblemWith(const Profile& profile) {
  if (!profile.problem.empty()) return "não pode ser usado; kodrarpt perfil lista mostra por quê";
  if (profile.password.asks)
    return "pergunta a senha no terminal; para usá-lo aqui, comece com kodrarpt painel --perfil " + profile.name;
  return {};
}

}  // namespace

Connections::List Connections::All() const {
  List list;
  if (!own_.empty()) list.choices.push_back({"", profile_, ""});
  try {
    const Profiles profiles;
    for (const Profile& profile : profiles.All())
      if (profile.name != profile_) list.choices.push_back({profile.name, profile.name, ProblemWith(profile)});
  } catch (const std::exception&) {
    list.problem = CurrentFailure(true).message;
  }
  return list;
}

std::wstring Connections::Text(const std::string& name) const {
  if (name.empty() && own_.empty()) throw UsageError("nenhum acervo foi escolhido");
  if (name.empty()) return own_;
  const Profiles profiles;
  const auto profile = std::ranges::find(profiles.All(), name, &Profile::name);
  if (profile == profiles.All().end()) throw UsageError(fmt::format("o perfil \"{}\" não existe", name));
  if (const std::string problem = ProblemWith(*profile); !problem.empty())
    throw UsageError(fmt::format("o perfil \"{}\" {}", name, problem));
  return ConnectionOf(*profile, {});
}

}  // namespace kodra::console::panel
