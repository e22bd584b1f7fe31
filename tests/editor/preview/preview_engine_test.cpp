// The preview on a player that does as it is told, in virtual time.
#include "editor/preview/position_texts.h"
#include "editor/tabs/operations.h"
#include "support/preview_bench.h"
#include "support/rows.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::PreviewBench;
using test::Rows;
using Act = std::function<void()>;
using Key = PreviewEngine::Key;

// What the desk and the player have been told since the last look.
std::string look(PreviewBench& b) { return b.host.takeNotes() + " | " + b.takeActs(); }

// "movie 00:04.0000 4", the last on the bar.
std::string seen(const PreviewBench& b) {
  return std::string(b.state.kind == PreviewKind::Movie ? "movie " : "clip ") + b.state.Lbl_TimePos + " " +
         ShortText(b.state.FSB_RenderRange.Value);
}

TEST(Preview, PlacesInFiguresAndAmongTheClips) {
  for (const auto& [seconds, text] : {std::pair{0.0, "00:00.0000"},
                                      {7.2, "00:07.2000"},
                                      {59.99996, "01:00.0000"},
                                      {61.23456, "01:01.2346"},
                                      {6000.5, "100:00.5000"},
                                      {-1.0, "00:00.0000"}}) {
    EXPECT_EQ(positionText(seconds), text);
  }
  PreviewState state;
  EXPECT_EQ(previewTitle(state), "Nothing to Preview");
  state.title = "beach -->  hills";
  EXPECT_EQ(previewTitle(state), "beach \u2192 hills");
  state.failure = "no such file";
  EXPECT_EQ(previewTitle(state), "no such file");
  PreviewBench b;
  EXPECT_EQ(clipAt(b.collection, 1), 0) << "nothing has a place yet";
  b.addMusic("song.mp3", 0, 60).TimeLineStop(Value(60));
  EXPECT_EQ(clipAt(b.collection, 1), 3) << "only sound has one";
  compilePreviewText(b.editing, 5);
  for (const auto& [seconds, clip] : {std::pair{0.0, 1}, {3.9, 1}, {4.0, 2}, {9.9, 2}, {30.0, 2}}) {
    EXPECT_EQ(clipAt(b.collection, seconds), clip) << seconds;
  }
}

TEST(Preview, TheMoviePlaysFromTheBarToItsEndAndIsThereAgain) {
  PreviewBench b;
  b.host.turned = [&](bool on) { EXPECT_EQ(b.state.PreviewPlaying, !on) << "as they tell of it"; };
  b.preview.PrepPreview();
  EXPECT_EQ(look(b), "sliders park watch- row:1 details halt tools- | clear load play");
  EXPECT_EQ(b.player.documents.back(), b.files.all.at("/prog/KVORender.xtl"));
  EXPECT_TRUE(b.state.PreviewPlaying && b.settings.state.IsPreviewRunning);
  EXPECT_EQ(b.state.FSB_RenderRange.Max, 10);
  EXPECT_EQ(b.state.cuts.rows(), (std::vector<double>{4, 10}));

  b.shows(52);
  b.loop.advance(300);
  EXPECT_EQ(b.state.Lbl_TimePos + " " + b.state.Lbl_Remain + " " + b.state.Lbl_TotDur,
            "00:05.2000 00:04.8000 00:10.0000");
  EXPECT_EQ(look(b), "row:2 sliders | ") << "once";
  EXPECT_EQ(b.state.title, "The hills");
  ASSERT_TRUE(b.state.picture);

  b.player.now = PlayState::Ended;
  b.player.frame = 99;
  b.loop.advance(200);
  EXPECT_EQ(look(b), "caption details sweep tools+ watch+ at 0 | stop") << "back at its first frame";
  EXPECT_FALSE(b.state.PreviewPlaying || b.settings.state.IsPreviewRunning);
  EXPECT_EQ(b.state.Lbl_TimePos, kNoPosition);
  EXPECT_EQ(b.state.FSB_RenderRange.Value, 0);

  b.preview.moveRange(7);
  look(b);
  b.preview.PrepPreview();
  EXPECT_TRUE(look(b).ends_with(" | clear load seek:70 play")) << "from the place of the bar";
  b.shows(83);
  b.preview.PrepPreview();
  EXPECT_EQ(look(b), "sliders park tools+ watch+ at 8.3 details at 8.3 | clear load seek:70 seek:83");
  EXPECT_TRUE(b.state.picture) << "what was seen stands";
  EXPECT_EQ(seen(b), "movie 00:08.3000 8.3");
  b.loop.advance(1000);
  EXPECT_EQ(look(b), " | ") << "no timer is left running";
}

