// The small pictures over the slider and in the list, and the picture of the clip in hand.
#include "program/hover_preview.h"

#include "program/clip_picture.h"
#include "program/face_parts.h"
#include "program/list_pictures.h"
#include "support/named_sketches.h"
#include "support/program_bench.h"

#include <chrono>
#include <semaphore>

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct HoverBench {
  test::NamedSketches sketches;
  MainWindowState window;
  HoverPreview hover{sketches, window};

  HoverBench() {
    sketches.whenCome([this](const std::string& path) { hover.came(path); });
    clip("/v/a.avi", 100);
  }
  void clip(const std::string& path, double length, ClipKind kind = ClipKind::Video) {
    window.list.Fillist.assign({{path, "", kind}});
    window.list.ListIndex = 0;
    window.mode.player.path = path;
    window.slider = {.handles = length > 0, .length = length};
  }
  // The second that the picture shows, -1 for none.
  [[nodiscard]] int shows() const {
    return window.hover.picture == nullptr ? -1 : window.hover.picture->bgr[0];
  }
};

TEST(HoverPreview, ShowsWhatComesOfTheLastPlaceOnItsGrid) {
  HoverBench b;
  b.hover.over(0.1234);
  EXPECT_TRUE(b.window.hover.visible);
  EXPECT_EQ(b.window.hover.time, "0:12");
  EXPECT_EQ(b.shows(), -1);
  b.sketches.come("/v/a.avi", 12);
  EXPECT_EQ(b.shows(), 12);
  b.hover.over(0.1281);
  EXPECT_EQ(b.window.hover.time, "0:13");
  EXPECT_EQ(b.shows(), 12) << "the same place of the grid";
  b.hover.over(0.5);
  EXPECT_EQ(b.shows(), 12) << "it stands until the next one comes";
  b.sketches.come("/v/a.avi", 30);
  EXPECT_EQ(b.shows(), 12) << "another place";
  b.hover.left();
  b.sketches.come("/v/a.avi", 50);
  EXPECT_FALSE(b.window.hover.visible);
  EXPECT_EQ(b.shows(), -1) << "there is nobody to see it";
  b.clip("/v/b.avi", 5000);
  b.hover.over(0.0099);
  EXPECT_EQ(b.sketches.asked.back(), "/v/b.avi 40") << "20 seconds apart in a long clip";
  b.clip("/v/c.avi", 200);
  b.hover.settled();
  EXPECT_EQ(b.window.hover.time, "0:02") << "of the clip that has come below the pointer";
  EXPECT_EQ(b.sketches.asked.back(), "/v/c.avi 1");
}

TEST(ListPictures, AreOfFilmsAndStillsSoonBehindTheirMarkIn) {
  test::ProgramBench b;
  test::NamedSketches sketches;
  ListPictures pictures({sketches, b.collection, b.window.list});
  const struct {
    const char* name;
    double length, in, out;
    const char* prepared;
  } rows[] = {{"long.avi", 100, 20, 90, "/v/long.avi 21,/v/long.avi peaks"},
              {"short.avi", 100, 20, 24, "/v/short.avi 20,/v/short.avi peaks"},
              {"film.avi", 7200, 0, 7200, "/v/film.avi 1"},
              {"still.jpg", 0, 0, 0, "/v/still.jpg 0"},
              {"song.mp3", 100, 0, 100, "/v/song.mp3 peaks"}};
  for (const auto& row : rows) {
    auto& clip = b.collection.MovieList.add({});
    clip.Path("/v/");
    clip.MovieName(row.name);
    clip.IsStill(row.length == 0);
    clip.DurationTime(row.length > 0 ? Value(row.length) : Value("N/A"));
    clip.LoopStart(Value(row.in));
    clip.LoopEnd(Value(row.out));
    sketches.prepared.clear();
    pictures.joined(b.collection.MovieList.count());
    std::string prepared;
    for (const auto& one : sketches.prepared) prepared += (prepared.empty() ? "" : ",") + one;
    EXPECT_EQ(prepared, row.prepared);
  }
  b.list.fill();
  EXPECT_EQ(pictures.of(0), nullptr);
  sketches.come("/v/long.avi", 21);
  EXPECT_NE(pictures.of(0), nullptr);
  sketches.asked.clear();
  for (const int none : {4, 5, -1}) EXPECT_EQ(pictures.of(none), nullptr);
  b.list.missing({"/v/film.avi"});
  EXPECT_EQ(pictures.of(2), nullptr);
  EXPECT_TRUE(sketches.asked.empty()) << "neither sound nor what is not there is looked at";
}

using namespace std::chrono_literals;

/// Gives each picture only when it is let.
struct HeldStreams : MediaContents {
  std::vector<std::string> asked;  ///< to be read once they have come
  std::counting_semaphore<> come{0}, let{0};

