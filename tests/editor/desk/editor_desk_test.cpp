// The open editor on a collection, in virtual time.
#include "editor/desk/editor_desk.h"

#include "editor/desk/clip_stats.h"
#include "editor/desk/file_watch.h"
#include "editor/desk/snapshot.h"
#include "editor/desk/timeline_desk.h"
#include "editor/desk/values_beside.h"
#include "editor/tabs/audio_tab.h"
#include "editor/tabs/preview.h"
#include "editor/tabs/stills_tab.h"
#include "support/program_bench.h"

#include <chrono>
#include <mutex>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::ProgramBench;

struct NotedPreview : DeskPreview {
  std::string asked;
  bool plays = false;
  void KillPreview() override {
    asked += "kill ";
    plays = false;
  }
  void sample(Sample /*what*/, int clipNo) override { asked += "sample" + std::to_string(clipNo) + " "; }
  [[nodiscard]] bool isPlaying() const override { return plays; }
  void movieIsStale() override {}
  void standAt(double seconds) override { at = seconds; }
  void showClip() override {
    if (does != nullptr) *does += "leave ";
  }
  double at = -1;
  std::string* does = nullptr;
};

/// Streams that can be kept waiting for.
struct HeldStreams : FrameSource {
  explicit HeldStreams(FrameSource& all) : all(all) {}
  FrameSource& all;
  std::mutex held;
  Result<StreamFacts> facts(const std::string& path) override {
    const std::lock_guard lock(held);
    return all.facts(path);
  }
  Result<FramePicture> frame(const std::string& path, double seconds, int width, int height) override {
    return all.frame(path, seconds, width, height);
  }
};

/// Three films, a still and a song on the desk; what it asks of others is noted.
struct DeskBench : ProgramBench {
  explicit DeskBench(int films = 3) {
    for (int i = 1; i <= films; ++i) {
      auto& clip = addVideo("film" + std::to_string(i) + ".avi", 0, 8);
      clip.KeyID(i);
      clip.DurationTime(Value(10));
      clip.DurationFrames(Value(250));
      clip.LoopEnd(Value(8));
      clip.MovieHeight(480);
    }
    auto& still = addVideo("photo.jpg", 0, 5);
    still.IsStill(true);
    streams.all["/v/photo.jpg"] = {.hasVideo = true, .isStill = true, .width = 640, .height = 480};
    addMusic("song.mp3", 0, 30);
    list.whenInHand([this](int number) {
      told += "load" + std::to_string(number) + " ";
      inPlayer = number > 0 ? clipFile(clip(number)) : "";
    });
    list.fill();
    list.PreviewMovie(1);
    ClearDirtyFlags(collection, settings);
    settings.state.ObjectChange = 0;
    desk.tabs(notedTabs(), {});
    listCommands.placedBy([this] { return place; });
    told.clear();
  }

  Movie& clip(int number) { return collection.MovieList[number]; }
  DeskTabs notedTabs() {
    DeskTabs tabs;
    for (std::size_t i = 0; i < tabs.size(); ++i) {
      const auto name = std::to_string(i + 1);
      tabs[i] = {.restore = [this, name] { told += "restore" + name + " "; },
                 .enter = [this, name] { told += "enter" + name + " "; },
                 .follow = [this, name](bool anew) { told += (anew ? "anew" : "follow") + name + " "; }};
    }
    return tabs;
  }
  MainWindowDoors doors() {
    const auto note = [this](const char* what) { return [this, what] { told += std::string(what) + " "; }; };
    return {.Displaymovieinfo = [this](int number) { told += "details" + std::to_string(number) + " "; },
            .PlayerPause = note("pause"),
            .PlayerStop = note("stop"),
            .PlayerGetFileName = [this] { return inPlayer; },
            .pausePlaying = note("halt"),
            .place = [this] { return place; },
            .pictureAt = [this](double seconds) -> std::optional<PlayerPlace> {
              if (!place) return std::nullopt;
              return PlayerPlace{seconds, static_cast<Long>(std::lround(seconds * 25))};
            },
            .standPlayer =
                [this](double seconds) {
                  told += "to" + ShortText(seconds) + " ";
                  if (place) place = PlayerPlace{seconds, static_cast<Long>(std::lround(seconds * 25))};
                },
            .stepPlayer =
                [this](int pictures) {
                  const double to = place->seconds + pictures / 25.0;
                  place = PlayerPlace{to, static_cast<Long>(std::lround(to * 25))};
                },
            .SetMarkIn = note("markIn"),
            .SetMarkOut = note("markOut"),
            .resetMark = [this](bool in) { told += in ? "resetIn " : "resetOut "; },
            .ShowSliderStuff = note("slider"),
            .Pic_DigNumbers_Click = note("trimmer"),
            .AddMoviesm =
                [this](const std::string& path, int before) {
                  told += "add" + path + (before > 0 ? " ahead of " + std::to_string(before) : "") + " ";
                },
            .mnu_SaveShow_Click = note("saveAs"),
            .saveAgain = note("save"),
            .empty = note("empty"),
            .FrmFileOpenToolsOnOff = [](bool) {}};
  }
  void open() {
    desk.Form_Load();
    if (!desk.isOpen()) return;
    while (state.analysing.visible || !state.frame.toolsOn) {
      if (!loop.workComesHome()) break;
    }
    loop.advance(1);
  }
  /// What is told in `ticks` ticks of the change watch.
  std::string tick(int ticks = 1) {
    told.clear();
    loop.advance(200 * ticks);
    return told;
  }
  std::string changed(Integer code) {
    settings.state.ObjectChange = code;
    return tick();
  }

