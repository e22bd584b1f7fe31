// A save that is cut off at any point leaves the old file or the new one, whole.
#include "adapters/posix/posix_files.h"
#include "support/store_bench.h"

#include <csignal>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace kvo {
namespace {

// Ends the process by SIGKILL at the n-th call that changes anything.
class DyingFiles : public PosixFiles {
 public:
  explicit DyingFiles(int dieAt) : left_(dieAt) {}

  Result<std::unique_ptr<Replacement>> replace(const std::string& path) override {
    step();
    auto inner = PosixFiles::replace(path);
    if (!inner) return inner;
    return std::unique_ptr<Replacement>(std::make_unique<Dying>(*this, std::move(*inner)));
  }

 private:
  class Dying : public Replacement {
   public:
    Dying(DyingFiles& files, std::unique_ptr<Replacement> inner) : files_(files), inner_(std::move(inner)) {}
    Outcome write(std::uint64_t at, std::string_view bytes) override {
      files_.step();
      auto done = inner_->write(at, bytes.substr(0, bytes.size() / 2));
      files_.step();
      return done ? inner_->write(at + bytes.size() / 2, bytes.substr(bytes.size() / 2)) : done;
    }
    [[nodiscard]] std::uint64_t size() const override { return inner_->size(); }
    Outcome commit() override {
      files_.step();
      auto done = inner_->commit();
      files_.step();
      return done;
    }

   private:
    DyingFiles& files_;
    std::unique_ptr<Replacement> inner_;
  };

  void step() {
    if (--left_ == 0) ::kill(::getpid(), SIGKILL);
  }
  int left_;
};

void fill(test::StoreBench& b, int clips) {
  for (int i = 0; i < clips; ++i) b.addVideo("clip" + std::to_string(i) + ".avi", 0, i + 1);
}

bool save(Files& files, const std::string& folder, int clips) {
  test::StoreBench b;
  fill(b, clips);
  CollectionStore file(files, b.clock, b.boxes, b.log, b.folder, b.settings, b.collection);
  return file.WriteINI(folder, "t.INI", true);
}

TEST(DurableSave, AKillLeavesTheOldFileOrTheNewOne) {
  char name[] = "/tmp/kvo-save-XXXXXX";
  const std::string folder = mkdtemp(name);
  PosixFiles plain;
  ASSERT_TRUE(save(plain, folder, 200));
  const auto newText = *plain.read(folder + "/t.INI", 1U << 30U);
  ASSERT_TRUE(save(plain, folder, 3));
  const auto oldText = *plain.read(folder + "/t.INI", 1U << 30U);

  bool finished = false;
  int points = 0;
  for (int n = 1; !finished; ++n) {
    ASSERT_TRUE(save(plain, folder, 3));
    const auto child = ::fork();
    if (child == 0) {
      DyingFiles dying(n);
      ::_exit(save(dying, folder, 200) ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    finished = WIFEXITED(status);
    const auto text = *plain.read(folder + "/t.INI", 1U << 30U);
    EXPECT_TRUE(text == oldText || text == newText)
        << "killed at call " << n << ": " << text.size() << " bytes";
    if (finished) {
      EXPECT_EQ(text, newText);
    }
    ++points;
  }
  EXPECT_GT(points, 6);
  std::filesystem::remove_all(folder);
}

TEST(DurableSave, AFailureAtAnyCallLeavesTheOldFile) {
  test::StoreBench b;
  fill(b, 300);
  b.files.all["/col/t.INI"] = "old";
  bool saved = false;
  int failures = 0;
  for (int n = 1; !saved; ++n) {
    b.files.calls = 0;
    b.files.failAt = n;
    b.settings.state.IsDirty = true;
    saved = b.file.WriteINI("/col", "t.INI", true);
    if (saved) break;
    ++failures;
    EXPECT_EQ(b.files.all["/col/t.INI"], "old") << n;
    EXPECT_TRUE(b.settings.state.IsDirty);
    EXPECT_EQ(b.boxes.shown.back().caption, "KVO V5 - Error");
    EXPECT_NE(b.log.texts().back().find("<<ERR040>> - General WriteINI Failure - Sect="), std::string::npos);
  }
  EXPECT_GE(failures, 3);
  EXPECT_FALSE(b.settings.state.IsDirty);
}

}  // namespace
}  // namespace kvo
