#include "adapters/posix/posix_files.h"

#include "adapters/posix/descriptor.h"
#include "base/guarded.h"
#include "base/paths.h"
#include "ports/read_back.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kvo {
namespace {

constexpr mode_t kNewFileMode = 0666;  // less the umask

Error failure(std::string_view what, const std::string& path, int code = errno) {
  return {std::string(what) + " " + path + ": " + std::strerror(code)};  // NOLINT(concurrency-mt-unsafe)
}

std::string folderOf(const std::string& path) {
  const auto folder = folderPart(path);
  return folder.empty() ? "." : std::string(folder);
}

class HeldFile : public FileLock {
 public:
  explicit HeldFile(Descriptor file) : file_(std::move(file)) {}

 private:
  Descriptor file_;  // closing it lets go
};

// Waits for whoever has it.
bool holdAlone(const Descriptor& file) {
  int done = 0;
  do done = ::flock(file.get(), LOCK_EX);
  while (done != 0 && errno == EINTR);
  return done == 0;
}

// A folder's contents in place of what is in another.
Outcome fillFolder(const std::string& from, const std::filesystem::path& to) {
  namespace fs = std::filesystem;
  for (const auto& old : fs::directory_iterator(to)) fs::remove_all(old);
  for (const auto& entry :
       fs::recursive_directory_iterator(from, fs::directory_options::follow_directory_symlink)) {
    const auto target = to / entry.path().lexically_relative(from);
    if (entry.is_directory()) {
      fs::create_directory(target);
    } else {
      fs::copy_file(entry.path(), target);
      fs::permissions(target, fs::perms::owner_write, fs::perm_options::add);
    }
  }
  return {};
}

// The file that a replacement of `path` has to stand in for: the target when `path` is a link.
std::string targetOf(const std::string& path) {
  std::error_code failed;
  if (!std::filesystem::is_symlink(path, failed)) return path;
  const auto target = std::filesystem::weakly_canonical(path, failed);
  return failed ? path : target.string();
}

// A regular file open for reading; else a line that says why not. A pipe that nobody writes into would keep
// the program waiting.
Result<Descriptor> openFile(const std::string& path, std::uint64_t& size) {
  Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file.open()) return failure("cannot read", path);
  struct stat found {};
  if (::fstat(file.get(), &found) != 0) return failure("cannot read", path);
  if (S_ISDIR(found.st_mode)) return failure("cannot read", path, EISDIR);
  if (!S_ISREG(found.st_mode)) return Error{"cannot read " + path + ": it is no file"};
  size = static_cast<std::uint64_t>(found.st_size);
  return file;
}

class PosixReplacement : public Replacement, public ReadBack {
 public:
  PosixReplacement(Descriptor file, std::string path, std::string scratch)
      : file_(std::move(file)), path_(std::move(path)), scratch_(std::move(scratch)) {}

  ~PosixReplacement() override {
    if (!scratch_.empty()) ::unlink(scratch_.c_str());
  }

  Outcome write(std::uint64_t at, std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto done = ::pwrite(file_.get(), bytes.data(), bytes.size(), static_cast<off_t>(at));
      if (done < 0 && errno == EINTR) continue;
      if (done <= 0) return failure("cannot write", path_);
      bytes.remove_prefix(static_cast<std::size_t>(done));
      at += static_cast<std::uint64_t>(done);
      size_ = std::max(size_, at);
    }
    return {};
  }

  [[nodiscard]] std::uint64_t size() const override { return size_; }

  [[nodiscard]] Result<std::size_t> read(std::uint64_t at, std::span<char> bytes) const override {
    std::size_t got = 0;
    while (got < bytes.size()) {
      const auto done =
          ::pread(file_.get(), bytes.data() + got, bytes.size() - got, static_cast<off_t>(at + got));
      if (done < 0 && errno == EINTR) continue;
      if (done < 0) return failure("cannot read", path_);
      if (done == 0) break;
      got += static_cast<std::size_t>(done);
    }
    return got;
  }

  Outcome commit() override {
    if (::fsync(file_.get()) != 0) return failure("cannot write", path_);
    if (auto named = name(); !named) return named;
    if (::rename(scratch_.c_str(), path_.c_str()) != 0) return failure("cannot replace", path_);
    scratch_.clear();
    const Descriptor folder(::open(folderOf(path_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.open()) ::fsync(folder.get());
    return {};
  }

 private:
  // Gives an unnamed file a name beside the target, from where a rename puts it in place.
  Outcome name() {
    if (!scratch_.empty()) return {};
    const auto self = "/proc/self/fd/" + std::to_string(file_.get());
    for (int i = 0; i < 100; ++i) {
      const auto name = path_ + ".new" + std::to_string(::getpid()) + "-" + std::to_string(i);
      if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
        scratch_ = name;
        return {};
      }
      if (errno != EEXIST) break;
    }
    return failure("cannot replace", path_);
  }

  Descriptor file_;
  std::string path_;
  std::string scratch_;  // the name of the new contents while they have one
  std::uint64_t size_ = 0;
};

}  // namespace

