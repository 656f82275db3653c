// The server on real sockets: what it refuses before anybody answers, and how it serves many at once.
#include "console/panel/server.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/console/failing.h"
#include "tests/console/panel/http_client.h"

namespace kodra::console::panel {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using tests::Exchange;
using tests::Reply;
using tests::ReplyOf;
using tests::Socket;

// A server that answers every request with its path and body.
class PanelServer : public testing::Test {
 protected:
  PanelServer() { Start({.request = milliseconds(500), .idle = milliseconds(500), .write = milliseconds(500)}); }

  void Start(Limits limits) {
    server_ = std::make_unique<Server>(Service{.refusal = [](const Request& request) -> std::optional<Answer> {
                                                 if (request.path == "/refused") return Refused(403, "Não.");
                                                 return std::nullopt;
                                               },
                                               .answer = [this](const Request& request) { return AnswerTo(request); },
                                               .headers = {{"X-Test", "sim"}}},
                                       limits);
    port_ = server_->Bind(0);
    server_->Start();
  }

  Answer AnswerTo(const Request& request) {
    ++answered_;
    if (request.path == "/raise") throw std::runtime_error("segredo");
    if (request.path == "/endless")
      return {.stream = [this](Output& output) {
        try {
          for (;; written_ += 1024) output.Write(std::string(1024, 'x'));
        } catch (...) {
          isBroken_ = true;
          throw;
        }
      }};
    if (request.path == "/broken")
      return {.stream = [](Output& output) {
        output.Write("início");
        throw std::runtime_error("o banco parou");
      }};
    if (request.path == "/gone") {
      while (!request.isGone()) std::this_thread::sleep_for(milliseconds(5));
      isBroken_ = true;
    }
    return {.body = request.method + " " + request.path + " " + request.body};
  }

  std::string Get(const std::string& path) const {
    return "GET " + path + " HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n";
  }
  std::string Post(const std::string& path, const std::string& body) const {
    return "POST " + path +
           " HTTP/1.1\r\nHost: x\r\nConnection: close\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" +
           body;
  }
  // Waits until the condition holds; returns whether it does within ten seconds.
  template <class Condition>
  static bool Soon(Condition condition) {
    const auto deadline = steady_clock::now() + std::chrono::seconds(10);
    while (steady_clock::now() < deadline) {
      if (condition()) return true;
      std::this_thread::sleep_for(milliseconds(5));
    }
    return false;
  }