  /// What is told of clips and places: "load2 to4 leave".
  [[nodiscard]] std::string moves() const {
    std::string all;
    for (std::istringstream words(told); words;) {
      std::string word;
      words >> word;
      for (const auto* of : {"load", "to", "leave", "mark"})
        if (word.starts_with(of)) all += word + " ";
    }
    return all;
  }

  std::string told;
  std::string inPlayer;
  std::optional<PlayerPlace> place = PlayerPlace{4, 100};
  HeldStreams held{streams};
  PresumedFiles presumed{held};
  Editing onHeld{collection, settings, editor, presumed, files, boxes, folder, log, clock};
  EditorWindowState state;
  NotedPreview preview;
  EditorDesk desk{{state, window, onHeld, loop, history, list, listCommands, preview, presumed}, doors()};
};

TEST(EditorDesk, OpensBehindALookIntoTheFilesAndGivesBackWhatItBorrowed) {
  DeskBench b;
  b.settings.user.LoopPreviews = true;
  b.settings.adjust().AutoTrimAudio = false;
  b.collection.IniName = "Holiday.INI";
  {
    const std::lock_guard lock(b.held.held);
    b.desk.Form_Load();
    EXPECT_FALSE(b.state.analysing.visible) << "it may be done in a moment";
    b.loop.advance(300);
    EXPECT_TRUE(b.state.analysing.visible);
    EXPECT_FALSE(b.state.frame.toolsOn);
    EXPECT_EQ(b.state.frame.caption, "   Create New Movie from Holiday Collection");
    b.desk.restoreCaption();
    EXPECT_EQ(b.state.frame.caption, "   Create New movie from Holiday");
    b.loop.advance(65 * 500);
    EXPECT_TRUE(b.state.analysing.visible);
    b.loop.advance(500);
    EXPECT_FALSE(b.state.analysing.visible) << "its longest time";
    EXPECT_EQ(b.told, "");
  }
  b.open();
  EXPECT_EQ(b.told.substr(0, 9), "restore1 ");
  EXPECT_TRUE(b.boxes.shown.empty());
  EXPECT_TRUE(b.settings.state.KVOIsInEditMode);
  EXPECT_EQ(b.state.totals.lbl_VideoTotTime, "029.000");
  EXPECT_EQ(b.state.totals.Lbl_AudTotal, "030.000(s)");
  EXPECT_TRUE(b.state.totals.audioIsRed);
  EXPECT_EQ(b.state.stats.lbl_ClipStats, "Cut 1 Details");
  EXPECT_FALSE(isDirty(b.collection, b.settings)) << "nobody has changed anything";
  b.settings.user.LoopPreviews = false;
  b.told.clear();
  b.desk.Form_QueryUnload();
  EXPECT_EQ(b.told, "load1 ");
  EXPECT_FALSE(b.desk.isOpen());
  EXPECT_FALSE(b.settings.state.KVOIsInEditMode);
  EXPECT_TRUE(b.settings.user.LoopPreviews);
  EXPECT_EQ(b.tick(5), "") << "the watch stands";

  b.collection.MovieList.clear();
  b.list.fill();
  b.open();
  EXPECT_TRUE(b.boxes.shown.empty()) << "the window comes first";
  b.loop.advance(200);
  EXPECT_EQ(b.boxes.shown.back().caption + "|" + b.boxes.shown.back().text,
            "KVO - No Video Tracks|No Video Tracks found ?");
  b.desk.Form_QueryUnload();
  EXPECT_EQ(b.told.substr(b.told.size() - 6), "empty ");
  const CommandPass held(b.window);
  b.desk.Form_Load();
  EXPECT_FALSE(b.desk.isOpen()) << "another command runs";
}

TEST(EditorDesk, AnalysingShowsUnlessTheFastOpeningIsWanted) {
  for (const auto& [fast, there, shows] :
       {std::tuple{true, true, false}, {true, false, true}, {false, true, true}}) {
    DeskBench b;
    b.settings.adjust().KVOFastEdit = fast;
    if (there) b.files.all["/prog/PreviewDefaults.dat"] = "x";
    {
      const std::lock_guard lock(b.held.held);
      b.desk.Form_Load();
      b.loop.advance(300);
      EXPECT_EQ(b.state.analysing.visible, shows);
    }
    b.open();
    EXPECT_FALSE(b.state.analysing.visible);
  }
}

