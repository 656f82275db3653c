// What the panel knows of HTTP: requests and answers, without the library that carries them (server.cpp).
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "console/formats/output.h"

namespace kodra::console::panel {

struct Request {
  std::string method;  // "GET"
  std::string path;    // "/api/run"
  std::string key;     // the value of "chave" in the address
  std::string host;    // the headers of these names; empty if absent
  std::string origin;
  std::string cookie;
  std::string contentType;
  std::string body;  // empty while only the head has been read
  // Whether the client has closed the connection. May be called by any thread while the request is answered.
  std::function<bool()> isGone;
};

struct Answer {
  int status = 200;
  std::string type = "text/plain; charset=utf-8";
  std::string body = {};
  std::vector<std::pair<std::string, std::string>> headers = {};
  // Writes a body piece by piece instead of `body`. Write waits for a slow client, and raises FileError when the
  // client is gone. What the function raises itself breaks the connection, so that the client sees that the body is
  // incomplete.
  std::function<void(Output&)> stream = {};
};

// An answer in words, for a person who reads it in a browser or in the page.
inline Answer Refused(int status, std::string words) { return {.status = status, .body = std::move(words) + "\n"}; }

}  // namespace kodra::console::panel