bool PosixFiles::exists(const std::string& path) const {
  struct stat found {};
  return ::stat(path.c_str(), &found) == 0 && S_ISREG(found.st_mode);
}

std::optional<FileFacts> PosixFiles::facts(const std::string& path) const {
  struct stat found {};
  if (::stat(path.c_str(), &found) != 0 || !S_ISREG(found.st_mode)) return std::nullopt;
  return FileFacts{static_cast<std::uint64_t>(found.st_size), found.st_mtim.tv_sec,
                   (found.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0};
}

void PosixFiles::eachBelow(const std::string& folder,
                           const std::function<bool(const std::string& path)>& each) const {
  namespace fs = std::filesystem;
  std::error_code failed;
  fs::recursive_directory_iterator at(folder, fs::directory_options::skip_permission_denied, failed);
  for (; !failed && at != fs::recursive_directory_iterator(); at.increment(failed)) {
    std::error_code unknown;
    if (at->path().filename().native().starts_with(".")) {
      if (at->is_directory(unknown)) at.disable_recursion_pending();
      continue;
    }
    if (at->is_regular_file(unknown) && !each(at->path().native())) return;
  }
}

bool PosixFiles::isFolder(const std::string& path) const {
  struct stat found {};
  return ::stat(path.c_str(), &found) == 0 && S_ISDIR(found.st_mode);
}

Result<std::string> PosixFiles::read(const std::string& path, std::uint64_t limit) const {
  std::uint64_t size = 0;
  const auto file = openFile(path, size);
  if (!file) return file.error();
  if (size > limit) return failure("cannot read", path, EFBIG);
  std::string bytes;
  bytes.resize(static_cast<std::size_t>(size));
  std::size_t have = 0;
  for (;;) {
    if (have == bytes.size()) bytes.resize(have + 4096);
    const auto got = ::read(file->get(), bytes.data() + have, bytes.size() - have);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return failure("cannot read", path);
    if (got == 0) break;
    have += static_cast<std::size_t>(got);
    if (have > limit) return failure("cannot read", path, EFBIG);
  }
  bytes.resize(have);
  return bytes;
}

Result<std::string> PosixFiles::readHead(const std::string& path, std::size_t most) const {
  std::uint64_t size = 0;
  const auto file = openFile(path, size);
  if (!file) return file.error();
  std::string bytes;
  bytes.resize(static_cast<std::size_t>(std::min<std::uint64_t>(size, most)));
  std::size_t have = 0;
  while (have < bytes.size()) {
    const auto got = ::read(file->get(), bytes.data() + have, bytes.size() - have);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return failure("cannot read", path);
    if (got == 0) break;
    have += static_cast<std::size_t>(got);
  }
  bytes.resize(have);
  return bytes;
}

Result<std::unique_ptr<Replacement>> PosixFiles::replace(const std::string& path) {
  const auto target = targetOf(path);
  const auto folder = folderOf(target);
  std::optional<mode_t> mode;
  struct stat old {};
  if (::stat(target.c_str(), &old) == 0) {
    if (!S_ISREG(old.st_mode)) return failure("cannot replace", path, S_ISDIR(old.st_mode) ? EISDIR : EINVAL);
    mode = (old.st_mode & 07777U) | S_IWUSR;
  }
  std::string scratch;
  Descriptor file(::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kNewFileMode));
  if (!file.open() && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) {
    scratch = target + ".new" + std::to_string(::getpid());
    Descriptor named(
        ::open(scratch.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, kNewFileMode));
    if (!named.open()) return failure("cannot write", path);
    if (mode) ::fchmod(named.get(), *mode);
    return std::unique_ptr<Replacement>(
        std::make_unique<PosixReplacement>(std::move(named), target, scratch));
  }
  if (!file.open()) return failure("cannot write", path);
  if (mode) ::fchmod(file.get(), *mode);
  return std::unique_ptr<Replacement>(std::make_unique<PosixReplacement>(std::move(file), target, scratch));
}