// The first time of a run only, with a command to play at each tick.
TEST(EditorDesk, AnalysingPlaysAFilmOfTheProgramFolderOnce) {
  DeskBench b;
  b.files.all["/prog/maybe.wmv"] = "x";
  for (const char* film : {"/prog/maybe.wmv", ""}) {
    {
      const std::lock_guard lock(b.held.held);
      b.desk.Form_Load();
      b.loop.advance(300 + 3 * 500);
      EXPECT_EQ(b.state.analysing.film, film);
      EXPECT_EQ(b.state.analysing.plays, 3);
    }
    b.open();
    b.desk.Form_QueryUnload();
    b.addVideo("another.avi", 0, 2);
  }
}

TEST(EditorDesk, AnalysingCanBeStoppedAndSaysWhatItHasNotLookedInto) {
  DeskBench b(7);
  for (auto& [path, facts] : b.streams.all) facts.hasAudio = true;
  const auto sounds = [&] {
    std::string heard;
    for (int i = 1; i <= 7; ++i) heard += b.clip(i).HasAudio() ? '1' : '0';
    return heard;
  };
  {
    const std::lock_guard lock(b.held.held);  // the first file does not answer
    b.desk.Form_Load();
    b.desk.stopAnalysing();
    b.loop.advance(1);
    EXPECT_TRUE(b.state.frame.toolsOn);
    ASSERT_EQ(b.boxes.shown.size(), 1U);
    EXPECT_EQ(b.boxes.shown[0].text,
              "9 of 9 clips have not been looked into. They are taken by their names, without their sound, "
              "until you choose them:\nfilm1.avi\nfilm2.avi\nfilm3.avi\nfilm4.avi\nfilm5.avi\n...");
    EXPECT_EQ(b.state.totals.lbl_VideoTotTime, "061.000") << "as their records have them";
    EXPECT_EQ(sounds(), "0000000");
    b.list.select(3);
    b.tick();
    EXPECT_EQ(sounds(), "0000000") << "nobody waits for it";
  }
  while (sounds()[2] == '0' && b.loop.workComesHome()) b.tick();
  EXPECT_EQ(sounds()[2], '1') << "it has been chosen";
  EXPECT_EQ(sounds()[4], '0');
  b.desk.stopAnalysing();
  EXPECT_EQ(b.boxes.shown.size(), 1U) << "nothing is under way";
  b.desk.Form_QueryUnload();
  b.open();
  EXPECT_EQ(sounds(), "1111111") << "the next opening looks at all";
}

// Which tab hears what, by the change code.
TEST(EditorDesk, TheWatchTellsTheOpenTab) {
  struct Row {
    int tab;
    Integer code;
    const char* told;
    int tabThen;
  };
  const Row rows[] = {{1, 1, "follow1 ", 1}, {1, 99, "anew1 ", 1}, {2, 1, "follow2 ", 2},
                      {2, 96, "anew2 ", 2},  {3, 97, "anew3 ", 3}, {4, 98, "anew4 ", 4},
                      {5, 1, "follow5 ", 5}, {6, 99, "anew6 ", 6}, {7, 1, "", 7},
                      {7, 96, "", 7},        {7, 98, "anew7 ", 7}, {3, 0, "", 3}};
  DeskBench b;
  b.open();
  for (const auto& row : rows) {
    b.desk.Buildtabs(row.tab);
    b.preview.asked.clear();
    EXPECT_EQ(b.changed(row.code), row.told) << row.tab << " " << row.code;
    EXPECT_EQ(b.settings.state.ObjectChange, 0);
    EXPECT_EQ(b.state.frame.CurrentTab, row.tabThen);
    EXPECT_EQ(b.preview.asked, row.tab == 7 && row.code == 98 ? "kill " : "");
  }
  b.desk.Buildtabs(4);
  b.list.select(5);
  EXPECT_EQ(b.tick(), "enter2 ") << "sound has no effects";
  EXPECT_EQ(b.tick(), "anew2 ") << "and the change is still to be followed";
  EXPECT_EQ(b.state.stats.lbl_ClipStats, "Cut 5 Details");
  b.list.select(2);
  EXPECT_EQ(b.tick(), "anew2 ") << "the main window has moved on";
  b.desk.watchChanges(false);
  EXPECT_EQ(b.changed(99), "") << "during a preview";
}

TEST(EditorDesk, TheWatchLooksAtTheMembership) {
  DeskBench b;
  b.open();
  b.desk.Buildtabs(4);
  b.listCommands.choose({1, 2, 3, 4}, 1);
  b.preview.plays = true;
  b.listCommands.Removeit();
  b.tick();
  EXPECT_EQ(b.state.frame.CurrentTab, 1) << "nothing has a picture";
  EXPECT_FALSE(b.preview.plays);
  b.desk.Buildtabs(3);
  b.listCommands.Removeit();
  EXPECT_EQ(b.tick(), "anew1 enter1 ");
  EXPECT_TRUE(b.state.nothingToPreview);
  EXPECT_EQ(b.state.totals.lbl_VideoTotTime + " " + b.state.totals.Lbl_AudTotal, "000.000 000.000(s)");
  EXPECT_EQ(b.state.stats.lbl_ClipStats, "");
  b.history.undo(2);
  b.tick();
  EXPECT_FALSE(b.state.nothingToPreview);
  EXPECT_EQ(b.state.totals.lbl_VideoTotTime, "029.000");
}

