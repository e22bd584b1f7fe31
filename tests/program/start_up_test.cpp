#include "program/start_up.h"

#include "program/media_commands.h"
#include "support/golden.h"
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
  struct Row {
    Words arguments;
    bool full, hundred;
    const char* collection;
    Words clips;
  };
  const Row rows[] = {
      {{}, false, false, "", {}},
      {{"/C"}, false, false, "", {}},
      {{"/fullsc", "/v/a.avi"}, true, false, "", {"/v/a.avi"}},
      {{"/v/a.avi", "/HUNPCT", "/PLAY"}, false, true, "", {"/v/a.avi"}},
      {{"/c/My.Ini"}, false, false, "/c/My.Ini", {}},
      {{"/v/gone.avi"}, false, false, "", {}},
      {{"/v/gone too.avi"}, false, false, "", {"/v/gone too.avi"}},
      {{"/NONSENSE", "/v/a.avi"}, false, false, "", {"/v/a.avi"}},
      {{"/PLAY/x.avi"}, false, false, "", {"/PLAY/x.avi"}},
      {{"/v/x.initial.avi"}, false, false, "", {"/v/x.initial.avi"}},
      {{"http://host/a.asx"}, false, false, "", {"http://host/a.asx"}},
  };
  for (const auto& row : rows) {
    const auto command = readStartCommand(row.arguments, files);
    EXPECT_EQ(command.fullScreen, row.full) << testing::PrintToString(row.arguments);
    EXPECT_EQ(command.hundredPercent, row.hundred) << testing::PrintToString(row.arguments);
    EXPECT_EQ(command.collection, row.collection);
    EXPECT_EQ(command.clips, row.clips);
  }
}

TEST(StartUp, ShowsTheEmptyPaneOrTheFirstClip) {
  ProgramBench empty;
  empty.saveCollection("/prog/KVO5.INI", {});
  for (const auto* work : {"/prog/KVORender.xtl", "/prog/Rendone.txt"}) empty.files.all[work] = "old";
  EXPECT_EQ(empty.startUp.run({"/FULLSC"}, "/"), StartEnd::Run);
  EXPECT_TRUE(empty.window.face.visible && empty.window.emptyPane.visible);
  EXPECT_FALSE(empty.window.list.visible || empty.window.face.fullScreen)
      << "the switch acts only with clips";
  EXPECT_EQ(empty.window.emptyPane.NoMediaPrompt, "Right Click to Add Media");
  EXPECT_FALSE(empty.files.exists("/prog/KVORender.xtl") || empty.files.exists("/prog/Rendone.txt"));
  EXPECT_EQ(empty.store.all["InstallDir"], "\"/prog\"");
  EXPECT_FALSE(isDirty(empty.collection, empty.settings));
  EXPECT_TRUE(empty.boxes.shown.empty());

  ProgramBench some;
  some.saveCollection("/prog/KVO5.INI", {"a.avi", "b.avi"});
  EXPECT_EQ(some.startUp.run({}, "/"), StartEnd::Run);
  EXPECT_TRUE(some.window.list.visible);
  EXPECT_EQ(some.window.list.Fillist.rows(), (Words{"a.avi", "b.avi"}));
  EXPECT_EQ(some.window.list.ListIndex, 0);
  EXPECT_EQ(some.window.list.caption, "KVO5 Collection");
  EXPECT_EQ(some.window.transport.play, ButtonWord::PlayOn);
  EXPECT_EQ(some.window.transport.pause, ButtonWord::PauseOn);
  EXPECT_FALSE(some.intro.StartingUp());

  ProgramBench named;
  named.saveCollection("/prog/KVO5.INI", {"a.avi"});
  named.saveCollection("/c/Trip.INI", {"b.avi", "c.avi"});
  EXPECT_EQ(named.startUp.run({"/c/Trip.INI", "/FULLSC"}, "/"), StartEnd::Run);
  EXPECT_EQ(named.window.list.caption, "Trip Collection");
  EXPECT_TRUE(named.window.face.fullScreen);
}

