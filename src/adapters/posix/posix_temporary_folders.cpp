#include "adapters/posix/posix_temporary_folders.h"

#include "adapters/posix/descriptor.h"

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

Descriptor openFolder(const std::string& path) {
  return Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

void removeIfLeft(const std::string& path) {
  const auto folder = openFolder(path);
  struct stat found {};
  if (folder.open() && ::fstat(folder.get(), &found) == 0 && found.st_uid == ::geteuid() &&
      ::flock(folder.get(), LOCK_EX | LOCK_NB) == 0) {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }
}

class LockedFolder : public TemporaryFolder {
 public:
  explicit LockedFolder(std::string path) : path_(std::move(path)), lock_(openFolder(path_)) {
    if (lock_.open()) ::flock(lock_.get(), LOCK_EX | LOCK_NB);
  }
  LockedFolder(const LockedFolder&) = delete;
  LockedFolder& operator=(const LockedFolder&) = delete;
  ~LockedFolder() override {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  [[nodiscard]] const std::string& path() const override { return path_; }

 private:
  const std::string path_;
  const Descriptor lock_;  // of the folder, locked for as long as it is open
};

}  // namespace

Result<std::unique_ptr<TemporaryFolder>> PosixTemporaryFolders::make() {
  auto path = (base() / kPrefix).string() + std::to_string(::getpid()) + "-XXXXXX";
  if (::mkdtemp(path.data()) == nullptr) {
    return Error{"cannot make a folder in " + base().string() + ": " + std::strerror(errno)};
  }
  return std::unique_ptr<TemporaryFolder>(std::make_unique<LockedFolder>(std::move(path)));
}

void PosixTemporaryFolders::sweep() {
  std::error_code failed;
  for (auto entry = fs::directory_iterator(base(), failed); !failed && entry != fs::directory_iterator();
       entry.increment(failed)) {
    const auto owner = ownerOf(entry->path().filename().string());
    if (owner && !lives(*owner)) removeIfLeft(entry->path().string());
  }
}

}  // namespace kvo
