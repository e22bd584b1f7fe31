// What the tabs of the open editor have in common.
#include "editor/desk/clip_stats.h"
#include "editor/desk/desk_bench.h"
#include "editor/desk/file_watch.h"
#include "editor/desk/snapshot.h"
#include "editor/desk/values_beside.h"
#include "editor/tabs/audio_tab.h"
#include "support/rows.h"

#include <chrono>
#include <thread>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::DeskBench;
using test::OpenDesk;
using test::Rows;

// Which tab hears what, by the change code.
TEST(EditorDesk, TheWatchTellsTheOpenTab) {
  const struct {
    int tab;
    Integer code;
    const char* told;
  } rows[] = {{1, 1, "follow1 "}, {1, 99, "anew1 "},  {2, 96, "anew2 "}, {3, 97, "anew3 "},
              {4, 98, "anew4 "},  {5, 1, "follow5 "}, {6, 99, "anew6 "}, {7, 1, ""},
              {7, 96, ""},        {7, 98, "anew7 "},  {3, 0, ""}};
  OpenDesk b;
  for (const auto& row : rows) {
    b.desk.Buildtabs(row.tab);
    b.preview.asked.clear();
    EXPECT_EQ(b.changed(row.code), row.told) << row.tab << " " << row.code;
    EXPECT_EQ(b.state.frame.CurrentTab, row.tab);
    EXPECT_EQ(b.preview.asked, row.tab == 7 && row.code == 98 ? "kill " : "");
  }
  b.desk.Buildtabs(4);
  b.list.select(5);
  EXPECT_EQ(b.tick(), "enter2 ") << "sound has no effects";
  EXPECT_EQ(b.tick(), "anew2 ") << "and the change is still to be followed";
  b.list.select(2);
  EXPECT_EQ(b.tick(), "anew2 ") << "the main window has moved on";
  b.list.select(1);
  b.desk.ShowClipStats();
  EXPECT_EQ(b.tick(), "anew2 ") << "though a sample that plays has had its details shown";
  EXPECT_EQ(b.tick(), "") << "once";
  b.desk.watchChanges(false);
  EXPECT_EQ(b.changed(99), "") << "during a preview";
}

TEST(EditorDesk, TheWatchLooksAtTheMembership) {
  OpenDesk b;
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
  EXPECT_EQ(b.totals(), "000.000 000.000(s)");
  b.history.undo(2);
  b.tick();
  EXPECT_FALSE(b.state.nothingToPreview);
  EXPECT_EQ(b.totals(), "029.000 029.000(s)");
}

TEST(EditorDesk, EveryKeyDoesItsWorkWhereItCan) {
  for (const auto& [key, film, still] : Rows<ClipKey, const char*, const char*>{
           {ClipKey::SetIN, "to4 markIn ", ""},
           {ClipKey::SetOUT, "to4 markOut ", ""},
           {ClipKey::ResetIN, "to4 slider resetIn ", ""},
           {ClipKey::ResetOUT, "to4 slider resetOut ", ""},
           {ClipKey::Split, "to4 to4 load2 Undo split film1.avi", ""},
           {ClipKey::Copy, "to4 load2 Undo copy film1.avi", "load5 Undo copy photo.jpg"},
           {ClipKey::CopyEnd, "to4 load2 Undo copy film1.avi", ""},
           {ClipKey::Equi, "to4 load2 Undo copy film1.avi", ""},
           {ClipKey::Trimmer, "to4 stop trimmer ", ""},
           {ClipKey::AddSnapShot, "to4 halt ", ""}}) {
    for (const int clip : {1, 4}) {
      OpenDesk b;
      b.list.select(clip);
      b.desk.follow();
      if (clip == 1) b.desk.movieStands(4);
      const auto told = b.toldOf([&b, pressed = key] { b.desk.press(pressed); });
      EXPECT_EQ(told + b.window.history.undo, clip == 1 ? film : still) << static_cast<int>(key);
    }
  }
  OpenDesk b;
  b.desk.follow();
  b.inPlayer.clear();
  EXPECT_EQ(b.toldOf([&] { b.desk.press(ClipKey::ResetIN); }), "to0 slider load1 resetIn ")
      << "the player was empty";
  b.place.reset();
  b.desk.ShowClipStats();
  for (const auto key : {ClipKey::Split, ClipKey::CopyEnd})
    EXPECT_NE(b.state.keys.of(key), "") << "an empty player does not tell where it stands";
  EXPECT_EQ(b.state.keys.of(ClipKey::Equi), "");
  b.desk.FrmFileOpenToolsOnOff(false);
  for (const auto& whyNot : b.state.keys.whyNot) EXPECT_EQ(whyNot, "Stop the preview first");
  EXPECT_EQ(b.state.frame.whyNoSave(), "Stop the preview first");
  b.desk.FrmFileOpenToolsOnOff(true);
  EXPECT_EQ(b.state.keys.of(ClipKey::Copy), "");
}

TEST(EditorDesk, SavesWhatThereIs) {
  OpenDesk b;
  b.told.clear();
  b.collection.IniName = "Holiday.INI";
  for (const auto& said : {b.desk.saveAgain(), b.desk.saveProject()}) EXPECT_EQ(said, "Saved as Holiday.INI");
  b.saves = false;
  EXPECT_EQ(b.desk.saveAgain(), "") << "the box has told why not";
  EXPECT_EQ(b.told, "save saveAs save ");
  b.collection.clearLists();
  b.list.fill();
  b.desk.ShowClipStats();
  EXPECT_EQ(b.state.frame.whyNoSave(), "There is nothing to save");
  b.desk.saveAgain();
  EXPECT_EQ(b.told.find("save", 17), std::string::npos) << b.told;
}

