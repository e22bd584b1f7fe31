#include "program/menus.h"

#include "base/text.h"
#include "support/golden.h"
#include "support/program_bench.h"

#include <cctype>
#include <set>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::ProgramBench;

struct MenuBench : ProgramBench {
  std::string called;
  std::vector<MediaTrack> tracks{{MediaTrack::Kind::Sound, 1, "Director", "en", true},
                                 {MediaTrack::Kind::Sound, 2, "", "", false},
                                 {MediaTrack::Kind::Subtitles, 1, "", "de", true}};
  MainMenu menu{{window, settings, commands, recent, media, listCommands, history, shutDown, skins}, doors()};

  MenuBench() {
    saveCollection("/c/Lake & Sea.INI", {"o.avi"});
    start({"a.avi", "b.avi"});
  }
  void choose(std::initializer_list<MenuId> ids) {
    for (const auto& id : ids) menu.choose(id);
  }
  MenuDoors doors() {
    const auto door = [this](const char* name) { return [this, name] { called += name; }; };
    return {.freeZoom = door("free"),
            .coverScreen = door("cover"),
            .zoom = [this](int percent) { called += std::to_string(percent); },
            .minimumDetails = door("details"),
            .interfaceSize = door("size"),
            .sizeFits = [](double size) { return size < 2; },
            .fullPicture = door("picture"),
            .tracks = [this] { return tracks; },
            .chooseTrack = [this](MediaTrack::Kind /*kind*/, int id) { called += std::to_string(id); },
            .captions = door("captions"),
            .createMovie = door("movie"),
            .resetMark = [this](bool in) { called += in ? "in" : "out"; }};
  }
};

// An entry on each line, a submenu behind its head; in round brackets what is disabled.
std::string text(const std::vector<MenuEntry>& entries, const char* behind = "\n") {
  std::string out;
  for (const auto& entry : entries) {
    const char* mark = entry.mark == MenuMark::None ? "" : entry.mark == MenuMark::Tick ? "+" : "*";
    auto caption = mark + entry.caption + (entry.shortcut.empty() ? "" : " " + entry.shortcut);
    caption = entry.enabled ? "[" + caption + "]" : "(" + caption + ")";
    out += entry.caption.empty() ? "-" : caption;
    if (!entry.entries.empty()) out += " { " + text(entry.entries, " ") + "}";
    out += behind;
  }
  return out;
}

// Every letter once on each level, every shortcut once.
void expectDistinct(const std::vector<MenuEntry>& entries, std::set<std::string>& shortcuts) {
  std::set<int> letters;
  for (const auto& entry : entries) {
    const auto at = replaced(entry.caption, "&&", "..").find('&');
    const bool fresh = at == std::string::npos || letters.insert(std::toupper(entry.caption[at + 1])).second;
    EXPECT_TRUE(fresh && (entry.shortcut.empty() || shortcuts.insert(entry.shortcut).second))
        << entry.caption;
    expectDistinct(entry.entries, shortcuts);
  }
}

TEST(MainMenu, OffersWhatCanBeDone) {
  MenuBench b;
  b.commands.openFile("/c/Lake & Sea.INI");
  b.commands.openFile("/prog/KVO5.INI");
  b.listCommands.rename("Lake & Sea");
  b.window.menu.mnu_Looping = true;
  test::expectGolden("main-menu.txt", text(b.menu.windowMenu()));
  for (const auto& menu : {b.menu.windowMenu(), b.menu.listMenu(), b.menu.sortMenu()}) {
    std::set<std::string> shortcuts;
    expectDistinct(menu, shortcuts);
  }
  b.called.clear();
  b.choose({{MenuCommand::mnu_DirXZoom, 50}});
  EXPECT_EQ(b.called, "free") << "a face that does not come has no size";
  for (int clips = 2; clips > 0; --clips) b.listCommands.Removeit();
  EXPECT_TRUE(b.menu.zoomMenu().empty());
  test::expectGolden("main-menu-of-nothing.txt", text(b.menu.windowMenu()));
}

