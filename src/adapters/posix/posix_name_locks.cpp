#include "adapters/posix/posix_name_locks.h"

#include "adapters/posix/descriptor.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>

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

}  // namespace

Result<std::unique_ptr<FileLock>> PosixNameLocks::tryLock(const std::string& path) {
  Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kLockFileMode));
  if (!file.open()) return lockFailure(path);
  int done = 0;
  do done = ::flock(file.get(), LOCK_EX | LOCK_NB);
  while (done != 0 && errno == EINTR);
  if (done == 0) return std::unique_ptr<FileLock>(std::make_unique<HeldName>(std::move(file)));
  if (errno == EWOULDBLOCK) return std::unique_ptr<FileLock>();
  return lockFailure(path);
}

}  // namespace kvo