TEST(StartUp, EndsWithABoxWhenTheCollectionCannotBeRead) {
  ProgramBench none;
  EXPECT_EQ(none.startUp.run({}, "/"), StartEnd::Failed);
  ASSERT_EQ(none.boxes.shown.size(), 1U);
  EXPECT_EQ(none.boxes.shown[0].caption, "Kavio V5");
  EXPECT_EQ(none.boxes.shown[0].text.substr(0, 35), "Failed to read the initialisation d");
  EXPECT_NE(none.boxes.shown[0].text.find(" with Initialisation Error 6\r\nas the subject header."),
            std::string::npos);
  EXPECT_EQ(none.log.texts()[0].substr(0, 11), "<<ERR6>> - ");

  ProgramBench junk;
  junk.files.all["/prog/KVO5.INI"] = "[KVO]\r\na=1\r\nb=2\r\nc=3\r\nd=4\r\ne=5\r\n";
  EXPECT_EQ(junk.startUp.run({}, "/"), StartEnd::Failed);
  EXPECT_NE(junk.boxes.shown[0].text.find("Error 8"), std::string::npos);
  EXPECT_EQ(junk.files.all["/prog/KVO5.INI"].size(), 32U) << "it is left as it is";
}

TEST(StartUp, NamesBeginAtTheWorkingFolder) {
  struct Row {
    Words arguments;
    Words asked;
    const char* name;
    const char* path;
  };
  const Row rows[] = {
      {{"new.avi"}, {"/w/new.avi"}, "KVO5.INI", "/prog/KVO5.INI"},
      {{"./sub/new.avi", "/FULLSC"}, {}, "KVO5.INI", "/prog/KVO5.INI"},
      {{"/PLAY", "new.avi"}, {"/w/new.avi"}, "KVO5.INI", "/prog/KVO5.INI"},
      {{" new.avi"}, {"/w/ new.avi"}, "KVO5.INI", "/prog/KVO5.INI"},
      {{"gone too.avi"}, {"/w/gone too.avi"}, "KVO5.INI", "/prog/KVO5.INI"},
      {{"http://h/x.asx"}, {"http://h/x.asx"}, "KVO5.INI", "/prog/KVO5.INI"},
      {{"Trip.INI"}, {}, "Trip.INI", "/w/Trip.INI"},
      {{"old.Kvo"}, {}, "old.Kvo", "/w/old.Kvo"},
  };
  for (const auto& row : rows) {
    ProgramBench b;
    for (const auto* path : {"/prog/KVO5.INI", "/w/Trip.INI", "/w/old.Kvo"}) {
      b.saveCollection(path, {"a.avi"});
    }
    for (const auto* there : {"/w/new.avi", "/w/sub/new.avi", "/w/ new.avi"}) b.files.all[there] = "x";
    b.startUp.run(row.arguments, "/w");
    EXPECT_EQ(b.intake.asked, row.asked);
    EXPECT_EQ(b.collection.IniName, row.name);
    EXPECT_EQ(b.collection.IniFullPath, row.path);
    EXPECT_TRUE(b.log.texts().empty()) << b.log.texts()[0];
    EXPECT_NE(b.files.all[row.path].find("TimesUsed            = 31"), std::string::npos)
        << row.name << " is written back";

    ProgramBench second;
    second.handover.isFirst = false;
    second.files.all = b.files.all;
    EXPECT_EQ(second.startUp.run(row.arguments, "/w"), StartEnd::HandedOver);
    EXPECT_FALSE(second.window.face.visible || second.files.calls > 0) << "nothing is shown or written";
    std::string sent;
    for (const auto& argument : row.arguments) {
      const bool isWhole = argument.starts_with('/') || argument.starts_with("http");
      const auto name = argument.starts_with("./") ? argument.substr(2) : argument;
      sent += (sent.empty() ? "" : "\r\n") + (isWhole ? argument : "/w/" + name);
    }
    EXPECT_EQ(second.handover.sent, (Words{sent}));
  }
}

