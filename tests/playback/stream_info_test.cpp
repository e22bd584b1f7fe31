// What a stream tells of itself, as its window shows it.
#include "playback/stream_info.h"

#include "playback/player_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(StreamInfo, TellsWhatTheStreamTellsAndFollowsIt) {
  test::PlayerBench b;
  StreamInfoState state;
  StreamInfo info(state, b.player, b.loop);
  info.Lbl_StreamInfo_Click();
  EXPECT_FALSE(state.visible) << "nothing plays";
  b.load("a.mp4", {.tracks = {{MediaTrack::Kind::Sound, 1, "", "en", true},
                              {MediaTrack::Kind::Subtitles, 1, "Signs", "", false}}});
  b.control.details = {.description = "News",
                       .others = {{"icy-br", "128"}},
                       .codecs = {{"Video", "h264"}},
                       .receivedRate = 96000.4,
                       .lostPictures = 2};
  info.Lbl_StreamInfo_Click();
  ASSERT_TRUE(state.visible);
  ASSERT_EQ(state.properties.size(), 9U);
  EXPECT_EQ(state.properties[0], (StreamFactLine{"Description", "News"}));
  EXPECT_EQ(state.properties[8], (StreamFactLine{"Creation Date", "-"}));
  EXPECT_EQ(state.codecs, (std::vector<StreamFactLine>{{"Video", "h264"}}));
  EXPECT_EQ(state.connection[2], (StreamFactLine{"Received", "96000 bps"}));
  EXPECT_EQ(state.choices,
            (std::vector<StreamChoice>{{"Sound 1 (en)", true}, {"Subtitles 1 - Signs", false}}));
  info.more();
  EXPECT_EQ(state.properties.back(), (StreamFactLine{"icy-br", "128"}));
  for (const bool chosen : {true, false}) {
    info.choose(1);
    EXPECT_EQ(state.choices[1].chosen, chosen);
  }
  b.control.details.lostPictures = 7;
  b.loop.advance(1000);
  EXPECT_EQ(state.connection.back().value, "7");
  b.player.Med_previewClear();
  b.loop.advance(1000);
  EXPECT_EQ(state, StreamInfoState()) << "with the stream its window goes";
}

}  // namespace
}  // namespace kvo
