#include "program/start_up.h"

#include "support/program_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::ProgramBench;
using Words = std::vector<std::string>;

TEST(StartCommand, TakesSwitchesAnywhereAndFilesThatAreThere) {
  test::MemoryFiles files;
  files.put({"/v/a.avi", "/c/My.Ini", "/PLAY/x.avi", "/v/x.initial.avi"});
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
  EXPECT_FALSE(empty.window.list.visible || empty.window.face.fullScreen) << "which needs clips";
  EXPECT_FALSE(empty.files.exists("/prog/KVORender.xtl"));
  EXPECT_EQ(empty.store.all["InstallDir"], "\"/prog\"");
  EXPECT_EQ(empty.boxes.told() + (empty.dirty() ? "dirty" : ""), "");

  ProgramBench named;
  named.saveCollection("/prog/KVO5.INI", {"a.avi"});
  named.saveCollection("/c/Trip.INI", {"b.avi", "c.avi"}, [](KVO2& s) { s.change().MuteAtStart = true; });
  EXPECT_EQ(named.startUp.run({"/c/Trip.INI", "/FULLSC"}, "/"), StartEnd::Run);
  EXPECT_TRUE(named.window.display.muted);
  EXPECT_EQ(named.initials() + " " + named.window.list.caption, "bc Trip Collection");
  EXPECT_EQ(named.window.list.ListIndex, 0);
  EXPECT_TRUE(named.window.list.visible && named.window.face.fullScreen && !named.intro.StartingUp());

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
  EXPECT_EQ(b.boxes.told(),
            "KVO - Fatal File access Error|KVO could not verify the file\r\ngone.avi\r\n- load aborted\r\n"
            "gone.INI\r\n- load aborted");
}

