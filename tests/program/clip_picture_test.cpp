// The picture of the clip in hand.
#include "program/clip_picture.h"

#include "program/face_parts.h"
#include "support/program_bench.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using namespace std::chrono_literals;

/// Gives each picture only when it is let.
class HeldStreams : public MediaContents {
 public:
  Result<StreamFacts> facts(const std::string& path) override { return Error{path}; }
  Result<FramePicture> frame(const std::string& path, double seconds, int width, int height) override {
    std::unique_lock lock(mutex_);
    asked_.push_back(path + "@" + std::to_string(static_cast<int>(seconds)));
    told_.notify_all();
    told_.wait(lock, [this] { return let_ > 0; });
    --let_;
    if (path == "/bad") return Error{"cannot open /bad"};
    return FramePicture{width, height, {static_cast<std::uint8_t>(seconds)}};
  }

  /// Waits until so many pictures have been asked for.
  std::vector<std::string> asked(std::size_t count) {
    std::unique_lock lock(mutex_);
    EXPECT_TRUE(told_.wait_for(lock, 10s, [&] { return asked_.size() >= count; })) << count;
    return asked_;
  }
  void let(int count) {
    const std::lock_guard lock(mutex_);
    let_ += count;
    told_.notify_all();
  }

 private:
  std::mutex mutex_;
  std::condition_variable told_;
  std::vector<std::string> asked_;
  int let_ = 0;
};

struct PictureBench {
  HeldStreams streams;
  test::VirtualLoop loop;
  ClipPictureState state;
  std::optional<ClipPicture> picture{std::in_place, streams, loop, state};

  // What the thread has read comes home, until it is this.
  bool comes(const std::string& path, double seconds) {
    while (loop.workComesHome()) {
      if (state.wish.path == path && state.wish.seconds == seconds) return true;
    }
    return false;
  }
};

TEST(ClipPicture, OfManyWishesTheFirstAndTheLastAreRead) {
  PictureBench b;
  b.picture->want({"/a", 0, 4, 4});
  b.streams.asked(1);
  for (int i = 1; i <= 20; ++i) b.picture->want({"/b" + std::to_string(i), 0, 4, 4});
  b.picture->want({"/c", 7, 4, 4});
  b.streams.let(2);
  EXPECT_TRUE(b.comes("/c", 7));
  EXPECT_EQ(b.streams.asked(2), (std::vector<std::string>{"/a@0", "/c@7"}));
  EXPECT_EQ(b.state.picture->bgr[0], 7);
  const auto revision = b.state.revision;
  b.picture->want({"/c", 7, 4, 4});
  b.loop.advance(1);
  EXPECT_EQ(b.streams.asked(2).size(), 2U) << "nothing is read twice in a row";
  EXPECT_EQ(b.state.revision, revision);
  b.picture->want({"/d", 0, 4, 4});
  EXPECT_NE(b.state.picture, nullptr) << "nothing black between two of them";
  b.picture->want({});
  EXPECT_EQ(b.state.picture, nullptr);
  b.streams.let(1);
}

TEST(ClipPicture, WithinAFileTheOldOneStaysUntilTheNextComes) {
  PictureBench b;
  b.streams.let(1);
  b.picture->want({"/a", 1, 4, 4});
  ASSERT_TRUE(b.comes("/a", 1));
  b.picture->want({"/a", 2, 4, 4});
  b.streams.asked(2);
  b.picture->want({"/a", 3, 4, 4});
  EXPECT_EQ(b.state.picture->bgr[0], 1);
  b.streams.let(1);
  EXPECT_TRUE(b.comes("/a", 2)) << "what comes by the way is nearer to what is wanted";
  b.streams.let(1);
  EXPECT_TRUE(b.comes("/a", 3));
}

TEST(ClipPicture, TellsWhyThereIsNoneAndForgetsWhatIsNoLongerWanted) {
  PictureBench b;
  b.picture->want({"/bad", 0, 4, 4});
  b.streams.let(1);
  EXPECT_TRUE(b.comes("/bad", 0));
  EXPECT_EQ(b.state.fault, "cannot open /bad");
  b.picture->want({"/a", 0, 4, 4});
  EXPECT_EQ(b.state.fault, "");
  b.streams.asked(2);
  b.picture->want({});
  b.streams.let(1);
  EXPECT_TRUE(b.loop.workComesHome());
  EXPECT_EQ(b.state.picture, nullptr);
  EXPECT_EQ(b.state.wish, PictureWish{});
  // What is still on its way when the window goes does not come home.
  b.picture->want({"/a", 5, 4, 4});
  b.streams.asked(3);
  b.streams.let(1);
  b.picture.reset();
  b.loop.advance(1);
  EXPECT_EQ(b.state.picture, nullptr);
}

TEST(ClipPicture, IsOfWhatHasOneWhereTheClipStandsOrIsLookedAt) {
  MainWindowState state;
  EXPECT_EQ(pictureOf(state, {}, 4, 4), PictureWish{}) << "there is no clip";
  state.mode.player.path = "/v";
  state.slider = {.handles = true, .length = 10, .position = 0.5};
  state.list.ListIndex = 0;
  for (const auto kind :
       {ClipKind::Video, ClipKind::Still, ClipKind::Sound, ClipKind::Page, ClipKind::Stream}) {
    state.list.Fillist.assign({{"clip", "", kind}});
    const bool has = kind == ClipKind::Video || kind == ClipKind::Still;
    EXPECT_EQ(pictureOf(state, {}, 4, 3), has ? (PictureWish{"/v", 5, 4, 3}) : PictureWish{});
    EXPECT_EQ(pictureOf(state, 7, 4, 3).seconds, has ? 7 : 0);
  }
}

TEST(FaceParts, WhatTheNormalFaceShowsGoesByListDetailsAndPlayer) {
  const struct {
    const char* what;
    std::function<void(MainWindowState&)> now;
    const char* shown;
  } rows[] = {{"no clip", [](auto& s) { s.emptyPane.visible = true; }, "empty "},
              {"the intro",
               [](auto& s) {
                 s.mode.player.path = "/v/intro.avi";
                 s.mode.player.visible = true;
               },
               "large "},
              {"a stream comes",
               [](auto& s) {
                 s.mode.panels.Pic_NoVid = true;
                 s.transport.lbl_Novid.text = "Connecting";
               },
               "large "},
              {"clips", [](auto& s) { s.list.visible = true; }, "list picture collection "},
              {"without details",
               [](auto& s) {
                 s.list.visible = true;
                 s.mode.panels.FraDets = s.mode.panels.CollDets = false;
               },
               "list large "},
              {"the picture alone",
               [](auto& s) {
                 s.list.visible = true;
                 s.mode.panels.FraDets = s.mode.panels.CollDets = s.mode.panels.Fillist.visible = false;
               },
               "large "}};
  for (const auto& row : rows) {
    MainWindowState state;
    state.emptyPane.visible = false;
    state.mode.panels.FraDets = state.mode.panels.CollDets = state.mode.panels.Fillist.visible = true;
    row.now(state);
    const auto parts = faceParts(state, false);
    std::string shown;
    for (const auto& [seen, name] : {std::pair{parts.empty, "empty "},
                                     {parts.list, "list "},
                                     {parts.picture, "picture "},
                                     {parts.largePicture, "large "},
                                     {parts.collection, "collection "}})
      if (seen) shown += name;
    EXPECT_EQ(shown, row.shown) << row.what;
    EXPECT_EQ(faceParts(state, true), FaceParts()) << "long work goes on";
  }
}

}  // namespace
}  // namespace kvo
