#include "intake/addresses.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 19> kServed = {
    "http",  "https",  "mms",    "mmsh", "mmst", "rtsp", "rtsps", "rtmp", "rtmps", "rtmpe",
    "rtmpt", "rtmpts", "rtmpte", "ftp",  "srt",  "rist", "tcp",   "tls",  "gopher"};
constexpr std::array<std::string_view, 3> kSentToAll = {"udp", "rtp", "srtp"};  // a port is enough
constexpr double kMostPort = 65535;

bool isOfName(char c) {
  return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool isHost(std::string_view host) {
  if (host.starts_with('[') && host.ends_with(']'))  // of IPv6
    return host.find(':') != std::string_view::npos;
  return std::ranges::any_of(host, isOfName) &&
         std::ranges::all_of(host, [](char c) { return isOfName(c) || c == '.' || c == '-' || c == '_'; });
}

bool isPort(std::string_view port) {
  return port.empty() ||
         (std::ranges::all_of(port, isDigit) && ToNumber(port) >= 1 && ToNumber(port) <= kMostPort);
}

}  // namespace

bool isPlayableAddress(std::string_view address) {
  const auto end = address.find("://");
  if (end == std::string_view::npos || std::ranges::any_of(address, [](char c) { return c >= 0 && c < ' '; }))
    return false;
  const auto kind = lower(address.substr(0, end));
  auto server = address.substr(end + 3);
  if (kind == "file") return server.starts_with('/');
  const bool toAll = std::ranges::find(kSentToAll, kind) != kSentToAll.end();
  if (!toAll && std::ranges::find(kServed, kind) == kServed.end()) return false;
  server = server.substr(0, server.find_first_of("/?#"));
  server.remove_prefix(server.rfind('@') + 1);  // behind the user's name, or at the front
  auto port = std::string_view();
  if (const auto colon = server.rfind(':'); colon != std::string_view::npos && !server.ends_with(']')) {
    port = server.substr(colon + 1);
    server = server.substr(0, colon);
  }
  return isPort(port) && (isHost(server) || (toAll && server.empty() && !port.empty()));
}

}  // namespace kvo
