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
  void clip(const std::string& path, double length) {
    window.list.Fillist.assign({{path, "", ClipKind::Video}});
    window.list.ListIndex = 0;
    window.mode.player.path = path;
    window.slider = {.handles = length > 0, .length = length};
  }
  // The time and the second that the picture shows; "-" for none.
  [[nodiscard]] std::string shows() const {
    const auto& now = window.hover;
    return (now.visible ? now.time : "hidden") + " " +
           (now.picture ? std::to_string(now.picture->bgr[0]) : "-");
  }
  std::string over(double place) {
    hover.over(place);
    return shows();
  }
  std::string come(double seconds) {
    sketches.come("/v/a.avi", seconds);
    return shows();
  }
};

TEST(HoverPreview, ShowsWhatComesOfTheLastPlaceOnItsGrid) {
  HoverBench b;
  EXPECT_EQ(b.over(0.1234), "0:12 -");
  EXPECT_EQ(b.come(12), "0:12 12");
  EXPECT_EQ(b.over(0.1281), "0:13 12") << "the same place of the grid";
  EXPECT_EQ(b.over(0.5), "0:50 12") << "it stands until the next one comes";
  EXPECT_EQ(b.come(30), "0:50 12") << "another place";
  b.hover.left();
  EXPECT_EQ(b.come(50), "hidden -") << "there is nobody to see it";
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
  const std::tuple<std::string, double, double, double, const char*> rows[] = {
      {"long.avi", 100, 20, 90, "/v/long.avi 21,/v/long.avi peaks"},
      {"short.avi", 100, 20, 24, "/v/short.avi 20,/v/short.avi peaks"},
      {"film.avi", 7200, 0, 7200, "/v/film.avi 1"},
      {"still.jpg", 0, 0, 0, "/v/still.jpg 0"},
      {"song.mp3", 100, 0, 100, "/v/song.mp3 peaks"}};
  for (const auto& [name, length, in, out, wanted] : rows) {
    auto& clip = name == "song.mp3" ? b.addMusic(name, in, out) : b.addVideo(name, in, out);
    clip.IsStill(length == 0);
    clip.DurationTime(length > 0 ? Value(length) : Value("N/A"));
    sketches.prepared.clear();
    pictures.joined(b.collection.MovieList.count());
    std::string prepared;
    for (const auto& one : sketches.prepared) prepared += (prepared.empty() ? "" : ",") + one;
    EXPECT_EQ(prepared, wanted);
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
  void waitForOne() { EXPECT_TRUE(come.try_acquire_for(std::chrono::seconds(10))); }
};

struct PictureBench {
  HeldStreams streams;
  test::VirtualLoop loop;
  ClipPictureState state;
  std::optional<ClipPicture> picture{std::in_place, streams, loop, state};

  void want(const std::string& path, double seconds = 0) { picture->want({path, seconds, 4, 4}); }
  // It is being read.
  void begin(const std::string& path, double seconds = 0) {
    want(path, seconds);
    streams.waitForOne();
  }
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
  b.begin("/a");
  for (int i = 1; i <= 20; ++i) b.want("/b" + std::to_string(i));
  b.want("/c", 7);
  b.streams.let.release(2);
  EXPECT_TRUE(b.comes("/c", 7));
  EXPECT_EQ(b.streams.asked, (std::vector<std::string>{"/a@0", "/c@7"}));
  EXPECT_EQ(b.state.picture->bgr[0], 7);
  const auto revision = b.state.revision;
  b.want("/c", 7);
  b.loop.advance(1);
  EXPECT_EQ(b.state.revision, revision);
  b.streams.waitForOne();
  b.want("/d");
  EXPECT_NE(b.state.picture, nullptr) << "nothing black between two of them";
  b.streams.waitForOne();
  EXPECT_EQ(b.streams.asked.back(), "/d@0") << "nothing is read twice in a row";
  b.picture->want({});
  EXPECT_EQ(b.state.picture, nullptr);
  b.streams.let.release();
}

TEST(ClipPicture, TellsWhyThereIsNoneAndForgetsWhatIsNoLongerWanted) {
  PictureBench b;
  b.want("/bad");
  b.streams.let.release();
  EXPECT_TRUE(b.comes("/bad", 0));
  b.streams.waitForOne();
  EXPECT_EQ(b.state.fault, "cannot open /bad");
  b.begin("/a");
  EXPECT_EQ(b.state.fault, "");
  b.picture->want({});
  b.streams.let.release();
  EXPECT_TRUE(b.loop.workComesHome());
  EXPECT_EQ(b.state.picture, nullptr);
  EXPECT_EQ(b.state.wish, PictureWish{});
  // What is still on its way when the window goes does not come home.
  b.begin("/a", 5);
  b.streams.let.release();
  b.picture.reset();
  b.loop.advance(1);
  EXPECT_EQ(b.state.picture, nullptr);
}

TEST(ClipPicture, IsTheEnginesUnlessAnotherStandsForIt) {
  // The clip that another picture has come of; whether the engine's shows while it plays, and is looked at.
  using Row = std::tuple<std::string_view, const char*, bool, bool>;
  for (const auto& [is, pictureOf, whilePlayed, whileLookedAt] :
       {Row{"in sight", "", true, true}, Row{"hidden", "", false, false}, Row{"parked", "", false, false},
        Row{"still", "", false, false}, Row{"another time", "/v", true, false},
        Row{"another clip", "/other", true, true}}) {
    MainWindowState state;
    state.mode.player.path = "/v";
    state.mode.player.visible = is != "hidden";
    if (is == "parked") state.mode.player.place.left = kParked;
    state.mode.still.Img_Still.visible = is == "still";
    state.picture.wish.path = *pictureOf == 0 ? "/v" : pictureOf;
    if (*pictureOf != 0) state.picture.picture = std::make_shared<FramePicture>();
    EXPECT_EQ(showsEngine(state, false), whilePlayed) << is;
    EXPECT_EQ(showsEngine(state, true), whileLookedAt) << is;
  }
}

TEST(FaceParts, WhatTheNormalFaceShowsGoesByListDetailsAndPlayer) {
  // Seen are the pane of an empty collection, the list, its rows and the details; what plays and what comes.
  const std::tuple<const char*, bool, bool, bool, bool, const char*, const char*, FaceParts> rows[] = {
      {"no clip", true, false, true, true, "", "", {.empty = true}},
      {"the intro", false, false, true, true, "/v/intro.avi", "", {.largePicture = true}},
      {"a stream comes", false, false, true, true, "", "Connecting", {.largePicture = true}},
      {"clips", false, true, true, true, "", "", {.list = true, .picture = true, .collection = true}},
      {"without details", false, true, true, false, "", "", {.list = true, .largePicture = true}},
      {"the picture alone", false, true, false, false, "", "", {.largePicture = true}}};
  for (const auto& [what, empty, list, clips, details, plays, comes, shown] : rows) {
    MainWindowState state;
    state.emptyPane.visible = empty;
    state.list.visible = list;
    state.mode.panels.Fillist.visible = clips;
    state.mode.panels.FraDets = state.mode.panels.CollDets = details;
    state.mode.player.path = plays;
    state.mode.player.visible = *plays != 0;
    state.transport.lbl_Novid.text = comes;
    state.mode.panels.Pic_NoVid = *comes != 0;
    EXPECT_TRUE(faceParts(state, false) == shown) << what;
    EXPECT_TRUE(faceParts(state, true) == FaceParts()) << what << ", long work goes on";
  }
}

}  // namespace
}  // namespace kvo
