// Whole timeline documents, compared to the byte.
#include "editor/timeline/audio_tracks.h"
#include "editor/timeline/clip_line.h"
#include "editor/timeline/render_file.h"
#include "editor/timeline/video_group.h"
#include "support/fakes.h"
#include "support/golden.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::Bench;

std::string compiled(Bench& b) {
  EXPECT_TRUE(CompileForRender(b.compilation, "/prog/KVORender.xtl"));
  return b.files.all["/prog/KVORender.xtl"];
}

Movie& addStill(Bench& b, const std::string& name, Integer mode) {
  auto& clip = b.addVideo(name, 0, 0);
  clip.IsStill(true);
  clip.stretchmode(mode);
  return clip;
}

TEST(Document, TwoClipsWithAFade) {
  Bench b;
  b.addVideo("a.avi", 0, 5, "C:\\");
  auto& second = b.addVideo("b.avi", 2, 6, "C:\\");
  second.TransType("Fade");
  second.TransIn(10);
  second.ExtraParamName1("bands");
  const auto text = compiled(b);
  test::expectGolden("two-clips-fade.xtl", text);
  EXPECT_EQ(second.TimeLineStart().text(), "4");
  EXPECT_EQ(second.TimeLineStop().text(), "8.0000");
  EXPECT_EQ(second.ExtraParamName1(), "");
  EXPECT_EQ(b.editor.VideoTotalTime, "8.0000");
  EXPECT_EQ(b.settings.ObjectChange(), 0);
}

TEST(Document, AudioOnlyHasNoVideoGroup) {
  Bench b;
  b.addMusic("m.mp3", 0, 12.5);
  b.addMusic("n.wav", 1, 3).AudioOutputLevel(0.5F);
  const auto text = compiled(b);
  EXPECT_EQ(text.find("type=\"video\""), std::string::npos);
  EXPECT_FALSE(b.settings.AutoTrimAudio());
  test::expectGolden("audio-only.xtl", text);
}

TEST(Document, StillsInAllStretchModes) {
  Bench b;
  b.settings.DefaultStillDuration(7);
  for (Integer mode = 0; mode <= 4; ++mode) addStill(b, "s" + std::to_string(mode) + ".jpg", mode);
  test::expectGolden("stills.xtl", compiled(b));
  EXPECT_EQ(b.collection.MovieList[1].LoopEnd().text(), "7") << "it stays in the record";
  EXPECT_EQ(b.settings.ObjectChange(), 0);
}

TEST(Document, SpeedsChangeTheTimelineOnly) {
  Bench b;
  int i = 0;
  for (const float speed : {5.0F, 10.0F, 20.0F})
    b.addVideo("v" + std::to_string(i++) + ".avi", 2, 6).Playspeed(speed);
  auto& last = b.addVideo("w.avi", 0, 1.0 / 3);
  last.Playspeed(15);
  last.TransType("Dissolve");
  last.TransIn(1);
  test::expectGolden("speeds.xtl", compiled(b));
}

TEST(Document, OverlaysInSequenceAndStackedTrimmedAndNot) {
  for (const bool stacked : {false, true}) {
    for (const bool trim : {false, true}) {
      Bench b;
      b.settings.AutoTrimAudio(trim);
      b.editor.controls.Opt_StackOverlay = stacked ? OverlayOrder::Stacked : OverlayOrder::InSequence;
      b.addVideo("a.avi", 0, 20);
      b.addMusic("m.mp3", 0, 12.5);
      auto& faded = b.addMusic("n.wav", 1, 31);
      faded.HasAudioFade(true);
      faded.AudioFadeInTime(1.5F);
      faded.AudioFadeOutTime(2);
      b.addMusic("o.wma", 0, 5).AudioOutputLevel(0.25F);
      const auto name =
          std::string("overlay-") + (stacked ? "stacked" : "sequence") + (trim ? "-trim" : "") + ".xtl";
      test::expectGolden(name, compiled(b));
    }
  }
}

TEST(Document, ClipSoundFadesAndSilence) {
  Bench b;
  auto& faded = b.addVideo("a.avi", 0, 10);
  faded.AudioFadeInTime(1);
  faded.AudioFadeOutTime(8);  // longer than half: a quarter
  b.addVideo("mute.avi", 0, 4).AudioOutputLevel(0);
  b.addVideo("silent.avi", 0, 4);
  b.streams.all["/v/silent.avi"].hasAudio = false;
  b.addVideo("short.avi", 0, 1.5).AudioOutputLevel(0.5F);
  test::expectGolden("clip-sound.xtl", compiled(b));
  EXPECT_FALSE(b.collection.MovieList[3].RenderAudio());
}

TEST(Document, CompilingChangesNothingTheUserMade) {
  Bench b;
  b.addVideo("a.avi", 0, 5);
  addStill(b, "s.jpg", 1);
  b.addVideo("b.avi", 0, 4).TransType("");
  ClearDirtyFlags(b.collection, b.settings);
  compiled(b);
  EXPECT_FALSE(isDirty(b.collection, b.settings));
  EXPECT_EQ(b.collection.MovieList[3].TransType(), "CUT");
}