  std::unique_ptr<Server> server_;
  int port_ = 0;
  std::atomic<int> answered_ = 0;
  std::atomic<std::size_t> written_ = 0;
  std::atomic<bool> isBroken_ = false;
};

TEST_F(PanelServer, AnswersWithItsHeaders) {
  const Reply reply = Exchange(port_, Post("/caminho", "corpo"));
  EXPECT_EQ(reply.status, 200);
  EXPECT_EQ(reply.body, "POST /caminho corpo");
  EXPECT_EQ(reply.headers.at("x-test"), "sim");
  EXPECT_EQ(reply.headers.at("content-type"), "text/plain; charset=utf-8");
}

TEST_F(PanelServer, AnswersSeveralRequestsOnOneConnection) {
  const Socket socket(port_);
  for (int i = 0; i < 3; ++i) {
    socket.Send("GET /" + std::to_string(i) + " HTTP/1.1\r\nHost: x\r\n\r\n");
    std::string bytes;
    while (!bytes.ends_with("GET /" + std::to_string(i) + " ")) {
      const std::string piece = socket.Receive();
      ASSERT_FALSE(piece.empty()) << bytes;
      bytes += piece;
    }
  }
}

TEST_F(PanelServer, ListensOnTheLoopbackAddressOnly) {
  // All of 127.0.0.0/8 is this computer; the server has one address of it, and none of the network's.
  const std::string tcp = [] {
    std::string text;
    FILE* const file = fopen("/proc/net/tcp", "r");
    std::array<char, 4096> buffer{};
    while (const std::size_t count = fread(buffer.data(), 1, buffer.size(), file)) text.append(buffer.data(), count);
    fclose(file);
    return text;
  }();
  std::array<char, 8> port{};
  snprintf(port.data(), port.size(), ":%04X", static_cast<unsigned>(port_));
  const std::string state = " 00000000:0000 0A";  // listening
  EXPECT_NE(tcp.find(std::string("0100007F") + port.data() + state), tcp.npos) << tcp;
  EXPECT_EQ(tcp.find(std::string("00000000") + port.data() + state), tcp.npos) << tcp;
}

TEST_F(PanelServer, RefusesAPortThatIsTaken) {
  Server other({}, {});
  EXPECT_EQ(RefusalOf([&] { other.Bind(port_); }),
            "outro programa já usa a porta " + std::to_string(port_) + "; escolha outra");
}

TEST_F(PanelServer, ReadsNoBodyThatItRefuses) {
  const Reply reply = Exchange(port_, Post("/refused", std::string(100000, 'x')));
  EXPECT_EQ(reply.status, 403);
  EXPECT_EQ(reply.body, "Não.\n");
  EXPECT_EQ(reply.headers.at("connection"), "close");
  EXPECT_EQ(answered_, 0);
}

TEST_F(PanelServer, RefusesABodyThatIsTooLarge) {
  const Reply reply = Exchange(port_, Post("/", std::string(300 * 1024, 'x')));
  EXPECT_EQ(reply.status, 413);
  EXPECT_EQ(reply.body, "O pedido é grande demais.\n");
  EXPECT_EQ(Exchange(port_, Post("/", std::string(256 * 1024, 'x'))).status, 200);
  EXPECT_EQ(answered_, 1);
}

TEST_F(PanelServer, RefusesABodyOfUnknownLength) {
  const std::string words = "O pedido não diz o seu tamanho.\n";
  const Reply chunked = Exchange(port_, "POST / HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: chunked\r\n\r\n" +
                                            std::string("5\r\nabcde\r\n0\r\n\r\n"));
  EXPECT_EQ(chunked.status, 411);
  EXPECT_EQ(chunked.body, words);
  EXPECT_EQ(Exchange(port_, "POST / HTTP/1.1\r\nHost: x\r\n\r\n").body, words);
  EXPECT_EQ(answered_, 0);
}

TEST_F(PanelServer, RefusesWhatIsNoRequest) {
  for (const char* const bytes : {"olá\r\n\r\n", "GET\r\n\r\n", "GET / HTTP/1.1\r\nRange: bytes=x\r\n\r\n"}) {
    const Reply reply = Exchange(port_, bytes);
    EXPECT_GE(reply.status, 400) << bytes;
    EXPECT_LT(reply.status, 500) << bytes;
    EXPECT_EQ(reply.body, "O pedido não é válido.\n") << bytes;
  }
  EXPECT_EQ(answered_, 0);
}

TEST_F(PanelServer, RefusesAnAddressThatIsTooLong) {
  for (const std::size_t letters : {201U, 3000U, 20000U}) {
    const Reply reply = Exchange(port_, Get("/" + std::string(letters, 'x')));
    EXPECT_EQ(reply.status, 414) << letters;
    EXPECT_EQ(reply.body, "O endereço é longo demais.\n");
  }
}

TEST_F(PanelServer, OutlivesHeadersWithoutEnd) {
  std::string head = "GET / HTTP/1.1\r\n";
  for (int i = 0; i < 20000; ++i) head += "X-" + std::to_string(i) + ": valor\r\n";
  Exchange(port_, head + "\r\n");
  Exchange(port_, "GET / HTTP/1.1\r\nX: " + std::string(1'000'000, 'x') + "\r\n\r\n");
  EXPECT_EQ(answered_, 0);
  EXPECT_EQ(Exchange(port_, Get("/depois")).body, "GET /depois ");
}

TEST_F(PanelServer, OutlivesLongRanges) {
  Exchange(port_,
           "GET / HTTP/1.1\r\nHost: x\r\nConnection: close\r\nRange: bytes=" + std::string(8000, '1') + "-\r\n\r\n");
  std::string many = "bytes=0-0";
  while (many.size() < 8000) many += ",0-0";
  Exchange(port_, "GET / HTTP/1.1\r\nHost: x\r\nConnection: close\r\nRange: " + many + "\r\n\r\n");
  EXPECT_EQ(Exchange(port_, Get("/depois")).body, "GET /depois ");
}

TEST_F(PanelServer, EndsASlowSender) {
  const auto begin = steady_clock::now();
  const Socket socket(port_);
  // Each byte comes soon after the one before it, but the request would take minutes.
  const std::string bytes = Get("/" + std::string(190, 'x'));
  std::size_t sent = 0;
  while (sent < bytes.size() && steady_clock::now() - begin < std::chrono::seconds(10) &&
         socket.Send(bytes.substr(sent, 1))) {
    ++sent;
    std::this_thread::sleep_for(milliseconds(50));
  }
  EXPECT_LT(sent, bytes.size());
  EXPECT_EQ(answered_, 0);
}

TEST_F(PanelServer, TellsASenderWhoStopsThatItWasTooSlow) {
  for (const char* const part : {"GET / HTTP/1.1\r\nHost", "POST / HTTP/1.1\r\nContent-Length: 10\r\n\r\nabc"}) {
    const Socket socket(port_);
    socket.Send(part);
    const Reply reply = ReplyOf(socket.ReceiveAll());
    EXPECT_EQ(reply.status, 408) << part;
    EXPECT_EQ(reply.body, "O pedido demorou demais para chegar.\n") << part;
  }
  EXPECT_EQ(answered_, 0);
}

TEST_F(PanelServer, ClosesAConnectionThatIsIdle) {
  const Socket socket(port_);
  EXPECT_EQ(socket.ReceiveAll(), "");
}

TEST_F(PanelServer, Answers200RequestsAtOnce) {
  std::vector<std::thread> threads;
  std::atomic<int> good = 0;
  for (int i = 0; i < 200; ++i)
    threads.emplace_back([&, i] {
      const std::string path = "/" + std::to_string(i);
      if (Exchange(port_, Get(path)).body == "GET " + path + " ") ++good;
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(good, 200);
}

TEST_F(PanelServer, AnswersWhile200OthersSendNothing) {
  std::vector<Socket> silent;
  for (int i = 0; i < 200; ++i) silent.emplace_back(port_).Send("GET /");
  EXPECT_EQ(Exchange(port_, Get("/depois")).body, "GET /depois ");
}

TEST_F(PanelServer, WaitsForAClientThatReadsSlowly) {
  const Socket socket(port_);
  socket.Send(Get("/endless"));
  // What fits into the buffers of the system, and no more.
  std::size_t before = 1;
  EXPECT_TRUE(Soon([&] {
    std::this_thread::sleep_for(milliseconds(100));
    return std::exchange(before, written_) == written_;
  }));
  EXPECT_LT(written_, 64U << 20);
  // A client that reads nothing for too long is given up.
  EXPECT_TRUE(Soon([&] { return isBroken_.load(); }));
}

TEST_F(PanelServer, EndsAStreamWhoseClientIsGone) {
  {
    const Socket socket(port_);
    socket.Send(Get("/endless"));
    EXPECT_FALSE(socket.Receive().empty());
  }
  EXPECT_TRUE(Soon([&] { return isBroken_.load(); }));
}

TEST_F(PanelServer, TellsAnAnswerInTheMakingThatItsClientIsGone) {
  {
    const Socket socket(port_);
    socket.Send(Get("/gone"));
    EXPECT_TRUE(Soon([&] { return answered_ == 1; }));
    EXPECT_FALSE(isBroken_);
  }
  EXPECT_TRUE(Soon([&] { return isBroken_.load(); }));
}

TEST_F(PanelServer, BreaksTheConnectionOfAStreamThatFails) {
  const Reply reply = Exchange(port_, Get("/broken"));
  EXPECT_EQ(reply.status, 200);
  EXPECT_EQ(reply.body, "início");
  EXPECT_FALSE(reply.isComplete);
}

TEST_F(PanelServer, SaysNothingOfAnUnexpectedFailure) {
  const Socket socket(port_);
  socket.Send(Get("/raise"));
  const std::string bytes = socket.ReceiveAll();
  EXPECT_EQ(ReplyOf(bytes).status, 500);
  EXPECT_EQ(ReplyOf(bytes).body, "Erro interno.\n");
  EXPECT_EQ(bytes.find("segredo"), bytes.npos);
}

TEST_F(PanelServer, IsNotIdleWhileItAnswers) {
  std::this_thread::sleep_for(milliseconds(20));
  EXPECT_GE(server_->SinceLastRequest(), milliseconds(20));
  {
    const Socket socket(port_);
    socket.Send(Get("/endless"));
    EXPECT_FALSE(socket.Receive().empty());
    EXPECT_EQ(server_->SinceLastRequest(), milliseconds(0));
  }
  EXPECT_TRUE(Soon([&] { return server_->SinceLastRequest() > milliseconds(0); }));
}

TEST_F(PanelServer, CountsNoRefusedRequestAsUse) {
  EXPECT_EQ(Exchange(port_, Get("/used")).status, 200);
  std::this_thread::sleep_for(milliseconds(20));
  const milliseconds before = server_->SinceLastRequest();
  EXPECT_EQ(Exchange(port_, Get("/refused")).status, 403);
  EXPECT_GE(server_->SinceLastRequest(), before);
  EXPECT_GE(before, milliseconds(20));
}

TEST_F(PanelServer, StopsSoonAlthoughConnectionsAreOpen) {
  std::vector<Socket> open;
  for (int i = 0; i < 20; ++i) open.emplace_back(port_).Send("GET /");
  open.emplace_back(port_).Send(Get("/endless"));
  EXPECT_TRUE(Soon([&] { return written_ > 0; }));
  const auto begin = steady_clock::now();
  server_->Stop();
  EXPECT_LT(steady_clock::now() - begin, std::chrono::seconds(3));
  EXPECT_THROW(Socket{port_}, std::runtime_error);
}

}  // namespace
}  // namespace kodra::console::panel
