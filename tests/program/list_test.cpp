// What can be done to the list, and undone.
#include "base/text.h"
#include "program/clip_texts.h"
#include "program/list_commands.h"
#include "support/program_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::ProgramBench;
using Numbers = std::vector<int>;

struct WholeList : ProgramBench {
  /// Everything that a change of the list can change, on one line.
  std::string all() {
    std::string text = std::to_string(collection.icurMov) + ":";
    for (int i = 1; i <= collection.MovieList.count(); ++i) {
      const auto& c = clip(i);
      text += " " + c.MovieName() + "|" + c.AltName() + "|" + c.LoopStart().text() + "-" +
              c.LoopEnd().text() + "|" + std::to_string(c.LoopEndFrames()) + "|" +
              std::to_string(percentOf(c.Volume()));
    }
    for (int i = 1; i <= collection.KeyframeList.count(); ++i)
      text += " k" + std::to_string(collection.KeyframeList[i].ClipName);
    return text;
  }
};

/// Five clips that are played whole; the fourth has two of the three keyframes.
struct ListBench : WholeList {
  ListBench() {
    start({"a.avi", "B.avi", "c.mpg", "d.avi", "e.avi"});
    for (int i = 1; i <= 5; ++i) clip(i).LoopEnd(Value(10));
    for (const Long owner : {4, 2, 4}) collection.KeyframeList.add({}).ClipName = owner;
    makeEven();
    files.put({"/v/new.avi", "/v/o.avi"});
  }
};

TEST(History, TakesBackWhateverIsDoneToTheList) {
  using List = ListCommands;
  constexpr auto kTurnsDown = [](List& list) {
    for (const int volume : {90, 70}) list.setVolume(volume);
  };
  // Which are chosen, what is done to them, what can be undone ("": nothing has changed), and how they begin.
  const std::tuple<Numbers, void (*)(List&), const char*, std::string> rows[] = {
      {{2, 4}, [](List& list) { list.Removeit(); }, "Undo remove 2 clips", "ace"},
      {{5}, [](List& list) { list.Removeit(); }, "Undo remove e.avi", "aBcd"},
      {{1, 2, 3, 4, 5}, [](List& list) { list.Removeit(); }, "Undo remove 5 clips", ""},
      {{3}, [](List& list) { list.moveUp(); }, "Undo move c.mpg", "acBde"},
      {{4, 5}, [](List& list) { list.moveDown(); }, "", "aBcde"},
      {{3, 5}, [](List& list) { list.moveTo(1); }, "Undo move 2 clips", "ceaBd"},
      {{2}, [](List& list) { list.sort(SortKey::FileType); }, "Undo sort by type", "aBdec"},
      {{1}, [](List& list) { list.sort(SortKey::Alpha); }, "", "aBcde"},
      {{2}, [](List& list) { list.rename(" Lake\nat dusk "); }, "Undo rename B.avi", "aLcde"},
      {{2}, [](List& list) { list.rename("B.avi"); }, "", "aBcde"},
      {{3}, kTurnsDown, "Undo volume of c.mpg", "aBcde"},
      {{2}, [](List& list) { list.copy(CopyMode::Exact); }, "Undo copy B.avi", "aBBcde"},
      {{2}, [](List& list) { list.copy(CopyMode::Tail); }, "", "aBcde"},
  };
  for (const auto& [chosen, act, undo, names] : rows) {
    SCOPED_TRACE(undo);
    ListBench b;
    b.listCommands.choose(chosen, chosen.front());
    const auto before = b.all();
    const auto revision = b.window.list.Fillist.revision();
    act(b.listCommands);
    const auto after = b.all();
    const bool changed = *undo != 0;
    EXPECT_EQ(b.initials() + b.window.history.undo, names + undo);
    EXPECT_EQ(before != after, changed);
    EXPECT_EQ(b.dirty(), changed);
    EXPECT_EQ(b.window.list.Fillist.revision() != revision, names != "aBcde");
    EXPECT_EQ(b.window.emptyPane.visible, names.empty());
    EXPECT_EQ(b.settings.state.ObjectChange > 0, changed && !holdsText(undo, "volume"));
    b.history.undo();
    EXPECT_EQ(b.initials() + b.window.history.undo, "aBcde");
    EXPECT_EQ(b.all(), before);
    EXPECT_EQ(b.window.list.chosen, chosen);
    EXPECT_FALSE(b.dirty()) << "it leads back to what is saved";
    b.history.redo();
    EXPECT_EQ(b.all() + b.window.history.undo, after + undo);
    EXPECT_EQ(b.dirty(), changed);
  }
  ListBench b;
  b.mailbox.takeFiles({"/v/new.avi"});
  EXPECT_EQ(b.initials() + b.window.history.undo, "aBcdenUndo add new.avi");
  b.history.undo();
  for (const auto& [before, names] :
       {std::pair{1, "noaBcde"}, {3, "aBnocde"}, {6, "aBcdeno"}, {0, "aBcdeno"}}) {
    b.mailbox.takeDropped({"/v/o.avi", "/v/new.avi"}, before);
    EXPECT_EQ(b.initials() + b.window.history.undo, std::string(names) + "Undo add 2 clips");
    EXPECT_EQ(b.clip(b.collection.icurMov).MovieName(), "o.avi") << before;
    b.history.undo();
    EXPECT_EQ(b.initials(), "aBcde") << before;
    EXPECT_FALSE(b.dirty()) << before;
  }
  b.mailbox.takeFiles({"/v/o.avi", "/v/new.avi"});
  EXPECT_EQ(b.initials(), "aBcdeon") << "a dialog has an order";
}

