#include "tests/console/panel/http_client.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>

namespace kodra::tests {
namespace {

// The body of an answer in chunks; `isComplete` becomes false if the last chunk is missing.
std::string WithoutChunks(const std::string& chunks, bool& isComplete) {
  std::string body;
  for (std::size_t at = 0; at < chunks.size();) {
    const std::size_t end = chunks.find("\r\n", at);
    if (end == chunks.npos) break;
    const std::size_t size = std::stoul(chunks.substr(at, end - at), nullptr, 16);
    if (size == 0) return body;
    body += chunks.substr(end + 2, size);
    at = end + 2 + size + 2;
  }
  isComplete = false;
  return body;
}

std::string Lower(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

}  // namespace

Socket::Socket(int port) : descriptor_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (connect(descriptor_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    throw std::runtime_error("nobody listens on port " + std::to_string(port));
}

Socket::~Socket() {
  if (descriptor_ >= 0) close(descriptor_);
}

bool Socket::Send(const std::string& bytes) const {
  for (std::size_t sent = 0; sent < bytes.size();) {
    const ssize_t count = send(descriptor_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
    if (count <= 0) return false;
    sent += static_cast<std::size_t>(count);
  }
  return true;
}

std::string Socket::Receive() const {
  std::array<char, 65536> buffer{};
  const ssize_t count = recv(descriptor_, buffer.data(), buffer.size(), 0);
  return count <= 0 ? std::string() : std::string(buffer.data(), static_cast<std::size_t>(count));
}

std::string Socket::ReceiveAll() const {
  std::string all;
  for (std::string piece = Receive(); !piece.empty(); piece = Receive()) all += piece;
  return all;
}

Reply ReplyOf(const std::string& bytes) {
  Reply reply;
  const std::size_t end = bytes.find("\r\n\r\n");
  if (end == bytes.npos) return {.isComplete = false};
  std::istringstream head(bytes.substr(0, end));
  std::string version, line;
  head >> version >> reply.status;
  std::getline(head, line);
  while (std::getline(head, line)) {
    if (line.ends_with('\r')) line.pop_back();
    const std::size_t colon = line.find(": ");
    reply.headers[Lower(line.substr(0, colon))] = line.substr(colon + 2);
  }
  reply.body = bytes.substr(end + 4);
  if (reply.headers["transfer-encoding"] == "chunked") reply.body = WithoutChunks(reply.body, reply.isComplete);
  return reply;
}

Reply Exchange(int port, const std::string& bytes) {
  const Socket socket(port);
  socket.Send(bytes);
  return ReplyOf(socket.ReceiveAll());
}

Visitor::Visitor(const std::string& address) {
  // "http://127.0.0.1:8080/?chave=0123"
  const std::size_t begin = address.find("//") + 2;
  const std::size_t path = address.find('/', begin);
  host_ = address.substr(begin, path - begin);
  port_ = std::stoi(host_.substr(host_.find(':') + 1));
  const Reply reply =
      Exchange(port_, "GET " + address.substr(path) + " HTTP/1.1\r\nHost: " + host_ + "\r\nConnection: close\r\n\r\n");
  const auto cookie = reply.headers.find("set-cookie");
  if (cookie != reply.headers.end()) cookie_ = cookie->second.substr(0, cookie->second.find(';'));
}

Reply Visitor::Get(const std::string& path) const {
  return Exchange(port_, "GET " + path + " HTTP/1.1\r\nHost: " + host_ + "\r\nCookie: " + cookie_ +
                             "\r\nConnection: close\r\n\r\n");
}

Reply Visitor::Post(const std::string& path, const std::string& json) const {
  return Exchange(port_, PostBytes(path, json));
}

std::string Visitor::PostBytes(const std::string& path, const std::string& json) const {
  return "POST " + path + " HTTP/1.1\r\nHost: " + host_ + "\r\nOrigin: http://" + host_ + "\r\nCookie: " + cookie_ +
         "\r\nContent-Type: application/json\r\nConnection: close\r\nContent-Length: " + std::to_string(json.size()) +
         "\r\n\r\n" + json;
}

}  // namespace kodra::tests
