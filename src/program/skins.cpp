#include "program/skins.h"

#include "base/holding.h"
#include "base/text.h"
#include "core/telling/failures.h"

#include <charconv>
#include <iterator>
#include <utility>

namespace kvo {

struct StockSkin {
  const char* caption;
  std::string_view name;  // of a built-in one, as `SkinPath` has it; others stand there by their file
  std::string_view file;  // beside the program
  ColorRef logo;
  ColorRef display;
};

namespace {

constexpr ColorRef kBlue = 0xFF0000;
constexpr ColorRef kGreen = 65280;
constexpr std::size_t kBlanksBehindCaption = 5;
constexpr std::string_view kMaskPicture = "\\skins\\SkinMask.bmp";

constexpr StockSkin kStock[] = {
    {"Default Skin", "Def", "\\Skins\\blue.bmp", kDefaultColor, kDefaultColor},
    {"Plastique", "Quirl", "\\Skins\\Plastique.bmp", kDefaultColor, kDefaultColor},
    {"Snake Skin", "", "\\Skins\\snakesk.jpg", 0xFFFF00, kGreen},
    {"Waves", "", "\\Skins\\Waves.jpg", kBlue, kDefaultColor},
};
constexpr const StockSkin& kDefaultSkin = kStock[0];

bool isBuiltIn(const StockSkin& skin) { return !skin.name.empty(); }

const StockSkin* builtInSkin(std::string_view name) {
  for (const auto& skin : kStock) {
    if (isBuiltIn(skin) && skin.name == name) return &skin;
  }
  return nullptr;
}

// What a file calls a skin, as `SkinPath` has it: built-in ones are known in any case.
std::string skinNamed(std::string_view text) {
  if (text.empty() || characterCount(text) == kUnusedLength) return std::string(kDefaultSkin.name);
  for (const auto& skin : kStock) {
    if (isBuiltIn(skin) && sameText(trimmed(text), skin.name)) return std::string(skin.name);
  }
  return std::string(text);
}

}  // namespace

std::string Skins::fileOf(const StockSkin& skin) const {
  const auto path = ports_.folder.beside(skin.file);
  return ports_.pictures.find(path).value_or(path);
}

const StockSkin* Skins::inUse() const {
  const auto& path = settings_.preferences().SkinPath;
  for (const auto& skin : kStock) {
    if (path == (isBuiltIn(skin) ? std::string(skin.name) : fileOf(skin))) return &skin;
  }
  return nullptr;
}

void Skins::applyStored() {
  const auto name = skinNamed(settings_.preferences().SkinPath);
  settings_.adjust().SkinPath = name;
  window_.skin.SkinName = kDefaultSkin.name;
  ShapeMe();
  skins(true, true, builtInSkin(name) != nullptr ? "" : name, false);
  const auto* skin = inUse();
  FadBorder(kProductName, skin != nullptr ? skin->logo : 0);
  Cupdisptextcol();
}

bool Skins::skins(bool noDialog, bool stepButtons, const std::string& file, bool showWindow) {
  if (window_.skin.SkinBusy) return false;
  const Holding busy(window_.skin.SkinBusy);
  const auto stored = settings_.preferences().SkinPath;
  if (const auto* skin = builtInSkin(stored)) {
    paint(fileOf(*skin));
  } else if (!file.empty()) {
    paint(file);
    endPlaying(stepButtons);
    return true;
  } else if (!noDialog) {
    if (!paintChosen()) return false;
  } else {
    const auto* named = builtInSkin(window_.skin.SkinName);
    paint(named != nullptr ? fileOf(*named) : stored);
  }
  endPaused(showWindow);
  return true;
}

// What cannot be shown gives way to the default skin; where that cannot be shown either the window is bare.
void Skins::paint(const std::string& path) {
  ++window_.skin.revision;
  refusal_.clear();
  const auto isLoaded = [this](const std::string& file) {
    const auto loaded = ports_.pictures.load(file);
    window_.skin.picture = loaded ? file : "";
    if (loaded) return true;
    ports_.log.LogError(loaded.error().text);
    refusal_.append(refusal_.empty() ? "" : kCrLf).append(loaded.error().text);
    return false;
  };
  if (isLoaded(path)) return;
  settings_.adjust().SkinPath = kDefaultSkin.name;
  if (const auto instead = fileOf(kDefaultSkin); instead != path) isLoaded(instead);
}

bool Skins::paintChosen() {
  const auto shipped = ports_.folder.beside("\\Skins");
  auto folder = settings_.state.SkinLoadfrom;
  if (folder.empty()) folder = withSeparator(ports_.pictures.find(shipped).value_or(shipped));
  const auto path =
      ports_.dialogs.open({"Change KVO Skin.",
                           {{"All Files (*.*)", "*"},
                            {"All Supported Skin Types (*.Bmp;*.jpg;*.mov;*.dib;*.wmf)",
                             "*.bmp *.gif *.jpg *.jpeg *.wmf *.dib *.BMP *.GIF *.JPG *.JPEG *.WMF *.DIB"}},
                           folder,
                           {},
                           1});
  if (!path) return false;
  settings_.adjust().SkinPath = *path;
  settings_.state.SkinLoadfrom = std::string(folderPart(*path));
  paint(*path);
  return true;
}

void Skins::endPaused(bool showWindow) {
  calls_.PlayerPause();
  calls_.BuildAllButs(true);
  if (showWindow) window_.face.visible = true;
}

void Skins::endPlaying(bool stepButtons) {
  calls_.BuildAllButs(stepButtons);
  if (!calls_.playerHoldsClip()) return;
  calls_.BuildButton(KeyWord::PlayOn);
  if (calls_.clipHasPath()) calls_.GlobalMediaPlay();
}

std::vector<SkinEntry> Skins::menu() const {
  std::vector<SkinEntry> entries;
  const auto* used = inUse();
  for (const auto& skin : kStock) entries.push_back({skin.caption, &skin == used});
  entries.push_back({"Choose a Skin...", used == nullptr});
  return entries;
}

void Skins::choose(int place) {
  const CommandPass pass(window_);
  if (!pass || place < 0) return;
  const auto at = static_cast<std::size_t>(place);
  refusal_.clear();
  at < std::size(kStock) ? takeStock(kStock[at]) : askForPicture();
  if (refusal_.empty()) return;
  auto text = refusal_;
  if (!window_.skin.picture.empty()) text.append(kCrLf).append("The default skin takes its place.");
  ports_.boxes.show(
      {std::string(kProductName) + " - Change Skin", std::move(text), BoxButtons::Ok, BoxIcon::Warning});
}

void Skins::takeStock(const StockSkin& skin) {
  if (isBuiltIn(skin)) {
    window_.skin.SkinName = skin.name;
    settings_.adjust().SkinPath = skin.name;
    skins(true, true, {}, false);
  } else {
    const auto file = ports_.pictures.find(ports_.folder.beside(skin.file));
    if (!file) return;
    calls_.PlayerStop();
    ports_.loop.yield();
    settings_.adjust().SkinPath = *file;
    skins(true, true, *file, false);
  }
  const auto* shown = inUse();  // the default one where the picture could not be shown
  if (shown == nullptr) return;
  settings_.change().DisplayColor = std::to_string(shown->display);
  Cupdisptextcol();
  FadBorder(kProductName, shown->logo);
}

void Skins::askForPicture() {
  const auto before = std::exchange(settings_.adjust().SkinPath, {});
  if (!skins(false, true, {}, false)) {
    settings_.adjust().SkinPath = before;
    return;
  }
  settings_.state.IsDirty = true;  // so that the choice is kept
  const auto* shown = inUse();
  FadBorder(kProductName, shown != nullptr ? shown->logo : 0);
}

void Skins::ShapeMe() {
  const auto named = ports_.folder.beside(kMaskPicture);
  const auto mask = ports_.pictures.find(named).value_or(named);
  const auto loaded = ports_.pictures.loadMask(mask);
  if (!loaded) ports_.log.LogError(loaded.error().text);
  window_.skin.mask = loaded ? mask : "";
  ++window_.skin.revision;
}

void Skins::ShapePlain() {
  static_cast<void>(ports_.pictures.loadMask({}));
  window_.skin.mask.clear();
}

void Skins::FadBorder(std::string_view caption, ColorRef colour) {
  const auto shown = colour == 0 ? kBlue : colour;
  auto text = std::string(trimmed(caption)).append(blanks(kBlanksBehindCaption));
  auto& skin = window_.skin;
  if (shown == skin.LogoColor && text == skin.logoCaption) return;
  skin.LogoColor = shown;
  skin.logoCaption = std::move(text);
  ++skin.revision;
}

void Skins::Cupdisptextcol() {
  window_.skin.DisplayColor = colorOfText(settings_.preferences().DisplayColor);
}

ColorRef colorOfText(std::string_view text) {
  constexpr ColorRef kColour = 0xFFFFFF;
  text = trimmed(text);
  if (text.size() > 2 && sameText(text.substr(0, 2), "&H")) {
    text.remove_prefix(2);
    ColorRef colour = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), colour, 16);
    const auto rest = text.substr(static_cast<std::size_t>(end.ptr - text.data()));
    if (end.ec != std::errc() || !(rest.empty() || rest == "&")) return kDefaultColor;
    return colour & kColour;
  }
  Long number = -1;
  return takeField(number, text) && number >= 0 ? static_cast<ColorRef>(number) & kColour : kDefaultColor;
}

}  // namespace kvo