TEST(Preview, AtTheEndOfTheBarItBeginsAnewOrStands) {
  for (const auto& [frames, from, acts] : {std::tuple{109, 10.3, "clear load seek:103 play"},
                                           {109, 10.8, "clear load play"},
                                           {5, 0.4, "clear load play"},
                                           {5, 0.3, "clear load seek:3 play"}}) {
    PreviewBench b;
    b.player.length = frames;
    b.state.FSB_RenderRange.Value = from;
    b.preview.PrepPreview();
    EXPECT_EQ(b.takeActs(), acts) << from << " of " << frames;
  }
  for (const bool rewinds : {true, false}) {
    PreviewBench b;
    b.host.rewinds = rewinds;
    b.state.FSB_RenderRange.Value = 10;
    b.preview.PrepPreview();
    EXPECT_EQ(b.takeActs(), rewinds ? "clear load play" : "clear load seek:99 play");
    b.player.now = PlayState::Ended;
    b.loop.advance(100);
    EXPECT_TRUE(b.state.PreviewPlaying) << "the first look may be too early";
    b.player.frame = 99;
    b.loop.advance(100);
    EXPECT_FALSE(b.state.PreviewPlaying);
    EXPECT_EQ(b.state.FSB_RenderRange.Value, 0) << "so that the next one does not begin at its end";
  }
}

TEST(Preview, KeysAndBarMoveInTheMovie) {
  PreviewBench b;
  b.settings.state.ObjectChange = 98;
  const auto key = [&](Key k) { return [&b, k] { b.preview.PreviewtransPort(k); }; };
  for (const auto& [what, act, acts, place] : Rows<const char*, Act, const char*, const char*>{
           {"nothing is in hand", key(Key::StepForward), "load seek:0 seek:1", "00:00.1000"},
           {"back", key(Key::StepBack), "seek:0", "00:00.0000"},
           {"end", key(Key::ToEnd), "seek:99", "00:09.9000"},
           {"not beyond", key(Key::StepForward), "seek:99", "00:09.9000"},
           {"start", key(Key::ToStart), "seek:0", "00:00.0000"},
           {"a place", [&] { b.preview.showAt(4.04); }, "seek:40", "00:04.0000"},
           {"the bar", [&] { b.preview.moveRange(6); }, "seek:60", "00:06.0000"},
           {"beyond the end", [&] { b.preview.showAt(99); }, "seek:99", "00:09.9000"},
           {"a changed movie", [&] { b.preview.movieIsStale(), b.preview.showAt(3); },
            "clear load seek:99 seek:30", "00:03.0000"},
           {"it plays", key(Key::PlayOrPause), "clear load seek:30 play", "00:03.0000"},
           {"it halts", key(Key::PlayOrPause), "pause", "00:03.0000"},
           {"it goes on", key(Key::PlayOrPause), "play", "00:03.0000"},
           {"a step halts it", key(Key::StepForward), "pause seek:31", "00:03.1000"}}) {
    act();
    EXPECT_EQ(b.takeActs(), acts) << what;
    EXPECT_EQ(b.state.Lbl_TimePos, place) << what;
    if (acts == std::string("load seek:0 seek:1")) {
      EXPECT_EQ(b.settings.state.ObjectChange, 98) << "the change watch has yet to hear of it";
      EXPECT_EQ(b.state.cuts.rows(), (std::vector<double>{4, 10}));
    }
  }
  EXPECT_TRUE(b.state.paused);
  const int drawn = b.host.drawn;
  b.loop.advance(1000);
  EXPECT_EQ(b.host.drawn, drawn) << "nothing is drawn while it stands";
  b.preview.PausePreview();
  b.preview.holdRange(true);
  b.shows(45);
  b.loop.advance(100);
  EXPECT_EQ(seen(b), "movie 00:04.5000 3.1") << "the user has the bar";
}

