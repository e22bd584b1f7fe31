// The player: its steps on virtual time, and the real one on a thread.
#include "engine/run/playback.h"

#include "engine/document/document_reader.h"
#include "engine/run/engine_player.h"
#include "support/documents.h"
#include "support/real_world.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <functional>
#include <future>
#include <mutex>
#include <new>
#include <opencv2/core.hpp>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

// Loudspeakers on virtual time: what is queued is heard as the clock goes on. They may take their time to
// open, or go wrong.
class FakeSound : public SoundOutput {
 public:
  explicit FakeSound(const double& now) : now_(now) {}
  Outcome open() override {
    opens = true;
    if (mayOpen.valid())
      openedInTime = mayOpen.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
    return {};
  }
  void queue(std::span<const float> samples) override {
    if (throws) throw std::bad_alloc();
    settle();
    queued_ += static_cast<double>(samples.size()) / 2 / 44100;
    heard.insert(heard.end(), samples.begin(), samples.end());
  }
  [[nodiscard]] double waiting() const override {
    return std::max(0.0, queued_ - (running_ ? now_ - since_ : 0));
  }
  void clear() override { queued_ = 0; }
  void run() override {
    running_ = true;
    since_ = now_;
  }
  void hold() override {
    settle();
    running_ = false;
  }
  std::vector<float> heard;
  std::future<void> mayOpen;
  std::atomic<bool> opens = false;
  std::atomic<bool> openedInTime = true;
  bool throws = false;

 private:
  void settle() {
    queued_ = waiting();
    since_ = now_;
  }
  const double& now_;
  double since_ = 0;
  double queued_ = 0;
  bool running_ = false;
};

class PlaybackTest : public testing::Test {
 protected:
  PlaybackTest() {
    video_ = test::makeCountingVideo(media_, "count.mkv", "25", 100);
    tone_ = test::makeMedia(media_, "tone.wav", {"-f", "lavfi", "-i", "sine=frequency=441:duration=4"});
  }

  // Two seconds of the counting video from its second 1, at 64 x 48 and 25 frames a second.
  [[nodiscard]] std::string document(bool withSound) const {
    std::vector<test::DocumentClip> sound;
    if (withSound) sound.push_back({tone_, 1, 3, 0, 2});
    return test::documentOf({{video_, 1, 3, 0, 2}}, sound);
  }

  static int numberOf(const media::Picture& picture) {
    return static_cast<int>(std::lround((picture.row(0, 9)[9] - 16) / 2.0));
  }

  test::ScratchFolder media_;
  std::string video_;
  std::string tone_;
};

TEST_F(PlaybackTest, ShowsTheFrameThatIsDueAndStopsAtTheEnd) {
  for (const bool withSound : {false, true}) {
    double now = 100;
    FakeSound sound(now);
    Playback playback(*readDocument(document(withSound)), &sound);
    EXPECT_EQ(playback.frames(), 50);
    auto first = playback.step(now);
    ASSERT_TRUE(first && *first);
    EXPECT_EQ(numberOf((*first)->picture), 25);
    EXPECT_FALSE(*playback.step(now)) << "it is shown already";
    EXPECT_GT(playback.dueIn(now), 60) << "it stands";
    playback.play(now);
    std::int64_t last = 0;
    for (int i = 0; i < 200 && playback.state() == PlayState::Playing; ++i) {
      now += std::clamp(playback.dueIn(now), 0.001, 0.1);
      const auto shown = playback.step(now);
      ASSERT_TRUE(shown);
      if (!*shown) continue;
      EXPECT_EQ(numberOf((*shown)->picture), 25 + (*shown)->frame);
      EXPECT_NEAR((now - 100) * 25, static_cast<double>((*shown)->frame), 1.1) << "sound " << withSound;
      EXPECT_LE((*shown)->frame, last + 1) << "none is left out while there is time";
      last = (*shown)->frame;
    }
    EXPECT_EQ(playback.state(), PlayState::Ended);
    EXPECT_EQ(playback.position(), 49);
    if (withSound) {
      EXPECT_GT(sound.heard.size(), 2U * 88000);
    }
    playback.play(now);
    ASSERT_TRUE(playback.step(now));
    EXPECT_EQ(playback.position(), 0) << "from the start again";
  }
}

