#include "program/start_up.h"

#include "program/media_commands.h"
#include "support/program_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::ProgramBench;
using Words = std::vector<std::string>;

TEST(StartCommand, TakesSwitchesAnywhereAndFilesThatAreThere) {
  test::MemoryFiles files;
  for (const auto* there : {"/v/a.avi", "/c/My.Ini", "/PLAY/x.avi", "/v/x.initial.avi"})
    files.all[there] = "x";
  const std::pair<Words, std::string> rows[] = {
      {{"/C"}, "|||"},
      {{"/fullsc", "/v/a.avi"}, "full||/v/a.avi|"},
      {{"/v/a.avi", "/HUNPCT", "/PLAY"}, "hundred||/v/a.avi|"},
      {{"/c/My.Ini", "/NONSENSE", "//"}, "|/c/My.Ini||"},
      {{"/v/gone.avi", "/PLAY/x.avi", "/gone.INI"}, "||/PLAY/x.avi|/v/gone.avi/gone.INI"},
      {{"/v/gone too.avi", "/v/x.initial.avi"}, "||/v/gone too.avi/v/x.initial.avi|"},
      {{"http://host/a.asx"}, "||http://host/a.asx|"},
      {{"\\\\server\\share\\a.avi", "\\\\server\\c.INI"}, "||\\\\server\\share\\a.avi\\\\server\\c.INI|"},
  };
  for (const auto& [arguments, asks] : rows) {
    const auto command = readStartCommand(arguments, files, "/w");
    std::string text = command.fullScreen ? "full" : command.hundredPercent ? "hundred" : "";
    text += "|" + command.collection + "|";
    for (const auto& clip : command.clips) text += clip;
    text += "|";
    for (const auto& gone : command.missing) text += gone;
    EXPECT_EQ(text, asks);
  }
}

TEST(StartUp, ShowsTheEmptyPaneOrTheFirstClip) {
  ProgramBench empty;
  empty.saveCollection("/prog/KVO5.INI", {});
  empty.files.all["/prog/KVORender.xtl"] = "old";
  EXPECT_EQ(empty.startUp.run({"/FULLSC"}, "/"), StartEnd::Run);
  EXPECT_TRUE(empty.window.face.visible && empty.window.emptyPane.visible);
  EXPECT_FALSE(empty.window.list.visible || empty.window.face.fullScreen)
      << "the switch acts only with clips";
  EXPECT_FALSE(empty.files.exists("/prog/KVORender.xtl"));
  EXPECT_EQ(empty.store.all["InstallDir"], "\"/prog\"");
  EXPECT_FALSE(isDirty(empty.collection, empty.settings));
  EXPECT_TRUE(empty.boxes.shown.empty());

  ProgramBench named;
  named.saveCollection("/prog/KVO5.INI", {"a.avi"});
  named.saveCollection("/c/Trip.INI", {"b.avi", "c.avi"}, [](KVO2& s) { s.change().MuteAtStart = true; });
  EXPECT_EQ(named.startUp.run({"/c/Trip.INI", "/FULLSC"}, "/"), StartEnd::Run);
  EXPECT_TRUE(named.window.display.muted);
  EXPECT_EQ(named.names(), (Words{"b.avi", "c.avi"}));
  EXPECT_EQ(named.window.list.caption, "Trip Collection");
  EXPECT_EQ(named.window.list.ListIndex, 0);
  EXPECT_TRUE(named.window.list.visible && named.window.face.fullScreen);
  EXPECT_FALSE(named.intro.StartingUp());

  ProgramBench none;
  EXPECT_EQ(none.startUp.run({}, "/"), StartEnd::Failed);
  ASSERT_EQ(none.boxes.shown.size(), 1U);
}

