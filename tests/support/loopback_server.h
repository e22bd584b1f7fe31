// A server on loopback.
#pragma once

#include <arpa/inet.h>
#include <array>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {

/// A port of loopback that nobody else has, as long as the object lives.
class LoopbackPort {
 public:
  LoopbackPort() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    EXPECT_EQ(::bind(socket_, reinterpret_cast<sockaddr*>(&address), size), 0);
    ::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
    number_ = ntohs(address.sin_port);
  }
  LoopbackPort(const LoopbackPort&) = delete;
  LoopbackPort& operator=(const LoopbackPort&) = delete;
  ~LoopbackPort() { ::close(socket_); }
  [[nodiscard]] int socket() const { return socket_; }
  [[nodiscard]] int number() const { return number_; }

 private:
  int socket_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  int number_ = 0;
};

/// Answers each call in the same way.
class Server {
 public:
  enum class Manner { Silent, StopsInTheMiddle, HangsUpInTheMiddle, RedirectsForEver, Whole };
  Server(Manner manner, std::string bytes) : manner_(manner), bytes_(std::move(bytes)) {
    EXPECT_EQ(::listen(port_.socket(), 16), 0);
    thread_ = std::thread([this] { serve(); });
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() {
    ::shutdown(port_.socket(), SHUT_RDWR);
    thread_.join();
    for (const int call : calls_) ::close(call);
  }
  [[nodiscard]] const std::string& address() const { return address_; }

 private:
  void serve() {
    for (int call = 0; (call = ::accept(port_.socket(), nullptr, nullptr)) >= 0;) {
      std::array<char, 4096> asked{};
      ::recv(call, asked.data(), asked.size(), 0);
      const auto say = [&](const std::string& text) { ::send(call, text.data(), text.size(), MSG_NOSIGNAL); };
      const auto half = manner_ == Manner::Whole ? bytes_.size() : bytes_.size() / 2;
      if (manner_ == Manner::RedirectsForEver) {
        say("HTTP/1.1 302 Found\r\nLocation: " + address_ + "\r\nContent-Length: 0\r\n\r\n");
      } else if (manner_ != Manner::Silent) {
        say("HTTP/1.1 200 OK\r\nContent-Type: video/mp4\r\nContent-Length: " + std::to_string(bytes_.size()) +
            "\r\n\r\n" + bytes_.substr(0, half));
      }
      if (manner_ == Manner::Silent || manner_ == Manner::StopsInTheMiddle) {
        calls_.push_back(call);
      } else {
        ::shutdown(call, SHUT_WR);
        ::close(call);
      }
    }
  }

  Manner manner_;
  std::string bytes_;
  LoopbackPort port_;
  std::string address_ = "http://127.0.0.1:" + std::to_string(port_.number()) + "/clip.mp4";
  std::vector<int> calls_;
  std::thread thread_;
};

}  // namespace kvo::test