TEST(Document, ATimingPassWritesNoTransitions) {
  Bench b;
  b.addVideo("a.avi", 0, 5);
  auto& clip = b.addVideo("b.avi", 0, 4);
  clip.TransType("Fade");
  clip.TransIn(10);
  b.settings.ObjectChange(96);
  CreateClipLine(b.compilation, {.Analysing = true, .TransitionZero = true});
  EXPECT_EQ(b.editor.texts.VideoTrackText.find("<transition"), std::string::npos);
  EXPECT_EQ(clip.TimeLineStart().text(), "4");
  EXPECT_EQ(b.editor.controls.Fra_Preview, "0 to 8.00 (s)");
}

TEST(Document, TransitionPreviewTakesTheTwoEnds) {
  Bench b;
  b.addVideo("a.avi", 0, 10).Playspeed(20);
  auto& clip = b.addVideo("b.avi", 2, 9);
  clip.TransType("Fade");
  clip.TransIn(15);
  b.editor.controls.Sld_In.Value = 15;
  CreateClipLine(
      b.compilation,
      {.Analysing = true, .TransitionPreview = true, .FirstClip = 1, .LastClip = 2, .TransitionZero = true});
  const auto& text = b.editor.texts.VideoTrackText;
  EXPECT_NE(text.find("mstart=\"7\" mstop=\"10.0000\" start=\"0\" stop=\"1.5000\""), std::string::npos)
      << text;
  EXPECT_NE(text.find("mstart=\"2\" mstop=\"3.5000\" start=\"0\" stop=\"1.5000\""), std::string::npos)
      << text;
  EXPECT_NE(text.find("<transition start=\"0\" stop=\"1.5\""), std::string::npos) << text;
  EXPECT_FALSE(clip.TimeLineStart().isSet());

  b.editor.texts = {};
  CreateClipLine(b.compilation, {.Analysing = true,
                                 .TransitionPreview = true,
                                 .FirstClip = 1,
                                 .LastClip = 2,
                                 .TransitionZero = true,
                                 .FixedDuration = true,
                                 .FixedSeconds = 2});
  EXPECT_NE(text.find("mstart=\"6\" mstop=\"10.0000\" start=\"0\" stop=\"2.0000\""), std::string::npos)
      << text;
  EXPECT_NE(text.find("mstart=\"2\" mstop=\"4.0000\" start=\"2\" stop=\"4.0000\""), std::string::npos)
      << text;
}

TEST(Document, TheVideoGroupFollowsThePower) {
  Bench b;
  int depth = 24;
  int width = 641;
  int height = 481;
  float rate = 0;
  CreateVideoGroup(b.compilation, depth, width, height, rate, 7);
  EXPECT_EQ(
      b.editor.texts.VideoGroupText,
      "<group type=\"video\" bitdepth=\"24\" width=\"320\" height=\"240\" framerate=\"10\" name=\"VIDEO\" "
      "buffering=\"30\" PreviewMode=\"True\"  >\r\n");
  EditorControls controls;
  controls.Opt_Preset = true;
  controls.Cmb_Res = "720 x 576";
  GetHeightWidth(controls, height, width);
  EXPECT_EQ(width * 1000 + height, 720576);
  controls.Opt_Preset = false;
  controls.txtHeight = 3001;
  controls.txtWidth = -1;
  GetHeightWidth(controls, height, width);
  EXPECT_EQ(width * 1000 + height, 240320);
}

TEST(Document, StopsAreReadBackFromTheFile) {
  Bench b;
  b.addVideo("a.avi", 0, 5);
  b.addVideo("b.avi", 0, 4);
  compiled(b);
  AnalyseRenderFile(b.compilation, "/prog/KVORender.xtl");
  EXPECT_EQ(b.editor.ClipStopList, (std::vector<float>{5, 9}));
}

TEST(Document, AudioAheadOfVideoIsRefused) {
  Bench b;
  b.addMusic("m.mp3", 0, 5).Resolution("0 x 0");
  b.addVideo("a.avi", 0, 5);
  EXPECT_TRUE(IsAudioBeforeVideo(b.compilation));
  ASSERT_EQ(b.boxes.shown.size(), 1U);
  EXPECT_EQ(
      b.boxes.shown[0].text,
      "Audio tracks should be grouped together and placed at the end of the collection !\r\nPlease move the "
      "audio track :-\r\n<m.mp3>\r\nto the end of the collection.");
  Bench good;
  good.addVideo("a.avi", 0, 5);
  good.addMusic("m.mp3", 0, 5).Resolution("0 x 0");
  EXPECT_FALSE(IsAudioBeforeVideo(good.compilation));
}

}  // namespace
}  // namespace kvo