  Result<StreamFacts> facts(const std::string& path) override { return Error{path}; }
  Result<FramePicture> frame(const std::string& path, double seconds, int width, int height) override {
    asked.push_back(path + "@" + std::to_string(static_cast<int>(seconds)));
    come.release();
    let.acquire();
    if (path == "/bad") return Error{"cannot open /bad"};
    return FramePicture{width, height, {static_cast<std::uint8_t>(seconds)}};
  }
  void waitForOne() { EXPECT_TRUE(come.try_acquire_for(10s)); }
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
  b.streams.waitForOne();
  for (int i = 1; i <= 20; ++i) b.picture->want({"/b" + std::to_string(i), 0, 4, 4});
  b.picture->want({"/c", 7, 4, 4});
  b.streams.let.release(2);
  EXPECT_TRUE(b.comes("/c", 7));
  EXPECT_EQ(b.streams.asked, (std::vector<std::string>{"/a@0", "/c@7"}));
  EXPECT_EQ(b.state.picture->bgr[0], 7);
  const auto revision = b.state.revision;
  b.picture->want({"/c", 7, 4, 4});
  b.loop.advance(1);
  EXPECT_EQ(b.state.revision, revision);
  b.streams.waitForOne();
  b.picture->want({"/d", 0, 4, 4});
  EXPECT_NE(b.state.picture, nullptr) << "nothing black between two of them";
  b.streams.waitForOne();
  EXPECT_EQ(b.streams.asked.back(), "/d@0") << "nothing is read twice in a row";
  b.picture->want({});
  EXPECT_EQ(b.state.picture, nullptr);
  b.streams.let.release();
}

TEST(ClipPicture, TellsWhyThereIsNoneAndForgetsWhatIsNoLongerWanted) {
  PictureBench b;
  b.picture->want({"/bad", 0, 4, 4});
  b.streams.let.release();
  EXPECT_TRUE(b.comes("/bad", 0));
  b.streams.waitForOne();
  EXPECT_EQ(b.state.fault, "cannot open /bad");
  b.picture->want({"/a", 0, 4, 4});
  EXPECT_EQ(b.state.fault, "");
  b.streams.waitForOne();
  b.picture->want({});
  b.streams.let.release();
  EXPECT_TRUE(b.loop.workComesHome());
  EXPECT_EQ(b.state.picture, nullptr);
  EXPECT_EQ(b.state.wish, PictureWish{});
  // What is still on its way when the window goes does not come home.
  b.picture->want({"/a", 5, 4, 4});
  b.streams.waitForOne();
  b.streams.let.release();
  b.picture.reset();
  b.loop.advance(1);
  EXPECT_EQ(b.state.picture, nullptr);
}

TEST(ClipPicture, IsTheEnginesUnlessAnotherStandsForIt) {
  const struct {
    const char* what;
    bool visible, parked, still;
    const char* pictureOf;  // the clip that another picture has come of
    bool whilePlayed, whileLookedAt;
  } rows[] = {{"in sight", true, false, false, "", true, true},
              {"hidden", false, false, false, "", false, false},
              {"parked", true, true, false, "", false, false},
              {"a still", true, false, true, "", false, false},
              {"that of another time has come", true, false, false, "/v", true, false},
              {"that of another clip has come", true, false, false, "/other", true, true}};
  for (const auto& row : rows) {
    MainWindowState state;
    state.mode.player.path = "/v";
    state.mode.player.visible = row.visible;
    if (row.parked) state.mode.player.place.left = kParked;
    state.mode.still.Img_Still.visible = row.still;
    state.picture.wish.path = *row.pictureOf == 0 ? "/v" : row.pictureOf;
    if (*row.pictureOf != 0) state.picture.picture = std::make_shared<FramePicture>();
    EXPECT_EQ(showsEngine(state, false), row.whilePlayed) << row.what;
    EXPECT_EQ(showsEngine(state, true), row.whileLookedAt) << row.what;
  }
}

TEST(FaceParts, WhatTheNormalFaceShowsGoesByListDetailsAndPlayer) {
  const struct {
    const char* what;
    bool noClip, list, rows, details;
    const char* plays;  // in the player, or on its way there
    const char* comes;
    const char* shown;
  } rows[] = {{"no clip", true, false, true, true, "", "", "empty "},
              {"the intro", false, false, true, true, "/v/intro.avi", "", "large "},
              {"a stream comes", false, false, true, true, "", "Connecting", "large "},
              {"clips", false, true, true, true, "", "", "list picture collection "},
              {"without details", false, true, true, false, "", "", "list large "},
              {"the picture alone", false, true, false, false, "", "", "large "}};
  for (const auto& row : rows) {
    MainWindowState state;
    state.emptyPane.visible = row.noClip;
    state.list.visible = row.list;
    state.mode.panels.Fillist.visible = row.rows;
    state.mode.panels.FraDets = state.mode.panels.CollDets = row.details;
    state.mode.player.path = row.plays;
    state.mode.player.visible = *row.plays != 0;
    state.transport.lbl_Novid.text = row.comes;
    state.mode.panels.Pic_NoVid = *row.comes != 0;
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