TEST(StartUp, TheWindowStandsBehindWhatIsToldOfNamedFiles) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {"a.avi"});
  b.files.all["/v/broken.avi"] = "x";
  Words seen;
  b.startUp.whenLoaded([&] { seen.emplace_back(b.window.face.visible ? "visible" : "loaded"); });
  b.intake.whenAsked = [&] { seen.emplace_back(b.window.face.visible ? "visible" : "hidden"); };
  b.startUp.run({"/v/broken.avi", "/v/gone.avi", "/c/gone.INI"}, "/");
  EXPECT_EQ(seen, (Words{"loaded", "visible"}));
  EXPECT_TRUE(b.boxes.shown.empty());
  b.startUp.tell();
  ASSERT_EQ(b.boxes.shown.size(), 1U);
  EXPECT_EQ(b.boxes.shown[0].text,
            "KVO could not verify the file\r\ngone.avi\r\n- load aborted\r\ngone.INI\r\n- load aborted");
}

TEST(StartUp, NamesBeginAtTheWorkingFolder) {
  const struct {
    Words arguments;
    Words asked;
    const char* path;
    const char* sent;
  } rows[] = {
      {{"new.avi"}, {"/w/new.avi"}, "/prog/KVO5.INI", "/w/new.avi"},
      {{"./sub/new.avi", "/FULLSC"}, {}, "/prog/KVO5.INI", "/w/sub/new.avi\r\n/FULLSC"},
      {{"/PLAY", " new.avi"}, {"/w/ new.avi"}, "/prog/KVO5.INI", "/PLAY\r\n/w/ new.avi"},
      {{"gone too.avi"}, {"/w/gone too.avi"}, "/prog/KVO5.INI", "/w/gone too.avi"},
      {{"http://h/x.asx"}, {"http://h/x.asx"}, "/prog/KVO5.INI", "http://h/x.asx"},
      {{"\\\\s\\a.avi"}, {"\\\\s\\a.avi"}, "/prog/KVO5.INI", "\\\\\\\\s\\\\a.avi"},
      {{"two\r\nlines.avi"}, {"/w/two\r\nlines.avi"}, "/prog/KVO5.INI", "/w/two\\r\\nlines.avi"},
      {{"Trip.INI"}, {}, "/w/Trip.INI", "/w/Trip.INI"},
      {{"old.Kvo"}, {}, "/w/old.Kvo", "/w/old.Kvo"},
  };
  for (const auto& row : rows) {
    ProgramBench b;
    for (const auto* path : {"/prog/KVO5.INI", "/w/Trip.INI", "/w/old.Kvo"})
      b.saveCollection(path, {"a.avi"});
    for (const auto* there : {"/w/new.avi", "/w/sub/new.avi", "/w/ new.avi", "/w/two\r\nlines.avi"})
      b.files.all[there] = "x";
    b.startUp.run(row.arguments, "/w");
    EXPECT_EQ(b.intake.asked, row.asked);
    EXPECT_EQ(b.collection.IniFullPath, row.path);
    EXPECT_EQ(b.collection.IniName, fileNamePart(row.path));
    EXPECT_NE(b.files.all[row.path].find("TimesUsed            = 31"), std::string::npos)
        << row.path << " is written back";

    ProgramBench second;
    second.handover.isFirst = false;
    second.files.all = b.files.all;
    EXPECT_EQ(second.startUp.run(row.arguments, "/w"), StartEnd::HandedOver);
    EXPECT_FALSE(second.window.face.visible || second.files.calls > 0) << "nothing is shown or written";
    EXPECT_EQ(second.handover.sent, (Words{row.sent}));
    second.handover.isTaken = false;
    EXPECT_EQ(second.startUp.run(row.arguments, "/w"), StartEnd::NotTaken);
  }
}