TEST(EditorDesk, TheOrderOfTheClipsIsCheckedAtOnceAndThenSeldom) {
  DeskBench b;
  b.listCommands.select(5);
  b.listCommands.moveTo(1);
  b.open();
  const auto boxes = [&] { return b.boxes.shown.size(); };
  b.tick(3);
  EXPECT_EQ(boxes(), 0U);
  b.tick();
  ASSERT_EQ(boxes(), 1U);
  EXPECT_TRUE(b.boxes.shown[0].text.find("<song.mp3>") != std::string::npos);
  b.tick(545);
  EXPECT_EQ(boxes(), 1U);
  b.clip(2).MovieName("speech.wav");
  {
    const CommandPass pass(b.window);  // a load or a save
    b.tick(5);
    EXPECT_EQ(boxes(), 1U) << "another command has the collection";
    EXPECT_EQ(b.clip(2).MovieHeight(), 480);
  }
  b.tick(5);
  EXPECT_EQ(boxes(), 2U) << "some 110 seconds later";
  EXPECT_EQ(b.clip(2).MovieHeight(), 0);
}

TEST(EditorDesk, BringsTheMainWindowToAClip) {
  DeskBench b;
  b.open();
  for (const auto& [clip, pause, plays, holds, told] : {std::tuple{2, true, false, true, "load2 "},
                                                        {2, true, false, true, "details2 "},
                                                        {2, false, false, true, "details2 pause "},
                                                        {2, true, true, true, ""},
                                                        {2, true, false, false, "load2 "},
                                                        {9, false, false, true, ""}}) {
    if (!holds) b.inPlayer = "/v/other.avi";
    b.preview.plays = plays;
    b.told.clear();
    b.desk.UpDateFrmFileOpen(clip, pause);
    EXPECT_EQ(b.told, told);
  }
}

TEST(EditorDesk, EveryKeyDoesItsWorkWhereItCan) {
  struct Row {
    ClipKey key;
    const char* film;  // what is told, or a step of the history
    const char* still;
  };
  const Row rows[] = {{ClipKey::SetIN, "to4 markIn ", ""},
                      {ClipKey::SetOUT, "to4 markOut ", ""},
                      {ClipKey::ResetIN, "to4 slider resetIn ", ""},
                      {ClipKey::ResetOUT, "to4 slider resetOut ", ""},
                      {ClipKey::Split, "to4 to4 load2 Undo split film1.avi", ""},
                      {ClipKey::Copy, "to4 load2 Undo copy film1.avi", "load5 Undo copy photo.jpg"},
                      {ClipKey::CopyEnd, "to4 load2 Undo copy film1.avi", ""},
                      {ClipKey::Equi, "to4 load2 Undo copy film1.avi", ""},
                      {ClipKey::Trimmer, "to4 stop trimmer ", ""},
                      {ClipKey::AddSnapShot, "to4 halt ", ""}};
  for (const auto& row : rows) {
    for (const int clip : {1, 4}) {
      DeskBench b;
      b.open();
      b.list.select(clip);
      b.desk.follow();
      if (clip == 1) b.desk.movieStands(4);
      b.told.clear();
      b.desk.press(row.key);
      EXPECT_EQ(b.told + b.window.history.undo, clip == 1 ? row.film : row.still)
          << static_cast<int>(row.key);
    }
  }
  DeskBench b;
  b.open();
  b.desk.follow();
  b.inPlayer.clear();
  b.told.clear();
  b.desk.press(ClipKey::ResetIN);
  EXPECT_EQ(b.told, "to0 slider load1 resetIn ") << "the player was empty";
  b.place.reset();
  b.desk.ShowClipStats();
  EXPECT_NE(b.state.keys.of(ClipKey::Split), "");
  EXPECT_NE(b.state.keys.of(ClipKey::CopyEnd), "") << "an empty player does not tell where it stands";
  EXPECT_EQ(b.state.keys.of(ClipKey::Equi), "");
  b.desk.FrmFileOpenToolsOnOff(false);
  for (const auto& whyNot : b.state.keys.whyNot) EXPECT_EQ(whyNot, "Stop the preview first");
  b.desk.FrmFileOpenToolsOnOff(true);
  EXPECT_EQ(b.state.keys.of(ClipKey::Copy), "");
  b.told.clear();
  b.desk.saveAgain();
  b.desk.saveProject();
  b.collection.clearLists();
  b.list.fill();
  b.desk.ShowClipStats();
  EXPECT_EQ(b.state.frame.saveOffBecause, "There is nothing to save");
  b.desk.saveAgain();
  EXPECT_EQ(b.told.substr(0, 12), "save saveAs ");
}