TEST_F(PlaybackTest, LeavesOutWhatIsLateAndKeepsItsPlace) {
  double now = 0;
  Playback playback(*readDocument(document(false)), nullptr);
  const auto seek = [&](std::int64_t frame) { return [&, frame] { playback.seek(frame, now); }; };
  const struct {
    const char* what;
    double at;
    std::function<void()> act;
    std::int64_t position;
    PlayState state;
  } rows[] = {
      {"play", 0, [&] { playback.play(now); }, 0, PlayState::Playing},
      {"a slow machine", 0.5, [] {}, 12, PlayState::Playing},
      {"pause", 0.5, [&] { playback.pause(now); }, 12, PlayState::Paused},
      {"a pause stands", 9, [] {}, 12, PlayState::Paused},
      {"a seek does not start it", 9, seek(40), 40, PlayState::Paused},
      {"play on", 9, [&] { playback.play(now); }, 40, PlayState::Playing},
      {"goes on", 9.2, [] {}, 45, PlayState::Playing},
      {"nor does a seek stop it", 9.2, seek(5), 5, PlayState::Playing},
      {"held within the timeline", 9.2, seek(-7), 0, PlayState::Playing},
      {"at its end too", 9.2, seek(999), 49, PlayState::Playing},
      {"stop", 9.2, [&] { playback.stop(); }, 0, PlayState::Stopped},
  };
  for (const auto& row : rows) {
    now = row.at;
    row.act();
    const auto step = playback.step(now);
    ASSERT_TRUE(step) << row.what;
    EXPECT_EQ(playback.position(), row.position) << row.what;
    EXPECT_EQ(playback.state(), row.state) << row.what;
    if (*step) {
      EXPECT_EQ(numberOf((*step)->picture), 25 + row.position) << row.what;
    }
  }
}

TEST_F(PlaybackTest, SoundGoesWithThePictureAfterASeek) {
  double now = 0;
  FakeSound sound(now);
  Playback playback(*readDocument(document(true)), &sound);
  playback.seek(30, now);
  playback.play(now);
  for (; now < 0.4; now += 0.02) ASSERT_TRUE(playback.step(now));
  EXPECT_NEAR(static_cast<double>(playback.position()), 30 + 0.4 * 25, 1.1);
  // The first sample that is heard is that of second 1.2 of the timeline: second 2.2 of the tone.
  for (std::size_t i = 100; i < 4000; ++i) {
    const double wanted =
        0.125 * std::sin(2 * 3.14159265358979 * 441 * (2.2 + static_cast<double>(i) / 44100));
    ASSERT_NEAR(sound.heard[2 * i], wanted, 0.01) << i;
  }
}

bool isOpen(const std::filesystem::path& file) {
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;
    if (std::filesystem::read_symlink(entry.path(), gone) == file) return true;
  }
  return false;
}

TEST_F(PlaybackTest, SoundIsOpenAheadOfItsTurn) {
  const auto other = media_ / "other.wav";
  std::filesystem::copy_file(tone_, other);
  double now = 0;
  FakeSound sound(now);
  Playback playback(*readDocument(test::documentOf({{video_, 0, 4, 0, 4}}, {{other, 0, 2, 2, 4}})), &sound);
  playback.play(now);
  for (; now < 1; now += 0.02) ASSERT_TRUE(playback.step(now));
  EXPECT_TRUE(test::eventually([&] { return isOpen(other); }));
  std::filesystem::remove(other);
  for (; playback.state() == PlayState::Playing; now += 0.02) ASSERT_TRUE(playback.step(now));
  EXPECT_EQ(playback.state(), PlayState::Ended);
  ASSERT_GT(sound.heard.size(), 2U * 44100 * 3);
  EXPECT_NEAR(sound.heard[2 * 44100 * 2 + 50], 0.125, 0.01) << "a quarter of its first wave";
}

TEST_F(PlaybackTest, APauseStandsAtTheFrameThatIsShown) {
  for (const char* rate : {"25", "29.97", "23.976", "12.5", "60"}) {
    auto timeline = *readDocument(
        test::documentOf({{video_, 0, 300, 0, 300}}, {{tone_, 0, 300, 0, 300}}, {64, 48, rate}));
    timeline.video.clear();  // what matters is the time
    Playback playback(std::move(timeline), nullptr);
    for (std::int64_t frame = 1; frame < 3000; ++frame) {
      playback.stop();
      playback.play(0);
      const double now = static_cast<double>(frame) / playback.frameRate();
      for (int again = 0; again < 2; ++again) {
        ASSERT_TRUE(playback.step(now));
        ASSERT_EQ(playback.position(), frame) << rate;
        playback.pause(now);
      }
    }
  }
}