TEST(StartUp, TakesWhatIsHandedOverWithinATick) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {"a.avi"});
  b.saveCollection("/c/Trip.INI", {"t.avi"});
  b.startUp.run({}, "/");
  b.files.all["/v/new.avi"] = "x";
  b.handover.mailbox = "/PLAY\n\"/v/new.avi\"\n/v/gone.avi";
  b.loop.advance(199);
  EXPECT_TRUE(b.intake.asked.empty());
  b.loop.advance(1);
  EXPECT_EQ(b.intake.asked, (Words{"/v/new.avi"}));
  EXPECT_FALSE(b.handover.mailbox);
  EXPECT_EQ(b.window.transport.play, ButtonWord::PlayOn);
  EXPECT_EQ(b.window.transport.pause, ButtonWord::PauseOff);

  b.window.progress.status = "Loading Clip 5 of 20";
  b.handover.mailbox = "/v/new.avi";
  b.loop.advance(1000);
  EXPECT_EQ(b.intake.asked.size(), 1U) << "it waits for the end of a load";
  b.window.progress.status.clear();
  b.handover.mailbox.reset();

  for (const auto* junk : {"", "   ", "\n\n", "/NONSENSE", "\x01\xFF\xFE", "//////"}) {
    b.handover.mailbox = junk;
    b.loop.advance(200);
  }
  EXPECT_EQ(b.collection.MovieList.count(), 2);

  Movie preview;
  preview.MovieName("Preview.wmv");
  b.collection.MovieList.add(std::move(preview));
  b.handover.mailbox = "KILLSQUASHPREV";
  b.loop.advance(200);
  EXPECT_EQ(b.window.list.Fillist.rows(), (Words{"a.avi", "new.avi"}));

  for (const auto* odd : {"/v/a \"b\".avi", "/v/ends with a blank "}) {
    b.files.all[odd] = "x";
    b.handover.mailbox = odd;
    b.loop.advance(200);
    EXPECT_EQ(b.intake.asked.back(), odd);
    b.collection.MovieList.remove(b.collection.MovieList.count());
  }

  b.collection.MovieList[1].IsDirty(true);
  b.boxes.answers = {Answer::Cancel};
  b.handover.mailbox = "/c/Trip.INI";
  b.loop.advance(200);
  EXPECT_EQ(b.collection.MovieList.count(), 2) << "unsaved changes come first";
  b.boxes.answers = {Answer::No};
  b.handover.mailbox = "/c/Trip.INI";
  b.loop.advance(200);
  EXPECT_EQ(b.window.list.Fillist.rows(), (Words{"t.avi"}));
  b.saveCollection("/c/old.kvo", {"o.avi", "p.avi"});
  b.handover.mailbox = "/c/old.kvo";
  b.loop.advance(200);
  EXPECT_EQ(b.window.list.Fillist.rows(), (Words{"o.avi", "p.avi"}));
}