TEST(EditorDesk, ADraggedSliderIsOneStepAndTimesTheMovieWhenItIsLetGo) {
  DeskBench b;
  b.open();
  b.tick();
  b.desk.hold(true);
  for (const int value : {90, 70, 50}) {
    b.desk.moveRate(value);
    b.loop.advance(1500);  // however long the hand pauses
  }
  EXPECT_EQ(b.clip(1).Playspeed(), 5);
  EXPECT_EQ(b.state.sliders.Sld_Rate.heading, "Clip Speed - 0.50x");
  EXPECT_EQ(b.settings.state.ObjectChange, 0);
  EXPECT_EQ(b.state.totals.lbl_VideoTotTime, "029.000");
  b.desk.hold(false);
  b.desk.letGoRate();
  b.tick();
  EXPECT_EQ(b.state.totals.lbl_VideoTotTime, "037.000");
  b.desk.hold(true);
  b.desk.moveLevel(0);
  EXPECT_EQ(b.state.sliders.Sld_AudioOut.heading, "Clip Audio Level in Movie - Muted");
  b.desk.moveLevel(8);
  EXPECT_EQ(b.state.sliders.Sld_AudioOut.heading, "Clip Audio Level in Movie - 80%");
  EXPECT_EQ(b.window.history.done, (std::vector<std::string>{"Speed on film1.avi", "Level on film1.avi"}));
  b.desk.hold(false);
  b.desk.moveLevel(9);
  b.desk.moveLevel(10);
  EXPECT_EQ(b.window.history.done.size(), 4U) << "with nothing held each is a step";
  b.history.undo(4);
  b.tick();
  EXPECT_EQ(b.clip(1).Playspeed(), 10);
  EXPECT_EQ(b.state.totals.lbl_VideoTotTime, "029.000");
  b.list.select(4);
  b.desk.moveRate(50);
  EXPECT_EQ(b.clip(4).Playspeed(), 10) << "a still has no speed";
}

TEST(EditorDesk, WhatWritesInsideAnEditIsPartOfIt) {
  DeskBench b;
  const auto inner = [&] { return b.desk.edit("Inner", 1, 98, [&] { b.clip(1).TransIn(7); }); };
  EXPECT_TRUE(b.desk.edit("Outer", 2, 1, [&] { EXPECT_TRUE(inner()); }));
  EXPECT_EQ(b.window.history.done, std::vector<std::string>{"Outer on film2.avi"});
  b.window.progress.status = "Loading";
  EXPECT_FALSE(inner());
}

TEST(EditorDesk, WhatTheMovieIsMadeWithIsInTheHistoryToo) {
  DeskBench b;
  OverlayTab overlay;
  AudioTab audio;
  for (auto& value : valuesBeside(b.editing, overlay)) b.history.alsoKeep(std::move(value));
  const auto all = [&] {
    const auto& preferences = b.settings.preferences();
    return std::string(preferences.ExternalAudioStack ? "row " : "") +
           (preferences.RenderVideoAudio ? "own " : "") + (overlay.overlaySound.ticked ? "over " : "") +
           (overlay.backdropSound.ticked ? "back " : "") + ShortText(b.settings.state.DefaultStillDuration) +
           " " + b.editor.effects.named("Chrome")->Control[2];
  };
  const auto first = all();
  chooseOverlayOrder(b.onHeld, audio, b.desk, OverlayOrder::Stacked);
  tickRenderClipAudio(b.onHeld, audio, b.desk, false);
  for (auto* sound : {&overlay.overlaySound, &overlay.backdropSound})
    b.desk.edit("Sound", 1, 0, [&] { sound->ticked = true; });
  b.desk.edit("Still duration", 0, 98, [&] { b.settings.state.DefaultStillDuration = 2.5F; });
  b.desk.edit("Chrome", 1, 0, [&] { b.editor.effects.named("Chrome")->Control[2] = "44"; });
  EXPECT_EQ(all(), "over back 2.5 44");
  EXPECT_EQ(b.window.history.done.size(), 6U);
  EXPECT_EQ(b.window.history.done[1], "Clips' own audio off");
  b.history.undo(6);
  EXPECT_EQ(all(), first);
  b.history.redo(6);
  EXPECT_EQ(all(), "over back 2.5 44");
}

TEST(EditorDesk, WritesTheEffectsTableWhenItClosesWithAnother) {
  const std::string path = "/prog/EffectParams.dat";
  DeskBench b;
  const auto value = [](DeskBench& of) -> std::string& {
    return of.editor.effects.named("Chrome")->Control[2];
  };
  b.open();
  const auto first = b.files.all[path];
  b.desk.Form_QueryUnload();
  EXPECT_EQ(b.files.all[path], first) << "nothing has changed";
  b.open();
  value(b) = "44";
  b.files.failedReplaces = 1;
  b.desk.Form_QueryUnload();
  EXPECT_EQ(b.files.all[path], first);
  b.open();
  EXPECT_EQ(value(b), "44") << "it lives as long as the run, also where the disk does not take it";
  b.desk.Form_QueryUnload();
  DeskBench next;
  next.files.all[path] = b.files.all[path];
  {
    const std::lock_guard lock(next.held.held);
    next.desk.Form_Load();
    next.desk.Form_QueryUnload();
    EXPECT_EQ(next.files.all[path], b.files.all[path]) << "the table has not been read yet";
  }
  next.open();
  EXPECT_EQ(value(next), "44");
}