TEST_F(PlaybackTest, WhatIsMadeAheadIsShownInItsTurn) {
  const auto other = media_ / "other.mkv";
  std::filesystem::copy_file(video_, other);
  OpenFiles files(4);
  double now = 0;
  const auto text = test::documentOf({{video_, 0, 1, 0, 1}, {other, 2, 3, 1, 2}});
  {
    Playback playback(*readDocument(text), nullptr, &files);
    playback.play(now);
    ASSERT_TRUE(playback.step(now));
    EXPECT_TRUE(playback.workAhead());
    auto ready = files.take(other, 1, nullptr);  // waits for it
    ASSERT_TRUE(ready);
    files.give(other, std::move(*ready));
    std::filesystem::remove(video_);  // both are open by now
    std::filesystem::remove(other);
    for (; playback.state() == PlayState::Playing; now += 0.04) {
      const auto shown = playback.step(now);
      ASSERT_TRUE(shown) << shown.error().text;
      while (playback.workAhead()) {
      }
      if (!*shown) continue;
      const auto frame = (*shown)->frame;
      EXPECT_EQ(numberOf((*shown)->picture), frame < 25 ? frame : frame + 25);
    }
    EXPECT_EQ(playback.position(), 49);
  }
  Playback next(*readDocument(text), nullptr, &files);
  next.seek(30, now);
  const auto shown = next.step(now);
  ASSERT_TRUE(shown && *shown) << "the next timeline has the same files";
  EXPECT_EQ(numberOf((*shown)->picture), 55);
  files.clear();
  Playback none(*readDocument(text), nullptr, &files);
  EXPECT_FALSE(none.step(now)) << "they have been let go of";
}

TEST_F(PlaybackTest, TheWayToAFarPlaceIsGoneByStretches) {
  const auto far = test::makeMedia(
      media_, "far.mp4",
      {"-f", "lavfi", "-i", "color=black:size=64x48:rate=25,format=yuv420p,geq=lum='16+N':cb=128:cr=128",
       "-frames:v", "200", "-c:v", "libx264", "-g", "1000", "-keyint_min", "1000", "-qp", "1"});
  Playback playback(*readDocument(test::documentOf({{far, 0, 8, 0, 8}})), nullptr);
  const auto grey = [](const media::Picture& picture) { return int{picture.row(0, 9)[9]} - 16; };
  std::vector<double> ways;
  for (;;) {
    const double left = playback.approach(150);
    if (left <= 0) break;
    ways.push_back(left);
    const auto rough = playback.roughly(150);
    EXPECT_EQ(rough.frame, 150);
    EXPECT_NEAR(grey(rough.picture), 150 - left * 25, 1.5) << "as far as it has come";
  }
  ASSERT_GT(ways.size(), 5U);
  EXPECT_TRUE(std::ranges::is_sorted(ways, std::greater()));
  EXPECT_GT(ways.front(), 5);
  playback.makeReady(150);
  playback.seek(150, 0);
  EXPECT_NEAR(grey((**playback.step(0)).picture), 150, 1);

  // The player stands in for it with what is there, and leaves the way for another wish.
  std::mutex mutex;
  std::vector<std::pair<std::int64_t, int>> shown;
  EnginePlayer player(nullptr, [&](auto frame, auto picture) {
    const std::lock_guard lock(mutex);
    shown.emplace_back(frame, picture->bgr.at(3 * 64 * 9 + 27) * 219 / 255);
  });
  const auto last = [&] {
    const std::lock_guard lock(mutex);
    return shown.empty() ? std::pair<std::int64_t, int>() : shown.back();
  };
  ASSERT_TRUE(player.load(test::documentOf({{far, 0, 8, 0, 8}})));
  player.seek(180);
  EXPECT_TRUE(test::eventually([&] { return std::abs(last().second - 180) <= 2; }));
  EXPECT_EQ(last().first, 180);
  const std::lock_guard lock(mutex);
  EXPECT_TRUE(std::ranges::any_of(shown, [](const auto& s) { return s.first == 180 && s.second < 130; }));
}