TEST(StartUp, TakesWhatIsHandedOverWithinATick) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {"a.avi"});
  b.saveCollection("/c/Trip.kvo", {"t.avi"});
  b.startUp.run({}, "/");
  const auto handOver = [&](const std::string& text, int time = 200) {
    b.handover.mailbox = text;
    b.loop.advance(time);
  };
  for (const auto* there : {"/v/new.avi", "/v/a \"b\".avi", "/v/ends with a blank ", "/v/two\r\nlines\\.avi"})
    b.files.all[there] = "x";
  handOver("/PLAY\n\"/v/new.avi\"\n/v/gone.avi", 199);
  EXPECT_TRUE(b.intake.asked.empty());
  b.loop.advance(1);
  EXPECT_EQ(b.intake.asked, (Words{"/v/new.avi"}));
  EXPECT_FALSE(b.handover.mailbox);
  ASSERT_EQ(b.boxes.shown.size(), 1U);
  EXPECT_EQ(b.boxes.shown[0].text, "KVO could not verify the file\r\ngone.avi\r\n- load aborted");

  b.window.progress.status = "Loading Clip 5 of 20";
  handOver("/v/new.avi", 1000);
  EXPECT_EQ(b.intake.asked.size(), 1U) << "it waits for the end of a load";
  b.window.progress.status.clear();
  for (const auto* junk : {"", "\n\n", "/NONSENSE", "\x01\xFF\xFE", "//////"}) handOver(junk);
  EXPECT_EQ(b.collection.MovieList.count(), 2);
  for (const auto& [sent, odd] : {std::pair{"/v/a \"b\".avi", "/v/a \"b\".avi"},
                                  {"/v/ends with a blank ", "/v/ends with a blank "},
                                  {"/v/two\\r\\nlines\\\\.avi", "/v/two\r\nlines\\.avi"}}) {
    handOver(sent);
    EXPECT_EQ(b.intake.asked.back(), odd);
  }

  b.collection.MovieList[3].MovieName("Preview.wmv");
  handOver("KILLSQUASHPREV");
  EXPECT_EQ(b.names(), (Words{"a.avi", "new.avi", "ends with a blank ", "two\r\nlines\\.avi"}));
  for (const auto answer : {Answer::Cancel, Answer::No}) {
    b.boxes.answers = {answer};
    handOver("/c/Trip.kvo");
    EXPECT_EQ(b.collection.MovieList.count(), answer == Answer::No ? 1 : 4) << "unsaved changes come first";
  }
}

TEST(StartUp, TheIntroLeavesNoTraceOnAnyRoad) {
  struct Row {
    const char* what;
    const char* intro;
    Words arguments;
    void (*leave)(ProgramBench&);
    Words clips;
    const char* DefaultStartupVid;
  };
  const auto ends = [](ProgramBench& b) {
    b.intro.ended();
    b.loop.advance(350);
  };
  const auto handedOver = [](ProgramBench& b) {
    b.handover.mailbox = "/v/more.avi";
    b.loop.advance(200);
  };
  const auto opens = [](ProgramBench& b) { b.commands.openFile("/c/Trip.INI"); };
  const auto exits = [](ProgramBench& b) { b.shutDown.exit(); };
  const auto removes = [](ProgramBench& b) { b.listCommands.Removeit(); };
  const auto none = [](ProgramBench& /*b*/) {};
  const Row rows[] = {
      {"film, to its end", "intro.avi", {}, ends, {"a.avi"}, ""},
      {"handed over", "intro.avi", {}, handedOver, {"a.avi", "more.avi"}, ""},
      {"exit", "intro.avi", {}, exits, {"a.avi"}, ""},
      {"the key that removes", "intro.avi", {}, removes, {}, ""},
      {"missing", "gone.avi", {}, ends, {"a.avi"}, "gone.avi"},
      {"named film", "intro.avi", {"/v/n.avi"}, ends, {"a.avi", "n.avi"}, "intro.avi"},
      {"named and missing", "intro.avi", {"/v/is gone.avi"}, none, {"a.avi"}, "intro.avi"},
      {"named, full screen", "intro.avi", {"/v/n.avi", "/FULLSC"}, none, {"a.avi"}, "intro.avi"},
      {"opened", "intro.avi", {}, opens, {"t.avi"}, "trip.avi"},
  };
  for (const auto& row : rows) {
    ProgramBench b;
    b.saveCollection("/prog/KVO5.INI", {"a.avi"}, [&](KVO2& s) {
      s.change().DefaultStartupVid = row.intro;
      s.change().LoadFrom = "/my/films/";
    });
    b.saveCollection("/c/Trip.INI", {"t.avi"}, [](KVO2& s) { s.change().DefaultStartupVid = "trip.avi"; });
    for (const auto* there : {"/prog/intro.avi", "/v/n.avi", "/v/more.avi"}) b.files.all[there] = "x";
    b.intake.settings = &b.settings;
    b.startUp.run(row.arguments, "/");
    if (b.intro.IntroRunning()) {
      EXPECT_EQ(b.window.face.controlsEnabled, !row.arguments.empty()) << row.what;
      EXPECT_FALSE(b.window.list.visible) << row.what;
    }
    row.leave(b);
    b.intro.ended();
    b.loop.advance(1000);
    EXPECT_EQ(b.names(), row.clips) << row.what;
    EXPECT_EQ(b.settings.preferences().DefaultStartupVid, row.DefaultStartupVid) << row.what;
    if (row.arguments.empty() && row.clips == Words{"a.avi"}) {
      EXPECT_EQ(b.settings.preferences().LoadFrom, "/my/films/") << row.what;
      EXPECT_FALSE(isDirty(b.collection, b.settings)) << row.what;
    }
  }
}