TEST(EditorDesk, TakesASnapshotAsAClipOfItsOwn) {
  DeskBench b;
  b.settings.adjust().StillSavePath = "/stills";
  b.streams.all["/v/film1.avi"].width = 2;
  b.streams.all["/v/film1.avi"].height = 2;
  b.open();
  b.desk.movieStands(4);
  b.told.clear();
  b.desk.press(ClipKey::AddSnapShot);
  ASSERT_TRUE(b.loop.workComesHome());
  const std::string path = "/stills/film1 - f00100 - Still.bmp";
  EXPECT_EQ(b.told, "load1 to4 halt add" + path + " ahead of 5 ") << "the song stays behind the pictures";
  EXPECT_EQ(b.files.all[path].size(), 54U + 2 * 8) << "rows are filled to four bytes";
  EXPECT_EQ(b.files.all[path].substr(54, 8), std::string("\4\4\4\4\4\4\0\0", 8));
  b.settings.adjust().StillSavePath.clear();
  b.told.clear();
  b.desk.press(ClipKey::AddSnapShot);
  ASSERT_TRUE(b.loop.workComesHome());
  EXPECT_NE(b.told.find("add" + b.folder.beside("\\ExtractedFrames/film1 - f")), std::string::npos) << b.told;
  b.streams.all.erase("/v/film1.avi");
  b.desk.press(ClipKey::AddSnapShot);
  ASSERT_TRUE(b.loop.workComesHome());
  EXPECT_EQ(b.boxes.shown.back().text, "cannot open /v/film1.avi");

  Movie clip;
  for (const auto* name :
       {"a.wav", "a.MP3", "a.jpg", "a.BMP", "a.m1v", "a.au", "a.mid", "a.aiff", "a.iff", "a.jpeg"}) {
    clip.MovieName(name);
    clip.MovieHeight(10);
    EXPECT_FALSE(hasSnapshot(clip)) << name;
  }
  clip.MovieName("a.b.mp4");
  EXPECT_TRUE(hasSnapshot(clip));
  EXPECT_EQ(snapshotName(clip, 7), "a.b - f00007 - Still.bmp");
  clip.MovieHeight(0);
  EXPECT_FALSE(hasSnapshot(clip)) << "no size at all";
}

TEST(FileWatch, TellsOfFilesThatGoAndComeBack) {
  test::VirtualLoop loop;
  test::MemoryFiles files;
  files.all = {{"/v/a.avi", "a"}, {"/v/b.avi", "b"}};
  std::vector<std::string> told;
  FileWatch watch(
      loop, files,
      [] {
        return FileWatch::Paths{"/v/a.avi", "/v/b.avi"};
      },
      [&](const auto& paths) {
        told.push_back(std::to_string(paths.size()) + (paths.empty() ? "" : *paths.begin()));
      });
  watch.watch(true);
  ASSERT_TRUE(loop.workComesHome());
  EXPECT_TRUE(told.empty()) << "all are there";
  const auto lookUntilTold = [&](std::size_t count) {
    loop.advance(1502);  // one look
    for (int i = 0; i < 2000 && told.size() < count; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      loop.advance(0);
    }
  };
  files.all.erase("/v/b.avi");
  lookUntilTold(1);
  files.all["/v/b.avi"] = "b";
  lookUntilTold(2);
  files.all.clear();
  lookUntilTold(3);
  watch.watch(false);
  EXPECT_EQ(told, (std::vector<std::string>{"1/v/b.avi", "0", "2/v/a.avi", "0"})) << "at last nobody looks";
}

