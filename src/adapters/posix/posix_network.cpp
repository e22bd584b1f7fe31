#include "adapters/posix/posix_network.h"

#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <sys/socket.h>

namespace kvo {

bool PosixNetwork::connected() const {
  ifaddrs* first = nullptr;
  if (::getifaddrs(&first) != 0) return true;  // not known: an attempt tells
  const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> all(first, &::freeifaddrs);
  for (const auto* one = first; one != nullptr; one = one->ifa_next) {
    constexpr unsigned kUp = IFF_UP | IFF_RUNNING;
    const bool works = (one->ifa_flags & kUp) == kUp && (one->ifa_flags & IFF_LOOPBACK) == 0;
    const int family = one->ifa_addr == nullptr ? AF_UNSPEC : one->ifa_addr->sa_family;
    if (works && (family == AF_INET || family == AF_INET6)) return true;
  }
  return false;
}

}  // namespace kvo
