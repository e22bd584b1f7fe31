// Films that say which picture is shown, who reads that, and a server that sends films.
#pragma once

#include "ports/video_output.h"
#include "support/real_world.h"

#include <arpa/inet.h>
#include <array>
#include <cmath>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {

inline constexpr int kGreyStep = 4;  // levels of luma from one picture to the next

// Pictures 0 to 49, each a little brighter than the one before, with the times that `stamps` gives them.
inline std::string makeNumbered(const ScratchFolder& folder, const std::string& name, const std::string& rate,
                                const std::string& stamps, const std::vector<std::string>& codec,
                                const std::vector<std::string>& sound = {}) {
  std::vector<std::string> arguments = {
      "-f", "lavfi", "-i",
      "color=black:size=64x48:rate=" + rate + ",format=yuv420p,geq=lum='16+" + std::to_string(kGreyStep) +
          "*N':cb=128:cr=128,settb=1/1000" + (stamps.empty() ? "" : ",setpts='" + stamps + "'")};
  if (stamps.empty()) arguments.back() = arguments.back().substr(0, arguments.back().rfind(",settb"));
  arguments.insert(arguments.end(), sound.begin(), sound.end());
  for (const auto& word : {"-frames:v", "50", "-fps_mode", "passthrough"}) arguments.emplace_back(word);
  arguments.insert(arguments.end(), codec.begin(), codec.end());
  return makeMedia(folder, name, arguments);
}

inline int numberOfGrey(double grey) { return static_cast<int>(std::lround(grey * 219 / 255 / kGreyStep)); }

// Stamps for makeNumbered: the next picture comes 20, 60 and 100 ms later, and so on, in milliseconds.
inline const char* const kUneven = "180*floor(N/3)+20*eq(mod(N,3),1)+80*eq(mod(N,3),2)";
// When picture `number` of those begins, seconds.
inline double unevenBegin(int number) {
  return (180 * (number / 3) + 20 * (number % 3 == 1) + 80 * (number % 3 == 2)) / 1000.0;
}

// The number of the picture that is drawn; -1 for none.
inline int drawnNumber(VideoOutput& output) {
  if (!output.hasPicture()) return -1;
  std::vector<std::uint8_t> pixels(std::size_t{64} * 48 * 4);
  output.draw({pixels.data(), 64, 48, std::size_t{64} * 4});
  double sum = 0;
  for (std::size_t i = 0; i < pixels.size(); i += 4) sum += pixels[i];
  return numberOfGrey(sum * 4 / static_cast<double>(pixels.size()));
}

// A server on loopback that answers each call in the same way.
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
