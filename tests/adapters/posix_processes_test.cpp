#include "adapters/posix/posix_processes.h"

#include "adapters/posix/temporary_folder.h"
#include "support/real_world.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(PosixProcesses, EndWhatDoesNotEndWhenItIsAsked) {
  struct Row {
    const char* script;
    int signal;  // that ends it
  };
  for (const auto& row :
       {Row{"echo go; exec sleep 8", SIGTERM}, Row{"trap '' TERM; echo go; exec sleep 8", SIGKILL},
        Row{"echo go; exec sleep 8 >&-", SIGTERM}}) {
    bool heard = false;
    const auto end = PosixProcesses().run(
        "/bin/bash", {"-c", row.script}, [&](std::string_view line) { heard = line == "go"; },
        [&] { return heard; });
    ASSERT_TRUE(end);
    EXPECT_TRUE(end->ended) << row.script;
    EXPECT_EQ(end->exitCode, 128 + row.signal) << row.script;
  }
}

// A process that has made a temporary folder, and stays or ends without cleaning up.
class FolderOwner {
 public:
  FolderOwner() {
    std::array<int, 2> pipe{};
    EXPECT_EQ(::pipe(pipe.data()), 0);
    process_ = ::fork();
    if (process_ == 0) {
      const auto folder = TemporaryFolder::make();
      std::ofstream(folder->path() + "/movie.xtl") << "text";
      const auto& path = folder->path();
      if (::write(pipe[1], path.data(), path.size()) > 0) ::pause();
      ::_exit(0);
    }
    std::array<char, 4096> name{};
    const auto got = ::read(pipe[0], name.data(), name.size());
    folder_.assign(name.data(), got > 0 ? static_cast<std::size_t>(got) : 0);
    for (const int end : pipe) ::close(end);
  }
  FolderOwner(const FolderOwner&) = delete;
  FolderOwner& operator=(const FolderOwner&) = delete;
  ~FolderOwner() { kill(); }

  void kill() {
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
    process_ = 0;
  }
  [[nodiscard]] bool folderStands() const { return std::filesystem::exists(folder_ + "/movie.xtl"); }
  [[nodiscard]] pid_t process() const { return process_; }

 private:
  pid_t process_ = 0;
  std::string folder_;
};

TEST(TemporaryFolder, IsSweptWhenItsOwnerIsGone) {
  const test::ScratchFolder base;
  ::setenv("TMPDIR", base.path().c_str(), 1);
  {
    FolderOwner dead;
    FolderOwner alive;
    const auto own = TemporaryFolder::make();
    ASSERT_TRUE(own);
    ASSERT_TRUE(dead.folderStands() && alive.folderStands());
    const auto deadProcess = std::to_string(dead.process());
    dead.kill();
    // What only looks like one.
    const auto other = base / "other";
    std::filesystem::create_directory(other);
    std::ofstream(other + "/kept") << "text";
    std::filesystem::create_directory_symlink(other, base / ("kvo5-" + deadProcess + "-LinkXX"));
    std::ofstream(base / ("kvo5-" + deadProcess + "-FileXX")) << "text";
    for (const auto* name : {"kvo5-abc", "kvo5--XXXXXX", "kvo5-12x-XXXXXX", "kvo6-1-XXXXXX"}) {
      std::filesystem::create_directory(base / name);
    }
    const auto before = base.names().size();
    TemporaryFolder::sweep();
    EXPECT_FALSE(dead.folderStands());
    EXPECT_TRUE(alive.folderStands());
    EXPECT_TRUE(std::filesystem::exists(own->path()));
    EXPECT_TRUE(std::filesystem::exists(other + "/kept"));
    EXPECT_EQ(base.names().size(), before - 1);
  }
  ::unsetenv("TMPDIR");
}

}  // namespace
}  // namespace kvo
