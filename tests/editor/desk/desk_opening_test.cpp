// How the editor opens and closes, and the look into the files of its clips.
#include "editor/desk/desk_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::DeskBench;

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

}  // namespace
}  // namespace kvo
