#include "adapters/posix/socket_handover.h"

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
#include <sys/un.h>
#include <unistd.h>

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

int datagramSocket() { return ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0); }

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
  if (socket_ >= 0) {
    ::unlink(socketPath_.c_str());
    ::close(socket_);
  }
  if (lock_ >= 0) ::close(lock_);
}

bool SocketHandover::becomeFirst() {
  lock_ = ::open(lockPath_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (lock_ >= 0 && ::flock(lock_, LOCK_EX | LOCK_NB) != 0) {
    ::close(lock_);
    lock_ = -1;
    return false;
  }
  // Whoever holds the lock may clear away what a crashed copy left.
  ::unlink(socketPath_.c_str());
  sockaddr_un address{};
  socket_ = datagramSocket();
  const int on = 1;
  if (socket_ >= 0 && (!addressOf(socketPath_, address) ||
                       ::setsockopt(socket_, SOL_SOCKET, SO_PASSCRED, &on, sizeof on) != 0 ||
                       ::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)) {
    ::close(socket_);
    socket_ = -1;  // the program runs without a mailbox
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
  const int to = datagramSocket();
  if (to < 0) return false;
  const auto sent = ::sendto(to, text.data(), text.size(), MSG_NOSIGNAL,
                             reinterpret_cast<const sockaddr*>(&address), sizeof address);
  ::close(to);
  return sent == static_cast<ssize_t>(text.size());
}

std::optional<std::string> SocketHandover::take() {
  std::optional<std::string> last;
  std::string buffer(kMaxHandover, '\0');
  while (socket_ >= 0) {
    iovec piece{buffer.data(), buffer.size()};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(ucred))> control{};
    msghdr message{};
    message.msg_iov = &piece;
    message.msg_iovlen = 1;
    message.msg_control = control.data();
    message.msg_controllen = control.size();
    const auto got = ::recvmsg(socket_, &message, MSG_DONTWAIT);
    if (got < 0) break;
    if ((message.msg_flags & MSG_TRUNC) != 0 || senderOf(message) != ::getuid()) continue;
    last = buffer.substr(0, static_cast<std::size_t>(got));
  }
  return last;
}

std::string handoverFolder() {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime != nullptr && isOwnFolder(runtime)) return runtime;
  const auto folder = "/tmp/kvo5-" + std::to_string(::getuid());
  ::mkdir(folder.c_str(), 0700);
  return isOwnFolder(folder) ? folder : std::string();
}

std::string handoverName(const std::string& programFolder) {
  std::uint64_t hash = 14695981039346656037ULL;  // FNV-1a
  for (const char c : programFolder) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "kvo5-%016llx", static_cast<unsigned long long>(hash));
  return text.data();
}

}  // namespace kvo
