// Who may use the panel: whoever has its key, from a page that the panel itself has served.
//
// The key is part of the address that the program prints. The first page that is opened with it gets a cookie instead,
// and the browser's address no longer contains the key.
#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console/panel/http.h"

namespace kodra::console::panel {

// 128 random bits as 32 hexadecimal digits.
std::string RandomKey();

class Access {
 public:
  explicit Access(int port);

  // The address that opens the panel, with the key.
  std::string Address() const;
  // The same with a key that works once, for the command line of a browser: other users see command lines.
  std::string AddressForOnce() const;

  // Why a request is refused; nothing for one that may be answered. The address with the key is answered here, too:
  // with the cookie, and the way to the page. May be called by several threads at once.
  std::optional<Answer> Refusal(const Request& request);

 private:
  bool IsKey(std::string_view key);
  bool HasCookie(const Request& request) const;

  std::string host_;    // "127.0.0.1:8080"
  std::string cookie_;  // the cookie's name, which has the port: browsers do not separate cookies by port
  std::string key_ = RandomKey();
  std::string keyForOnce_ = RandomKey();
  std::atomic<bool> isUsed_ = false;   // keyForOnce_
  std::string session_ = RandomKey();  // the cookie's value
};

// The headers of every answer: no script but the panel's own files, no other place in which the page appears, no copy
// in a cache.
std::vector<std::pair<std::string, std::string>> SecurityHeaders();

}  // namespace kodra::console::panel