TEST(StartUp, AsksAboutUpgradesAtItsCountsAndAboutTheScreen) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {}, [](KVO2& s) { s.adjust().NoofUses = 3; });
  b.desktop.facts = {800, 600, 8, 2};
  b.startUp.run({}, "/");
  ASSERT_EQ(b.boxes.shown.size(), 3U);
  b.boxes.answers = {Answer::Yes};
  b.collection.filesMissing = true;
  b.startUp.tell();
  ASSERT_EQ(b.boxes.shown.size(), 5U);
  EXPECT_EQ(b.boxes.shown[4].text, "Do you wish KVO to check for the latest upgrades and release notes ?");
  EXPECT_EQ(b.desktop.pages.size(), 0U) << "the first answer is of the missing files";
  b.collection.filesMissing = false;
  b.boxes.answers = {Answer::Yes};
  b.startUp.tell();
  EXPECT_EQ(b.desktop.pages.size(), 1U);

  ProgramBench again;
  again.store.all = b.store.all;
  again.desktop.facts.monitors = 2;
  again.saveCollection("/prog/KVO5.INI", {});
  again.startUp.run({}, "/");
  for (const auto& box : again.boxes.shown) EXPECT_NE(box.caption, b.boxes.shown[2].caption) << "told once";
}

TEST(StartUp, ExitAsksAboutChangesAndCancelGoesBack) {
  const struct {
    std::optional<Answer> answer;  // none: nothing has changed
    std::optional<std::string> saveAs;
    bool ends;
  } rows[] = {{std::nullopt, std::nullopt, true},
              {Answer::No, std::nullopt, true},
              {Answer::Cancel, std::nullopt, false},
              {Answer::Yes, "/c/new.INI", true},
              {Answer::Yes, std::nullopt, false}};
  for (const auto& row : rows) {
    ProgramBench b;
    b.saveCollection("/prog/KVO5.INI", {"a.avi"});
    b.startUp.run({}, "/");
    if (row.answer) {
      b.collection.MovieList[1].Volume(7);
      b.boxes.answers = {*row.answer};
    }
    b.dialogs.answers = {row.saveAs};
    EXPECT_EQ(b.shutDown.exit(), row.ends);
    EXPECT_EQ(b.boxes.shown.size(), row.answer ? 1U : 0U);
    EXPECT_EQ(b.files.exists("/c/new.INI"), row.saveAs.has_value());
    EXPECT_EQ(b.window.face.visible, !row.ends);
  }
}

