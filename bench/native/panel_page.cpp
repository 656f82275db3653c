// panel_page and panel_first_page: what it takes to open the page of `kodrarpt painel`.
//
// A client opens a connection and asks for the page, each of its files, the connections and the catalogue, as a browser
// does.
//
//   panel_page        the panel against a server of the same library that answers with fixed bytes, the same ones
//   panel_first_page  the time of the panel, in milliseconds
#include <httplib.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <thread>

#include "bench/results.h"
#include "console/panel/page_files.h"
#include "console/panel/panel.h"

namespace kodra::bench {
namespace {

namespace panel = console::panel;

// Raises std::runtime_error unless the answer is the wanted one.
httplib::Response Get(httplib::Client& client, const std::string& path, int status) {
  const httplib::Result result = client.Get(path);
  if (!result || result->status != status) throw std::runtime_error("o pedido " + path + " falhou");
  return *result;
}

class Visitor {
 public:
  explicit Visitor(int port, httplib::Headers headers = {}) : port_(port), headers_(std::move(headers)) {}

  // Asks for the addresses on a new connection and returns the answers.
  std::vector<httplib::Response> Visit(const std::vector<std::string>& paths) const {
    httplib::Client client("127.0.0.1", port_);
    client.set_keep_alive(true);
    client.set_tcp_nodelay(true);
    client.set_default_headers(headers_);
    std::vector<httplib::Response> answers;
    answers.reserve(paths.size());
    for (const std::string& path : paths) answers.push_back(Get(client, path, 200));
    return answers;
  }

 private:
  int port_;
  httplib::Headers headers_;
};

// The port and the path of "http://127.0.0.1:8080/?chave=…".
std::pair<int, std::string> PartsOf(const std::string& address) {
  const std::size_t port = address.rfind(':') + 1;
  const std::size_t path = address.find('/', port);
  return {std::stoi(address.substr(port, path - port)), address.substr(path)};
}

// Whoever has opened the panel by its address.
Visitor VisitorOf(const panel::Panel& panel) {
  const auto [port, path] = PartsOf(panel.Address());
  httplib::Client client("127.0.0.1", port);
  const std::string cookie = Get(client, path, 303).get_header_value("Set-Cookie");
  return Visitor(port, {{"Cookie", cookie.substr(0, cookie.find(';'))}});
}

// A server that answers with fixed bytes.
class FixedServer {
 public:
  FixedServer(const std::vector<std::string>& paths, const std::vector<httplib::Response>& answers) {
    for (std::size_t i = 0; i < paths.size(); ++i)
      server_.Get(paths[i],
                  [body = answers[i].body, type = answers[i].get_header_value("Content-Type")](
                      const httplib::Request&, httplib::Response& response) { response.set_content(body, type); });
    server_.set_tcp_nodelay(true);
    server_.set_keep_alive_max_count(1000);
    port_ = server_.bind_to_any_port("127.0.0.1");
    thread_ = std::thread([this] { server_.listen_after_bind(); });
    while (!server_.is_running()) std::this_thread::yield();
  }
  ~FixedServer() {
    server_.stop();
    thread_.join();
  }
  FixedServer(const FixedServer&) = delete;
  FixedServer& operator=(const FixedServer&) = delete;

  int Port() const { return port_; }

 private:
  httplib::Server server_;
  int port_ = 0;
  std::thread thread_;
};

int Measure(const std::string& folder, int rounds) {
  const panel::Panel panel({.connection = L"Driver={SQLite3}"});
  const Visitor ours = VisitorOf(panel);
  std::vector<std::string> paths;
  for (const panel::PageFile& file : panel::PageFiles()) paths.emplace_back(file.path);
  paths.insert(paths.end(), {"/api/connections", "/api/catalogue"});
  const FixedServer fixed(paths, ours.Visit(paths));
  const Visitor theirs(fixed.Port());
  const Medians medians = Interleave(rounds, Timed([&] { ours.Visit(paths); }), Timed([&] { theirs.Visit(paths); }));
  Results results(folder + "/resultados.tsv");
  constexpr double kMilliseconds = 1000;
  results.Ratio({.name = "panel_page", .unit = "ms", .scale = kMilliseconds, .limit = 3}, medians);
  results.Figure({.name = "panel_first_page", .unit = "ms", .scale = kMilliseconds, .limit = 100}, medians.component);
  return results.ExitCode();
}

}  // namespace
}  // namespace kodra::bench

int main(int argc, char** argv) {
  CLI::App app{"Mede quanto tempo leva abrir a página do painel."};
  std::string folder;
  int rounds = 1;
  app.add_option("--folder", folder, "pasta do resultados.tsv")->required();
  app.add_option("--rounds", rounds, "quantas vezes cada lado roda");
  CLI11_PARSE(app, argc, argv);
  try {
    return kodra::bench::Measure(folder, rounds);
  } catch (const std::exception& error) {
    std::cout << error.what() << std::endl;
    return 2;
  }
}