TEST(StartUp, NamesBeginAtTheWorkingFolder) {
  const std::tuple<Words, Words, const char*, const char*> rows[] = {
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
  for (const auto& [arguments, asked, path, sent] : rows) {
    ProgramBench b;
    for (const auto* one : {"/prog/KVO5.INI", "/w/Trip.INI", "/w/old.Kvo"}) b.saveCollection(one, {"a.avi"});
    b.files.put({"/w/new.avi", "/w/sub/new.avi", "/w/ new.avi", "/w/two\r\nlines.avi"});
    b.startUp.run(arguments, "/w");
    EXPECT_EQ(b.intake.asked, asked);
    EXPECT_EQ(b.collection.IniFullPath, path);
    EXPECT_EQ(b.collection.IniName, fileNamePart(path));
    EXPECT_TRUE(test::holds(b.files.all[path], "TimesUsed            = 31")) << "it is written back";

    ProgramBench second;
    second.handover.isFirst = false;
    second.files.all = b.files.all;
    EXPECT_EQ(second.startUp.run(arguments, "/w"), StartEnd::HandedOver);
    EXPECT_FALSE(second.window.face.visible || second.files.calls > 0) << "nothing is shown or written";
    EXPECT_EQ(second.handover.sent, Words{sent});
    second.handover.isTaken = false;
    EXPECT_EQ(second.startUp.run(arguments, "/w"), StartEnd::NotTaken);
  }
}

TEST(StartUp, TakesWhatIsHandedOverWithinATick) {
  ProgramBench b;
  b.saveCollection("/c/Trip.kvo", {"t.avi"});
  b.start({"a.avi"});
  const auto handOver = [&](const std::string& text, int time = 200) {
    b.handover.mailbox = text;
    b.loop.advance(time);
  };
  b.files.put({"/v/new.avi", "/v/a \"b\".avi", "/v/ends with a blank ", "/v/two\r\nlines\\.avi"});
  handOver("/PLAY\n\"/v/new.avi\"\n/v/gone.avi", 199);
  EXPECT_TRUE(b.intake.asked.empty());
  b.loop.advance(1);
  EXPECT_EQ(b.intake.asked, (Words{"/v/new.avi"}));
  EXPECT_FALSE(b.handover.mailbox);
  EXPECT_EQ(b.boxes.told(),
            "KVO - Fatal File access Error|KVO could not verify the file\r\ngone.avi\r\n- load aborted");

  b.window.progress.status = "Loading Clip 5 of 20";
  handOver("/v/new.avi", 1000);
  EXPECT_EQ(b.intake.asked.size(), 1U) << "it waits for the end of a load";
  b.window.progress.status.clear();
  for (const auto* junk : {"", "\n\n", "/NONSENSE", "\x01\xFF\xFE", "//////"}) handOver(junk);
  EXPECT_EQ(b.collection.MovieList.count(), 2);
  const Words odd{"/v/a \"b\".avi", "/v/ends with a blank ", "/v/two\r\nlines\\.avi"};
  for (const auto& name : {odd[0], odd[1], std::string("/v/two\\r\\nlines\\\\.avi")}) handOver(name);
  EXPECT_TRUE(std::ranges::equal(std::span(b.intake.asked).last(3), odd)) << b.intake.asked.back();

  b.clip(3).MovieName("Preview.wmv");
  handOver("KILLSQUASHPREV");
  EXPECT_EQ(b.names(), (Words{"a.avi", "new.avi", "ends with a blank ", "two\r\nlines\\.avi"}));
  for (const auto answer : {Answer::Cancel, Answer::No}) {
    b.boxes.answers = {answer};
    handOver("/c/Trip.kvo");
    EXPECT_EQ(b.collection.MovieList.count(), answer == Answer::No ? 1 : 4) << "unsaved changes come first";
  }
}

TEST(StartUp, TheIntroLeavesNoTraceOnAnyRoad) {
  using Leave = void (*)(ProgramBench&);
  constexpr Leave kEnds = [](auto& b) { b.intro.ended(), b.loop.advance(350); };
  constexpr Leave kHandedOver = [](auto& b) { b.handover.mailbox = "/v/more.avi", b.loop.advance(200); };
  constexpr Leave kOpens = [](auto& b) { b.commands.openFile("/c/Trip.INI"); };
  constexpr Leave kExits = [](auto& b) { b.shutDown.exit(); };
  constexpr Leave kRemoves = [](auto& b) { b.listCommands.Removeit(); };
  constexpr Leave kStays = [](auto& /*b*/) {};
  // The intro and the arguments, how it is left, the clips then and the intro of the settings.
  const std::tuple<const char*, const char*, Words, Leave, Words, const char*> rows[] = {
      {"film, to its end", "intro.avi", {}, kEnds, {"a.avi"}, ""},
      {"handed over", "intro.avi", {}, kHandedOver, {"a.avi", "more.avi"}, ""},
      {"exit", "intro.avi", {}, kExits, {"a.avi"}, ""},
      {"the key that removes", "intro.avi", {}, kRemoves, {}, ""},
      {"missing", "gone.avi", {}, kEnds, {"a.avi"}, "gone.avi"},
      {"named film", "intro.avi", {"/v/n.avi"}, kEnds, {"a.avi", "n.avi"}, "intro.avi"},
      {"named and missing", "intro.avi", {"/v/is gone.avi"}, kStays, {"a.avi"}, "intro.avi"},
      {"named, full screen", "intro.avi", {"/v/n.avi", "/FULLSC"}, kStays, {"a.avi"}, "intro.avi"},
      {"opened", "intro.avi", {}, kOpens, {"t.avi"}, "trip.avi"},
  };
  for (const auto& [what, intro, arguments, leave, clips, DefaultStartupVid] : rows) {
    SCOPED_TRACE(what);
    ProgramBench b;
    b.saveCollection("/prog/KVO5.INI", {"a.avi"}, [first = intro](KVO2& s) {
      s.change().DefaultStartupVid = first;
      s.change().LoadFrom = "/my/films/";
    });
    b.saveCollection("/c/Trip.INI", {"t.avi"}, [](KVO2& s) { s.change().DefaultStartupVid = "trip.avi"; });
    b.files.put({"/prog/intro.avi", "/v/n.avi", "/v/more.avi"});
    b.intake.whenAdded = [&] {  // as the real intake does
      b.settings.change().LoadFrom = "/v/";
      b.settings.state.ListIsDirty = true;
    };
    b.startUp.run(arguments, "/");
    if (b.intro.IntroRunning()) {
      EXPECT_EQ(b.window.face.controlsEnabled, !arguments.empty());
      EXPECT_FALSE(b.window.list.visible);
    }
    leave(b);
    b.intro.ended();
    b.loop.advance(1000);
    EXPECT_EQ(b.names(), clips);
    EXPECT_EQ(b.settings.preferences().DefaultStartupVid, DefaultStartupVid);
    if (arguments.empty() && clips == Words{"a.avi"}) {
      EXPECT_EQ(b.settings.preferences().LoadFrom + (b.dirty() ? ", dirty" : ""), "/my/films/");
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
  using std::nullopt;  // nothing has changed, or the dialog is taken back
  using Row = std::tuple<std::optional<Answer>, std::optional<std::string>, bool>;
  for (const auto& [answer, saveAs, ends] :
       {Row{nullopt, nullopt, true}, Row{Answer::No, nullopt, true}, Row{Answer::Cancel, nullopt, false},
        Row{Answer::Yes, "/c/new.INI", true}, Row{Answer::Yes, nullopt, false}}) {
    ProgramBench b;
    b.start({"a.avi"});
    if (answer) b.clip(1).Volume(7);
    if (answer) b.boxes.answers = {*answer};
    b.dialogs.answers = {saveAs};
    EXPECT_EQ(b.shutDown.exit(), ends);
    EXPECT_EQ(b.boxes.shown.size(), answer ? 1U : 0U);
    EXPECT_EQ(b.files.exists("/c/new.INI"), saveAs.has_value());
    EXPECT_EQ(b.window.face.visible, !ends);
  }
}

TEST(StartUp, EndsBehindTheWorkThatWasStoppedForIt) {
  for (const auto answer : {Answer::No, Answer::Cancel}) {
    ProgramBench b;
    b.start({"a.avi", "x.mp3"});
    b.files.put({"/v/n.avi", "/v/o.avi", "/v/p.avi", "/v/m.mp3"});
    b.boxes.answers = {answer};
    b.loop.onYield = [&] {
      if (b.window.progress.done == 2) {
        EXPECT_FALSE(b.shutDown.exit());
      }
      b.loop.advance(300);
    };
    b.mailbox.takeFiles({"/v/n.avi", "/v/m.mp3", "/v/o.avi", "/v/p.avi"});
    b.loop.onYield = [] {};
    EXPECT_EQ(b.initials(), "anx") << "nor does the song join the closing music";
    EXPECT_TRUE(b.boxes.shown.empty());
    b.loop.advance(1000);
    EXPECT_EQ(b.boxes.shown.size(), 1U) << "what is not saved is asked about, once";
    EXPECT_EQ(b.window.face.visible, answer == Answer::Cancel);
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
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_TRUE(boxes.told().ends_with("\r\n11\r\nand 8 more."));
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
  using Row = std::tuple<const char*, const char*, std::string>;
  test::ScriptedBoxes boxes;
  GatheredBoxes gathered(boxes);
  gathered.together([&] {
    for (const auto& [path, caption, text] :
         {Row{"/v/a.txt", "Not added", cannot}, Row{"/v/c.mp4", "c.mp4 - Damaged", "Why :-\r\nno end"},
          Row{"/v/b.txt", "Not added", cannot}, Row{"/v/d.mp4", "d.mp4 - Damaged", "Why :-\r\nno end"},
          Row{"/v/e.mp4", "e.mp4 - Damaged", "Why :-\r\nno head"},
          Row{"/v/f.zip", "Archive", "f.zip - must be expanded"},
          Row{"/v/g.avi", "g.avi - Busy", "It is open."}, Row{"/v/h.jpg", "Image", "no size"},
          Row{"/v/a long name that is gone.avi", "Gone", "KVO looked for\r\na long name"},
          Row{"/v/i.pdf", "Alone", "no clip"}}) {
      gathered.about(path);
      gathered.show({caption, text});
    }
  });
  EXPECT_EQ(boxes.told(),
            "Not added|a.txt\r\nb.txt\r\n" + cannot +
                "\nDamaged|Why :-\r\nc.mp4\r\nd.mp4\r\nno end\r\ne.mp4\r\nno head\n"
                "Archive|f.zip - must be expanded\ng.avi - Busy|It is open.\nImage|h.jpg\r\nno size\n"
                "Gone|KVO looked for\r\na long name\nAlone|i.pdf\r\nno clip");
}

TEST(StartUp, DroppedFilesJoinAndADroppedCollectionTakesThePlace) {
  ProgramBench b;
  b.saveCollection("/c/old.Kvo", {"o.avi"});
  b.start({"a.avi"});
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
  b.clip(1).IsDirty(true);
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
  b.desktop.videos = "/u/Videos";
  for (const auto& [last, starts] :
       {std::pair{"", "/u/Videos"}, std::pair{"C:\\", "/u/Videos"}, std::pair{"/my/films/", "/my/films/"}}) {
    b.settings.change().LoadFrom = last;
    EXPECT_EQ(mediaFolder(b.settings, b.desktop), starts);
  }

  b.settings.adjust().NoofUses = 30;
  b.boxes.shown.clear();
  b.intake.asked.clear();
  b.questions.answers = {"server/live.asx", "/v/gone.asx", "/v/n.avi", "\\\\server\\a.avi", "mms://server/a"};
  while (!b.questions.answers.empty()) b.media.ViewStream();
  EXPECT_EQ(b.intake.asked, (Words{"/v/gone.asx", "/v/n.avi", "\\\\server\\a.avi", "mms://server/a"}));
  EXPECT_EQ(b.boxes.told(),
            "Movie not added to collection|server/live.asx\r\nis no address that KVO can play.\r\nAn address "
            "tells its kind and a server, like http://server/live.asx");
  b.dialogs.filter = 1;
  for (const auto* filter :
       {"All Files (*.*)", "All supported Audio Files "}) {  // then the last choice is kept
    b.media.AddMedia();
    const auto& asked = b.dialogs.asked.back();
    EXPECT_EQ(asked.filters.at(asked.filter).name, filter);
  }
}

TEST(UserValues, AreWrittenWithTheirDefaultsAndReadFresh) {
  test::MemoryStore store;
  KVO2 settings;
  MainWindowState window;
  settings.user.attach(&store);
  store.all["LoopCol"] = "True";
  GetKVORegistryValues(settings, store, window);
  auto& all = store.all;
  EXPECT_EQ(all["DefaultZoom100"] + all["SliderSpeed"] + all["StillDelayTimer"], "False5007");
  EXPECT_TRUE(window.menu.mnu_LoopCol && !window.menu.mnu_Looping);
  store.all = {{"LoopCol", "False"}};
  EXPECT_FALSE(settings.user.LoopCol) << "another copy changed it";
  settings.user.RewAtEnd = true;
  EXPECT_EQ(settings.user.SliderSpeed + settings.user.StillDelayTimer, 457);
  EXPECT_EQ(all["RewAtEnd"] + all["SliderSpeed"] + all["Stilldelay"], "True4507");
  for (const auto& [kept, held] : {std::pair("49", "450"), {"50", "50"}, {"nothing", "500"}}) {
    all["SliderSpeed"] = kept;
    GetKVORegistryValues(settings, store, window);
    EXPECT_EQ(all["SliderSpeed"], held) << kept;
  }
}

}  // namespace
}  // namespace kvo