TEST(GatheredBoxes, ManyRefusalsAreToldTogetherAndQuestionsAtOnce) {
  test::ScriptedBoxes boxes;
  GatheredBoxes gathered(boxes);
  gathered.together([&] {
    for (int i = 0; i < 20; ++i)
      gathered.show({"Not added", "KVO cannot play this.\r\n" + std::to_string(i)});
    EXPECT_TRUE(boxes.shown.empty());
  });
  ASSERT_EQ(boxes.shown.size(), 1U);
  EXPECT_TRUE(boxes.shown[0].text.ends_with("\r\n11\r\nand 8 more."));
  boxes.shown.clear();
  boxes.answers = {Answer::No};
  gathered.together([&] {
    EXPECT_EQ(gathered.show({"Add", "it ?", BoxButtons::YesNo}), Answer::No);
    EXPECT_EQ(boxes.shown.size(), 1U);
  });
  EXPECT_THROW(gathered.together([&] {
    gathered.show({"Lost", "text"});
    throw std::runtime_error("no room");
  }),
               std::runtime_error);
  gathered.show({"Alone", "text"});
  EXPECT_EQ(boxes.shown.size(), 2U);
}

TEST(GatheredBoxes, OfSeveralFilesEachIsNamedAndWhatIsSaidOfAllIsSaidOnce) {
  const std::string cannot = "KVO cannot.\r\nNothing was added.";
  const struct {
    const char* path;
    const char* caption;
    std::string text;
  } rows[] = {
      {"/v/a.txt", "Not added", cannot},
      {"/v/c.mp4", "c.mp4 - Damaged", "Why :-\r\nno end"},
      {"/v/b.txt", "Not added", cannot},
      {"/v/d.mp4", "d.mp4 - Damaged", "Why :-\r\nno end"},
      {"/v/e.mp4", "e.mp4 - Damaged", "Why :-\r\nno head"},
      {"/v/f.zip", "Archive", "f.zip - must be expanded"},
      {"/v/g.avi", "g.avi - Busy", "It is open."},
      {"/v/h.jpg", "Image", "no size"},
      {"/v/a long name that is gone.avi", "Gone", "KVO looked for\r\na long name"},
      {"/v/i.pdf", "Alone", "no clip"},
  };
  test::ScriptedBoxes boxes;
  GatheredBoxes gathered(boxes);
  gathered.together([&] {
    for (const auto& row : rows) {
      gathered.about(row.path);
      gathered.show({row.caption, row.text});
    }
  });
  std::vector<std::string> told;
  for (const auto& box : boxes.shown) told.push_back(box.caption + "|" + box.text);
  EXPECT_EQ(told,
            (Words{"Not added|a.txt\r\nb.txt\r\n" + cannot,
                   "Damaged|Why :-\r\nc.mp4\r\nd.mp4\r\nno end\r\ne.mp4\r\nno head",
                   "Archive|f.zip - must be expanded", "g.avi - Busy|It is open.", "Image|h.jpg\r\nno size",
                   "Gone|KVO looked for\r\na long name", "Alone|i.pdf\r\nno clip"}));
}

