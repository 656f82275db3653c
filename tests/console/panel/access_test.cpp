#include "console/panel/access.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace kodra::console::panel {
namespace {

constexpr const char* kHost = "127.0.0.1:8080";
constexpr const char* kNoKey =
    "Este painel só se abre pelo endereço que o kodrarpt mostrou ao começar. Copie-o inteiro, com a chave, para o "
    "navegador.\n";

// An access, and the requests of a browser that opened its address.
class PanelAccess : public testing::Test {
 protected:
  static std::string KeyOf(const std::string& address) { return address.substr(address.find('=') + 1); }

  Request Opening(const std::string& key) const { return {.method = "GET", .path = "/", .key = key, .host = kHost}; }
  Request Get(const std::string& path) { return {.method = "GET", .path = path, .host = kHost, .cookie = Cookie()}; }
  Request Post(const std::string& path) {
    Request request = Get(path);
    request.method = "POST";
    request.origin = std::string("http://") + kHost;
    request.contentType = "application/json";
    return request;
  }
  std::string Cookie() {
    const auto answer = access_.Refusal(Opening(KeyOf(access_.Address())));
    const std::string& cookie = answer->headers.at(1).second;
    return cookie.substr(0, cookie.find(';'));
  }
  // The status of the refusal; 0 for none.
  int StatusOf(const Request& request) {
    const auto answer = access_.Refusal(request);
    return answer ? answer->status : 0;
  }

  Access access_{8080};
};

TEST_F(PanelAccess, HasAKeyOf128RandomBits) {
  std::set<std::string> keys;
  for (int i = 0; i < 100; ++i) keys.insert(RandomKey());
  EXPECT_EQ(keys.size(), 100U);
  for (const std::string& key : keys) {
    EXPECT_EQ(key.size(), 32U);
    EXPECT_EQ(key.find_first_not_of("0123456789abcdef"), key.npos) << key;
  }
  EXPECT_EQ(access_.Address(), "http://127.0.0.1:8080/?chave=" + KeyOf(access_.Address()));
}

TEST_F(PanelAccess, GivesACookieForTheKeyAndHidesTheKey) {
  const auto answer = access_.Refusal(Opening(KeyOf(access_.Address())));
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->status, 303);
  EXPECT_EQ(answer->headers.at(0), (std::pair<std::string, std::string>("Location", "/")));
  EXPECT_EQ(answer->headers.at(1).first, "Set-Cookie");
  const std::string cookie = answer->headers.at(1).second;
  EXPECT_EQ(cookie.substr(0, 14), "kodrarpt_8080=");
  EXPECT_EQ(cookie.substr(14 + 32), "; HttpOnly; SameSite=Strict; Path=/");
  EXPECT_EQ(cookie.find(KeyOf(access_.Address())), cookie.npos);
  EXPECT_EQ(StatusOf(Get("/")), 0);
}

TEST_F(PanelAccess, RefusesAWrongKeyAndNoKey) {
  const std::string key = KeyOf(access_.Address());
  std::string other = key;
  other.back() = other.back() == '0' ? '1' : '0';
  for (const std::string& wrong : {other, key.substr(1), key + "0", std::string("x")}) {
    const auto answer = access_.Refusal(Opening(wrong));
    ASSERT_TRUE(answer) << wrong;
    EXPECT_EQ(answer->status, 403);
    EXPECT_EQ(answer->body, kNoKey);
    EXPECT_TRUE(answer->headers.empty());
  }
  EXPECT_EQ(StatusOf(Opening("")), 403);
  // The key opens the page and nothing else.
  Request request = Opening(key);
  request.path = "/api/catalogue";
  EXPECT_EQ(StatusOf(request), 403);
}

TEST_F(PanelAccess, TakesTheKeyOfTheBrowsersCommandLineOnce) {
  const std::string key = KeyOf(access_.AddressForOnce());
  EXPECT_EQ(StatusOf(Opening(key)), 303);
  EXPECT_EQ(StatusOf(Opening(key)), 403);
  EXPECT_EQ(StatusOf(Opening(KeyOf(access_.Address()))), 303);
  EXPECT_EQ(StatusOf(Opening(KeyOf(access_.Address()))), 303);
}

TEST_F(PanelAccess, FindsItsCookieAmongOthers) {
  Request request = Get("/");
  const std::string cookie = request.cookie;
  request.cookie = "other=1; " + cookie + "; more=2";
  EXPECT_EQ(StatusOf(request), 0);
  for (const std::string& wrong : {std::string(), std::string("other=1"), cookie + "0", "x" + cookie}) {
    request.cookie = wrong;
    EXPECT_EQ(StatusOf(request), 403) << wrong;
  }
}

TEST_F(PanelAccess, RefusesAForeignHost) {
  for (const char* const host : {"", "example.org", "127.0.0.1", "127.0.0.1:8081", "localhost:8080"}) {
    Request request = Get("/");
    request.host = host;
    EXPECT_EQ(StatusOf(request), 403) << host;
    request = Opening(KeyOf(access_.Address()));
    request.host = host;
    EXPECT_EQ(StatusOf(request), 403) << host;
  }
}

TEST_F(PanelAccess, RefusesAForeignOrigin) {
  for (const char* const origin : {"http://example.org", "null", "https://127.0.0.1:8080", "http://127.0.0.1:8081"}) {
    Request request = Post("/api/run");
    request.origin = origin;
    EXPECT_EQ(StatusOf(request), 403) << origin;
    request = Get("/");
    request.origin = origin;
    EXPECT_EQ(StatusOf(request), 403) << origin;
  }
  Request request = Post("/api/run");
  EXPECT_EQ(StatusOf(request), 0);
  request.origin = "";
  EXPECT_EQ(StatusOf(request), 403);
}

TEST_F(PanelAccess, RefusesAPostThatAFormOfAnotherPageCouldSend) {
  for (const char* const type : {"", "text/plain", "application/x-www-form-urlencoded", "multipart/form-data"}) {
    Request request = Post("/api/run");
    request.contentType = type;
    EXPECT_EQ(StatusOf(request), 415) << type;
    EXPECT_EQ(access_.Refusal(request)->body, "O pedido não está em JSON; recarregue a página.\n");
  }
}

TEST_F(PanelAccess, RefusesOtherMethods) {
  for (const char* const method : {"HEAD", "PUT", "DELETE", "OPTIONS", "TRACE", "PATCH"}) {
    Request request = Get("/");
    request.method = method;
    EXPECT_EQ(StatusOf(request), 405) << method;
    EXPECT_EQ(access_.Refusal(request)->body, "O painel só conhece GET e POST.\n");
  }
}

}  // namespace
}  // namespace kodra::console::panel
