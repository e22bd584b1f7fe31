#include "program/menus.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/telling/messages.h"
#include "core/telling/translated.h"

#include <array>
#include <iterator>
#include <string_view>

namespace kvo {
namespace {

using Entries = std::vector<MenuEntry>;

constexpr std::array kSortCaptions = {"&Name",   "&Date",       "&Type",   "&Size",
                                      "&Length", "&Resolution", "S&huffle"};
constexpr std::array kSizeCaptions = {std::pair{0, "&By screen"}, std::pair{4, "&1x"}, std::pair{5, "1.2&5x"},
                                      std::pair{6, "1.5&x"}, std::pair{8, "&2x"}};

MenuEntry submenu(std::string caption, Entries entries, bool enabled = true) {
  return {
      .caption = std::move(caption), .enabled = enabled && !entries.empty(), .entries = std::move(entries)};
}

// Behind what is there, and apart from it.
void addGroup(Entries& entries, Entries group) {
  if (group.empty()) return;
  if (!entries.empty()) entries.emplace_back();
  std::move(group.begin(), group.end(), std::back_inserter(entries));
}

const MenuEntry* find(const Entries& entries, const MenuId& id) {
  for (const auto& entry : entries) {
    if (entry.id == id) return &entry;
    if (const auto* inside = find(entry.entries, id)) return inside;
  }
  return nullptr;
}

MenuEntry ticked(MenuCommand command, std::string caption, bool tick, bool enabled,
                 std::function<void()> act) {
  return {.id = {command},
          .caption = std::move(caption),
          .enabled = enabled,
          .act = std::move(act),
          .takesPass = false,
          .mark = tick ? MenuMark::Tick : MenuMark::None};
}

// One of several that exclude each other.
MenuEntry chosenOne(MenuId id, std::string caption, bool chosen, std::function<void()> act) {
  return {.id = std::move(id),
          .caption = std::move(caption),
          .act = std::move(act),
          .takesPass = false,
          .mark = chosen ? MenuMark::Dot : MenuMark::None};
}

std::string asCaption(std::string_view name) { return replaced(name, "&", "&&"); }

}  // namespace

// A shortcut does not wait for the disk.
void MainMenu::choose(const MenuId& id) {
  if (id.command == MenuCommand::Recent) {
    parts_.collections.openNamed(id.path);
    return;
  }
  auto menu = windowMenu(id.command == MenuCommand::Skin ? Files::With : Files::Without);
  addGroup(menu, zoomMenu());
  const auto* chosen = id == MenuId{} ? nullptr : find(menu, id);
  if (chosen == nullptr || !chosen->enabled) return;
  if (chosen->takesPass) return chosen->act();
  if (const CommandPass pass(parts_.window); pass) chosen->act();
}

Entries MainMenu::windowMenu() { return windowMenu(Files::With); }

Entries MainMenu::windowMenu(Files files) {
  Entries entries{addMedia(), submenu("&Collection", collectionEntries(files))};
  if (doors_.createMovie)
    entries.push_back({{MenuCommand::CreateMovie},
                       "Create Mo&vie...",
                       "Ctrl+M",
                       parts_.window.menu.clipsEnabled,
                       doors_.createMovie});
  addGroup(entries, historyEntries());
  addGroup(entries,
           {submenu("Cl&ip", clipEntries()), submenu("Sor&t by", sortMenu(), parts_.window.listKeys.SORT)});
  addGroup(entries, copyEntries());
  addGroup(entries, playEntries());
  addGroup(entries, trackEntries());
  addGroup(entries, faceEntries(files));
  addGroup(entries, {{{MenuCommand::Exit}, "E&xit", "Ctrl+Q", true, [this] { parts_.shutDown.exit(); }}});
  return entries;
}

Entries MainMenu::listMenu() {
  Entries entries{addMedia()};
  addGroup(entries, clipEntries());
  entries.push_back(submenu("Sor&t by", sortMenu(), parts_.window.listKeys.SORT));
  addGroup(entries, copyEntries());
  addGroup(entries, historyEntries());
  return entries;
}

MenuEntry MainMenu::addMedia() {
  return {{MenuCommand::AddMedia}, "&Add Media...", "Ins", parts_.window.face.controlsEnabled, [this] {
            parts_.media.AddMedia();
          }};
}

Entries MainMenu::collectionEntries(Files files) {
  auto& collections = parts_.collections;
  Entries entries{
      {{MenuCommand::New}, "&New", "Ctrl+N", true, [&] { collections.New(); }},
      {{MenuCommand::mnu_LoadShow}, "&Open...", "Ctrl+O", true, [&] { collections.Open(); }},
      submenu("Open &Recent", files == Files::With ? recentEntries() : Entries()),
      {{MenuCommand::SaveAgain}, "&Save", "Ctrl+S", true, [&] { collections.saveAgain(); }},
      {{MenuCommand::mnu_SaveShow}, "Save &As...", "Ctrl+Shift+S", true, [&] { collections.Save(); }},
      {},
      {{MenuCommand::AddWebPage}, "Add &Web Page...", "", true, [this] { parts_.media.AddWebPage(); }},
      {{MenuCommand::ViewStream}, "&View Stream...", "", true, [this] { parts_.media.ViewStream(); }}};
  if (doors_.findMissing)
    addGroup(entries, {{{MenuCommand::FindMissing},
                        "&Find Missing Files...",
                        "",
                        parts_.window.listKeys.Cross,
                        doors_.findMissing}});
  if (doors_.makePortable) {
    const bool now = doors_.isPortable();
    entries.push_back(ticked(MenuCommand::Portable, "&Portable (files named from the collection's folder)",
                             now, true, [this, now] { doors_.makePortable(!now); }));
  }
  return entries;
}

Entries MainMenu::recentEntries() {
  Entries entries;
  for (auto& path : parts_.recent.paths()) {
    if (path == parts_.collections.path()) continue;  // it is open
    auto caption = "&" + std::to_string(entries.size() + 1) + " " + asCaption(fileNamePart(path));
    entries.push_back({.id = {.command = MenuCommand::Recent, .path = path}, .caption = std::move(caption)});
    entries.back().tip = std::move(path);
  }
  return entries;
}

Entries MainMenu::historyEntries() {
  auto& history = parts_.history;
  const auto& names = parts_.window.history;
  const auto caption = [](const std::string& name, const char* plain) {
    return "&" + (name.empty() ? std::string(plain) : asCaption(name));
  };
  return {{{MenuCommand::Undo},
           caption(names.undo, "Undo"),
           "Ctrl+Z",
           !names.undo.empty(),
           [&] { history.undo(); }},
          {{MenuCommand::Redo}, caption(names.redo, "Redo"), "Ctrl+Shift+Z", !names.redo.empty(), [&] {
             history.redo();
           }}};
}

Entries MainMenu::clipEntries() {
  auto& list = parts_.list;
  const auto& keys = parts_.window.listKeys;
  const auto& slider = parts_.window.slider;
  // The change of the record takes the pass; the player, too, stays as it is where there is none.
  const auto reset = [this](MenuCommand command, const char* caption, bool isSet, bool in) {
    return MenuEntry{{command}, caption, "", isSet && doors_.resetMark, [this, in] {
                       if (!parts_.window.busy()) doors_.resetMark(in);
                     }};
  };
  return {{{MenuCommand::mnu_SectionName}, "Re&name", "F2", keys.Cross, [&] { list.beginRename(); }},
          {{MenuCommand::Remove}, "Re&move", "Del", keys.Cross, [&] { list.Removeit(); }},
          {{MenuCommand::MoveUp}, "Move U&p", "Ctrl+Up", keys.UP, [&] { list.moveUp(); }},
          {{MenuCommand::MoveDown}, "Move &Down", "Ctrl+Down", keys.DOWN, [&] { list.moveDown(); }},
          reset(MenuCommand::ResetMarkIn, "Clear Mark-&In", slider.markIn > 0, true),
          reset(MenuCommand::ResetMarkOut, "Clear Mark-&Out", slider.markOut < 1, false)};
}

Entries MainMenu::copyEntries() {
  const auto copy = [&](MenuCommand command, const char* caption, const char* keys, CopyMode mode) {
    return MenuEntry{{command}, caption, keys, parts_.list.whyNoCopy(mode).empty(), [this, mode] {
                       parts_.list.copy(mode);
                     }};
  };
  return {copy(MenuCommand::mnu_CopyExact, "Copy Clip (Exact Copy)", "", CopyMode::Exact),
          copy(MenuCommand::mnu_CopyItem, "Copy Clip (From Mark-Out to Clip End)", "Ctrl+V", CopyMode::Tail),
          copy(MenuCommand::mnu_CopyEquiChunk, "Copy Clip (Equi-Chunk)", "", CopyMode::EqualChunk)};
}

Entries MainMenu::sortMenu() {
  Entries entries;
  for (const auto* caption : kSortCaptions) {
    const auto key = static_cast<int>(entries.size());
    entries.push_back({{MenuCommand::Sort, key}, caption, "", parts_.window.listKeys.SORT, [this, key] {
                         parts_.list.sort(static_cast<SortKey>(key));
                       }});
  }
  return entries;
}

Entries MainMenu::playEntries() {
  auto& ticks = parts_.window.menu;
  auto& user = parts_.settings.user;
  const auto turn = [this](MenuCommand command, UserValue<Boolean>& value, bool& tick) {
    return [this, command, &value, &tick] {
      value = tick = !tick;
      if (doors_.ordered) doors_.ordered(command);
    };
  };
  const auto slider = [&](MenuCommand command, const char* caption, Integer milliseconds) {
    return chosenOne({command}, caption, user.SliderSpeed == milliseconds,
                     [this, &user, command, milliseconds] {
                       user.SliderSpeed = milliseconds;
                       if (doors_.ordered) doors_.ordered(command);
                     });
  };
  const bool offers = user.OfferResume;
  return {
      ticked(MenuCommand::mnu_Looping, "&Loop clips", ticks.mnu_Looping, true,
             turn(MenuCommand::mnu_Looping, user.LoopPreviews, ticks.mnu_Looping)),
      ticked(MenuCommand::mnu_RewAtEnd, "Rewind at &End and Stop", ticks.mnu_RewAtEnd, !ticks.mnu_Looping,
             turn(MenuCommand::mnu_RewAtEnd, user.RewAtEnd, ticks.mnu_RewAtEnd)),
      ticked(MenuCommand::mnu_LoopCollectionsOnPlayback, "Loop Collections on play&back", ticks.mnu_LoopCol,
             true, turn(MenuCommand::mnu_LoopCollectionsOnPlayback, user.LoopCol, ticks.mnu_LoopCol)),
      ticked(MenuCommand::mnu_PlayWithoutGaps, "Play &without gaps", ticks.mnu_PlayWithoutGaps, true,
             turn(MenuCommand::mnu_PlayWithoutGaps, user.PlayWithoutGaps, ticks.mnu_PlayWithoutGaps)),
      ticked(MenuCommand::OfferResume, "Resume lon&g clips", offers, true,
             [&user, offers] { user.OfferResume = !offers; }),
      submenu("T&he slider moves", {slider(MenuCommand::mnu_SldFast, "&Often", 200),
                                    slider(MenuCommand::mnu_SldNormal, "&Now and then", 500)})};
}

// One that says nothing of itself goes by its number.
std::string MainMenu::trackCaption(const MediaTrack& track) {
  const auto name = track.title.empty() ? translated("Track %1", {std::to_string(track.id)}) : track.title;
  return asCaption(track.language.empty() ? name : name + " (" + track.language + ")");
}

MenuEntry MainMenu::trackMenu(MediaTrack::Kind kind, const std::vector<MediaTrack>& tracks) {
  const bool texts = kind == MediaTrack::Kind::Subtitles;
  Entries entries;
  const auto add = [&](int id, std::string caption, bool chosen) {
    const MenuId command{texts ? MenuCommand::Subtitles : MenuCommand::SoundTrack, id};
    entries.push_back(
        chosenOne(command, std::move(caption), chosen, [this, kind, id] { chooseTrack(kind, id); }));
  };
  const bool shown = !texts || parts_.settings.state.ShowCaps;
  bool any = false;
  for (const auto& track : tracks) {
    if (track.kind != kind) continue;
    add(track.id, trackCaption(track), shown && track.chosen);
    any = any || (shown && track.chosen);
  }
  if (!texts) return submenu("Soun&d track", std::move(entries));
  if (!entries.empty()) add(0, "&None", !any);
  addGroup(entries, {ticked(MenuCommand::mnu_ShowCaps, "&Show captions", shown, true, [this] {
             parts_.settings.state.ShowCaps = !parts_.settings.state.ShowCaps;
             doors_.captions();
           })});
  return submenu("&Subtitles", std::move(entries));
}

// Texts that are chosen are to be seen.
void MainMenu::chooseTrack(MediaTrack::Kind kind, int id) {
  doors_.chooseTrack(kind, id);
  if (kind != MediaTrack::Kind::Subtitles) return;
  parts_.settings.state.ShowCaps = id != 0;
  doors_.captions();
}

Entries MainMenu::trackEntries() {
  if (!doors_.tracks || !doors_.chooseTrack || !doors_.captions) return {};
  const auto tracks = doors_.tracks();
  return {trackMenu(MediaTrack::Kind::Sound, tracks), trackMenu(MediaTrack::Kind::Subtitles, tracks)};
}

// The faces of the window: to another one, and what the present one has.
Entries MainMenu::modeEntries() {
  auto& mode = parts_.window.mode;
  const bool clips = parts_.window.menu.clipsEnabled;
  Entries entries;
  const auto door = [&](MenuCommand command, std::string caption, const std::function<void()>& act,
                        bool tick = false) {
    if (act) entries.push_back(ticked(command, std::move(caption), tick, clips, act));
  };
  if (doors_.fullPicture) {
    entries.push_back(ticked(MenuCommand::mnu_DirXFullSC, "&Picture on Full Screen", mode.pictureAlone,
                             mode.pictureAlone || mode.player.sourceWidth > 0 || mode.still.Img_Still.visible,
                             doors_.fullPicture));
    entries.back().shortcut = "Alt+Return";
  }
  const auto numbered = [](int caption) { return std::string("&").append(LoadResString(caption)); };
  door(MenuCommand::FreeZoom, numbered(214), doors_.freeZoom, mode.IsMiniMode);
  if (!mode.IsMiniMode) {
    door(MenuCommand::MinimumDetails, numbered(parts_.settings.state.AllDetOff ? 265 : 264),
         doors_.minimumDetails);
    return entries;
  }
  door(MenuCommand::CoverScreen, "Full Scree&n Mode", doors_.coverScreen, mode.IsFullScreenWindow);
  auto& ticks = mode.ticks;
  entries.push_back(ticked(MenuCommand::mnu_LockAspect, "Lock Aspect", ticks.mnu_LockAspect,
                           ticks.lockAndZoomEnabled, [&] { ticks.mnu_LockAspect = !ticks.mnu_LockAspect; }));
  if (auto zooms = percentEntries(); !zooms.empty()) {
    entries.push_back(submenu("Zoo&m", std::move(zooms), clips && ticks.lockAndZoomEnabled));
  }
  return entries;
}

Entries MainMenu::percentEntries() {
  const auto& mode = parts_.window.mode;
  Entries entries;
  if (!doors_.zoom) return entries;
  for (const auto& [percent, tick] :
       {std::pair{50, mode.ticks.mnu_DirXZoom50}, std::pair{100, mode.ticks.mnu_DirXZoom100},
        std::pair{200, mode.ticks.mnu_DirXZoom200}}) {
    entries.push_back({.id = {MenuCommand::mnu_DirXZoom, percent},
                       .caption = translated("Zoom %1%", {std::to_string(percent)}),
                       .enabled = parts_.window.menu.clipsEnabled,
                       .act =
                           [this, at = percent] {
                             if (!parts_.window.mode.IsMiniMode) doors_.freeZoom();
                             if (parts_.window.mode.IsMiniMode) doors_.zoom(at);
                           },
                       .takesPass = false,
                       .mark = tick && mode.IsMiniMode ? MenuMark::Dot : MenuMark::None});
  }
  return entries;
}

Entries MainMenu::zoomMenu() {
  if (!parts_.window.menu.clipsEnabled || parts_.settings.state.KVOIsInEditMode) return {};
  auto entries = modeEntries();
  if (!parts_.window.mode.IsMiniMode) addGroup(entries, percentEntries());
  return entries;
}

Entries MainMenu::faceEntries(Files files) {
  auto& face = parts_.window.face;
  auto entries = modeEntries();
  entries.push_back(ticked(MenuCommand::mnu_StayOnTop, "Stay on T&op", face.stayOnTop, true,
                           [&] { face.stayOnTop = !face.stayOnTop; }));
  entries.push_back(submenu("S&kin", files == Files::With ? skinEntries() : Entries()));
  if (doors_.interfaceSize) entries.push_back(submenu("Interface si&ze", sizeEntries()));
  return entries;
}

Entries MainMenu::skinEntries() {
  Entries entries;
  for (const auto& skin : parts_.skins.menu()) {
    const auto place = static_cast<int>(entries.size());
    entries.push_back({.id = {MenuCommand::Skin, place},
                       .caption = asCaption(skin.caption),
                       .act = [this, place] { parts_.skins.choose(place); },
                       .mark = skin.isChosen ? MenuMark::Dot : MenuMark::None});
  }
  return entries;
}

Entries MainMenu::sizeEntries() {
  Entries entries;
  for (const auto& [quarters, caption] : kSizeCaptions) {
    const double size = quarters / 4.0;
    const bool chosen = parts_.window.face.interfaceSize == size;
    entries.push_back(chosenOne({MenuCommand::InterfaceSize, quarters}, caption, chosen, [this, size] {
      parts_.settings.user.InterfaceSize = parts_.window.face.interfaceSize = size;
      doors_.interfaceSize();
    }));
    entries.back().enabled = size == 0 || !doors_.sizeFits || doors_.sizeFits(size);
  }
  auto& tips = parts_.window.face.toolTips;
  addGroup(entries, {ticked(MenuCommand::ToolTips, "Tool &tips", tips, true, [this, &tips] {
             tips = !tips;
             parts_.settings.state.ToolTipsOn = tips ? kFlagOn : 0;
           })});
  return entries;
}

}  // namespace kvo