// As the desk has it, which tells at each drawing where the playhead is.
TEST(Preview, WhatStandsOfTheMovieIsAtThePlayhead) {
  PreviewBench b;
  b.host.draws = [&] { b.preview.standAt(b.host.playhead); };
  for (const auto& [what, act, expected] : Rows<const char*, Act, const char*>{
           {"the ruler", [&] { b.preview.showAt(4); }, "movie 00:04.0000 4"},
           {"the bar", [&] { b.preview.moveRange(6.5); }, "movie 00:06.5000 6.5"},
           {"a step", [&] { b.preview.PreviewtransPort(Key::StepForward); }, "movie 00:06.6000 6.6"},
           {"an edit", [&] { b.preview.movieIsStale(), b.loop.advance(300); }, "movie 00:06.6000 6.6"},
           {"a step behind it", [&] { b.preview.PreviewtransPort(Key::StepBack); }, "movie 00:06.5000 6.5"},
           {"it has been played", [&] { b.preview.playOrPauseMovie(), b.shows(72), b.preview.PrepPreview(); },
            "movie 00:07.2000 7.2"},
           {"another clip", [&] { b.host.playhead = 2; }, "clip 00:02.0000 2"},
           {"the wheel", [&] { b.preview.showAt(5), b.preview.showClip(); }, "clip 00:05.0000 5"},
           {"a sample", [&] { b.preview.sample(Sample::Effect, 1), b.preview.showClip(); },
            "clip 00:05.0000 5"}}) {
    act();
    b.host.previewChanged();
    EXPECT_EQ(seen(b), expected) << what;
    EXPECT_EQ(b.state.Lbl_TotDur, "00:10.0000") << what;
  }
  b.collection.MovieList[2].TimeLineStop(Value(9));
  b.preview.takeTimes();
  EXPECT_EQ(b.state.cuts.rows(), (std::vector<double>{4, 9})) << "a clip has been trimmed";
}

TEST(Preview, TheMovieIsSeenBehindAnEdit) {
  PreviewBench b;
  b.host.playhead = 6.64;
  b.host.draws = [&] { b.preview.standAt(b.host.playhead); };
  b.preview.standAt(6.64);
  for (int step = 0; step < 5; ++step) {
    b.collection.MovieList[2].LoopEnd(Value(7.0 - step));
    b.preview.movieEdited();
    b.loop.advance(200);
    EXPECT_EQ(b.takeActs(), "") << "while the hand goes on";
  }
  b.loop.advance(100);
  EXPECT_EQ(b.takeActs(), "load seek:66") << "once";
  EXPECT_EQ(b.host.takeNotes(), "") << "clip in hand and playhead stay";
  b.loop.advance(1000);
  b.shows(66);
  const auto before = b.state.picture;
  b.preview.movieEdited();
  b.host.previewChanged();
  EXPECT_EQ(b.state.picture, before) << "it stands until the new one is there";
  for (const auto& [what, act, expected, kind] : Rows<const char*, Act, const char*, PreviewKind>{
           {"held", [&] { b.host.rests = false; }, "", PreviewKind::Movie},
           {"let go", [&] { b.host.rests = true, b.host.previewChanged(); }, "clear load seek:66",
            PreviewKind::Movie},
           {"the wheel", [&] { b.preview.movieEdited(), b.preview.showClip(); }, "clear", PreviewKind::None},
           {"keyframes",
            [&] { b.settings.state.KeyframeMode = 1, b.preview.movieEdited(), b.preview.movieIsStale(); }, "",
            PreviewKind::None},
           {"a sample",
            [&] {
              b.settings.state.KeyframeMode = 0;
              b.preview.movieEdited();
              b.preview.sample(Sample::Effect, 1);
            },
            "load play", PreviewKind::Effect},
           {"another collection",
            [&] {
              b.preview.showAt(2);
              b.takeActs();
              b.preview.showClip();
              b.preview.movieIsStale();
            },
            "clear", PreviewKind::None},
           {"it plays", [&] { b.preview.movieEdited(), b.preview.PrepPreview(); }, "seek:20 play",
            PreviewKind::Movie}}) {
    act();
    b.loop.advance(300);
    const auto acts = b.takeActs();
    EXPECT_TRUE(acts.ends_with(expected) && acts.empty() == (*expected == 0)) << what << ": " << acts;
    EXPECT_EQ(b.state.kind, kind) << what;
  }
}