TEST(History, PutsNewPicturesAheadOfClosingMusic) {
  const struct {
    std::vector<std::string> list;
    std::string all;
  } rows[] = {{{"a.avi", "b.jpg", "x.mp3", "y.wav"}, "abnoxym"},
              {{"x.mp3", "y.wav"}, "xynmo"},
              {{"x.mp3", "a.avi", "y.wav"}, "xaynmo"},
              {{"a.avi"}, "anmo"}};
  for (const auto& row : rows) {
    WholeList b;
    b.start(row.list);
    b.makeEven();
    const auto before = b.all();
    for (const auto* name : {"/v/n.avi", "/v/m.mp3", "/v/o.avi"}) b.files.all[name] = "x";
    b.mailbox.takeFiles({"/v/n.avi", "/v/m.mp3", "/v/o.avi"});
    EXPECT_EQ(b.initials(), row.all);
    const auto after = b.all();
    b.history.undo();
    EXPECT_EQ(b.all(), before);
    b.history.redo();
    EXPECT_EQ(b.all(), after);
  }
}

TEST(History, OnlyWhatIsInTheFileIsClean) {
  ListBench b;
  const auto save = [&](bool works) {
    b.files.failedReplaces = works ? 0 : 1;
    b.dialogs.answers = {"/c/x.INI"};
    EXPECT_EQ(b.commands.Save(), works);
    EXPECT_EQ(b.dirty(), !works);
  };
  const auto dirtyBack = [&] { return b.history.undo(), b.dirty(); };
  const auto dirtyOn = [&] { return b.history.redo(), b.dirty(); };
  b.listCommands.setVolume(50);
  save(true);
  b.listCommands.setVolume(40);
  EXPECT_FALSE(dirtyBack()) << "a save ends a turn of the knob";
  EXPECT_EQ(percentOf(b.clip(1).Volume()), 50);
  EXPECT_TRUE(dirtyBack()) << "the file has the change now";
  EXPECT_FALSE(dirtyOn());
  b.settings.change().PreviewType = 3;
  b.listCommands.moveDown();
  EXPECT_TRUE(dirtyBack()) << "a preference has changed too";
  save(false);
  EXPECT_TRUE(dirtyBack());
  EXPECT_TRUE(dirtyOn()) << "nothing is in a file that could not be written";
}

TEST(ListCommands, ANameIsTakenAwayOnlyWhenTheUserSaysSo) {
  for (const auto answer : {Answer::No, Answer::Yes}) {
    ListBench b;
    int calls = 0;
    b.listCommands.whenUnseen([&] { ++calls; });
    for (const auto& [zoom, seen, after] :
         {std::tuple{true, false, 0}, {false, true, 0}, {false, false, 1}}) {
      b.window.list.rename = false;
      b.window.mode.IsMiniMode = zoom;
      b.window.mode.panels.Fillist.visible = seen;
      b.listCommands.beginRename();
      EXPECT_EQ(b.window.list.rename, !zoom) << "Free Zoom has no list";
      EXPECT_EQ(calls, after) << "a list that is out of sight is shown";
    }
    b.listCommands.rename(std::string(200, 'n'));
    EXPECT_EQ(b.names()[0].size(), 127U) << "as many as a file can hold";
    b.boxes.answers = {answer};
    b.listCommands.rename("");
    EXPECT_EQ(b.boxes.shown.back().text, "Remove current Display Name ?");
    EXPECT_EQ(b.names()[0] == "a.avi", answer == Answer::Yes);
  }
}

