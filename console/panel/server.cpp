#include "console/panel/server.h"

// Longer lines are refused before anything looks for patterns in them.
#define CPPHTTPLIB_REQUEST_URI_MAX_LENGTH 2048
#include <httplib.h>

#include <atomic>
#include <thread>

#include "console/command_line/file_error.h"
#include "console/command_line/usage_error.h"

#ifndef _WIN32
#include <poll.h>
#endif

namespace kodra::console::panel {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr const char* kLoopback = "127.0.0.1";
// How often a thread that waits looks whether the server stops.
constexpr milliseconds kSlice{50};
// The head of a request; browsers send about one kilobyte.
constexpr std::size_t kLargestHead = std::size_t{32} * 1024;

// How many connections the system keeps until a thread accepts them.
constexpr int kWaitingClients = 256;

enum class For { kReading, kWriting };

// Whether the socket is ready within the time, or closed.
bool IsReady(socket_t socket, For purpose, milliseconds time) {
#ifdef _WIN32
  fd_set set;
  FD_ZERO(&set);
  FD_SET(socket, &set);
  timeval wait = {static_cast<long>(time.count() / 1000), static_cast<long>(time.count() % 1000 * 1000)};
  const bool reads = purpose == For::kReading;
  return select(0, reads ? &set : nullptr, reads ? nullptr : &set, nullptr, &wait) != 0;
#else
  pollfd poll = {socket, static_cast<short>(purpose == For::kReading ? POLLIN : POLLOUT), 0};
  // A signal ends the wait early with -1.
  return ::poll(&poll, 1, static_cast<int>(time.count())) > 0;
#endif
}

// Whether the other side has closed the connection.
bool IsClosed(socket_t socket) {
  char next = 0;
  return IsReady(socket, For::kReading, milliseconds(0)) && recv(socket, &next, 1, MSG_PEEK) <= 0;
}

void Close(socket_t socket) {
#ifdef _WIN32
  closesocket(socket);
#else
  close(socket);
#endif
}

// The bytes of a connection, as the library reads and writes them.
class Connection final : public httplib::Stream {
 public:
  Connection(socket_t socket, const Limits& limits, const std::atomic<bool>& stops)
      : socket_(socket), limits_(limits), stops_(stops) {}

  // Waits for the first byte of a request. Returns false if none arrives.
  bool WaitForRequest() {
    const auto deadline = steady_clock::now() + limits_.idle;
    while (position_ == buffer_.size() && !IsReady(socket_, For::kReading, kSlice))
      if (stops_ || steady_clock::now() >= deadline) return false;
    deadline_ = steady_clock::now() + limits_.request;
    allowance_ = kLargestHead + limits_.body;
    isLate_ = false;
    return !stops_;
  }

  // Whether the request did not arrive in time.
  bool IsLate() const { return isLate_; }

  // Lets the client read a refusal of which it has not read the beginning: closing a connection with unread bytes
  // would discard the answer.
  void Drain() {
#ifdef _WIN32
    shutdown(socket_, SD_SEND);
#else
    shutdown(socket_, SHUT_WR);
#endif
    const auto deadline = steady_clock::now() + milliseconds(500);
    std::array<char, 4096> rest{};
    while (!stops_ && steady_clock::now() < deadline)
      if (IsReady(socket_, For::kReading, kSlice) && recv(socket_, rest.data(), rest.size(), 0) <= 0) return;
  }

  bool is_readable() const override { return position_ < buffer_.size() || IsReady(socket_, For::kReading, kSlice); }
  bool is_writable() const override { return !IsClosed(socket_); }

  ssize_t read(char* bytes, size_t size) override {
    if (position_ == buffer_.size() && !Fill()) return -1;
    const std::size_t count = std::min(size, buffer_.size() - position_);
    std::memcpy(bytes, buffer_.data() + position_, count);
    position_ += count;
    return static_cast<ssize_t>(count);
  }

  ssize_t write(const char* bytes, size_t size) override {
    const auto deadline = steady_clock::now() + limits_.write;
    while (!IsReady(socket_, For::kWriting, kSlice)) {
      if (stops_ || steady_clock::now() >= deadline) return -1;
    }
    // A piece that the system takes at once, so that the thread never waits longer than a slice.
#ifdef _WIN32
    const auto sent = send(socket_, bytes, static_cast<int>(std::min<size_t>(size, kPiece)), 0);
#else
    const auto sent = send(socket_, bytes, std::min(size, kPiece), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) return 0;
#endif
    return sent;
  }