// The second clip lies from 2 to 10 with a dissolve of 2 seconds: at its start the movie has the clip before.
TEST(Preview, BehindAnEditTheClipInHandStaysWhereATransitionLeadsIntoIt) {
  PreviewBench b;
  b.host.draws = [&] { b.preview.standAt(b.host.playhead); };
  compilePreviewText(b.editing, 5);
  b.collection.icurMov = 2;
  const auto from = [&](double seconds) {
    return [&b, seconds] {
      b.host.playhead = seconds;
      b.host.previewChanged();
    };
  };
  for (const auto& [what, act, expected] : Rows<const char*, Act, const char*>{
           {"it has been chosen", from(2), "clip 00:02.0000 2"},
           {"within the dissolve", from(3.9), "clip 00:03.9000 3.9"},
           {"behind it", from(4), "movie 00:04.0000 4"},
           {"the ruler", [&] { b.preview.showAt(2); }, "movie 00:02.0000 2"},
           {"a copy, in hand", [&] { b.preview.movieEdited(), b.host.playhead = 2.5; },
            "clip 00:02.5000 2.5"}}) {
    act();
    b.preview.movieEdited();
    b.host.previewChanged();
    b.loop.advance(300);
    b.host.previewChanged();
    EXPECT_EQ(seen(b), expected) << what;
  }
  b.host.playhead = 2;
  b.collection.MovieList[2].TransType("CUT");
  b.preview.movieEdited();
  b.loop.advance(300);
  EXPECT_EQ(b.state.kind, PreviewKind::Movie) << "nothing leads into it";
}

// Ten frames a second: that of the second clip's first 0.04 s begins ahead of it.
TEST(Preview, BehindAnEditTheClipInHandIsSeenWhereItBegins) {
  PreviewBench b;
  b.host.draws = [&] { b.preview.standAt(b.host.playhead); };
  b.collection.MovieList[1].LoopEnd(Value(b.collection.MovieList[1].LoopStart().number() + 4.06));
  b.collection.MovieList[2].TransType("CUT");
  compilePreviewText(b.editing, 5);
  for (const auto& [number, seconds, seek, told] :
       Rows<int, double, const char*, const char*>{{2, 4.06, "load seek:41", "The hills 00:04.0600"},
                                                   {2, 4.16, "load seek:41", "The hills 00:04.1600"},
                                                   {1, 4.05, "load seek:40", "beach.avi 00:04.0500"}}) {
    b.collection.icurMov = number;
    b.host.playhead = seconds;
    b.host.previewChanged();
    b.preview.movieEdited();
    b.loop.advance(300);
    const auto acts = b.takeActs();
    EXPECT_TRUE(acts.ends_with(seek)) << told << ": " << acts;
    b.shows(static_cast<int>(b.player.frame));
    EXPECT_EQ(b.state.title + " " + b.state.Lbl_TimePos, told);
    EXPECT_EQ(b.state.Lbl_TotDur, "00:12.0600") << "as long as the movie, not as its frames";
  }
}

TEST(Preview, SamplesBeginByThemselvesAndTheNewestCounts) {
  PreviewBench b;
  b.preview.sample(Sample::Effect, 1);
  EXPECT_EQ(b.takeActs(), "load play") << "at once";
  EXPECT_EQ(b.player.documents.back(), PreviewEffect(b.editing, 1, SampleSize::Shown));
  b.shows(12);
  for (int value = 1; value <= 20; ++value) {  // a slider that is dragged
    b.collection.MovieList[1].BlurInt(static_cast<Integer>(value));
    b.collection.MovieList[1].EffectWord(std::string(42, '0') + "1000");
    b.preview.sample(Sample::Effect, 1);
    b.loop.advance(10);
  }
  b.loop.advance(60);
  EXPECT_EQ(b.player.documents.size(), 5U) << "one each 60 ms";
  EXPECT_NE(b.player.documents.back().find("\"20"), std::string::npos) << b.player.documents.back();
  EXPECT_EQ(b.takeActs().substr(0, 17), "load seek:12 play") << "goes on where it was";
  EXPECT_FALSE(b.files.all.contains("/prog/KVOSamp.xtl"));
  b.loop.advance(250);
  EXPECT_EQ(b.files.all["/prog/KVOSamp.xtl"], PreviewEffect(b.editing, 1));
  b.takeActs();

  b.collection.MovieList[2].HasPicInPic(picInPicText({.overlayClip = 1, .position = 12}));
  for (const auto& [what, kind, title, document] : Rows<Sample, PreviewKind, const char*, std::string>{
           {Sample::Transition, PreviewKind::Transition, "beach.avi -->  The hills",
            Previewtransition(b.editing, 2, SampleSize::Shown)},
           {Sample::Colour, PreviewKind::Colour, "The hills",
            PreviewColourAdjust(b.editing, 2, SampleSize::Shown)},
           {Sample::Keyframe, PreviewKind::Keyframe, "The hills",
            PreviewEffect(b.editing, 2, SampleSize::Shown)},
           {Sample::PictureInPicture, PreviewKind::PictureInPicture, "The hills",
            CreatePinPPreview(b.editing, 2, {.preview = true, .inShape = true})}}) {
    b.preview.sample(what, 2);
    b.loop.advance(60);
    EXPECT_EQ(b.takeActs(), "load play") << title << " in place of the one before, from its start";
    EXPECT_EQ(b.player.documents.back(), document);
    EXPECT_EQ(b.state.title, title);
    EXPECT_EQ(b.state.kind, kind);
    EXPECT_EQ(b.state.overlayPosition, kind == PreviewKind::PictureInPicture ? 12 : 0);
  }
  for (const auto* acts : {"pause", ""}) {
    b.preview.haltSample();
    EXPECT_EQ(b.takeActs(), acts) << "for a frame of the clip";
  }
  b.preview.PausePreview();
  EXPECT_EQ(b.takeActs(), "play");
  b.player.now = PlayState::Ended;
  b.loop.advance(450);
  EXPECT_EQ(b.takeActs(), "") << "its last picture stands";
  EXPECT_FALSE(b.state.PreviewPlaying);
  b.preview.PreviewtransPort(Key::PlayOrPause);
  EXPECT_EQ(b.takeActs(), "play") << "once more";
}