TEST(SeenFrames, KeepWhatWasWantedLast) {
  const auto picture = share(media::Canvas::black(64, 48));
  constexpr std::size_t kOne = 64 * 48 * 3 / 2;
  SeenFrames seen(3 * kOne);
  for (std::int64_t frame = 0; frame < 3; ++frame) seen.put(frame, picture);
  EXPECT_TRUE(seen.find(0));
  seen.put(3, picture);
  const auto kept = [&] {
    std::string all;
    for (std::int64_t frame = 0; frame < 4; ++frame) all += seen.holds(frame) ? '1' : '0';
    return all;
  };
  EXPECT_EQ(kept(), "1011") << "the second was wanted the longest ago";
  seen.shrink(kOne);
  EXPECT_EQ(kept(), "0001");
  EXPECT_EQ(seen.bytes(), kOne);
}

bool comesTo(const EnginePlayer& player, PlayState state) {
  return test::eventually([&] { return player.state() == state; });
}

TEST_F(PlaybackTest, SoundThatIsSlowToOpenHoldsNobodyUp) {
  const double now = 0;
  auto sound = std::make_unique<FakeSound>(now);
  auto& speaker = *sound;
  std::promise<void> open;
  speaker.mayOpen = open.get_future();
  EnginePlayer player(std::move(sound), [](auto /*frame*/, auto /*picture*/) {});
  ASSERT_TRUE(player.load(document(true)));
  ASSERT_TRUE(test::eventually([&] { return speaker.opens.load(); }));
  EXPECT_EQ(player.state(), PlayState::Stopped);
  player.seek(7);
  open.set_value();
  EXPECT_TRUE(test::eventually([&] { return player.position() == 7; }))
      << "what was asked for meanwhile is done";
  EXPECT_TRUE(speaker.openedInTime);
}

TEST_F(PlaybackTest, ALoadThatFailsLeavesNothingLoaded) {
  EnginePlayer player(nullptr, [](auto /*frame*/, auto /*picture*/) {});
  ASSERT_TRUE(player.load(document(false)));
  player.play();
  ASSERT_TRUE(comesTo(player, PlayState::Playing));
  EXPECT_FALSE(player.load("no document"));
  player.seek(3);
  EXPECT_TRUE(comesTo(player, PlayState::Empty));
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  EXPECT_EQ(player.state(), PlayState::Empty) << "the old document does not come back";
  EXPECT_EQ(player.frames() + player.position(), 0);
  EXPECT_EQ(player.frameRate(), 0);
  ASSERT_TRUE(player.load(document(false)));
  EXPECT_TRUE(comesTo(player, PlayState::Stopped));
  EXPECT_EQ(player.frames(), 50);
}

TEST_F(PlaybackTest, WhatIsThrownEndsInTheStateFailed) {
  double now = 0;
  FakeSound sound(now);
  Playback playback(*readDocument(document(true)), &sound);
  sound.throws = true;
  playback.play(now);
  const auto step = playback.step(now);
  ASSERT_FALSE(step);
  EXPECT_EQ(step.error().text, "out of memory");
  EXPECT_EQ(playback.state(), PlayState::Failed);

  // On the player's thread; the next document plays all the same.
  std::atomic<bool> throws = true;
  EnginePlayer player(nullptr, [&](auto /*frame*/, auto /*picture*/) {
    if (throws) throw cv::Exception(cv::Error::StsBadArg, "a size of -1", "resize", "x.cpp", 1);
  });
  ASSERT_TRUE(player.load(document(false)));
  EXPECT_TRUE(comesTo(player, PlayState::Failed));
  EXPECT_NE(player.failure().find("a size of -1"), std::string::npos) << player.failure();
  EXPECT_EQ(player.failure().find('\n'), std::string::npos) << player.failure();
  throws = false;
  ASSERT_TRUE(player.load(document(false)));
  EXPECT_TRUE(comesTo(player, PlayState::Stopped));
  player.play();
  EXPECT_TRUE(comesTo(player, PlayState::Ended));
}

}  // namespace
}  // namespace kvo::engine
