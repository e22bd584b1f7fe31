// Sketches by processes of their own: their words, what waits, their ends, and real media.
#include "adapters/jpeg/turbo_jpeg.h"
#include "adapters/posix/poll_loop.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_processes.h"
#include "sketches/kept_sketches.h"
#include "sketches/sketch_file.h"
#include "support/fake_processes.h"
#include "support/real_world.h"
#include "support/virtual_loop.h"

#include <thread>

namespace kvo {
namespace {

using Kind = SketchOrder::Kind;

TEST(SketchWords, ComeBackAsTheyWere) {
  for (const auto& order : {SketchOrder{Kind::Picture, "/v/a  b\n.avi", 4294967295U, true},
                            SketchOrder{Kind::Peaks, " ", 0, false}})
    EXPECT_EQ(readOrder(orderText(order)), order);
  for (const auto* junk :
       {"", "picture", "picture 1 loud ", "picture x loud /a", "picture 4294967296 loud /a",
        "picture 1 soft /a", "sound 1 loud /a", "peaks -1 quiet /a"})
    EXPECT_FALSE(readOrder(junk)) << junk;
  std::string data;
  for (int i = 0; i < 100000; ++i) data += static_cast<char>(i * 7);
  std::string back;
  int lines = 0;
  sketchLines(data, [&](std::string_view line) {
    EXPECT_LT(line.size(), kMaxProcessLine);
    ++lines;
    readSketchLine(line, back);
  });
  EXPECT_EQ(lines, 8);
  EXPECT_EQ(back, data);
  for (const auto* junk : {"data 4", "data zz", "date 41", "", "end"}) readSketchLine(junk, back);
  EXPECT_EQ(back.size(), data.size());
}

struct SketchBench {
  test::FakeProcesses processes;
  test::VirtualLoop loop;
  std::string heard;
  SketchProcess drawing{
      {processes, loop, {.program = "/bin/sketch"}},
      [this](const auto& order, const auto& data) { heard += order.path + "=" + data + " "; }};

