// Whole timeline documents, compared to the byte.
#include "editor/compiler/document_check.h"
#include "editor/compiler/durations.h"
#include "editor/tabs/clip_checks.h"
#include "editor/tabs/operations.h"
#include "support/fakes.h"
#include "support/golden.h"

namespace kvo {
namespace {

using test::Bench;
using test::countOf;
using test::lineOf;
using test::withTransition;

std::string compiled(Bench& b) {
  EXPECT_TRUE(writeDocument(b.files, "/prog/KVORender.xtl", compileText(b.editing)));
  return b.files.all["/prog/KVORender.xtl"];
}

// The document of the first compile and that of a second one in the same session, which meets what the first
// one corrected. Neither is a change of the user's, and one whose corrections are not taken over makes none.
void expectGolden(Bench& b, const std::string& name, const std::string& second = {}) {
  ClearDirtyFlags(b.collection, b.settings);
  b.settings.state.ObjectChange = 0;
  const auto made = [&] {
    return compile(b.collection, optionsOf(b.editing), {b.streams, b.editor.effects}).text;
  };
  const auto untouched = made();
  EXPECT_EQ(made(), untouched) << name;
  EXPECT_EQ(compiled(b), untouched) << name;
  test::expectGolden(name, untouched);
  test::expectGolden(second.empty() ? name : second, compiled(b));
  EXPECT_FALSE(isDirty(b.collection, b.settings)) << name;
  EXPECT_EQ(b.settings.state.ObjectChange, 0) << name;
}

TEST(Document, TwoClipsWithAFade) {
  Bench b;
  b.addVideo("a.avi", 0, 5, "C:\\");
  auto& second = withTransition(b.addVideo("b.avi", 2, 6, "C:\\"), "Fade", 10);
  second.ExtraParamName1("bands");
  expectGolden(b, "two-clips-fade.xtl");
  EXPECT_EQ(lineOf(second.TimeLineStart().text(), second.TimeLineStop().text(), b.editor.VideoTotalTime,
                   second.ExtraParamName1()),
            "4 8.0000 8.0000 ");
  b.editor.texts.VideoTrackText.clear();
  b.settings.state.ObjectChange = 96;
  CreateClipLine(b.editing, true, {.TransitionZero = true});
  EXPECT_EQ(countOf(b.editor.texts.VideoTrackText, "<transition"), 0U) << "a pass for the times";
  EXPECT_EQ(b.editor.controls.Fra_Preview, "0 to 8.00 (s)");
}

TEST(Document, AudioOnlyHasNoVideoGroup) {
  Bench b;
  b.addMusic("m.mp3", 0, 12.5);
  b.addMusic("n.wav", 1, 3).AudioOutputLevel(0.5F);
  expectGolden(b, "audio-only.xtl");
  EXPECT_TRUE(b.settings.preferences().AutoTrimAudio) << "a look changes nothing that is saved";
  EXPECT_FALSE(trimsMusic(b.editing));
}

TEST(Document, StillsInAllStretchModes) {
  Bench b;
  b.settings.state.DefaultStillDuration = 7;
  for (Integer mode = 0; mode <= 4; ++mode) b.addStill("s" + std::to_string(mode) + ".jpg").stretchmode(mode);
  expectGolden(b, "stills.xtl");
  EXPECT_EQ(b.collection.MovieList[1].LoopEnd().text(), "7") << "it stays in the record";
}

TEST(Document, AStillHasItsLengthBeforeAnyLimitIsTaken) {
  for (const auto& noLength : {Value(0), Value(), Value("N/A")}) {
    for (const auto& order : {"still film", "film still"}) {
      Bench b;
      b.settings.state.DefaultStillDuration = 7;
      const bool isAhead = order[0] == 's';
      if (!isAhead) b.addVideo("a.avi", 0, 5);
      auto& still = b.addStill("s.jpg");
      still.LoopEnd(noLength);
      if (isAhead) b.addVideo("a.avi", 0, 5);
      for (const int clip : {1, 2}) withTransition(b.collection.MovieList[clip], "Fade", 20);
      ClearDirtyFlags(b.collection, b.settings);
      const auto transitions = countOf(compiled(b), "<transition ");
      EXPECT_EQ(lineOf(transitions, b.collection.MovieList[2].TransIn(), still.LoopEnd().text(),
                       isDirty(b.collection, b.settings)),
                "2 20 7 0")
          << order << noLength.text();
    }
  }
}

// Marks that are one leave a still without a length, unless a transition leads into it.
TEST(Document, AStillKeepsTheMarksThatItHas) {
  for (const auto& [transition, marks] : {std::pair{"CUT", "3 3"}, {"Fade", "0 7"}}) {
    Bench b;
    b.addVideo("a.avi", 0, 5);
    auto& still = b.addStill("s.jpg");
    still.LoopStart(Value(3));
    still.LoopEnd(Value(3));
    still.TransType(transition);
    compileText(b.editing);
    EXPECT_EQ(lineOf(still.LoopStart().text(), still.LoopEnd().text()), marks) << transition;
  }
}

TEST(Document, SecondsThatAreNoNumberAreWrittenAsTheNumberTheyReadAs) {
  for (const auto& [start, written] :
       {std::pair{Value(), "0"}, {Value("N/A"), "0"}, {Value("1.5"), "1.5"}, {Value("2 s"), "2"}}) {
    Bench b;
    b.addVideo("a.avi", 0, 5).LoopStart(start);
    for (const auto& text : {compiled(b), PreviewEffect(b.editing, 1), Previewtransition(b.editing, 1)})
      EXPECT_EQ(countOf(text, std::string("mstart=\"") + written + "\""), 1U) << start.text() << text;
  }
}

TEST(Document, ARenderIsTheSameWhateverThePreviewIsSetTo) {
  Bench b;
  b.addVideo("a.avi", 0, 5).EffectWord("1");
  withTransition(b.addVideo("b.avi", 0, 5), "Fade", 10);
  const auto text = compiled(b);
  for (const auto* part :
       {"<transition ", "<effect clsid", "bitdepth=\"24\" width=\"320\" height=\"240\" framerate=\"25\""})
    EXPECT_EQ(countOf(text, part), 1U) << part;
  for (const int power : {1, 4, 10}) {
    b.settings.change().PreviewCPU = static_cast<Integer>(power);
    EXPECT_EQ(compiled(b), text) << power;
    EXPECT_EQ(b.settings.preferences().PreviewCPU, power) << "the slider stands where it stood";
  }
}

TEST(Document, SpeedsChangeTheTimelineOnly) {
  Bench b;
  int i = 0;
  for (const float speed : {5.0F, 10.0F, 20.0F})
    b.addVideo("v" + std::to_string(i++) + ".avi", 2, 6).Playspeed(speed);
  withTransition(b.addVideo("w.avi", 0, 1.0 / 3), "Dissolve", 1).Playspeed(15);
  expectGolden(b, "speeds.xtl");
}

TEST(Document, OverlaysInSequenceAndStackedTrimmedAndNot) {
  for (const std::string name : {"stacked", "stacked-trim", "sequence", "sequence-trim"}) {
    Bench b;
    b.settings.adjust().AutoTrimAudio = name.ends_with("-trim");
    b.settings.change().ExternalAudioStack = name.starts_with("sequence");
    b.addVideo("a.avi", 0, 20);
    b.addMusic("m.mp3", 0, 12.5);
    auto& faded = b.addMusic("n.wav", 1, 31);
    faded.HasAudioFade(true);
    faded.AudioFadeInTime(1.5F);
    faded.AudioFadeOutTime(2);
    b.addMusic("o.wma", 0, 5).AudioOutputLevel(0.25F);
    b.addMusic("left-out.mp3", 0, 90).RenderAudio(false);
    expectGolden(b, "overlay-" + name + ".xtl");
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
  // A clip without sound is silent once; then it has no sound track.
  expectGolden(b, "clip-sound.xtl", "clip-sound-again.xtl");
  EXPECT_FALSE(b.collection.MovieList[3].RenderAudio());
  b.streams.all.erase("/v/short.avi");
  b.streams.all["/v/a.avi"] = {.hasVideo = true};  // presumed: nobody has looked into it
  compileText(b.editing);
  EXPECT_TRUE(b.collection.MovieList[4].RenderAudio()) << "a file that is away comes back with its sound";
  EXPECT_TRUE(faded.RenderAudio());
}

TEST(Document, ATransitionPreviewWritesNothingButWhatTheTransitionCorrects) {
  Bench b;
  auto& still = b.addStill("a.jpg");
  still.HasAudioFade(true);
  auto& clip = withTransition(b.addVideo("b.avi", 0, 2), "Fade", 80);
  CreateClipLine(b.editing, true, {.TransitionPreview = true, .FirstClip = 1, .LastClip = 2});
  EXPECT_EQ(lineOf(still.RenderAudio(), still.HasAudioFade(), still.LoopEnd().number(), clip.TransIn()),
            "1 1 0 20")
      << "no longer than its clip";
}

TEST(Document, TheVideoGroupFollowsThePower) {
  Bench b;
  int depth = 24, width = 641, height = 481;
  float rate = 0;
  CreateVideoGroup(b.editing, depth, width, height, rate, 7);
  EXPECT_EQ(
      b.editor.texts.VideoGroupText,
      "<group type=\"video\" bitdepth=\"24\" width=\"320\" height=\"240\" framerate=\"10\" name=\"VIDEO\" "
      "buffering=\"30\" PreviewMode=\"True\"  >\r\n");
}

TEST(Document, EachClipGoesWhereItsKindBelongs) {
  const StreamFacts film{.hasVideo = true, .hasAudio = true}, sound{.hasAudio = true},
      silent{.hasVideo = true};
  const std::tuple<StreamFacts, std::vector<std::string>, const char*> rows[] = {
      // Some by name alone, whatever they hold; of others that decides between sound and picture. The last
      // three letters of "tiff", "riff" and "wav" without a point are those of others.
      {film, {"a.mp3"}, "0 1"},
      {film, {"a.mpeg", "a.ogg", "a.riff", "wav"}, "1 1"},
      {sound, {"a.WAV", "a.aif", "a.ogg", "a.mp4", "a.unheard"}, "0 1"},
      {silent, {"a.tiff"}, "1 0"}};
  for (const auto& [holds, names, tracks] : rows) {  // of picture, of sound
    for (const auto& name : names) {
      Bench b;
      b.settings.change().DubInPlaylistAudioTrks = true;
      b.addVideo("first.avi", 0, 5);
      b.addVideo(name, 0, 4);
      b.streams.all["/v/" + name] = holds;
      const auto text = compiled(b);
      const auto sounds = std::min(text.find("type=\"audio\""), text.size());
      const auto clip = "<clip src=\"/v/" + name + "\"";
      EXPECT_EQ(lineOf(countOf(text.substr(0, sounds), clip), countOf(text.substr(sounds), clip)), tracks)
          << name << holds.hasVideo;
    }
  }
}

TEST(Document, SoundAheadOfAPictureIsRefused) {
  for (const auto* name : {"m.wav", "m.mid", "m.ogg"}) {
    Bench b;
    b.addMusic(name, 0, 5).Resolution("0 x 0");
    b.addVideo("a.avi", 0, 5);
    EXPECT_TRUE(IsAudioBeforeVideo(b.editing)) << name;
    ASSERT_EQ(b.boxes.shown.size(), 1U);
    EXPECT_EQ(b.boxes.shown[0].text,
              "Audio tracks should be grouped together and placed at the end of the collection !\r\n"
              "Please move the audio track :-\r\n<" +
                  std::string(name) + ">\r\nto the end of the collection.");
  }
  Bench b;
  b.addStill("s.tiff").Resolution("0 x 0");
  b.addVideo("a.avi", 0, 5).MovieHeight(480);
  b.addMusic("m.mp3", 0, 5).Resolution("0 x 0");
  EXPECT_FALSE(IsAudioBeforeVideo(b.editing));
}

// With a transition that is longer than its clip: the clips are placed within its limit, which the record
// takes only where the transition is written.
TEST(Document, IsTheSameWhenItsPartsAreMadeOneByOneAndTimedTheSameWithoutIt) {
  for (const int power : {1, kRenderMode}) {  // a preview without transitions, and a render
    Bench whole, parts, times;
    for (auto* b : {&whole, &parts, &times}) {
      b->addVideo("a.avi", 0, 20).EffectWord("1");
      withTransition(b->addStill("s.jpg"), "Fade", 80);
      b->addMusic("m.mp3", 0, 12.5);
      b->settings.state.DefaultStillDuration = 3;
      b->settings.change().PreviewCPU = static_cast<Integer>(power);
    }
    const bool isRender = power == kRenderMode;
    const auto text = isRender ? compileText(whole.editing) : compilePreviewText(whole.editing, power);
    int depth = 24, width = 320, height = 240;
    Single rate = 0;
    CreateVideoGroup(parts.editing, depth, width, height, rate, power);
    CreateClipLine(parts.editing, !isRender, {.UseSourceFile = isRender});
    CreateAudioGroup(parts.editor, "44100");
    CreateAudioClipLine(parts.editing);
    AddOverlayAudioTracks(parts.editing);
    ASSERT_TRUE(WriteRenderFile(parts.editing, true, "/prog/parts.xtl"));
    EXPECT_EQ(parts.files.all["/prog/parts.xtl"], text);
    AnalyseRenderFile(parts.editing, "/prog/parts.xtl");
    EXPECT_EQ(parts.editor.ClipStopList, whole.editor.ClipStopList);
    times.settings.state.ObjectChange = 98;
    timeMovie(times.editing);
    EXPECT_EQ(times.settings.state.ObjectChange, 98) << "whose change it is hears of it yet";
    EXPECT_EQ(times.collection.MovieList[2].TransIn(), 80);
    const auto told = [](const Bench& b) {
      auto all = lineOf(b.editor.VideoTotalTime, b.editor.LastClipStop, b.editor.AudioTotalTime);
      for (int i = 1; i <= b.collection.MovieList.count(); ++i) {
        const auto& clip = b.collection.MovieList[i];
        all += "\n" + lineOf(clip.TimeLineStart().text(), clip.TimeLineStop().text(), clip.LoopEnd().text());
      }
      return all;
    };
    EXPECT_EQ(told(parts), told(whole));
    EXPECT_EQ(told(times), told(whole));
    EXPECT_FALSE(times.settings.preferences().DubInPlaylistAudioTrks) << "what only a compile remembers";
    EXPECT_TRUE(whole.settings.preferences().DubInPlaylistAudioTrks);
    whole.collection.MovieList.removeIf([](const Movie& clip) { return clip.MovieName() == "m.mp3"; });
    timeMovie(whole.editing);
    EXPECT_EQ(whole.editor.AudioTotalTime, "") << "the music has gone, whatever was compiled";
    for (auto* b : {&whole, &parts}) {
      const auto& still = b->collection.MovieList[2];
      EXPECT_EQ(lineOf(still.TransIn(), still.TimeLineStart().text()), isRender ? "30 17" : "80 17");
    }
  }
}

TEST(Document, HasAPictureWhereAStreamAStillOrANameSaysSo) {
  const StreamFacts film{.hasVideo = true}, sound{.hasAudio = true};
  const std::tuple<const char*, const StreamFacts*, bool> rows[] = {
      {"a.avi", &film, true},    {"a.avi", &sound, false},  {"a.wma", &film, false},
      {"a.avi", nullptr, false}, {"a.Mpg", nullptr, true},  // the file is missing
      {"a.mpeg", nullptr, true}, {"a.m2v", nullptr, false}, {"still.png", nullptr, true}};
  for (const auto& [name, facts, hasPicture] : rows) {
    Bench b;
    b.addVideo(name, 0, 5).IsStill(std::string_view(name).starts_with("still"));
    b.streams.all.clear();
    if (facts != nullptr) b.streams.all[std::string("/v/") + name] = *facts;
    EXPECT_EQ(HaveAtleastOneVidTrack(b.editing), hasPicture) << name;
    EXPECT_EQ(trimsMusic(b.editing), hasPicture) << name;
    EXPECT_TRUE(checkDocument(compileText(b.editing))) << name << ": tracks stand in a group";
  }
}

TEST(Document, MusicTakesPartWhereItsFormatSaysSo) {
  std::string music;
  for (const std::string format :
       {"44.1 Khz", " unknown", "0 x 0", "", "N/A", "N/A, 44.1 KHz", "640 x 480"}) {
    Bench b;
    b.addMusic("m.mp3", 0, 5).Resolution(format);
    if (compile(b.collection, optionsOf(b.editing), {b.streams, b.editor.effects}).hasMusic)
      music += "[" + format + "]";
  }
  EXPECT_EQ(music, "[44.1 Khz][ unknown][0 x 0]");
}

TEST(Durations, ACutIsPreviewedByTheLadder) {
  std::string sections;
  for (const double length : {0.2, 0.25, 0.6, 1.2, 1.5, 10.0}) {
    Bench b;
    b.addVideo("a.avi", 0, length);
    b.addVideo("b.avi", 0, 12);
    const TimelineClips clips(b.collection);
    sections += lineOf(CalcMinimumDur(clips[1], clips[2])) + " ";
  }
  EXPECT_EQ(sections, "0.2 0.25 0.5 0.75 1 2 ");
}

TEST(Durations, TheShortestCutHoldsTheTrackFade) {
  Bench b;
  b.addMusic("m.mp3", 0, 4);
  EXPECT_EQ(FindShortestCut(TimelineClips(b.collection, b.streams), false), 0);
  EXPECT_EQ(FindShortestCut(TimelineClips(b.collection, b.streams), true), 4);
  UpdateTrackFade(b.editing, false);
  EXPECT_FLOAT_EQ(b.settings.preferences().VideoTrackFadeAmt, -0.5F);
}

TEST(Durations, RowsEndInTheirClipNumber) {
  EXPECT_EQ(lineOf(GetIndividualClipNo("beach.avi   12"), GetIndividualClipNo("clip   79999"),
                   GetIndividualClipNo("")),
            "12 79999 1");
}

TEST(Durations, AClipThatIsHeardAndHasTimesFades) {
  for (const auto& [heard, tenths] : {std::pair{true, 5}, {true, 0}, {false, 5}}) {
    Bench b;
    auto& clip = b.addVideo("a.avi", 0, 4);
    clip.RenderAudio(heard);
    clip.AudioFadeOutTime(static_cast<Single>(tenths));
    auto& music = b.addMusic("m.mp3", 0, 4);
    music.HasAudioFade(true);
    const bool fades = heard && tenths > 0;
    clip.HasAudioFade(!fades);
    UpdateTrackFade(b.editing, true);
    EXPECT_EQ(clip.HasAudioFade(), fades) << heard << tenths;
    EXPECT_TRUE(music.HasAudioFade()) << "of sound it stays";
  }
}

TEST(Durations, AnAutomaticFadeNeedsRoom) {
  for (const auto& [start, stop, amount, expected] : {std::tuple{4.0, 8.0, 0.0F, "2 2"},
                                                      {4, 6, 0, "none"},
                                                      {0, 5, 1, "1 4"},
                                                      {0, 1, 1, "none"},
                                                      {0.5, 2.4, 2, "none"},
                                                      {0.5, 2.51, 2.4F, "0.1"}}) {
    const auto fade = CalcAutofade(start, stop, amount);
    const auto out = fade.fits ? lineOf("", *fade.FadeOutStart) : "";
    EXPECT_EQ(fade.FadeTime ? lineOf(*fade.FadeTime) + out : "none", expected) << stop;
  }
}

}  // namespace
}  // namespace kvo