TEST(Preview, SamplesAndTheMovieGiveWayToEachOther) {
  PreviewBench b;
  b.state.FSB_RenderRange = {10, 6};
  b.preview.sample(Sample::Effect, 1);
  b.preview.PrepPreview();
  b.preview.haltSample();
  EXPECT_FALSE(b.state.paused) << "the movie is none";
  EXPECT_EQ(b.state.FSB_RenderRange.Value, 6) << "the bar of the movie is where it was";
  b.host.takeNotes();
  b.preview.sample(Sample::Colour, 1);
  EXPECT_EQ(b.host.takeNotes(), "tools+ watch+ at 6 details halt");
  for (const int missing : {0, 3}) b.preview.sample(Sample::Effect, missing);
  b.preview.KillPreview();
  look(b);
  b.loop.advance(1000);
  EXPECT_EQ(look(b), " | ") << "no wish is left over";
}

TEST(Preview, AFileThatIsGoneIsToldUntilItIsBack) {
  PreviewBench b;
  auto& missing = b.editor.missingFiles;
  b.files.all.erase("/v/hills.avi");
  b.preview.PrepPreview();
  b.player.now = PlayState::Failed;
  b.player.why = "cannot open /v/hills.avi: No such file or directory";
  b.loop.advance(100);
  const std::string gone = "The hills has been moved or no longer exists";
  EXPECT_EQ(b.state.failure, gone);
  EXPECT_EQ(b.log.texts().back(), b.player.why);
  for (const auto& [files, told] :
       {std::pair(std::vector<std::string>{"/v/beach.avi", "/v/hills.avi"}, gone), {{"/v/beach.avi"}, ""}}) {
    missing.assign(files);
    b.preview.filesCame();
    EXPECT_EQ(b.state.failure, told);
  }
}

TEST(Preview, WhatCannotBeShownIsTold) {
  PreviewBench b;
  b.preview.PrepPreview();
  b.player.now = PlayState::Failed;
  b.player.why = "cannot open /v/beach.avi";
  b.host.takeNotes();
  b.loop.advance(100);
  EXPECT_EQ(b.state.failure + "; " + b.log.texts().back(),
            "cannot open /v/beach.avi; cannot open /v/beach.avi");
  EXPECT_EQ(b.host.takeNotes(), "tools+ watch+ at 0 details");

  for (const auto* failure : {"line 3 makes no sense", ""}) {
    b.player.refuses = *failure != 0;
    b.preview.sample(Sample::Effect, 1);
    b.loop.advance(60);
    EXPECT_EQ(b.state.failure, failure);
  }
  b.preview.KillPreview();
  b.files.failedReplaces = 1;
  b.preview.PrepPreview();
  EXPECT_NE(b.state.failure, "");
  EXPECT_TRUE(b.host.takeNotes().ends_with("watch+ at 0"));

  b.host.free = false;
  b.preview.KillPreview();
  b.takeActs();
  b.preview.PrepPreview();
  b.preview.sample(Sample::Effect, 1);
  b.preview.showAt(2);
  EXPECT_EQ(b.takeActs(), "") << "another command has the collection";
  b.host.free = true;
  b.collection.MovieList.clear();
  b.preview.PrepPreview();
  ASSERT_EQ(b.boxes.shown.size(), 1U);
  EXPECT_EQ(b.boxes.shown[0].caption + ": " + b.boxes.shown[0].text,
            "KVO - Nothing to Render: Nothing to render");
}

}  // namespace
}  // namespace kvo