TEST(ClipStats, TellWhatTheRecordHas) {
  DeskBench b;
  auto& clip = b.clip(2);
  clip.LoopStart(Value(2));
  clip.LoopEnd(Value(7.5));
  clip.Playspeed(5);
  clip.TimeLineStart(Value(6));
  clip.TimeLineStop(Value(14.4));
  clip.TransType("Dissolve");
  clip.TransIn(20);
  clip.EffectWord("0010");
  clip.AudioOutputLevel(0.8F);
  const auto all = [](const ClipStats& s) {
    return s.lbl_ClipStats + "|" + s.clipName + "|" + s.Lbl_FrameDets + "|" + s.Lbl_Durdets + "|" +
           s.Lbl_Timelinedets + "|" + s.Lbl_Speeddets + "|" + s.Lbl_Framratedets + "|" + s.Lbl_Transdets +
           "|" + s.Lbl_EffectDets + "|" + s.Lbl_AudioDets;
  };
  EXPECT_EQ(all(clipStats(b.editing, 2, false)),
            "Cut 2 Details|film2.avi|50 to 188|11.000 (s)|6.00 - 14.40 (s) |0.5x Speed|25.00 fps|"
            "Dissolve over 2.0 (s)|Effects applied|80%");
  b.clip(4).Resolution("N/A");
  EXPECT_EQ(all(clipStats(b.editing, 4, true)),
            "Previewing - Cut 4|photo.jpg|N/A|5.000 (s)|0.00 - 0.00 (s)|N/A|N/A|N/A|No Effects|N/A");
  for (const bool plays : {true, false}) {
    b.preview.plays = plays;
    b.desk.Displaymovieinfo();
    EXPECT_EQ(b.state.stats.lbl_ClipStats, plays ? "Previewing - Cut 1" : "Cut 1 Details");
  }
}

// The second film plays twice as fast: the clips begin at 0, 8, 12 and 20 s of the movie.
TEST(Playhead, ClipPictureAndPlayerAreAtOnePlace) {
  struct Row {
    const char* what;
    void (*act)(DeskBench&);
    int clip;  // in hand
    double inMovie, inClip;
    const char* does;  // what is loaded, where the player is sent, what the preview is told
  };
  const Row rows[] = {
      {"the ruler", [](auto& b) { b.desk.movieStands(10); }, 2, 10, 4, "load2 to4 "},
      {"a drag over it", [](auto& b) { b.desk.movieStands(7), b.desk.movieStands(13); }, 3, 13, 1,
       "load3 to1 "},
      {"a still", [](auto& b) { b.desk.movieStands(22); }, 4, 22, 2, "load4 "},
      {"behind the pictures", [](auto& b) { b.desk.movieStands(28); }, 4, 28, 5, "load4 "},
      {"a clip is chosen", [](auto& b) { b.list.PreviewMovie(3); }, 3, 12, 0, "load3 to0 "},
      {"a tab's list", [](auto& b) { b.desk.UpDateFrmFileOpen(2, true); }, 2, 8, 0, "load2 to0 "},
      {"it lies at the playhead",
       [](auto& b) {
         b.desk.movieStands(10), b.list.select(1), b.desk.follow(), b.desk.movieStands(9),
             b.list.PreviewMovie(2);
       },
       2, 9, 2, "load2 load2 to2 "},
      {"the wheel", [](auto& b) { b.desk.jog(50); }, 1, 2, 2, "to0 leave "},
      {"the wheel in a fast clip", [](auto& b) { b.desk.movieStands(10), b.desk.jog(-50); }, 2, 9, 2,
       "load2 to4 leave "},
      {"the wheel in a still", [](auto& b) { b.list.PreviewMovie(4), b.desk.jog(50); }, 4, 22, 2,
       "load4 leave "},
      {"a mark",
       [](auto& b) {
         b.desk.movieStands(6), b.desk.edit("Mark-In", 1, 96, [&] { b.clip(1).LoopStart(Value(2)); });
       },
       1, 4, 6, "to6 "},
      {"a key", [](auto& b) { b.desk.movieStands(10), b.desk.press(ClipKey::SetIN); }, 2, 10, 4,
       "load2 to4 markIn to4 "},
      {"the positioner",
       [](auto& b) {
         b.window.positions.positioner.visible = true, b.place = PlayerPlace{5, 125};
       },
       1, 5, 5, "leave "},
      {"the movie plays", [](auto& b) { b.preview.plays = true, b.desk.selectRow(3), b.desk.jog(5); }, 3, 0,
       0, ""},
      {"the movie is about to play",
       [](auto& b) { b.desk.movieStands(10), b.desk.follow(), b.desk.selectRow(1); }, 1, 10, 4, ""},
      {"no clip", [](auto& b) { b.desk.movieStands(10), b.collection.clearLists(), b.list.fill(); }, 0, 0, 0,
       ""},
  };
  for (const auto& row : rows) {
    DeskBench b;
    b.clip(2).Playspeed(20);
    b.open();
    b.desk.follow();
    b.tick();
    b.told.clear();
    b.preview.does = &b.told;
    row.act(b);
    for (int i = 0; i < 2; ++i) {
      b.desk.follow();
      b.loop.advance(200);
    }
    b.desk.follow();
    EXPECT_EQ(b.collection.icurMov, row.clip) << row.what;
    EXPECT_NEAR(b.desk.playhead().inMovie(), row.inMovie, 1e-6) << row.what;
    EXPECT_NEAR(b.desk.playhead().inClip(), row.inClip, 1e-6) << row.what;
    EXPECT_EQ(b.moves(), row.does) << row.what;
    EXPECT_TRUE(b.preview.plays || b.preview.at == b.desk.playhead().inMovie()) << row.what;
  }
}

