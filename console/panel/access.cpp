#include "console/panel/access.h"

#include <fmt/format.h>
#include <random>

namespace kodra::console::panel {
namespace {

constexpr const char* kNoKey =
    "Este painel só se abre pelo endereço que o kodrarpt mostrou ao começar. Copie-o inteiro, com a chave, para o "
    "navegador.";

// Compares in a time that does not depend on the place of the first difference.
bool AreSame(std::string_view one, std::string_view other) {
  if (one.size() != other.size()) return false;
  int difference = 0;
  for (std::size_t i = 0; i < one.size(); ++i) difference |= one[i] ^ other[i];
  return difference == 0;
}

}  // namespace

std::string RandomKey() {
  std::random_device random;
  std::string key;
  for (int part = 0; part < 4; ++part) key += fmt::format("{:08x}", random());
  return key;
}

Access::Access(int port) : host_(fmt::format("127.0.0.1:{}", port)), cookie_(fmt::format("kodrarpt_{}", port)) {}

std::string Access::Address() const { return "http://" + host_ + "/?chave=" + key_; }

std::string Access::AddressForOnce() const { return "http://" + host_ + "/?chave=" + keyForOnce_; }

std::optional<Answer> Access::Refusal(const Request& request) {
  // A foreign name that leads to this computer is an attempt to make the panel's answers readable for another page.
  if (request.host != host_) return Refused(403, "O painel só responde em http://" + host_ + ".");
  if (!request.origin.empty() && request.origin != "http://" + host_)
    return Refused(403, "O painel não responde a outras páginas.");
  const bool changes = request.method == "POST";
  if (!changes && request.method != "GET") return Refused(405, "O painel só conhece GET e POST.");
  if (!changes && request.path == "/" && !request.key.empty()) {
    if (!IsKey(request.key)) return Refused(403, kNoKey);
    return Answer{.status = 303,
                  .headers = {{"Location", "/"},
                              {"Set-Cookie", cookie_ + "=" + session_ + "; HttpOnly; SameSite=Strict; Path=/"}}};
  }
  if (!HasCookie(request)) return Refused(403, kNoKey);
  if (!changes) return std::nullopt;
  // Every browser names the origin of such a request.
  if (request.origin.empty()) return Refused(403, "O painel não responde a outras páginas.");
  if (request.contentType != "application/json") return Refused(415, "O pedido não está em JSON; recarregue a página.");
  return std::nullopt;
}

bool Access::IsKey(std::string_view key) {
  return AreSame(key, key_) || (AreSame(key, keyForOnce_) && !isUsed_.exchange(true));
}

bool Access::HasCookie(const Request& request) const {
  const std::string_view all = request.cookie;
  for (std::size_t begin = 0; begin < all.size();) {
    const std::size_t end = std::min(all.find("; ", begin), all.size());
    const std::string_view cookie = all.substr(begin, end - begin);
    if (AreSame(cookie, cookie_ + "=" + session_)) return true;
    begin = end + 2;
  }
  return false;
}

std::vector<std::pair<std::string, std::string>> SecurityHeaders() {
  return {
      {"Content-Security-Policy",
       "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; frame-src blob:; "
       "base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
      {"X-Content-Type-Options", "nosniff"},
      {"X-Frame-Options", "DENY"},
      {"Referrer-Policy", "no-referrer"},
      {"Cross-Origin-Resource-Policy", "same-origin"},
      {"Cross-Origin-Opener-Policy", "same-origin"},
      {"Cache-Control", "no-store"}};
}

}  // namespace kodra::console::panel