  void get_remote_ip_and_port(std::string& ip, int& port) const override { ip = kLoopback, port = 0; }
  void get_local_ip_and_port(std::string& ip, int& port) const override { ip = kLoopback, port = 0; }
  socket_t socket() const override { return socket_; }

  // Of the request that is being answered.
  bool mustClose = false;

 private:
  static constexpr std::size_t kPiece = std::size_t{16} * 1024;

  bool Fill() {
    buffer_.resize(std::min<std::size_t>(4096, allowance_));
    position_ = 0;
    ssize_t count = 0;
    while (!IsReady(socket_, For::kReading, kSlice)) {
      isLate_ = steady_clock::now() >= deadline_;
      if (isLate_ || stops_) return Empty();
    }
    isLate_ = steady_clock::now() >= deadline_;
    if (!isLate_ && !buffer_.empty()) count = recv(socket_, buffer_.data(), static_cast<int>(buffer_.size()), 0);
    if (count <= 0) return Empty();
    buffer_.resize(static_cast<std::size_t>(count));
    allowance_ -= buffer_.size();
    return true;
  }
  bool Empty() {
    buffer_.clear();
    return false;
  }

  const socket_t socket_;
  const Limits& limits_;
  const std::atomic<bool>& stops_;
  std::string buffer_;
  std::size_t position_ = 0;   // of the next byte in the buffer
  std::size_t allowance_ = 0;  // bytes that the request may still have
  steady_clock::time_point deadline_;
  bool isLate_ = false;
};

// The connection that the thread serves.
thread_local Connection* connection = nullptr;

// A body that is written piece by piece.
class SinkOutput final : public Output {
 public:
  explicit SinkOutput(httplib::DataSink& sink) : sink_(sink) {}
  void Write(std::string_view bytes) override {
    if (!bytes.empty() && !sink_.write(bytes.data(), bytes.size())) throw FileError(L"a página não está mais aberta.");
  }

 private:
  httplib::DataSink& sink_;
};

Request RequestOf(const httplib::Request& from) {
  const socket_t socket = connection->socket();
  return {from.method,
          from.path,
          from.get_param_value("chave"),
          from.get_header_value("Host"),
          from.get_header_value("Origin"),
          from.get_header_value("Cookie"),
          from.get_header_value("Content-Type"),
          from.body,
          [socket] { return IsClosed(socket); }};
}

void Fill(httplib::Response& to, const Answer& answer) {
  to.status = answer.status;
  for (const auto& [name, value] : answer.headers) to.set_header(name, value);
  if (!answer.stream) {
    to.set_content(answer.body, answer.type);
    return;
  }
  to.set_chunked_content_provider(answer.type, [stream = answer.stream](std::size_t, httplib::DataSink& sink) {
    try {
      SinkOutput output(sink);
      stream(output);
    } catch (...) {
      return false;
    }
    sink.done();
    return true;
  });
}

// What the library refuses by itself.
const char* WordsOf(int status) {
  if (status == 408) return "O pedido demorou demais para chegar.\n";
  if (status == 413) return "O pedido é grande demais.\n";
  if (status == 414) return "O endereço é longo demais.\n";
  if (status == 500) return "Erro interno.\n";
  return "O pedido não é válido.\n";
}

}  // namespace

class Server::Implementation final : public httplib::Server {
 public:
  Implementation(Service service, Limits limits) : service_(std::move(service)), limits_(limits) {
    httplib::Headers headers;
    for (const auto& [name, value] : service_.headers) headers.emplace(name, value);
    set_default_headers(std::move(headers));
    set_payload_max_length(limits_.body);
    // Another program must not be able to take the same port.
    set_socket_options([](socket_t socket) {
      const int on = 1;
#ifdef _WIN32
      setsockopt(socket, SOL_SOCKET, SO_EXCLUSIVEADDRUSE, reinterpret_cast<const char*>(&on), sizeof on);
#else
      setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
#endif
    });
    set_tcp_nodelay(true);
    set_keep_alive_max_count(1'000'000);
    new_task_queue = [this] { return new httplib::ThreadPool(static_cast<std::size_t>(limits_.connections)); };
    set_pre_routing_handler([this](const auto& request, auto& response) { return Refuse(request, response); });
    const auto answer = [this](const auto& request, auto& response) { Respond(request, response); };
    Get(".*", answer);
    Post(".*", answer);
    set_exception_handler([](const auto&, auto& response, const std::exception_ptr&) { response.status = 500; });
    set_error_handler([](const httplib::Request&, httplib::Response& response) {
      if (!response.body.empty()) return;
      // The library itself refuses the request, of which a part may still arrive.
      connection->mustClose = true;
      if (connection->IsLate()) response.status = 408;
      response.set_content(WordsOf(response.status), "text/plain; charset=utf-8");
      response.set_header("Connection", "close");
    });
  }

