// Reads the JSON of a request. All functions raise UsageError, in words for the user, for a request that the page does
// not make.
#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "console/formats/pages/picture.h"
#include "console/panel/http.h"

namespace kodra::console::panel {

using Json = nlohmann::ordered_json;

inline constexpr const char* kJson = "application/json";

// The text of an answer. What a system or a database says may not be UTF-8.
std::string AnswerText(const Json& json);

// The object that is the body.
Json BodyOf(const Request& request);

// A text of the object.
std::string TextOf(const Json& json, const char* name);
// The same for members that may be absent.
std::string TextOr(const Json& json, const char* name, const std::string& otherwise);
int NumberOr(const Json& json, const char* name, int otherwise);
bool FlagOf(const Json& json, const char* name);
// The names and values of "parameters".
std::vector<std::pair<std::string, std::string>> GivenIn(const Json& json);
// {"logo": {"name": "logo.png", "png": the file in base64}}; null if it is absent.
std::shared_ptr<const pages::Picture> LogoOf(const Json& json);

}  // namespace kodra::console::panel