  void want(const std::string& path, bool quiet = false) { drawing.want({Kind::Picture, path, 1, quiet}); }
  // The order that is being carried out.
  [[nodiscard]] std::string asked() const {
    const auto order = readOrder(processes.last().written.back());
    return order ? order->path.substr(0, order->path.find('\0')) : "none";
  }
  void answer() const {
    processes.say("data 6f6b");
    processes.say("end");
  }
};

TEST(SketchProcess, DoesFirstWhatIsWantedLastAndWhatIsForLaterAtTheEnd) {
  SketchBench b;
  EXPECT_TRUE(b.processes.all.empty()) << "none before the first order";
  for (const auto* later : {"x", "y"}) b.want(later, true);
  for (const auto* now : {"a", "b", "c", "a"}) b.want(now);
  std::string order;
  for (int i = 0; i < 5; ++i) {
    order += b.asked();
    b.answer();
  }
  EXPECT_EQ(order, "xacby");
  EXPECT_EQ(std::exchange(b.heard, ""), "a=ok c=ok b=ok ") << "nothing of what is for later";
  EXPECT_EQ(b.processes.all.size(), 1U);
  b.processes.say("data 6f6b");
  b.want("d");
  for (int i = 0; i < 200; ++i) b.want(std::to_string(i));
  for (int i = 0; i < 300; ++i) b.answer();
  EXPECT_TRUE(b.heard.starts_with("d=ok 199=ok 198=ok ")) << b.heard;
  EXPECT_EQ(test::countOf(b.heard, "=ok"), 1 + SketchProcess::kMostWanted)
      << "those asked for long ago are forgotten";
  b.loop.advance(SketchProcess::kSketchRest + 1000);
  EXPECT_TRUE(b.processes.last().destroyed) << "nobody wants anything";
  b.want("e");
  EXPECT_EQ(b.processes.all.size(), 2U);
}

TEST(SketchProcess, GoesOnBehindOneThatCrashesOrHangs) {
  SketchBench b;
  for (const auto* path : {"good", "slow", "hangs", "crashes"}) b.want(path);
  b.answer();
  b.processes.say("data 6f");
  b.processes.end(139, 11);
  EXPECT_EQ(b.processes.all.size(), 2U);
  b.loop.advance(SketchProcess::kSketchPatience + 1000);
  EXPECT_EQ(b.processes.all.size(), 3U);
  for (int i = 0; i < 5; ++i) {
    b.loop.advance(SketchProcess::kSketchPatience - 2000);
    b.processes.say("busy");
  }
  b.answer();
  EXPECT_EQ(b.heard, "good=ok crashes= hangs= slow=ok ");
  b.processes.end(0);
  b.processes.refusal = "no";
  b.want("last");
  b.loop.advance(100);
  EXPECT_TRUE(b.heard.ends_with(" last= ")) << "where none can be started there is nothing";
}

// What one of them adds between another's look and its write is not lost.
TEST(SketchFolder, TakesFromSeveralAtOnce) {
  constexpr std::uint32_t kEach = 40;
  const test::ScratchFolder scratch;
  PosixFiles files;
  ASSERT_TRUE(writeDurably(files, scratch / "film", "film"));
  const auto draws = [&](std::uint32_t first) {
    PosixFiles own;
    SketchFolder folder(own, scratch / "sketches");
    for (std::uint32_t i = 0; i < kEach; ++i) {
      auto sketch = *folder.find(scratch / "film");
      sketch.add({first + i, "jpeg"});
      EXPECT_TRUE(folder.keep(sketch));
    }
  };
  std::thread other(draws, 1000);
  draws(0);
  other.join();
  EXPECT_EQ(SketchFolder(files, scratch / "sketches").find(scratch / "film")->pictures.size(), 2 * kEach);
}

TEST(KeptSketches, OfRealMediaComeByTheProgramAndOutOfTheFolderNextTime) {
  const test::ScratchFolder media;
  const test::ScratchFolder cache;
  ::setenv("XDG_CACHE_HOME", cache.path().c_str(), 1);
  const auto film =
      test::makeMedia(media, "a b.avi",
                      {"-f", "lavfi", "-i", "color=red:size=320x180:rate=25:duration=2", "-f", "lavfi", "-i",
                       "aevalsrc=if(gte(t\\,1)\\,0.5\\,0):duration=2", "-c:v", "mpeg4", "-c:a", "pcm_s16le"});
  PosixProcesses processes;
  const TurboJpeg jpeg;
  PosixFiles files;
  const auto isKept = [&](const std::string& path) {
    const auto sketch = SketchFolder(files, cache / "kvo5/sketches").find(path);
    return !sketch || (!sketch->pictures.empty() && sketch->peaks);
  };
  const auto take = [&](const std::string& path, auto check) {
    PollLoop loop;
    KeptSketches sketches({processes, loop, {.program = KVO_PROGRAMS "/kvo5", .arguments = {"--sketch"}}},
                          jpeg);
    std::optional<Sketches::Picture> picture;
    std::optional<Sketches::Peaks> peaks;
    for (int i = 0; i < 2000 && !(picture && peaks); ++i) {
      picture = sketches.picture(path, 1.5);
      peaks = sketches.peaks(path, 10);
      loop.wait(20);
    }
    ASSERT_TRUE(picture && peaks);
    check(*picture, *peaks);
    for (int i = 0; i < 500 && !isKept(path); ++i) loop.wait(20);  // a moment later
    EXPECT_TRUE(isKept(path));
  };
  const auto isTheFilm = [](const auto& picture, const auto& peaks) {
    ASSERT_TRUE(picture && peaks);
    EXPECT_EQ(std::pair(picture->width, picture->height), std::pair(256, 144));
    EXPECT_TRUE(picture->bgr[2] > 200 && picture->bgr[0] < 60);
    ASSERT_NEAR(static_cast<double>(peaks->size()), 20, 1);
    EXPECT_EQ((*peaks)[5], 0);
    EXPECT_NEAR((*peaks)[15], 128, 2);
  };
  take(film, isTheFilm);
  // Behind this a picture can only come out of the folder.
  const auto before = std::filesystem::last_write_time(film);
  const auto size = std::filesystem::file_size(film);
  std::filesystem::resize_file(film, 100);
  std::filesystem::resize_file(film, size);
  std::filesystem::last_write_time(film, before);
  take(film, isTheFilm);
  take(media / "none.avi", [](const auto& picture, const auto& peaks) { EXPECT_FALSE(picture || peaks); });
}

}  // namespace
}  // namespace kvo