TEST(StartUp, DroppedFilesJoinAndADroppedCollectionTakesThePlace) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {"a.avi"});
  b.saveCollection("/c/old.Kvo", {"o.avi"});
  b.startUp.run({}, "/");
  b.files.all["/v/n.avi"] = "x";
  b.loop.onYield = [&] {
    const auto& now = b.window.progress;
    EXPECT_EQ(now.status, "Analysing Clip " + std::to_string(now.done) + " of 3 - Please Wait..\r\n/v/n.avi");
    b.window.progress.abortClicked = now.done == 3;
  };
  b.mailbox.takeFiles({"/v/n.avi", "/v/n.avi", "/v/n.avi"});
  EXPECT_EQ(b.collection.MovieList.count(), 3) << "a click left out the last";
  EXPECT_EQ(b.window.progress.status, "");
  b.loop.onYield = [] {};
  EXPECT_EQ(b.window.history.undo, "Undo add 2 clips");
  b.boxes.answers = {Answer::Cancel, Answer::No};
  b.collection.MovieList[1].IsDirty(true);
  b.mailbox.takeFiles({"/c/old.Kvo"});
  EXPECT_EQ(b.collection.MovieList.count(), 3) << "unsaved changes come first";
  b.mailbox.takeFiles({"/c/old.Kvo"});
  EXPECT_EQ(b.names(), (Words{"o.avi"}));
  b.files.all["/empty/notes.txt"] = "x";
  b.mailbox.takeFiles({"/empty", "/v/n.avi"});
  EXPECT_EQ(b.boxes.shown.back().text, "/empty\r\nThere is nothing in this folder that KVO can play.");
  EXPECT_EQ(b.names(), (Words{"o.avi", "n.avi"}));
  b.mailbox.takeFiles({"/v/n.avi", "/prog/KVO5.INI"});
  EXPECT_EQ(b.collection.IniFullPath, "/c/old.Kvo") << "one of several is no collection to open";
  EXPECT_EQ(b.intake.asked.back(), "/prog/KVO5.INI");
  for (const auto& [last, starts] : {std::pair{"", "/home/u/Videos"}, std::pair{"C:\\", "/home/u/Videos"},
                                     std::pair{"/my/films/", "/my/films/"}}) {
    b.desktop.videos = "/home/u/Videos";
    b.settings.change().LoadFrom = last;
    EXPECT_EQ(mediaFolder(b.settings, b.desktop), starts);
  }
  MediaCommands media({b.dialogs, b.desktop, b.questions, b.boxes}, b.settings, b.window, b.mailbox);
  b.settings.adjust().NoofUses = 30;
  for (const auto& [typed, box] : {std::pair{"server/live.asx", "server/live.asx\r\nis no address"},
                                   {"/v/gone.asx", ""},
                                   {"/v/n.avi", ""},
                                   {"\\\\server\\a.avi", ""},
                                   {"mms://server/live.asx", ""}}) {
    b.boxes.shown.clear();
    b.intake.asked.clear();
    b.questions.answers = {typed};
    media.ViewStream();
    EXPECT_EQ(b.intake.asked.empty(), *box != '\0') << typed;
    ASSERT_EQ(b.boxes.shown.size(), *box == '\0' ? 0U : 1U) << typed;
    EXPECT_TRUE(*box == '\0' || b.boxes.shown[0].text.starts_with(box)) << typed;
  }
  b.dialogs.filter = 1;
  media.AddMedia();
  media.AddMedia();
  const auto& first = b.dialogs.asked.front();
  EXPECT_EQ(first.filters.at(first.filter).name, "All Files (*.*)") << "clips, stills and music in one go";
  const auto& next = b.dialogs.asked.back();
  EXPECT_EQ(next.filters.at(next.filter).name, "All supported Audio Files ") << "the last choice is kept";
}

TEST(UserValues, AreWrittenWithTheirDefaultsAndReadFresh) {
  test::MemoryStore store;
  KVO2 settings;
  MainWindowState window;
  settings.user.attach(&store);
  store.all["LoopCol"] = "True";
  GetKVORegistryValues(settings, store, window);
  EXPECT_EQ(store.all["DefaultZoom100"] + store.all["SliderSpeed"] + store.all["StillDelayTimer"],
            "False5007");
  EXPECT_TRUE(window.menu.mnu_LoopCol && !window.menu.mnu_Looping);
  store.all = {{"LoopCol", "False"}};
  EXPECT_FALSE(settings.user.LoopCol) << "another copy changed it";
  settings.user.RewAtEnd = true;
  EXPECT_EQ(settings.user.SliderSpeed + settings.user.StillDelayTimer, 457);
  EXPECT_EQ(store.all["RewAtEnd"] + store.all["SliderSpeed"] + store.all["Stilldelay"], "True4507");
}

}  // namespace
}  // namespace kvo
