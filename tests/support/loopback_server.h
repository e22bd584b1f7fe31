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

/// Answers each call in the same way.
class Server {
 public:
  enum class Manner { Silent, StopsInTheMiddle, HangsUpInTheMiddle, RedirectsForEver, Whole };
  Server(Manner manner, std::string bytes) : manner_(manner), bytes_(std::move(bytes)) {
    listening_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    EXPECT_EQ(::bind(listening_, reinterpret_cast<sockaddr*>(&address), size), 0);
    EXPECT_EQ(::listen(listening_, 16), 0);
    ::getsockname(listening_, reinterpret_cast<sockaddr*>(&address), &size);
    address_ = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/clip.mp4";
    thread_ = std::thread([this] { serve(); });
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() {
    ::shutdown(listening_, SHUT_RDWR);
    thread_.join();
    ::close(listening_);
    for (const int call : calls_) ::close(call);
  }
  [[nodiscard]] const std::string& address() const { return address_; }

 private:
  void serve() {
    for (int call = 0; (call = ::accept(listening_, nullptr, nullptr)) >= 0;) {
      std::array<char, 4096> asked{};
      ::recv(call, asked.data(), asked.size(), 0);
      const auto say = [&](const std::string& text) { ::send(call, text.data(), text.size(), MSG_NOSIGNAL); };
      const auto head =
          "HTTP/1.1 200 OK\r\nContent-Type: video/mp4\r\nContent-Length: " + std::to_string(bytes_.size()) +
          "\r\n\r\n";
      if (manner_ == Manner::RedirectsForEver)
        say("HTTP/1.1 302 Found\r\nLocation: " + address_ + "\r\nContent-Length: 0\r\n\r\n");
      if (manner_ == Manner::Whole) say(head + bytes_);
      if (manner_ == Manner::StopsInTheMiddle || manner_ == Manner::HangsUpInTheMiddle)
        say(head + bytes_.substr(0, bytes_.size() / 2));
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
  int listening_ = -1;
  std::string address_;
  std::vector<int> calls_;
  std::thread thread_;
};

}  // namespace kvo::test
