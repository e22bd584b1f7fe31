// The place where a long clip was left, and the screen that stays awake.
#include "program/resume.h"

#include "program/keep_awake.h"
#include "support/held_player.h"
#include "support/program_bench.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace kvo {
namespace {

constexpr FileFacts kFile{1000, 77};

TEST(ResumePlaces, KeepsTheNewestOfEachFileAndNoJunk) {
  ResumePlaces places;
  for (int i = 0; i < 300; ++i) places.keep({"/v/" + std::to_string(i) + ".avi", kFile, 100.5 + i});
  places.keep({"/v/250.avi", kFile, 42});
  places.keep({"/v/a\nb.avi", kFile, 42});
  const auto text = places.text();
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 200);
  const auto again =
      ResumePlaces::read("nonsense\n1e999\t1\t1\t/v/inf.avi\n-3\t1\t1\t/v/x.avi\n7\t1\t/v/y.avi\n" + text);
  EXPECT_EQ(again.text(), text);
  EXPECT_EQ(again.find("/v/250.avi", kFile), 42);
  EXPECT_EQ(again.find("/v/299.avi", kFile), 399.5);
  EXPECT_FALSE(again.find("/v/299.avi", {1001, 77}) || again.find("/v/299.avi", {1000, 78}))
      << "another file";
  EXPECT_EQ(again.find("/v/3.avi", kFile), std::nullopt) << "the oldest had to go";
  EXPECT_TRUE(ResumePlaces::read(std::string(100, '\t')).text().empty());
}

struct ResumeBench : test::ProgramBench {
  test::HeldPlayer player{*this};
  Resume resume;

  explicit ResumeBench(const std::string& placesFile = "/state/KVO5/Places")
      : resume({window, collection, settings, player, loop, files, placesFile}) {
    addVideo("long.avi", 0, 0).DurationTime(Value(1200.0));
    addVideo("short.avi", 0, 0).DurationTime(Value(599.0));
    bring(1);
  }
  // Another clip in the player, at its start.
  void bring(int number) {
    collection.icurMov = number;
    player.PlayerSetFilename(clipFile(clip(number)), number);
    at(0);
  }
  // Play has come there, as the ticks of the monitor see it.
  void at(double seconds) {
    player.position = seconds;
    resume.settled();
  }
  const std::string& chip() const { return window.resume.chip; }
};

TEST(Resume, OffersTheEndOfWhatWasSeen) {
  using Row = std::tuple<const char*, int, double, const char*>;
  for (const auto& [what, clip, left, chip] :
       {Row{"in the middle", 1, 500.4, "Resume at 8:20"}, Row{"at its start", 1, 29, ""},
        Row{"seen to its end", 1, 1141, ""}, Row{"not long", 2, 300, ""}}) {
    ResumeBench b;
    b.bring(clip);
    for (double s = 0; s < left; s += 1) b.at(s);
    b.at(left);
    b.bring(3 - clip);
    b.bring(clip);
    EXPECT_EQ(b.chip(), chip) << what;
  }
}

TEST(Resume, AnOfferIsTakenOrGoesByItself) {
  ResumeBench b;
  const auto offered = [&] {
    b.at(700);
    b.bring(2);
    EXPECT_EQ(b.chip(), "");
    b.bring(1);
    EXPECT_EQ(b.chip(), "Resume at 11:40");
  };
  offered();
  b.at(0.6);
  EXPECT_EQ(b.chip(), "Resume at 11:40") << "the clip plays meanwhile";
  for (int i = 0; i < 2; ++i) b.resume.take();
  EXPECT_EQ(b.player.calls + b.chip(), "seek 700 play ") << "once";

  offered();
  b.loop.advance(9'900);
  EXPECT_NE(b.chip(), "");
  b.loop.advance(200);
  EXPECT_EQ(b.chip(), "") << "its time is up";

  offered();
  b.at(300);
  EXPECT_EQ(b.chip(), "") << "the user went elsewhere";
  b.player.PlayerClear();
  b.at(0);
  b.files.all["/v/long.avi"] = "longer";
  b.bring(1);
  EXPECT_EQ(b.chip(), "") << "another file of that name";
}

TEST(Resume, IsKeptWhileItPlaysAndAtTheEnd) {
  ResumeBench b;
  for (int s = 0; s <= 130; ++s) b.at(s);
  EXPECT_NE(b.files.all["/state/KVO5/Places"].find("/v/long.avi"), std::string::npos) << "in case of a crash";
  b.at(150);
  b.resume.leave();
  EXPECT_EQ(b.files.all["/state/KVO5/Places"].substr(0, 4), "150\t");
  b.files.unreadable.insert("/state/KVO5/Places");
  b.at(300);
  b.resume.leave();
  EXPECT_EQ(b.files.all["/state/KVO5/Places"].substr(0, 4), "150\t") << "what cannot be read is not replaced";
  b.settings.user.OfferResume = false;
  b.bring(2);
  b.bring(1);
  EXPECT_EQ(b.chip(), "");
  EXPECT_FALSE(b.files.exists("/state/KVO5/Places")) << "whoever turns it off wants nothing kept";
}

TEST(Resume, GoesByTheClipAndNotByItsFile) {
  ResumeBench b;
  auto again = b.clip(1);
  again.KeyID(again.KeyID() + 1);
  again.LoopStart(Value(690.0));
  b.collection.MovieList.add(std::move(again));
  b.at(700);
  b.bring(3);
  EXPECT_EQ(b.chip(), "") << "so near to the start of this one it is none";
  b.at(695);
  b.bring(1);
  EXPECT_EQ(b.chip(), "Resume at 11:40");
}

TEST(Resume, WithoutAHomeNothingIsKept) {
  ResumeBench b{""};
  const auto files = b.files.all;
  b.at(700);
  b.bring(2);
  b.bring(1);
  EXPECT_EQ(b.chip(), "");
  b.settings.user.OfferResume = false;
  b.bring(2);
  b.resume.leave();
  EXPECT_EQ(b.files.all, files);
}

TEST(KeepAwake, WhileAPicturePlays) {
  test::ProgramBench b;
  struct : ScreenSaver {
    std::string told;  // "+" for each time that the screen is to stay awake, "-" for each end of it
    void inhibit(bool on) override { told += on ? '+' : '-'; }
  } saver;
  KeepAwake awake(b.window, saver);
  auto& player = b.window.mode.player;
  using Row = std::tuple<bool, int, const char*>;
  for (const auto& [plays, width, told] :
       {Row{false, 640, ""}, Row{true, 640, "+"}, Row{true, 320, "+"}, Row{true, 0, "+-"},
        Row{true, 640, "+-+"}, Row{false, 640, "+-+-"}}) {
    player.IsPlaying = plays;
    player.sourceWidth = width;
    awake.settled();
    EXPECT_EQ(saver.told, told) << plays << width;
  }
}

}  // namespace
}  // namespace kvo
