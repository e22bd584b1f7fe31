// What the controls of the tab Audio do to the records and to the movie.
#include "editor/tabs/audio_tab.h"

#include "editor/tabs/operations.h"
#include "editor/tabs/tab_bench.h"

namespace kvo {
namespace {

using test::does;
using test::lineOf;

struct AudioBench : test::TabBench {
  AudioTab tab;
  AudioBench() { open(); }
  void open() {
    CreateClipLine(editing, true, {});
    enterTab(editing, tab, host);
    host.look();
  }
  [[nodiscard]] std::string sound() const {
    if (!tab.hasSound || !tab.fadeIn.Enabled || !tab.level.Enabled) return "";
    return lineOf(tab.fadeIn.heading, "|", tab.fadeOut.heading, "of", tab.fadeOut.Max, "|",
                  tab.level.heading);
  }
  [[nodiscard]] std::string notice() const {
    return lineOf(static_cast<int>(tab.notice.kind), tab.notice.title);
  }
};

TEST(AudioTab, ShowsAllClipsAndTheSoundOfTheOneInHand) {
  AudioBench b;
  EXPECT_EQ(lineOf(b.tab.Lst_AudioMovies.rows().size(), b.sound()),
            "4 Fade In Over - Cut | Fade Out Over - Cut of 50 | Clip Audio Level in Movie - 100%");
  b.clip(4).AudioFadeOutTime(7.5F);
  b.clip(4).AudioOutputLevel(0);
  chooseAudioClip(b.editing, b.tab, b.host, 3);
  EXPECT_EQ(b.host.look(), "clip 4");
  EXPECT_EQ(b.sound(), "Fade In Over - Cut | Fade Out Over 7.5s of 75 | Clip Audio Level in Movie - Muted")
      << "a value of the record's is never out of reach";
  chooseAudioClip(b.editing, b.tab, b.host, 2);
  EXPECT_EQ(b.sound(), "") << "a still";
}

TEST(AudioTab, ControlsWriteTheRecordOfTheChosenClip) {
  const struct {
    std::function<void(AudioBench&)> act;
    const char* expected;  // in the movie, fades on, fade in, fade out, level; what is asked of the editor
  } rows[] = {
      {does(tickClipSound, false), "0 0 0 0 1 edit Sound off 1 98"},
      {does(moveFadeIn, 15), "1 1 1.5 0 1 edit Fade in 1 0"},
      {does(moveFadeOut, 25), "1 1 0 2.5 1 edit Fade out 1 0"},
      {does(moveAudioLevel, 7), "1 0 0 0 0.7 edit Level 1 98"},
  };
  for (const auto& row : rows) {
    AudioBench b;
    row.act(b);
    const auto& m = b.clip(1);
    EXPECT_EQ(lineOf(m.RenderAudio(), m.HasAudioFade(), m.AudioFadeInTime(), m.AudioFadeOutTime(),
                     m.AudioOutputLevel(), b.host.look()),
              row.expected);
  }
}

TEST(AudioTab, AFadeThatIsTooLongIsWarnedOfWhenItIsLetGo) {
  AudioBench b;
  moveFadeIn(b.editing, b.tab, b.host, 90);
  EXPECT_TRUE(b.boxes.shown.empty()) << "while it is dragged";
  letGoFade(b.editing, b.tab);
  tickAutoTrim(b.editing, b.tab, b.host, false);
  letGoFade(b.editing, b.tab);
  ASSERT_EQ(b.boxes.shown.size(), 1U) << "only with Auto Trim";
  EXPECT_EQ(b.boxes.shown[0].caption, "KVO5 - Autotrim Fade Warning");
}

TEST(AudioTab, TheMusicIsOrderedTrimmedAndCompared) {
  AudioBench b;
  EXPECT_EQ(b.notice(), "1 Audio length matches video length") << "trimmed";
  tickAutoTrim(b.editing, b.tab, b.host, false);
  EXPECT_EQ(b.host.look(), "edit Auto Trim 0 98");
  b.open();
  EXPECT_EQ(b.notice(), "2 Audio Length does not match video Length");
  b.settings.adjust().AutoTrimAudio = true;  // as by an undo
  b.open();
  EXPECT_TRUE(b.tab.Chk_AutoTrim);

  chooseOverlayOrder(b.editing, b.tab, b.host, OverlayOrder::Stacked);
  EXPECT_EQ(b.tab.Opt_StackOverlay, OverlayOrder::Stacked);
  tickRenderClipAudio(b.editing, b.tab, b.host, false);
  EXPECT_FALSE(b.tab.Chk_RenderClipAudio || b.tab.trackFade.Enabled);
  EXPECT_FALSE(renderOptions(b.settings, {}).clipAudio) << "what a render without the window follows";
  b.settings.adjust().RenderVideoAudio = true;  // as by an undo
  followTab(b.editing, b.tab, b.host, false);
  EXPECT_TRUE(b.tab.Chk_RenderClipAudio);
  EXPECT_EQ(b.host.look(), "edit Order of the music 0 98, edit Clips' own audio off 0 98");

  moveTrackFade(b.editing, b.tab, b.host, 5);
  EXPECT_EQ(b.tab.trackFade.heading, "Fade between clips - 0.5s");
  b.settings.change().VideoTrackFadeAmt = 8;  // as by an undo
  followTab(b.editing, b.tab, b.host, false);
  EXPECT_EQ(b.tab.trackFade.Value, 8);

  b.addVideo("late.avi", 0, 3);
  b.open();
  EXPECT_EQ(b.tab.notice.text, "Please move the audio track :- <song.mp3> to the end of the collection.");
  b.collection.MovieList.remove(4);
  b.open();
  EXPECT_EQ(lineOf(b.notice(), b.tab.orderWhyNot, "/", b.tab.trimWhyNot),
            "0  There is no music in this collection / There is no music in this collection");
}

TEST(AudioTab, BoxesAreOffWhileThereIsNoPictureAndComeBackWithIt) {
  AudioBench b;
  const auto boxes = [&] {
    enterTab(b.editing, b.tab, b.host);
    return lineOf(b.tab.Chk_AutoTrim, b.tab.trimWhyNot.empty(), b.tab.Chk_RenderClipAudio,
                  b.tab.clipAudioWhyNot.empty(), b.tab.trackFade.Enabled);
  };
  b.collection.MovieList.remove(3);
  b.collection.MovieList.remove(2);
  const auto there = std::exchange(b.streams.all, {});
  compileText(b.editing);
  EXPECT_EQ(boxes(), "0 0 0 0 0");
  tickAutoTrim(b.editing, b.tab, b.host, false);
  b.streams.all = there;
  compileText(b.editing);
  EXPECT_EQ(boxes(), "1 1 1 1 1");
}

}  // namespace
}  // namespace kvo
