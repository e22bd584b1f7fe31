#include "adapters/posix/posix_files.h"

#include "adapters/posix/posix_name_locks.h"
#include "base/paths.h"
#include "support/real_world.h"

#include <algorithm>
#include <sys/stat.h>

namespace kvo {
namespace {

struct PosixFilesTest : testing::Test {
  test::ScratchFolder folder_;
  PosixFiles files_;
};

TEST_F(PosixFilesTest, AReplacementIsSeenOnlyAfterCommit) {
  const auto path = folder_ / "a.txt";
  ASSERT_TRUE(writeDurably(files_, path, "old"));
  ::chmod(path.c_str(), 0640);
  for (const bool commits : {false, true}) {
    {
      auto begun = files_.replace(path);
      ASSERT_TRUE(begun && (*begun)->write(4, "new"));
      EXPECT_EQ(*files_.read(path, 100), "old");
      EXPECT_TRUE(!commits || (*begun)->commit());
    }
    EXPECT_EQ(*files_.read(path, 100), commits ? std::string("\0\0\0\0new", 7) : "old");
    EXPECT_EQ(folder_.names().size(), 1U);
  }
  struct stat found {};
  ::stat(path.c_str(), &found);
  EXPECT_EQ(found.st_mode & 0777U, 0640U);
}

TEST_F(PosixFilesTest, ALinkIsFollowed) {
  ASSERT_TRUE(writeDurably(files_, folder_ / "target", "old"));
  std::filesystem::create_symlink("target", folder_ / "link");
  ASSERT_TRUE(writeDurably(files_, folder_ / "link", "new"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "link"));
  EXPECT_EQ(*files_.read(folder_ / "target", 100), "new");
}

TEST_F(PosixFilesTest, ANameIsHeldByOneAtATime) {
  PosixNameLocks locks;
  PosixNameLocks others;
  auto held = locks.tryLock(folder_ / "name");
  ASSERT_TRUE(held && *held && !*others.tryLock(folder_ / "name"));
  held->reset();
  EXPECT_TRUE(*others.tryLock(folder_ / "name"));
  EXPECT_FALSE(locks.tryLock(folder_ / "nowhere/name"));
}

TEST_F(PosixFilesTest, OnlyAFolderIsWrittenInto) {
  ASSERT_TRUE(writeDurably(files_, folder_ / "file", ""));
  ::chmod((folder_ / "file").c_str(), 0777);
  EXPECT_TRUE(files_.mayWriteInto(folder_ / ""));
  EXPECT_FALSE(files_.mayWriteInto(folder_ / "file") || files_.mayWriteInto(folder_ / "none"));
}

TEST_F(PosixFilesTest, AFolderIsCopiedWholeOrNotAtAll) {
  for (const auto* file : {"from/a", "from/below/b"}) {
    ASSERT_TRUE(files_.makeFolder(std::string(folderPart(folder_ / file))) &&
                writeDurably(files_, folder_ / file, file));
    ::chmod((folder_ / file).c_str(), 0444);
  }
  EXPECT_FALSE(files_.copyFolder(folder_ / "none", folder_ / "to"));
  EXPECT_EQ(folder_.names(), std::vector<std::string>{"from"});
  const auto half = folder_ / ".to.kvo5-new";
  ASSERT_TRUE(files_.makeFolder(half) && writeDurably(files_, half + "/cut short", ""));
  EXPECT_TRUE(files_.copyFolder(folder_ / "from", folder_ / "to"));
  EXPECT_EQ(folder_.names(), (std::vector<std::string>{"from", "to"}));
  std::vector<std::string> copied;
  files_.eachBelow(folder_ / "to", [&](const std::string& path) {
    copied.push_back(*files_.read(path, 99) + (files_.facts(path)->readOnly ? " read-only" : ""));
    return true;
  });
  std::sort(copied.begin(), copied.end());
  EXPECT_EQ(copied, (std::vector<std::string>{"from/a", "from/below/b"}));
  ASSERT_TRUE(writeDurably(files_, folder_ / "to/a", "the user's"));
  EXPECT_TRUE(files_.copyFolder(folder_ / "from", folder_ / "to"));
  EXPECT_EQ(*files_.read(folder_ / "to/a", 99), "the user's");
}

TEST_F(PosixFilesTest, FailuresNameTheFile) {
  const auto pipe = folder_ / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  ASSERT_TRUE(writeDurably(files_, folder_ / "big", std::string(11, 'x')));
  for (const auto& path : {folder_ / "none", folder_ / "big", std::string("/dev"), pipe}) {  // not waited for
    const auto failed = files_.read(path, 10);
    ASSERT_FALSE(failed) << path;
    EXPECT_TRUE(test::holds(failed.error().text, path)) << failed.error().text;
  }
  for (const auto& path : {folder_ / "nowhere/a", folder_.path()}) EXPECT_FALSE(files_.replace(path)) << path;
}

}  // namespace
}  // namespace kvo