TEST(Playhead, AnotherClipBelowItLeavesThePictureAlone) {
  DeskBench b;
  b.open();
  b.desk.Buildtabs(7);
  b.preview.asked.clear();
  b.desk.movieStands(10);
  EXPECT_EQ(b.state.stats.lbl_ClipStats, "Cut 2 Details") << "at once";
  EXPECT_NE(b.tick().find("anew7"), std::string::npos);
  EXPECT_EQ(b.preview.asked, "");
  b.list.PreviewMovie(3);
  b.tick();
  EXPECT_EQ(b.preview.asked, "kill ") << "it has been chosen";
}

// Each wish of the timeline is one step, as the lists' own commands would have made it.
TEST(TimelineDesk, CarriesOutWhatTheHandDoes) {
  struct Row {
    const char* step;
    void (*act)(TimelineDesk&);
    std::string names;
  };
  const Row rows[] = {
      {"move film3.avi", [](TimelineDesk& desk) { desk.moveTo(3, 1); }, "312ps"},
      {"Mark-Out on film2.avi",
       [](TimelineDesk& desk) {
         desk.setMark({2, ClipEdge::Out, 6, 150});
       },
       "123ps"},
      {"Transition on film2.avi",
       [](TimelineDesk& desk) {
         desk.setTransIn({2, 10});
       },
       "123ps"},
      {"Fade on song.mp3",
       [](TimelineDesk& desk) {
         desk.setFade({5, ClipEdge::In, 10});
       },
       "123ps"},
      {"remove film2.avi", [](TimelineDesk& desk) { desk.remove(2); }, "13ps"},
      {"copy film2.avi", [](TimelineDesk& desk) { desk.copy(2); }, "1223ps"},
      {"split film2.avi", [](TimelineDesk& desk) { desk.split(2); }, "1223ps"},
      {"add a.avi",
       [](TimelineDesk& desk) {
         desk.insertFiles({"/v/x.mp3", "/v/a.avi"}, 2);
       },
       "1a23psx"},
      {"add 2 clips", [](TimelineDesk& desk) { desk.insertFiles({"/f"}, 2); }, "1ac23psb"},
      {"",
       [](TimelineDesk& desk) {
         desk.setTransIn({9, 10}), desk.split(9), desk.moveTo(0, 1);
       },
       "123ps"},
  };
  for (const auto& row : rows) {
    DeskBench b;
    for (const auto* name : {"/v/x.mp3", "/v/a.avi", "/f/a.avi", "/f/b.mp3", "/f/c.avi"})
      b.files.all[name] = "x";
    TimelineDesk desk({b.desk, b.onHeld, b.listCommands, b.mailbox}, {});
    b.clip(2).TimeLineStart(Value(8));
    b.clip(2).TimeLineStop(Value(16));
    b.desk.movieStands(11);
    row.act(desk);
    std::string names;
    for (int i = 1; i <= b.collection.MovieList.count(); ++i) {
      const auto& name = b.clip(i).MovieName();
      names += name.starts_with("film") ? name[4] : name[0];
    }
    EXPECT_EQ(names, row.names) << row.step;
    EXPECT_EQ(b.window.history.done,
              *row.step == 0 ? std::vector<std::string>() : std::vector<std::string>{row.step});
    b.history.undo();
    EXPECT_EQ(b.collection.MovieList.count(), 5) << row.step;
  }
}

TEST(TimelineDesk, EachDragIsAStepAndKeysThatAreHeldAreOne) {
  DeskBench b;
  TimelineDesk desk({b.desk, b.onHeld, b.listCommands, b.mailbox}, {});
  desk.setTransIn({2, 10});
  desk.setTransIn({2, 12});
  desk.setMark({2, ClipEdge::Out, 4, 100});
  b.desk.hold(true);
  desk.setMark({2, ClipEdge::Out, 3.96, 99});
  desk.setMark({2, ClipEdge::Out, 3.92, 98});
  b.desk.hold(false);
  EXPECT_EQ(b.window.history.done.size(), 4U);
}

TEST(TimelineDesk, AStillKeepsTheLengthThatItWasDraggedTo) {
  DeskBench b;
  b.addVideo("second.jpg", 0, 5).IsStill(true);
  TimelineDesk desk({b.desk, b.onHeld, b.listCommands, b.mailbox}, {});
  StillsTab tab;
  restoreStills(b.editing, tab);
  const auto previewed = [&] {
    EXPECT_TRUE(CreatePreview(b.editing, stillControls(b.editing, tab)));
    return b.clip(4).LoopEnd().text() + " " + b.clip(6).LoopEnd().text() +
           (b.settings.preferences().StillsIndividual ? " one by one" : "");
  };
  EXPECT_EQ(previewed(), "5 5");
  desk.setMark({4, ClipEdge::Out, 3.2, 0});
  EXPECT_EQ(previewed(), "3.2 5 one by one");
  EXPECT_EQ(b.window.history.done.size(), 1U);
  b.history.undo(1);
  EXPECT_EQ(previewed(), "5 5");
}

}  // namespace
}  // namespace kvo
