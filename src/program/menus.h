// The menus of the main window as data, made anew each time one is opened, and what their entries do. What
// the program cannot do, and what the present face of the window does not have, has no entry; what cannot be
// done just now has one that is disabled.
#pragma once

#include "ports/media_engine.h"
#include "program/list_commands.h"
#include "program/media_commands.h"
#include "program/recent_collections.h"
#include "program/shut_down.h"
#include "program/skins.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

enum class MenuCommand {
  None,  ///< a separator, or the head of a submenu
  New,
  mnu_LoadShow,
  Recent,  ///< `path`: of the collection
  SaveAgain,
  mnu_SaveShow,
  AddMedia,
  AddWebPage,
  ViewStream,
  FindMissing,
  Portable,
  CreateMovie,
  Exit,
  Undo,
  Redo,
  Remove,
  MoveUp,
  MoveDown,
  Sort,  ///< `which`: SortKey
  mnu_SectionName,
  mnu_CopyExact,
  mnu_CopyItem,
  mnu_CopyEquiChunk,
  ResetMarkIn,
  ResetMarkOut,
  mnu_Looping,
  mnu_RewAtEnd,
  mnu_LoopCollectionsOnPlayback,
  mnu_PlayWithoutGaps,
  mnu_SldFast,
  mnu_SldNormal,
  SoundTrack,  ///< `which`: its number
  Subtitles,   ///< `which`: the number of the track; 0 none
  mnu_ShowCaps,
  OfferResume,
  FreeZoom,
  CoverScreen,
  mnu_DirXZoom,  ///< `which`: per cent
  mnu_DirXFullSC,
  mnu_LockAspect,
  MinimumDetails,
  mnu_StayOnTop,
  ToolTips,
  Skin,           ///< `which`: its place in the submenu
  InterfaceSize,  ///< `which`: quarters, 4 to 8; 0 goes by the screen
};

struct MenuId {
  MenuCommand command = MenuCommand::None;
  int which = 0;
  std::string path{};
  bool operator==(const MenuId&) const = default;
};

enum class MenuMark { None, Tick, Dot };  ///< Dot: the chosen one of several

struct MenuEntry {
  MenuId id{};
  std::string
      caption{};  ///< "&" ahead of the letter that is underlined, "&&" shown as one; empty: a separator
  std::string shortcut{};  ///< "Ctrl+Shift+Z"; empty for none
  bool enabled = true;
  std::function<void()> act{};  ///< MainMenu::choose calls it; a recent collection has none
  bool takesPass = true;        ///< the act takes a CommandPass of its own
  MenuMark mark = MenuMark::None;
  std::string tip{};                 ///< the whole path of a recent collection
  std::vector<MenuEntry> entries{};  ///< of a submenu
};

/// What other rooms do for the menus. What is empty has no entry.
struct MenuDoors {
  std::function<void()> freeZoom{};        ///< to Free Zoom and back
  std::function<void()> coverScreen{};     ///< in Free Zoom: to the whole screen and back
  std::function<void(int)> zoom{};         ///< in Free Zoom: the window takes this much of the clip's size
  std::function<void()> minimumDetails{};  ///< details off and on
  std::function<void()> interfaceSize{};   ///< the state says which
  std::function<bool(double)> sizeFits{};  ///< the screen has room for this interface size
  std::function<void()> fullPicture{};     ///< the picture alone on the whole screen, and back
  std::function<std::vector<MediaTrack>()> tracks{};  ///< of the clip in hand
  std::function<void(MediaTrack::Kind, int)> chooseTrack{};
  std::function<void()> findMissing{};         ///< files of clips that are not there
  std::function<bool()> isPortable{};          ///< the collection names its files from its own folder on
  std::function<void(bool)> makePortable{};    ///< from the next save on
  std::function<void()> captions{};            ///< the setting says whether they are shown
  std::function<void(MenuCommand)> ordered{};  ///< this tick of those that steer playing is another now
  std::function<void()> createMovie{};         ///< the editor opens
  std::function<void(bool)> resetMark{};       ///< of the clip in hand: true Mark-In, false Mark-Out
};

class MainMenu {
 public:
  struct Parts {
    MainWindowState& window;
    KVO2& settings;
    CollectionCommands& collections;
    const RecentCollections& recent;
    MediaCommands& media;
    ListCommands& list;
    History& history;
    ShutDown& shutDown;
    Skins& skins;
  };

  MainMenu(const Parts& parts, MenuDoors doors) : parts_(parts), doors_(std::move(doors)) {}

  /// Of the right click on the window, and of the menu key. An entry with a shortcut is in it at any time.
  [[nodiscard]] std::vector<MenuEntry> windowMenu();

  /// Of the right click on the list.
  [[nodiscard]] std::vector<MenuEntry> listMenu();

  /// Below the key SORT.
  [[nodiscard]] std::vector<MenuEntry> sortMenu();

  /// Of the key for the picture's size, Lbl_Zoom: the faces, and the sizes of Free Zoom, which an entry
  /// enters first. Nothing without a clip, and while the editor is open.
  [[nodiscard]] std::vector<MenuEntry> zoomMenu();

  /// Does what an entry stands for; nothing when it is disabled, or there is none. A recent collection is
  /// opened by its path, whatever has become of the menu since.
  void choose(const MenuId& id);

 private:
  // Whether the entries that are files are among them: those are asked of the disk.
  enum class Files { Without, With };

  std::vector<MenuEntry> windowMenu(Files files);
  MenuEntry addMedia();
  std::vector<MenuEntry> collectionEntries(Files files);
  std::vector<MenuEntry> recentEntries();
  std::vector<MenuEntry> historyEntries();
  std::vector<MenuEntry> clipEntries();
  std::vector<MenuEntry> copyEntries();
  std::vector<MenuEntry> playEntries();
  std::vector<MenuEntry> trackEntries();
  void chooseTrack(MediaTrack::Kind kind, int id);
  std::vector<MenuEntry> percentEntries();
  static std::string trackCaption(const MediaTrack& track);
  MenuEntry trackMenu(MediaTrack::Kind kind, const std::vector<MediaTrack>& tracks);
  std::vector<MenuEntry> faceEntries(Files files);
  std::vector<MenuEntry> modeEntries();
  std::vector<MenuEntry> skinEntries();
  std::vector<MenuEntry> sizeEntries();

  Parts parts_;
  MenuDoors doors_;
};

}  // namespace kvo
