#include "adapters/posix/socket_handover.h"

#include "base/fnv.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace kvo {
namespace {

bool isOwnFolder(const std::string& path) {
  struct stat found {};
  return ::lstat(path.c_str(), &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == ::getuid() &&
         (found.st_mode & 0022U) == 0;
}

// False for a path that is too long for a socket.
bool addressOf(const std::string& path, sockaddr_un& address) {
  address = {};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return false;
  std::copy(path.begin(), path.end(), &address.sun_path[0]);
  return true;
}

Descriptor datagramSocket() { return Descriptor(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)); }

// The user whose process sent a message; nobody when the system does not tell.
std::optional<uid_t> senderOf(msghdr& message) {
  for (auto* part = CMSG_FIRSTHDR(&message); part != nullptr; part = CMSG_NXTHDR(&message, part)) {
    if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_CREDENTIALS) continue;
    ucred sender{};
    std::memcpy(&sender, CMSG_DATA(part), sizeof sender);
    return sender.uid;
  }
  return std::nullopt;
}

}  // namespace

SocketHandover::SocketHandover(const std::string& folder, const std::string& name)
    : socketPath_(folder + "/" + name + ".socket"), lockPath_(folder + "/" + name + ".lock") {}

SocketHandover::~SocketHandover() {
  if (socket_.open()) ::unlink(socketPath_.c_str());
}

bool SocketHandover::becomeFirst() {
  Descriptor lock(::open(lockPath_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
  if (!lock.open()) return true;  // the program runs without a mailbox
  if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0) return false;
  lock_ = std::move(lock);
  // Whoever holds the lock may clear away what a crashed copy left.
  ::unlink(socketPath_.c_str());
  sockaddr_un address{};
  const int on = 1;
  auto mailbox = datagramSocket();
  if (mailbox.open() && addressOf(socketPath_, address) &&
      ::setsockopt(mailbox.get(), SOL_SOCKET, SO_PASSCRED, &on, sizeof on) == 0 &&
      ::bind(mailbox.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
    socket_ = std::move(mailbox);
  }
  return true;
}

bool SocketHandover::send(std::string_view text) {
  struct stat found {};
  sockaddr_un address{};
  if (text.size() > kMaxHandover || !addressOf(socketPath_, address) ||
      ::lstat(socketPath_.c_str(), &found) != 0 || found.st_uid != ::getuid()) {
    return false;
  }
  const auto to = datagramSocket();
  const int room = 2 * static_cast<int>(kMaxHandover);
  const timeval patience{1, 0};  // where many copies send at once, the mailbox is full for a moment
  ::setsockopt(to.get(), SOL_SOCKET, SO_SNDBUF, &room, sizeof room);
  ::setsockopt(to.get(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
  const auto sent = ::sendto(to.get(), text.data(), text.size(), MSG_NOSIGNAL,
                             reinterpret_cast<const sockaddr*>(&address), sizeof address);
  return sent == static_cast<ssize_t>(text.size());
}

std::optional<std::string> SocketHandover::take() {
  std::optional<std::string> last;
  for (;;) {
    const auto size = ::recv(socket_.get(), nullptr, 0, MSG_PEEK | MSG_TRUNC | MSG_DONTWAIT);
    if (size < 0) return last;
    std::string text(std::min(static_cast<std::size_t>(size), kMaxHandover), '\0');
    iovec piece{text.data(), text.size()};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(ucred))> control{};
    msghdr message{};
    message.msg_iov = &piece;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    if (::recvmsg(socket_.get(), &message, MSG_DONTWAIT) < 0) return last;
    if ((message.msg_flags & MSG_TRUNC) == 0 && senderOf(message) == ::getuid()) last = std::move(text);
  }
}

std::string handoverFolder() {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime != nullptr && isOwnFolder(runtime)) return runtime;
  const auto folder = "/tmp/kvo5-" + std::to_string(::getuid());
  ::mkdir(folder.c_str(), 0700);
  return isOwnFolder(folder) ? folder : std::string();
}

std::string handoverName(const std::string& programFolder) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "kvo5-%016llx",
                static_cast<unsigned long long>(fnv1a(programFolder)));
  return text.data();
}

}  // namespace kvo
