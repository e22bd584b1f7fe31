#include "adapters/posix/posix_name_locks.h"

#include "adapters/posix/descriptor.h"
#include "base/fnv.h"
#include "base/paths.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace kvo {
namespace {

constexpr mode_t kLockFileMode = 0666;  // less what the user's mask takes off

class HeldName : public FileLock {
 public:
  explicit HeldName(Descriptor file) : file_(std::move(file)) {}

 private:
  Descriptor file_;
};

Error lockFailure(const std::string& path) { return {"cannot hold " + path + ": " + std::strerror(errno)}; }

std::unique_ptr<FileLock> held(Descriptor file) { return std::make_unique<HeldName>(std::move(file)); }

// Who held it may have removed it while it was waited for; another may have made one of that name since.
bool standsAt(const Descriptor& file, const std::string& path) {
  struct stat open {};
  struct stat named {};
  return ::fstat(file.get(), &open) == 0 && ::stat(path.c_str(), &named) == 0 &&
         open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

// The folder by its number, so that two ways to it lead to the same name.
std::string makingName(std::string_view file, const struct stat& folder) {
  std::array<char, 100> text{};
  std::snprintf(text.data(), text.size(), "kvo5-making-%u-%llx-%llx-%llx", ::getuid(),
                static_cast<unsigned long long>(folder.st_dev),
                static_cast<unsigned long long>(folder.st_ino), static_cast<unsigned long long>(fnv1a(file)));
  return text.data();
}

}  // namespace

Result<std::unique_ptr<FileLock>> PosixNameLocks::tryLock(const std::string& path) {
  for (;;) {
    Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kLockFileMode));
    if (!file.open()) return lockFailure(path);
    int done = 0;
    do done = ::flock(file.get(), LOCK_EX | LOCK_NB);
    while (done != 0 && errno == EINTR);
    if (done != 0 && errno == EWOULDBLOCK) return std::unique_ptr<FileLock>();
    if (done != 0) return lockFailure(path);
    if (standsAt(file, path)) return held(std::move(file));
  }
}

Result<std::unique_ptr<FileLock>> PosixNameLocks::tryMaking(const std::string& path) {
  const std::string folder(folderPart(path));
  struct stat found {};
  if (::stat(folder.empty() ? "." : folder.c_str(), &found) != 0) return lockFailure(path);
  // A name behind a zero stands in no folder, and ends with the socket.
  const auto name = makingName(fileNamePart(path), found);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  name.copy(&address.sun_path[1], sizeof address.sun_path - 1);
  const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
  Descriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
  if (!socket.open()) return lockFailure(path);
  if (::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), length) == 0)
    return held(std::move(socket));
  if (errno == EADDRINUSE) return std::unique_ptr<FileLock>();
  return lockFailure(path);
}

}  // namespace kvo