TEST(MainMenu, DoesWhatIsChosenUnlessItIsDisabled) {
  using enum MenuCommand;
  MenuBench b;
  for (const auto& [id, after] :
       {std::pair{MenuId{MoveDown}, "ba"}, std::pair{MenuId{Undo}, "ab"}, std::pair{MenuId{Undo}, "ab"},
        std::pair{MenuId{Redo}, "ba"}, std::pair{MenuId{Sort, 0}, "ab"}, std::pair{MenuId{Remove}, "b"},
        std::pair{MenuId{MoveUp}, "b"}, std::pair{MenuId{mnu_CopyItem}, "b"},
        std::pair{MenuId{mnu_CopyExact}, "bb"}, std::pair{MenuId{}, "bb"}}) {
    b.choose({id});
    EXPECT_EQ(b.initials(), after) << static_cast<int>(id.command);
  }
  b.choose({{mnu_Looping}, {mnu_RewAtEnd}, {mnu_LoopCollectionsOnPlayback}, {mnu_SldFast}, {mnu_StayOnTop}});
  auto& stored = b.store.all;
  EXPECT_EQ(stored["LoopPreviews"] + stored["RewAtEnd"] + stored["LoopCol"] + stored["SliderSpeed"],
            "TrueFalseTrue200")
      << "what loops does not rewind";
  EXPECT_TRUE(b.window.menu.mnu_LoopCol && b.window.face.stayOnTop);
  b.choose({{InterfaceSize, 5}, {Skin, 0}, {FreeZoom}, {mnu_DirXZoom, 50}});
  b.window.mode.IsMiniMode = true;
  b.window.mode.IsFullScreenWindow = true;
  EXPECT_NE(
      text(b.menu.windowMenu()).find("[+&Free Zoom Mode]\n[+Full Scree&n Mode]\n[Lock Aspect]\n[Zoo&m]"),
      std::string::npos);
  b.choose({{mnu_DirXZoom, 50}});
  b.window.mode.IsFullScreenWindow = false;
  b.choose({{MinimumDetails}, {mnu_DirXZoom, 200}, {mnu_LockAspect}});
  EXPECT_TRUE(b.window.mode.ticks.mnu_LockAspect);
  b.window.mode.ticks.lockAndZoomEnabled = false;
  b.choose({{mnu_LockAspect}, {mnu_DirXFullSC}});
  EXPECT_TRUE(b.window.mode.ticks.mnu_LockAspect) << "not while the picture has the screen";
  b.window.mode.player.sourceWidth = 640;
  b.choose({{mnu_DirXFullSC}});
  EXPECT_EQ(b.store.all["InterfaceSize"] + b.settings.preferences().SkinPath, "1.25Def");
  for (const auto& [stored, size] : {std::pair{"1.25", 1.25}, std::pair{"3", 0.0}, std::pair{"x", 0.0}}) {
    MenuBench next;
    next.store.all["InterfaceSize"] = stored;
    next.startUp.run({}, "/");
    EXPECT_EQ(next.window.face.interfaceSize, size);
  }
  b.window.slider.markOut = 0.5;
  b.choose({{ResetMarkIn}, {ResetMarkOut}});
  {
    const CommandPass pass(b.window);
    b.choose({{Remove}, {Undo}, {mnu_Looping}, {New}, {Exit}, {FreeZoom}, {ResetMarkOut}});
    EXPECT_EQ(b.collection.MovieList.count(), 2);
    EXPECT_TRUE(b.window.menu.mnu_Looping);
  }
  EXPECT_EQ(b.called, "sizefreefree50200pictureout");
  b.choose({{ToolTips}, {mnu_ShowCaps}});
  EXPECT_TRUE(!b.window.face.toolTips && b.settings.state.ToolTipsOn == 0 && b.settings.state.ShowCaps);
  b.boxes.answers = {Answer::No};
  b.choose({{Exit}});
  EXPECT_FALSE(b.window.face.visible);
}

// The menu stands open while a drive is taken away and comes again.
TEST(MainMenu, ARecentCollectionIsTheOneThatWasShown) {
  MenuBench b;
  const auto openInTurn = [&](const std::vector<std::string>& paths) {
    for (const auto& path : paths) b.commands.openFile(path);
  };
  for (const auto* path : {"/usb/1.INI", "/usb/2.INI"}) b.saveCollection(path, {"u.avi"});
  openInTurn({"/usb/1.INI", "/usb/2.INI", "/c/Lake & Sea.INI", "/prog/KVO5.INI"});
  const auto withDrive = b.files.all;
  for (const auto* path : {"/usb/1.INI", "/usb/2.INI"}) b.files.all.erase(path);
  const auto recent = [&] { return b.menu.windowMenu()[1].entries[2].entries; };
  ASSERT_EQ(text(recent()), "[&1 Lake && Sea.INI]\n");
  const auto open = recent();
  openInTurn({"/c/Lake & Sea.INI", "/prog/KVO5.INI"});
  b.files.all = withDrive;
  ASSERT_EQ(text(recent()), "[&1 Lake && Sea.INI]\n[&2 2.INI]\n[&3 1.INI]\n")
      << "what was away is not forgotten for that";
  b.files.all.erase("/c/Lake & Sea.INI");
  b.choose({open[0].id});
  EXPECT_EQ(b.names(), (std::vector<std::string>{"a.avi", "b.avi"})) << "nor is another one opened";
  EXPECT_EQ(b.boxes.shown.back().caption, "Invalid Collection File");
  b.choose({recent()[1].id});
  EXPECT_EQ(b.collection.IniFullPath, "/usb/1.INI");
}

}  // namespace
}  // namespace kvo
