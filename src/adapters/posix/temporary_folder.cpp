#include "adapters/posix/temporary_folder.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace kvo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = "kvo5-";

fs::path base() {
  std::error_code failed;
  auto path = fs::temp_directory_path(failed);
  return failed ? fs::path("/tmp") : path;
}

// Of "kvo5-PROCESS-XXXXXX".
std::optional<pid_t> ownerOf(std::string_view name) {
  if (!name.starts_with(kPrefix)) return std::nullopt;
  name.remove_prefix(kPrefix.size());
  pid_t process = 0;
  const auto [end, failed] = std::from_chars(name.data(), name.data() + name.size(), process);
  const auto rest = name.substr(static_cast<std::size_t>(end - name.data()));
  if (failed != std::errc() || process <= 0 || rest.size() != 7 || rest[0] != '-') return std::nullopt;
  return process;
}

bool lives(pid_t process) { return ::kill(process, 0) == 0 || errno != ESRCH; }

int openFolder(const std::string& path) {
  return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

void removeIfLeft(const std::string& path) {
  const int folder = openFolder(path);
  if (folder < 0) return;
  struct stat found {};
  if (::fstat(folder, &found) == 0 && found.st_uid == ::geteuid() &&
      ::flock(folder, LOCK_EX | LOCK_NB) == 0) {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }
  ::close(folder);
}

}  // namespace

Result<TemporaryFolder> TemporaryFolder::make() {
  auto path = (base() / kPrefix).string() + std::to_string(::getpid()) + "-XXXXXX";
  if (::mkdtemp(path.data()) == nullptr) {
    return Error{"cannot make a folder in " + base().string() + ": " + std::strerror(errno)};
  }
  const int lock = openFolder(path);
  if (lock >= 0) ::flock(lock, LOCK_EX | LOCK_NB);
  return TemporaryFolder(path, lock);
}

void TemporaryFolder::sweep() {
  std::error_code failed;
  for (auto entry = fs::directory_iterator(base(), failed); !failed && entry != fs::directory_iterator();
       entry.increment(failed)) {
    const auto owner = ownerOf(entry->path().filename().string());
    if (owner && !lives(*owner)) removeIfLeft(entry->path().string());
  }
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  if (!path_.empty()) fs::remove_all(path_, ignored);
  if (lock_ >= 0) ::close(lock_);
}

}  // namespace kvo