TEST(EditorDesk, ADraggedSliderIsOneStepAndTimesTheMovieWhenItIsLetGo) {
  OpenDesk b;
  b.tick();
  b.desk.hold(true);
  for (const int value : {90, 70, 50}) {
    b.desk.moveRate(value);
    b.loop.advance(1500);  // however long the hand pauses
  }
  EXPECT_EQ(b.state.sliders.Sld_Rate.heading, "Clip Speed - 0.50x");
  EXPECT_EQ(b.state.totals.lbl_VideoTotTime, "029.000");
  b.desk.hold(false);
  b.desk.letGoRate();
  b.tick();
  EXPECT_EQ(b.state.totals.lbl_VideoTotTime, "037.000");
  b.desk.hold(true);
  for (const auto& [level, reads] : {std::pair{0, "Muted"}, {8, "80%"}}) {
    b.desk.moveLevel(level);
    EXPECT_EQ(b.state.sliders.Sld_AudioOut.heading, std::string("Clip Audio Level in Movie - ") + reads);
  }
  EXPECT_EQ(b.window.history.done, (std::vector<std::string>{"Speed on film1.avi", "Level on film1.avi"}));
  b.desk.hold(false);
  for (const int level : {9, 10}) b.desk.moveLevel(level);
  EXPECT_EQ(b.window.history.done.size(), 4U) << "with nothing held each is a step";
  b.history.undo(4);
  b.tick();
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
  auto& chrome = b.editor.effects.named("Chrome")->Control[2];
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
  b.desk.edit("Chrome", 1, 0, [&] { chrome = "44"; });
  b.history.undo(6);
  EXPECT_EQ(all(), first);
  b.history.redo(6);
  EXPECT_EQ(all(), "over back 2.5 44");
}

TEST(EditorDesk, TakesASnapshotAsAClipOfItsOwn) {
  DeskBench b;
  b.settings.adjust().StillSavePath = "/stills";
  auto& film = b.streams.all["/v/film1.avi"];
  film.width = film.height = 2;
  b.open();
  const auto snap = [&] {
    b.desk.press(ClipKey::AddSnapShot);
    ASSERT_TRUE(b.loop.workComesHome());
  };
  b.desk.movieStands(4);
  const std::string path = "/stills/film1 - f00100 - Still.bmp";
  EXPECT_EQ(b.toldOf(snap), "load1 to4 halt add" + path + " ahead of 5 ")
      << "the song stays behind the pictures";
  EXPECT_EQ(b.files.all[path].size(), 54U + 2 * 8) << "rows are filled to four bytes";
  EXPECT_EQ(b.files.all[path].substr(54, 8), std::string("\4\4\4\4\4\4\0\0", 8));
  b.settings.adjust().StillSavePath.clear();
  EXPECT_TRUE(test::holds(b.toldOf(snap), "add" + b.folder.beside("\\ExtractedFrames/film1 - f")));
  b.streams.all.erase("/v/film1.avi");
  snap();
  EXPECT_EQ(b.boxes.shown.back().text, "cannot open /v/film1.avi");

  Movie clip;
  clip.MovieHeight(10);
  for (const auto* name :
       {"a.wav", "a.MP3", "a.jpg", "a.m1v", "a.au", "a.mid", "a.aiff", "a.iff", "a.jpeg"}) {
    clip.MovieName(name);
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
}

TEST(EditorDesk, OpensBehindALookIntoTheFilesAndGivesBackWhatItBorrowed) {
  DeskBench b;
  b.settings.user.LoopPreviews = true;
  b.settings.adjust().AutoTrimAudio = false;
  b.collection.IniName = "Holiday.INI";
  {
    const std::lock_guard lock(b.streams.held);
    b.desk.Form_Load();
    EXPECT_FALSE(b.state.analysing.visible) << "it may be done in a moment";
    b.loop.advance(300);
    EXPECT_TRUE(b.state.analysing.visible && !b.state.frame.toolsOn);
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
  EXPECT_TRUE(b.boxes.shown.empty() && b.settings.state.KVOIsInEditMode);
  EXPECT_EQ(b.totals() + ", " + b.state.stats.lbl_ClipStats, "029.000 030.000(s) red, Cut 1 Details");
  EXPECT_FALSE(isDirty(b.collection, b.settings)) << "nobody has changed anything";
  b.settings.user.LoopPreviews = false;
  EXPECT_EQ(b.toldOf([&] { b.desk.Form_QueryUnload(); }), "load1 ");
  EXPECT_FALSE(b.desk.isOpen() || b.settings.state.KVOIsInEditMode);
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

TEST(EditorDesk, AnalysingCanBeStoppedAndSaysWhatItHasNotLookedInto) {
  DeskBench b(7);
  for (auto& [path, facts] : b.streams.all) facts.hasAudio = true;
  const auto sounds = [&] {
    std::string heard;
    for (int i = 1; i <= 7; ++i) heard += b.clip(i).HasAudio() ? '1' : '0';
    return heard;
  };
  {
    const std::lock_guard lock(b.streams.held);  // the first file does not answer
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
    const std::lock_guard lock(next.streams.held);
    next.desk.Form_Load();
    next.desk.Form_QueryUnload();
    EXPECT_EQ(next.files.all[path], b.files.all[path]) << "the table has not been read yet";
  }
  next.open();
  EXPECT_EQ(value(next), "44");
}

}  // namespace
}  // namespace kvo
