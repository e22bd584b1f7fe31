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
  MediaCommands media{{dialogs, desktop, questions, boxes}, settings, window, mailbox};
  MainMenu::Parts menuParts{window,       settings, commands, recent, media,
                            listCommands, history,  shutDown, skins};
  MainMenu menu{menuParts, doors()};

  MenuBench() {
    saveCollection("/prog/KVO5.INI", {"a.avi", "b.avi"});
    saveCollection("/c/Lake & Sea.INI", {"o.avi"});
    startUp.run({}, "/");
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
            .chooseTrack =
                [this](MediaTrack::Kind kind, int id) {
                  called += (kind == MediaTrack::Kind::Sound ? "sound" : "text") + std::to_string(id);
                },
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
  b.menu.choose({MenuCommand::mnu_DirXZoom, 50});
  EXPECT_EQ(b.called, "free") << "a face that does not come has no size";
  b.listCommands.Removeit();
  b.listCommands.Removeit();
  EXPECT_TRUE(b.menu.zoomMenu().empty());
  const auto ofEmpty = text(b.menu.windowMenu());
  for (const auto* shortcut : {"Ins", "Ctrl+N", "F2", "Del", "Ctrl+Up", "Ctrl+V", "Ctrl+Shift+Z"})
    EXPECT_NE(ofEmpty.find(shortcut), std::string::npos) << shortcut;
  EXPECT_NE(ofEmpty.find("(Re&name F2) (Re&move Del) (Move U&p Ctrl+Up)"), std::string::npos) << ofEmpty;
  EXPECT_NE(ofEmpty.find("(Sor&t by)"), std::string::npos);
}

TEST(MainMenu, DoesWhatIsChosenUnlessItIsDisabled) {
  using enum MenuCommand;
  MenuBench b;
  const auto names = [&] { return b.names(); };
  using Words = std::vector<std::string>;
  for (const auto& [id, after] :
       {std::pair{MenuId{MoveDown}, Words{"b.avi", "a.avi"}},
        std::pair{MenuId{Undo}, Words{"a.avi", "b.avi"}}, std::pair{MenuId{Undo}, Words{"a.avi", "b.avi"}},
        std::pair{MenuId{Redo}, Words{"b.avi", "a.avi"}}, std::pair{MenuId{Sort, 0}, Words{"a.avi", "b.avi"}},
        std::pair{MenuId{Remove}, Words{"b.avi"}}, std::pair{MenuId{MoveUp}, Words{"b.avi"}},
        std::pair{MenuId{mnu_CopyItem}, Words{"b.avi"}},
        std::pair{MenuId{mnu_CopyExact}, Words{"b.avi", "b.avi - 001"}},
        std::pair{MenuId{}, Words{"b.avi", "b.avi - 001"}}}) {
    b.menu.choose(id);
    EXPECT_EQ(names(), after) << static_cast<int>(id.command);
  }
  for (const auto command :
       {mnu_Looping, mnu_RewAtEnd, mnu_LoopCollectionsOnPlayback, mnu_SldFast, mnu_StayOnTop})
    b.menu.choose({command});
  EXPECT_EQ(b.store.all["LoopPreviews"] + b.store.all["RewAtEnd"] + b.store.all["LoopCol"], "TrueFalseTrue")
      << "what loops does not rewind";
  EXPECT_TRUE(b.window.menu.mnu_LoopCol && b.window.face.stayOnTop);
  EXPECT_EQ(b.store.all["SliderSpeed"], "200");
  b.menu.choose({InterfaceSize, 5});
  b.menu.choose({Skin, 0});
  b.menu.choose({FreeZoom});
  b.menu.choose({mnu_DirXZoom, 50});
  b.window.mode.IsMiniMode = true;
  b.window.mode.IsFullScreenWindow = true;
  EXPECT_NE(
      text(b.menu.windowMenu()).find("[+&Free Zoom Mode]\n[+Full Scree&n Mode]\n[Lock Aspect]\n[Zoo&m]"),
      std::string::npos);
  b.menu.choose({mnu_DirXZoom, 50});
  b.window.mode.IsFullScreenWindow = false;
  b.menu.choose({MinimumDetails});
  b.menu.choose({mnu_DirXZoom, 200});
  b.menu.choose({mnu_LockAspect});
  EXPECT_TRUE(b.window.mode.ticks.mnu_LockAspect);
  b.window.mode.ticks.lockAndZoomEnabled = false;
  b.menu.choose({mnu_LockAspect});
  EXPECT_TRUE(b.window.mode.ticks.mnu_LockAspect) << "not while the picture has the screen";
  b.menu.choose({mnu_DirXFullSC});
  b.window.mode.player.sourceWidth = 640;
  b.menu.choose({mnu_DirXFullSC});
  EXPECT_EQ(b.store.all["InterfaceSize"] + b.settings.preferences().SkinPath, "1.25Def");
  for (const auto& [stored, size] : {std::pair{"1.25", 1.25}, std::pair{"3", 0.0}, std::pair{"x", 0.0}}) {
    MenuBench next;
    next.store.all["InterfaceSize"] = stored;
    next.startUp.run({}, "/");
    EXPECT_EQ(next.window.face.interfaceSize, size);
  }
  b.window.slider.markOut = 0.5;
  for (const auto command : {ResetMarkIn, ResetMarkOut}) b.menu.choose({command});
  {
    const CommandPass pass(b.window);
    for (const auto command : {Remove, Undo, mnu_Looping, New, Exit, FreeZoom, ResetMarkOut})
      b.menu.choose({command});
    EXPECT_EQ(b.collection.MovieList.count(), 2);
    EXPECT_TRUE(b.window.menu.mnu_Looping);
  }
  EXPECT_EQ(b.called, "sizefreefree50200pictureout");
  for (const auto command : {ToolTips, mnu_ShowCaps}) b.menu.choose({command});
  EXPECT_TRUE(!b.window.face.toolTips && b.settings.state.ToolTipsOn == 0 && b.settings.state.ShowCaps);
  b.boxes.answers = {Answer::No};
  b.menu.choose({Exit});
  EXPECT_FALSE(b.window.face.visible);
}

