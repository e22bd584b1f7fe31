// The small pictures over the slider and in the list.
#include "program/hover_preview.h"

#include "program/list_pictures.h"
#include "support/named_sketches.h"
#include "support/program_bench.h"

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

}  // namespace
}  // namespace kvo
