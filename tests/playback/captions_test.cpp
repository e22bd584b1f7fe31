// Texts over the picture: which file they come from, and when there are any.
#include "playback/captions.h"

#include "support/held_player.h"
#include "support/memory_files.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct CaptionsBench : test::PlayerBench {
  struct {
    DisplayModeState& mode;
  } window{mode};
  test::MemoryFiles texts;
  test::HeldPlayer held{*this};
};

TEST(Captions, SamiGoesFirstAndWithoutTextsTheyStayOff) {
  CaptionsBench b;
  b.held.PlayerSetFilename("/v/film.one.avi", 1);
  applyCaptions(b.held, b.texts, true);
  EXPECT_FALSE(b.held.captions) << "there is nothing to show";
  b.held.tracks = {{MediaTrack::Kind::Subtitles, 1, "", "", false}};
  applyCaptions(b.held, b.texts, true);
  EXPECT_TRUE(b.held.captions) << "what the file brings";
  for (const auto& [file, found] :
       {std::pair{"film.srt", ""}, std::pair{"film.one.sub", "film.one.sub"},
        std::pair{"film.one.srt", "film.one.srt"}, std::pair{"film.one.smi", "film.one.smi"}}) {
    b.texts.all[std::string("/v/") + file] = "x";
    const auto beside = captionFileBeside(b.texts, "/v/film.one.avi");
    EXPECT_EQ(beside, *found == '\0' ? "" : std::string("/v/") + found);
  }
  applyCaptions(b.held, b.texts, true);
  EXPECT_EQ(b.held.captionFile, "/v/film.one.smi");
  applyCaptions(b.held, b.texts, false);
  EXPECT_FALSE(b.held.captions);
  EXPECT_EQ(captionFileBeside(b.texts, "http://film.one"), "");
}

}  // namespace
}  // namespace kvo