// The menu stands open while a drive is taken away and comes again.
TEST(MainMenu, ARecentCollectionIsTheOneThatWasShown) {
  MenuBench b;
  const std::vector<std::string> drive = {"/usb/1.INI", "/usb/2.INI"};
  for (const auto& path : drive) b.saveCollection(path, {"u.avi"});
  for (const auto& path : drive) b.commands.openFile(path);
  b.commands.openFile("/c/Lake & Sea.INI");
  b.commands.openFile("/prog/KVO5.INI");
  const auto taken = std::exchange(b.files.all, [&] {
    auto rest = b.files.all;
    for (const auto& path : drive) rest.erase(path);
    return rest;
  }());
  const auto recent = [&] { return b.menu.windowMenu()[1].entries[2].entries; };
  ASSERT_EQ(text(recent()), "[&1 Lake && Sea.INI]\n");
  const auto open = recent();
  b.commands.openFile("/c/Lake & Sea.INI");
  b.commands.openFile("/prog/KVO5.INI");
  b.files.all = taken;
  ASSERT_EQ(text(recent()), "[&1 Lake && Sea.INI]\n[&2 2.INI]\n[&3 1.INI]\n")
      << "what was away is not forgotten for that";
  b.files.all.erase("/c/Lake & Sea.INI");
  b.menu.choose(open[0].id);
  EXPECT_EQ(b.names(), (std::vector<std::string>{"a.avi", "b.avi"})) << "nor is another one opened";
  EXPECT_EQ(b.boxes.shown.back().caption, "Invalid Collection File");
  b.menu.choose(recent()[1].id);
  EXPECT_EQ(b.collection.IniFullPath, "/usb/1.INI");
}

}  // namespace
}  // namespace kvo