TEST(ClipOrder, FollowsItsRules) {
  EXPECT_EQ(orderMoved(5, {1, 2, 4}, -1), (Numbers{1, 2, 4, 3, 5})) << "the first two cannot go further";
  EXPECT_EQ(orderMoved(5, {2, 3, 5}, 1), (Numbers{1, 4, 2, 3, 5}));
  using Gathered = std::pair<int, Numbers>;
  for (const auto& [before, order] : {Gathered{1, {2, 4, 1, 3, 5}}, Gathered{3, {1, 2, 4, 3, 5}},
                                      Gathered{6, {1, 3, 5, 2, 4}}, Gathered{99, {1, 3, 5, 2, 4}}})
    EXPECT_EQ(orderGathered(5, {2, 4}, before), order) << before;

  test::MemoryFiles files;
  RecordList<Movie> clips;
  using Row = std::tuple<const char*, const char*, const char*, const char*, std::size_t>;
  for (const auto& [name, other, length, size, bytes] :
       {Row{"b.mpg", " ", "100", "640 x 480", 30}, Row{"A.wmv", "zoo", "N/A", "1920 x 1080", 20},
        Row{"b.mpg", " ", "3m 20s", "44.1 KHz", 30}, Row{"c.avi", "Beach", "9", "640 x 480", 10}}) {
    auto& clip = clips.add({});
    clip.MovieName(name);
    clip.AltName(other);
    clip.DurationTime(Value(length));
    clip.Resolution(Value(size));
    files.all[name] = std::string(bytes, 'x');
  }
  clips[4].Size("25");
  using By = std::pair<SortKey, Numbers>;
  for (const auto& [key, order] : {By{SortKey::Alpha, {1, 3, 4, 2}}, By{SortKey::FileDate, {4, 2, 1, 3}},
                                   By{SortKey::FileType, {4, 1, 3, 2}}, By{SortKey::FileSize, {2, 4, 1, 3}},
                                   By{SortKey::ClipDur, {2, 4, 1, 3}}, By{SortKey::Resolution, {3, 1, 4, 2}}})
    EXPECT_EQ(orderSorted(clips, key, files, [] { return 0.0; }), order) << static_cast<int>(key);
  double next = 1;
  EXPECT_EQ(orderSorted(clips, SortKey::Shuff, files, [&] { return next -= 0.2; }), (Numbers{4, 3, 2, 1}));
}

// The loop runs while a file is opened, and the user's keys with it.
TEST(ListCommands, WhatIsChosenWhileAnotherClipIsOpenedIsInHand) {
  ListBench b;
  b.list.whenInHand([&](int number) {
    if (number == 2) b.listCommands.select(3);
    if (number == 3) b.listCommands.choose({3, 4}, 4);
  });
  b.listCommands.select(2);
  EXPECT_EQ(b.collection.icurMov, 4);
  EXPECT_EQ(b.window.list.ListIndex, 3);
  EXPECT_EQ(b.window.list.chosen, (Numbers{3, 4}));
  bool due = true;
  b.list.whenInHand([&](int /*number*/) {
    if (std::exchange(due, false)) b.history.undo();
  });
  b.listCommands.Removeit();
  EXPECT_EQ(b.initials(), "aBcde") << "what led to the load can be taken back meanwhile";
  EXPECT_EQ(b.collection.icurMov, 4);
  EXPECT_FALSE(b.window.busy());
  b.window.progress.status = "Loading";  // all else waits for the end of a load
  b.listCommands.select(1);
  EXPECT_EQ(b.collection.icurMov, 4);
}

TEST(ClipList, TellsOfTheCollectionAndOfTheClipInHand) {
  ListBench b;
  b.clip(2).DurationTime(Value(181.4));
  b.list.fill();
  EXPECT_EQ(b.window.collectionDetails.clips + ", " + b.window.collectionDetails.totalTime,
            "5 clips, 3m 41s");
  b.collection.MovieList.add(b.clip(1));
  b.list.addLast();
  EXPECT_EQ(b.window.collectionDetails.totalTime, "3m 51s");
  b.collection.MovieList.takeOut({6});
  b.list.fill();
  b.clip(1).Volume(310);
  b.clip(1).Playspeed(25);
  b.clip(1).LoopStart(Value(2));
  b.list.renew(1);
  EXPECT_EQ(b.window.display.rate + b.window.display.digits, "2.5x00:00:0000")
      << "a mark does not move the position";
  b.window.mode.player.clip = 1;
  b.window.slider.markIn = 0.7;  // a drag
  b.window.display.rate = "1.5x";
  b.list.renew(1);
  EXPECT_EQ(b.window.display.rate + ShortText(b.window.slider.markIn), "1.5x0.7") << "they are the player's";
  b.window.mode.player.clip = 0;
  std::string asked;
  b.list.whenUnknown([&](const std::string& path) { asked += path + " "; });
  b.clip(4).IsHTML(true);
  for (const int number : {3, 4, 2, 2, 1}) b.listCommands.select(number);
  EXPECT_EQ(asked, "/v/c.mpg /v/B.avi /v/a.avi ") << "a page is no file to look into";
  EXPECT_EQ(b.window.details.pairs[8].value, "") << "a file is looked into anew, for it may have changed";
  b.list.takeFacts("/v/c.mpg", {.codec = "too late"});
  b.list.takeFacts("/v/a.avi", {.codec = "H.264"});
  std::string told;
  for (const auto& pair : b.window.details.pairs) told += pair.caption + "=" + pair.value + ";";
  EXPECT_EQ(told,
            "File=a.avi;Folder=/v/;Format=640 × 480 - AVI;Length=10.00 s;Section=2.00 to 10.00 s;Speed=2.5 x;"
            "Volume=70%;Balance=Stereo;Codec=H.264;");
  b.window.display.muted = true;
  b.listCommands.choose({1, 2, 3, 4, 5}, 1);
  b.listCommands.Removeit();
  EXPECT_TRUE(b.window.display.muted) << "the next clip is as mute";
  EXPECT_EQ(b.window.details.name + b.window.details.position + b.window.display.digits, "");
  EXPECT_EQ(b.window.face.caption, "KVO5");
}

}  // namespace
}  // namespace kvo