Outcome PosixFiles::append(const std::string& path, std::string_view bytes) {
  const Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, kNewFileMode));
  if (!file.open()) return failure("cannot write", path);
  while (!bytes.empty()) {
    const auto done = ::write(file.get(), bytes.data(), bytes.size());
    if (done < 0 && errno == EINTR) continue;
    if (done <= 0) return failure("cannot write", path);
    bytes.remove_prefix(static_cast<std::size_t>(done));
  }
  return {};
}

Outcome PosixFiles::rename(const std::string& from, const std::string& to) {
  return ::rename(from.c_str(), to.c_str()) == 0 ? Outcome() : Outcome(failure("cannot rename", from));
}

bool PosixFiles::remove(const std::string& path) { return ::unlink(path.c_str()) == 0 || errno == ENOENT; }

bool PosixFiles::mayWriteInto(const std::string& folder) const {
  std::error_code ignored;
  return std::filesystem::is_directory(folder, ignored) && ::access(folder.c_str(), W_OK | X_OK) == 0;
}

Outcome PosixFiles::makeFolder(const std::string& path) {
  std::error_code failed;
  std::filesystem::create_directories(path, failed);
  if (failed) return Error{"cannot make the folder " + path + ": " + failed.message()};
  return {};
}

Outcome PosixFiles::removeFolder(const std::string& path) {
  std::error_code failed;
  std::filesystem::remove_all(path, failed);
  if (failed) return Error{"cannot remove " + path + ": " + failed.message()};
  return {};
}

// One wait for the disk for all files: a first start would else spend seconds on hundreds of small ones. The
// folder that is being filled is held, and cleared of what one has left that was cut short.
Outcome PosixFiles::copyFolder(const std::string& from, const std::string& to) {
  namespace fs = std::filesystem;
  const auto scratch = fs::path(to).parent_path() / ("." + fs::path(to).filename().native() + ".kvo5-new");
  return guarded([&]() -> Outcome {
    Descriptor held;
    do {  // until it is the folder of that name: who held it before may have given it its own, or removed it
      if (fs::exists(to)) return {};
      fs::create_directory(scratch);
      held = Descriptor(::open(scratch.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
      if (!held.open() && errno == ENOENT) continue;
      if (!held.open() || !holdAlone(held)) return failure("cannot write", scratch.native());
    } while (!sameFile("/proc/self/fd/" + std::to_string(held.get()), scratch.native()));
    auto done = guarded([&] { return fillFolder(from, scratch); });
    if (done && ::syncfs(held.get()) != 0) done = failure("cannot write", to);
    if (done) done = rename(scratch.native(), to);
    std::error_code ignored;
    if (!done) fs::remove_all(scratch, ignored);
    return done;
  });
}

Result<std::unique_ptr<FileLock>> PosixFiles::lock(const std::string& path) {
  Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kNewFileMode));
  if (!file.open()) return failure("cannot hold", path);
  if (!holdAlone(file)) return failure("cannot hold", path);
  return std::unique_ptr<FileLock>(std::make_unique<HeldFile>(std::move(file)));
}

bool PosixFiles::sameFile(const std::string& a, const std::string& b) const {
  struct stat one {};
  struct stat two {};
  return ::stat(a.c_str(), &one) == 0 && ::stat(b.c_str(), &two) == 0 && one.st_dev == two.st_dev &&
         one.st_ino == two.st_ino;
}

}  // namespace kvo