  int BindTo(int port) {
    const int bound = port == 0 ? bind_to_any_port(kLoopback) : bind_to_port(kLoopback, port) ? port : -1;
    if (bound < 0) throw UsageError("outro programa já usa a porta " + std::to_string(port) + "; escolha outra");
    // More than the library's five, which a browser alone may exceed.
    ::listen(svr_sock_, kWaitingClients);
    return bound;
  }

  void Start() {
    lastRequest_ = steady_clock::now();
    thread_ = std::thread([this] { listen_after_bind(); });
    while (!is_running()) std::this_thread::sleep_for(milliseconds(1));
  }

  void StopAndWait() {
    stops_ = true;
    stop();
    if (thread_.joinable()) thread_.join();
  }

  milliseconds SinceLastRequest() const {
    if (answering_ > 0) return milliseconds(0);
    return std::chrono::duration_cast<milliseconds>(steady_clock::now() - lastRequest_.load());
  }

 private:
  bool process_and_close_socket(socket_t socket) override {
    Connection stream(socket, limits_, stops_);
    connection = &stream;
    bool isClosed = false;
    while (!isClosed && stream.WaitForRequest()) {
      if (!process_request(stream, false, isClosed, nullptr)) break;
      isClosed = isClosed || stream.mustClose;
    }
    if (stream.mustClose) stream.Drain();
    connection = nullptr;
    Close(socket);
    return true;
  }

  std::optional<Answer> RefusalOf(const httplib::Request& request) const {
    if (request.path.size() > 200) return Refused(414, "O endereço é longo demais.");
    if (request.method == "POST") {
      // The library would read a body without a length until the connection ends.
      if (request.has_header("Transfer-Encoding") || !request.has_header("Content-Length"))
        return Refused(411, "O pedido não diz o seu tamanho.");
      if (request.get_header_value<std::uint64_t>("Content-Length") > limits_.body)
        return Refused(413, "O pedido é grande demais.");
    }
    return service_.refusal(RequestOf(request));
  }

  HandlerResponse Refuse(const httplib::Request& request, httplib::Response& response) {
    const std::optional<Answer> refusal = RefusalOf(request);
    connection->mustClose = refusal.has_value();
    if (!refusal) return HandlerResponse::Unhandled;
    Fill(response, *refusal);
    response.set_header("Connection", "close");
    return HandlerResponse::Handled;
  }

  void Respond(const httplib::Request& request, httplib::Response& response) {
    // Until the last byte of the answer is sent: the object is destroyed with the response.
    const std::shared_ptr<void> answering(nullptr, [this](void*) {
      lastRequest_ = steady_clock::now();
      --answering_;
    });
    ++answering_;
    Answer answer = service_.answer(RequestOf(request));
    if (answer.stream) answer.stream = [answering, stream = answer.stream](Output& output) { stream(output); };
    Fill(response, answer);
  }

  const Service service_;
  const Limits limits_;
  std::atomic<bool> stops_ = false;
  std::atomic<int> answering_ = 0;
  std::atomic<steady_clock::time_point> lastRequest_{};
  std::thread thread_;
};

Server::Server(Service service, Limits limits)
    : implementation_(std::make_unique<Implementation>(std::move(service), limits)) {}
Server::~Server() { Stop(); }
int Server::Bind(int port) { return implementation_->BindTo(port); }
void Server::Start() { implementation_->Start(); }
void Server::Stop() { implementation_->StopAndWait(); }
milliseconds Server::SinceLastRequest() const { return implementation_->SinceLastRequest(); }

}  // namespace kodra::console::panel