TEST(StartUp, TheIntroLeavesNoTraceOnAnyRoad) {
  struct Row {
    const char* what;
    const char* intro;
    Words arguments;
    std::function<void(ProgramBench&)> leave;
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
  const auto none = [](ProgramBench& /*b*/) {};
  const Row rows[] = {
      {"film, to its end", "intro.avi", {}, ends, {"a.avi"}, ""},
      {"sound, to its end", "intro.mp3", {}, ends, {"a.avi"}, ""},
      {"still", "intro.jpg", {}, ends, {"a.avi"}, ""},
      {"handed over", "intro.avi", {}, handedOver, {"a.avi", "more.avi"}, ""},
      {"exit", "intro.avi", {}, exits, {"a.avi"}, ""},
      {"missing", "gone.avi", {}, ends, {"a.avi"}, "gone.avi"},
      {"named film", "intro.avi", {"/v/n.avi"}, ends, {"a.avi", "n.avi"}, "intro.avi"},
      {"named sound", "intro.avi", {"/v/n.mp3"}, none, {"a.avi", "n.mp3"}, "intro.avi"},
      {"named and missing", "intro.avi", {"/v/is gone.avi"}, none, {"a.avi"}, "intro.avi"},
      {"named, full screen", "intro.avi", {"/v/n.avi", "/FULLSC"}, none, {"a.avi"}, "intro.avi"},
      {"named, handed over",
       "intro.avi",
       {"/v/n.avi"},
       handedOver,
       {"a.avi", "n.avi", "more.avi"},
       "intro.avi"},
      {"named, exit", "intro.avi", {"/v/n.avi"}, exits, {"a.avi", "n.avi"}, "intro.avi"},
      {"opened", "intro.avi", {}, opens, {"t.avi"}, "trip.avi"},
      {"named, opened", "intro.avi", {"/v/n.avi"}, opens, {"t.avi"}, "trip.avi"},
  };
  for (const auto& row : rows) {
    ProgramBench b;
    b.saveCollection("/prog/KVO5.INI", {"a.avi"}, [&](KVO2& s) {
      s.change().DefaultStartupVid = row.intro;
      s.change().LoadFrom = "/my/films/";
    });
    b.saveCollection("/c/Trip.INI", {"t.avi"}, [](KVO2& s) { s.change().DefaultStartupVid = "trip.avi"; });
    for (const auto* there :
         {"/prog/intro.avi", "/prog/intro.mp3", "/prog/intro.jpg", "/v/n.avi", "/v/n.mp3", "/v/more.avi"}) {
      b.files.all[there] = "x";
    }
    b.intake.settings = &b.settings;
    b.startUp.run(row.arguments, "/");
    row.leave(b);
    b.intro.ended();
    b.loop.advance(1000);
    Words clips;
    for (int i = 1; i <= b.collection.MovieList.count(); ++i)
      clips.push_back(b.collection.MovieList[i].MovieName());
    EXPECT_EQ(clips, row.clips) << row.what;
    EXPECT_EQ(b.settings.preferences().DefaultStartupVid, row.DefaultStartupVid) << row.what;
    if (row.arguments.empty() && row.clips.size() == 1 && row.clips[0] == "a.avi") {
      EXPECT_EQ(b.settings.preferences().LoadFrom, "/my/films/") << row.what;
      EXPECT_FALSE(isDirty(b.collection, b.settings)) << row.what;
    }
  }
  ProgramBench stream;
  stream.saveCollection("/prog/KVO5.INI", {},
                        [](KVO2& s) { s.change().DefaultStartupVid = "http://h/i.asx"; });
  stream.startUp.run({}, "/");
  EXPECT_EQ(stream.intake.asked, (Words{"http://h/i.asx"}));
}

TEST(StartUp, TheIntroStandsAloneUntilItsEnd) {
  for (const auto* named : {"", "/v/new.avi"}) {
    ProgramBench b;
    b.saveCollection("/prog/KVO5.INI", {"a.avi"},
                     [](KVO2& s) { s.change().DefaultStartupVid = "intro.avi"; });
    b.files.all["/prog/intro.avi"] = b.files.all["/v/new.avi"] = "x";
    b.startUp.run({named}, "/");
    b.loop.advance(5000);
    EXPECT_TRUE(b.intro.IntroRunning()) << "it runs until its end";
    EXPECT_FALSE(b.window.list.visible);
    EXPECT_EQ(b.window.face.controlsEnabled, *named != 0);
    b.intro.ended();
    b.loop.advance(350);
    EXPECT_TRUE(b.window.list.visible && b.window.face.controlsEnabled);
    EXPECT_EQ(b.window.list.Fillist.rows(), *named != 0 ? (Words{"a.avi", "new.avi"}) : Words{"a.avi"});
    EXPECT_EQ(b.window.list.ListIndex, *named != 0 ? 1 : 0);
  }
  for (const auto* atOnce : {"/v/still.jpg", "/v/song.mp3"}) {
    ProgramBench c;
    c.saveCollection("/prog/KVO5.INI", {});
    c.files.all[atOnce] = "x";
    c.startUp.run({atOnce}, "/");
    c.loop.advance(350);
    EXPECT_TRUE(c.window.list.visible) << atOnce;
  }
}

TEST(StartUp, AsksAboutUpgradesAtItsCountsAndAboutTheScreen) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {}, [](KVO2& s) { s.adjust().NoofUses = 3; });
  b.desktop.facts = {800, 600, 8, 2};
  b.boxes.answers = {Answer::Yes};
  b.startUp.run({}, "/");
  ASSERT_EQ(b.boxes.shown.size(), 4U);
  EXPECT_EQ(b.boxes.shown[0].text, "Do you wish KVO to check for the latest upgrades and release notes ?");
  EXPECT_EQ(b.desktop.pages.size(), 1U);
  EXPECT_EQ(b.boxes.shown[1].caption, "KVO Warning - Color depth too Low");
  EXPECT_EQ(b.boxes.shown[2].text,
            "KVO is designed to run at a resolution of 1024 x 768 or higher.\r\nThe Remote control unit may "
            "overlap at "
            "this resolution.\r\nTo adjust the screen resolution - open Control Panel - Display - settings "
            "and alter "
            "the screen resolution.");
  EXPECT_EQ(b.boxes.shown[3].caption, "KVO5 - Multiple Monitors not supported.");

  ProgramBench again;
  again.store.all = b.store.all;
  again.desktop.facts.monitors = 2;
  again.saveCollection("/prog/KVO5.INI", {});
  again.startUp.run({}, "/");
  for (const auto& box : again.boxes.shown) EXPECT_NE(box.caption, b.boxes.shown[3].caption) << "told once";
}

