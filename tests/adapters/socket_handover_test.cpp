#include "adapters/posix/socket_handover.h"

#include "support/real_world.h"

#include <cstdlib>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kvo {
namespace {

// What any program could throw at the socket.
bool sendRaw(const std::string& path, const std::string& bytes) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(&address.sun_path[0], sizeof address.sun_path - 1);
  const int to = ::socket(AF_UNIX, SOCK_DGRAM, 0);
  const int room = 4 << 20;
  ::setsockopt(to, SOL_SOCKET, SO_SNDBUF, &room, sizeof room);
  const auto sent = ::sendto(to, bytes.data(), bytes.size(), MSG_DONTWAIT,
                             reinterpret_cast<sockaddr*>(&address), sizeof address);
  ::close(to);
  return sent == static_cast<ssize_t>(bytes.size());
}

// Two copies of one program.
struct SocketHandoverTest : testing::Test {
  test::ScratchFolder folder;
  SocketHandover first{folder.path(), "a"};
  SocketHandover second{folder.path(), "a"};
};

TEST_F(SocketHandoverTest, LeavesTheLastTextWithTheFirstCopy) {
  SocketHandover otherFolder(folder.path(), "b");
  ASSERT_TRUE(first.becomeFirst());
  EXPECT_FALSE(second.becomeFirst());
  EXPECT_TRUE(otherFolder.becomeFirst()) << "another program folder is another program";
  EXPECT_FALSE(first.take());
  EXPECT_TRUE(second.send("one"));
  EXPECT_TRUE(second.send("/v/\xC3\xBC.avi\nthree"));
  EXPECT_EQ(first.take(), "/v/\xC3\xBC.avi\nthree");
  EXPECT_FALSE(first.take());
  EXPECT_FALSE(otherFolder.take());
}

TEST_F(SocketHandoverTest, IsHarmedByNothingThatIsSent) {
  ASSERT_TRUE(first.becomeFirst());
  EXPECT_FALSE(second.send(std::string(1U << 20U, 'x'))) << "a megabyte is not sent";
  sendRaw(folder / "a.socket", std::string(300U << 10U, 'x'));
  EXPECT_FALSE(first.take()) << "nor taken, not even in part";
  EXPECT_TRUE(sendRaw(folder / "a.socket", std::string("\0\xFF\x01", 3)));
  EXPECT_EQ(first.take(), std::string("\0\xFF\x01", 3));
  for (int i = 0; i < 10000 && sendRaw(folder / "a.socket", "flood"); ++i) {
  }
  const std::string large(kMaxHandover, 'y');
  std::optional<std::string> taken;
  std::thread taking([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    taken = first.take();  // it may come while these are taken, or behind them
  });
  EXPECT_TRUE(second.send(large)) << "as soon as there is room";
  taking.join();
  if (taken == "flood") taken = first.take();
  EXPECT_TRUE(taken == large);
  EXPECT_TRUE(second.send("still there"));
  EXPECT_EQ(first.take(), "still there");
}

TEST_F(SocketHandoverTest, TakesTheSocketOfACrashedCopyOver) {
  const auto child = ::fork();
  if (child == 0) {
    auto* crashing = new SocketHandover(folder.path(), "a");  // NOLINT: it is never to be cleared away
    ::_exit(crashing->becomeFirst() ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  ASSERT_EQ(WEXITSTATUS(status), 0);
  ASSERT_TRUE(std::filesystem::exists(folder / "a.socket"));
  EXPECT_TRUE(first.becomeFirst());
  EXPECT_TRUE(second.send("hello"));
  EXPECT_EQ(first.take(), "hello");
}

TEST_F(SocketHandoverTest, WithoutTheLockTheMailboxIsSomebodyElses) {
  ASSERT_TRUE(first.becomeFirst());
  std::filesystem::remove(folder / "a.lock");
  std::filesystem::create_directory(folder / "a.lock");
  EXPECT_TRUE(second.becomeFirst()) << "the program runs all the same";
  EXPECT_TRUE(second.send("x"));
  EXPECT_EQ(first.take(), "x");
}

TEST_F(SocketHandoverTest, UsesOnlyAFolderOfTheUsersOwn) {
  ::setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1);
  EXPECT_EQ(handoverFolder(), folder.path());
  ::chmod(folder.path().c_str(), 0777);
  EXPECT_NE(handoverFolder(), folder.path()) << "others could write there";
  ::unsetenv("XDG_RUNTIME_DIR");
  EXPECT_EQ(handoverFolder(), "/tmp/kvo5-" + std::to_string(::getuid()));
  EXPECT_TRUE(handoverName("/a") == handoverName("/a") && handoverName("/a") != handoverName("/b"));
}

}  // namespace
}  // namespace kvo
