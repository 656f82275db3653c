// An HTTP client on plain sockets, which sends exactly what a test wants to send.
#pragma once

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace kodra::tests {

// A connection to a port of this computer.
class Socket {
 public:
  explicit Socket(int port);
  ~Socket();
  Socket(Socket&& from) noexcept : descriptor_(from.descriptor_) { from.descriptor_ = -1; }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  // Returns false if the server has closed the connection.
  bool Send(const std::string& bytes) const;
  // What arrives next; empty at the end.
  std::string Receive() const;
  // All that arrives until the server closes the connection.
  std::string ReceiveAll() const;

 private:
  int descriptor_;
};

struct Reply {
  int status = 0;
  std::map<std::string, std::string> headers;  // by their names in lower case
  std::string body;                            // without the frame of its chunks
  bool isComplete = true;
};

inline void PrintTo(const Reply& reply, std::ostream* out) { *out << reply.status << "\n" << reply.body; }

// Understands an answer.
Reply ReplyOf(const std::string& bytes);
// Sends bytes and reads the answer, until the server closes the connection.
Reply Exchange(int port, const std::string& bytes);

// A browser that has opened the panel by its address.
class Visitor {
 public:
  explicit Visitor(const std::string& address);

  int Port() const { return port_; }
  const std::string& Host() const { return host_; }
  const std::string& Cookie() const { return cookie_; }

  Reply Get(const std::string& path) const;
  Reply Post(const std::string& path, const std::string& json) const;
  // The bytes of such a request, for a test that sends them itself.
  std::string PostBytes(const std::string& path, const std::string& json) const;

 private:
  int port_;
  std::string host_;
  std::string cookie_;
};

}  // namespace kodra::tests
