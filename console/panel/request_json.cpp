#include "console/panel/request_json.h"

#include "console/command_line/usage_error.h"
#include "console/formats/pages/base64.h"

namespace kodra::console::panel {

std::string AnswerText(const Json& json) { return json.dump(-1, ' ', false, Json::error_handler_t::replace); }

Json BodyOf(const Request& request) {
  Json json = Json::parse(request.body, nullptr, false);
  if (!json.is_object()) throw UsageError("o pedido não é um objeto JSON; recarregue a página");
  return json;
}

std::string TextOf(const Json& json, const char* name) {
  const auto found = json.find(name);
  if (found == json.end() || !found->is_string())
    throw UsageError(std::string("o pedido não diz \"") + name + "\"; recarregue a página");
  return found->get<std::string>();
}

std::string TextOr(const Json& json, const char* name, const std::string& otherwise) {
  return json.contains(name) ? TextOf(json, name) : otherwise;
}

int NumberOr(const Json& json, const char* name, int otherwise) {
  const auto found = json.find(name);
  if (found == json.end()) return otherwise;
  constexpr std::int64_t kMost = 1'000'000;
  if (!found->is_number_integer() || found->get<std::int64_t>() < 0 || found->get<std::int64_t>() > kMost)
    throw UsageError(std::string(name) + " não é um número inteiro de 0 a " + std::to_string(kMost));
  return found->get<int>();
}

bool FlagOf(const Json& json, const char* name) {
  const auto found = json.find(name);
  return found != json.end() && *found == true;
}

std::vector<std::pair<std::string, std::string>> GivenIn(const Json& json) {
  std::vector<std::pair<std::string, std::string>> given;
  const auto parameters = json.find("parameters");
  if (parameters != json.end() && parameters->is_object())
    for (const auto& [name, value] : parameters->items()) given.emplace_back(name, TextOf(*parameters, name.c_str()));
  return given;
}

std::shared_ptr<const pages::Picture> LogoOf(const Json& json) {
  const auto found = json.find("logo");
  if (found == json.end()) return nullptr;
  const std::string name = TextOf(*found, "name");
  const std::optional<std::string> png = pages::FromBase64(TextOf(*found, "png"));
  if (!png) throw UsageError("a imagem \"" + name + "\" não chegou inteira");
  return std::make_shared<pages::Picture>(pages::PictureOf(*png, name));
}

}  // namespace kodra::console::panel
