#include "adapters/posix/posix_processes.h"

#include "adapters/posix/poll_loop.h"
#include "adapters/posix/posix_temporary_folders.h"
#include "support/real_world.h"

#include <sys/wait.h>
#include <unistd.h>

namespace kvo {
namespace {

// A process that a test hears.
struct Heard {
  PollLoop loop;
  std::vector<std::string> lines;
  std::vector<std::string> errors;
  std::optional<ProcessEnd> end;
  std::unique_ptr<Process> process;
  std::function<void()> afterLine = [] {};

  void start(const std::string& script, const std::vector<std::string>& arguments = {}) {
    std::vector<std::string> words{"-c", script, "bash"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    ProcessHearing hearing;
    hearing.line = [this](auto line) {
      lines.emplace_back(line);
      afterLine();
    };
    hearing.errorLine = [this](auto line) { errors.emplace_back(line); };
    hearing.ended = [this](const auto& e) {
      end = e;
      loop.quit();
    };
    auto started = PosixProcesses().start(loop, {"/bin/bash", words}, std::move(hearing));
    ASSERT_TRUE(started) << started.error().text;
    process = std::move(*started);
  }
};

TEST(PosixProcesses, AreHeardToTheirEnd) {
  const std::string odd = "a b'\"$(touch x)`;*\xFF\n-";
  const struct {
    const char* script;
    std::vector<std::string> lines, errors;
    int exitCode, signal;
  } rows[] = {{"echo one; echo; printf two", {"one", "", "two"}, {}, 0, 0},
              {"echo out; echo err >&2; exit 3", {"out"}, {"err"}, 3, 0},
              {"printf %s \"$1\" | wc -c; cat", {std::to_string(odd.size())}, {}, 0, 0},
              {"kill -SEGV $$", {}, {}, 128 + SIGSEGV, SIGSEGV},
              {"exec >&- 2>&-; sleep 0.1; exit 4", {}, {}, 4, 0},  // it works on with its output closed
              {"sleep 60 & echo done", {"done"}, {}, 0, 0},        // a child holds the output open
              {"printf %0100000d",
               {std::string(kMaxProcessLine, '0'), std::string(100000 - kMaxProcessLine, '0')},
               {},
               0,
               0}};
  for (const auto& row : rows) {
    Heard heard;
    heard.start(row.script, {odd});
    heard.loop.run();
    EXPECT_EQ(heard.lines, row.lines) << row.script;
    EXPECT_EQ(heard.errors, row.errors) << row.script;
    EXPECT_EQ(std::pair(heard.end->exitCode, heard.end->signal), std::pair(row.exitCode, row.signal))
        << row.script;
  }
  Heard heard;
  const auto missing = PosixProcesses().start(heard.loop, {"/no/such/program"}, {});
  ASSERT_FALSE(missing);
  EXPECT_EQ(missing.error().text, "cannot start /no/such/program: No such file or directory");
}

TEST(PosixProcesses, OneWhoPrintsMuchIsHeardInOrder) {
  Heard heard;
  heard.afterLine = [&] {
    if (heard.lines.size() % 1000 == 1) heard.loop.yield();
  };
  heard.start("seq 50000");
  heard.loop.run();
  ASSERT_EQ(heard.lines.size(), 50000U);
  for (std::size_t i = 0; i < heard.lines.size(); ++i) ASSERT_EQ(heard.lines[i], std::to_string(i + 1));
}

TEST(PosixProcesses, EndWithTheirChildrenWhenTheyAreToEnd) {
  // A child that belongs to nobody any more, but to the same group.
  const std::string orphan = "(trap '' TERM; sleep 60 >&- 2>&- & echo $!); ";
  enum class By { Stop, Kill, Destruction };
  const struct {
    std::string before, after;
    By by;
    int signal;             // that ends it
    std::size_t lines = 1;  // after which
  } rows[] = {{"", "exec sleep 60", By::Stop, SIGTERM},
              {"", "exec sleep 60", By::Kill, SIGKILL},
              {"trap '' TERM;", "exec sleep 60", By::Stop, SIGKILL},
              {"", "exec sleep 60 >&-", By::Stop, SIGTERM},
              {"", "exec sleep 60", By::Destruction, 0},
              {"", "exec yes", By::Destruction, 0, 1000},
              {"", "exit 0", By::Destruction, 0, 9}};
  for (const auto& row : rows) {
    Heard heard;
    heard.afterLine = [&] {
      if (heard.lines.size() != row.lines) return;
      if (row.by == By::Stop) return heard.process->stop();
      if (row.by == By::Kill) return heard.process->kill();
      heard.process.reset();
      heard.loop.quit();
    };
    heard.start(row.before + orphan + row.after);
    heard.loop.run();
    const auto heardLines = heard.lines.size();
    heard.process.reset();
    heard.loop.yield();
    EXPECT_EQ(heard.lines.size(), heardLines) << row.after << ": nothing is heard after the end";
    EXPECT_EQ(heard.end ? heard.end->signal : 0, row.signal) << row.before << row.after;
    EXPECT_TRUE(test::comesToItsEnd(std::stoi(heard.lines.front()))) << row.before << row.after;
  }
}

// Whether the temporary folder of a process stands, with what it has put there.
bool folderStands(const test::ScratchFolder& base, pid_t owner) {
  const auto names = base.names();
  return std::any_of(names.begin(), names.end(), [&](const auto& name) {
    return name.starts_with("kvo5-" + std::to_string(owner) + "-") &&
           std::filesystem::exists(base / name + "/movie.xtl");
  });
}

// A process that has made a temporary folder, and stays until it is killed.
pid_t folderOwner(const test::ScratchFolder& base) {
  const auto owner = ::fork();
  if (owner == 0) {
    const auto folder = PosixTemporaryFolders().make();
    std::ofstream((*folder)->path() + "/movie.xtl") << "text";
    ::pause();
    ::_exit(0);
  }
  EXPECT_TRUE(test::eventually([&] { return folderStands(base, owner); }));
  return owner;
}

void killed(pid_t process) {
  ::kill(process, SIGKILL);
  ::waitpid(process, nullptr, 0);
}

TEST(TemporaryFolders, IsSweptWhenItsOwnerIsGone) {
  const test::ScratchFolder base;
  ::setenv("TMPDIR", base.path().c_str(), 1);
  const auto dead = folderOwner(base);
  const auto alive = folderOwner(base);
  const auto own = PosixTemporaryFolders().make();
  EXPECT_TRUE(own && folderStands(base, dead) && folderStands(base, alive));
  killed(dead);
  // What only looks like one.
  const auto other = base / "other", like = base / ("kvo5-" + std::to_string(dead));
  for (const auto& name :
       {other, base / "kvo5-abc", base / "kvo5--XXXXXX", base / "kvo5-12x-XXXXXX", base / "kvo6-1-XXXXXX"})
    std::filesystem::create_directory(name);
  for (const auto& name : {other + "/kept", like + "-FileXX"}) std::ofstream(name) << "text";
  std::filesystem::create_directory_symlink(other, like + "-LinkXX");
  const auto before = base.names().size();
  PosixTemporaryFolders().sweep();
  EXPECT_TRUE(!folderStands(base, dead) && folderStands(base, alive));
  EXPECT_TRUE(std::filesystem::exists((*own)->path()) && std::filesystem::exists(other + "/kept"));
  EXPECT_EQ(base.names().size(), before - 1);
  killed(alive);
  ::unsetenv("TMPDIR");
}

}  // namespace
}  // namespace kvo