TEST(StartUp, ExitAsksAboutChangesAndCancelGoesBack) {
  struct Row {
    Answer answer;
    std::optional<std::string> saveAs;
    bool ends;
    bool saved;
  };
  const Row rows[] = {{Answer::No, std::nullopt, true, false},
                      {Answer::Cancel, std::nullopt, false, false},
                      {Answer::Yes, "/c/new.INI", true, true},
                      {Answer::Yes, std::nullopt, false, false}};
  for (const auto& row : rows) {
    ProgramBench b;
    b.saveCollection("/prog/KVO5.INI", {"a.avi"});
    b.startUp.run({}, "/");
    b.collection.MovieList[1].Volume(7);
    b.boxes.answers = {row.answer};
    b.dialogs.answers = {row.saveAs};
    EXPECT_EQ(b.shutDown.exit(), row.ends);
    EXPECT_EQ(b.boxes.shown.back().text, "Do you want to save the changes you made to 'KVO5.INI' ?");
    EXPECT_EQ(b.files.exists("/c/new.INI"), row.saved);
    EXPECT_EQ(b.window.face.visible, !row.ends);
  }
  ProgramBench clean;
  clean.saveCollection("/prog/KVO5.INI", {"a.avi"});
  clean.startUp.run({}, "/");
  EXPECT_TRUE(clean.shutDown.exit());
  EXPECT_TRUE(clean.boxes.shown.empty());
}

TEST(StartUp, DroppedFilesJoinAndADroppedCollectionTakesThePlace) {
  ProgramBench b;
  b.saveCollection("/prog/KVO5.INI", {"a.avi"});
  b.saveCollection("/c/old.Kvo", {"o.avi"});
  b.startUp.run({}, "/");
  b.files.all["/v/n.avi"] = "x";
  b.mailbox.takeFiles({"/v/n.avi", "/v/n.avi"});
  EXPECT_EQ(b.collection.MovieList.count(), 3);
  {
    const CommandPass pass(b.window);
    b.mailbox.takeFiles({"/v/n.avi"});
    b.mailbox.takeFiles({"/c/old.Kvo"});
    EXPECT_EQ(b.collection.MovieList.count(), 3) << "not while another command runs";
  }
  b.collection.MovieList[1].IsDirty(true);
  b.boxes.answers = {Answer::Cancel, Answer::No};
  b.mailbox.takeFiles({"/v/n.avi", "/c/old.Kvo"});
  EXPECT_EQ(b.collection.MovieList.count(), 3) << "unsaved changes come first";
  b.mailbox.takeFiles({"/v/n.avi", "/c/old.Kvo"});
  ASSERT_EQ(b.collection.MovieList.count(), 2);
  EXPECT_EQ(b.collection.MovieList[1].MovieName(), "o.avi") << "whatever the order of the files";
}

TEST(StartUp, TheFirstAdditionBeginsAtTheVideosOfTheUser) {
  test::PlainDesktop desktop;
  desktop.videos = "/home/u/Videos";
  KVO2 settings;
  for (const auto& [last, starts] : {std::pair{"", "/home/u/Videos"}, std::pair{"C:\\", "/home/u/Videos"},
                                     std::pair{"/my/films/", "/my/films/"}}) {
    settings.change().LoadFrom = last;
    EXPECT_EQ(mediaFolder(settings, desktop), starts);
  }
}

TEST(UserValues, AreWrittenWithTheirDefaultsAndReadFresh) {
  test::MemoryStore store;
  KVO2 settings;
  MainWindowState window;
  settings.user.attach(&store);
  store.all["LoopCol"] = "True";
  GetKVORegistryValues(settings, store, window);
  EXPECT_EQ(store.all["DefaultZoom100"], "False");
  EXPECT_EQ(store.all["SliderSpeed"], "500");
  EXPECT_EQ(store.all["StillDelayTimer"], "7");
  EXPECT_TRUE(window.menu.mnu_LoopCol && window.menu.mnu_SldNormal && !window.menu.mnu_Looping);
  store.all["LoopCol"] = "False";
  EXPECT_FALSE(settings.user.LoopCol) << "another copy changed it";
  settings.user.RewAtEnd = true;
  EXPECT_EQ(store.all["RewAtEnd"], "True");
  store.all.clear();
  EXPECT_EQ(settings.user.SliderSpeed, 450);
  EXPECT_EQ(store.all["SliderSpeed"], "450");
  EXPECT_EQ(settings.user.StillDelayTimer, 7);
  EXPECT_EQ(store.all["Stilldelay"], "7");
}

}  // namespace
}  // namespace kvo
