#include "playback/buttons.h"

#include "base/text.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

struct Spot {
  int left, top;  // pixels
};

// The two tables of places: one for an interface of 1.25, and one for 1 that the others multiply.
struct KeyRow {
  std::string_view key;
  int image;
  KeyPlace place;
  Spot big, small;
};

constexpr std::array<KeyRow, 23> kKeys{{
    {"PlayOff", 1, KeyPlace::Play, {93, 435}, {70, 350}},
    {"PlayOn", 2, KeyPlace::Play, {93, 435}, {70, 350}},
    {"PauseOff", 3, KeyPlace::Pause, {150, 440}, {126, 355}},
    {"PauseOn", 4, KeyPlace::Pause, {150, 440}, {126, 355}},
    {"VOLUME", 5, KeyPlace::Volume, {42, 429}, {30, 338}},
    {"FFON", 6, KeyPlace::FastForward, {315, 465}, {250, 370}},
    {"FFOND", 6, KeyPlace::FastForward, {315, 465}, {250, 370}},
    {"FFOFF", 7, KeyPlace::FastForward, {315, 465}, {250, 370}},
    {"RRON", 8, KeyPlace::FastRewind, {215, 465}, {158, 370}},
    {"RROND", 8, KeyPlace::FastRewind, {215, 465}, {158, 370}},
    {"RROFF", 9, KeyPlace::FastRewind, {215, 465}, {158, 370}},
    {"FON", 10, KeyPlace::FrameForward, {280, 465}, {220, 370}},
    {"FOND", 10, KeyPlace::FrameForward, {280, 465}, {220, 370}},
    {"FOFF", 11, KeyPlace::FrameForward, {280, 465}, {220, 370}},
    {"RON", 12, KeyPlace::FrameBack, {250, 465}, {188, 370}},
    {"ROND", 12, KeyPlace::FrameBack, {250, 465}, {188, 370}},
    {"ROFF", 13, KeyPlace::FrameBack, {250, 465}, {188, 370}},
    {"025", 14, KeyPlace::Speeds, {378, 465}, {300, 370}},
    {"MAG", 15, KeyPlace::Size, {500, 463}, {402, 370}},
    {"PLAYALL", 16, KeyPlace::PlayAll, {560, 463}, {444, 367}},
    {"PLAYALLB", 17, KeyPlace::PlayAll, {560, 463}, {444, 367}},
    {"MIN", 18, KeyPlace::Minimise, {538, 1}, {425, 1}},
    {"MINI", 19, KeyPlace::Mini, {635, 470}, {500, 375}},
}};

constexpr double kBigTableSize = 1.25;

constexpr std::array<std::string_view, 5> kStepKeys{"FOFF", "FFOFF", "ROFF", "RROFF", "025"};
constexpr std::array<std::string_view, 7> kFaceKeys{"VOLUME", "CLOSE",   "MIN",    "MINI",
                                                    "MAG",    "PLAYALL", "REBUILD"};
constexpr std::array<std::string_view, 4> kHeldKeys{"RRON", "RON", "FON", "FFON"};  // show as paused

// The words of what is on end so; the second while a mouse button is held.
bool isOn(std::string_view key) { return endsInText(key, "ON") || endsInText(key, "OND"); }

// A row of the same name with a B behind it is what stands there under the pointer.
int hoverImage(std::string_view key) {
  const auto row = std::ranges::find_if(kKeys, [&](const KeyRow& k) {
    return k.key.size() == key.size() + 1 && k.key.starts_with(key) && k.key.ends_with('B');
  });
  return row == kKeys.end() ? 0 : row->image;
}

// Halves go up, as they do for everything else on the face.
DrawnKey drawnKey(const KeyRow& row, double size) {
  const auto place = [size](int pixels) { return static_cast<int>(std::lround(pixels * size)); };
  const auto spot = size == kBigTableSize ? row.big : Spot{place(row.small.left), place(row.small.top)};
  return {row.image, spot.left, spot.top, isOn(row.key), hoverImage(row.key)};
}

}  // namespace

void Buttons::BuildButton(std::string_view word, bool playOn) {
  const auto key = upper(trimmed(word));
  passOn(key);
  if (playOn) {
    become("PLAYING");
    PlayOn();
    return;
  }
  if (playWord(key)) return;
  draw(key);
  if (std::ranges::find(kHeldKeys, key) == kHeldKeys.end()) return;
  become("PAUSED");
  PauseOn();
}

// The words that act on the play group.
bool Buttons::playWord(std::string_view word) {
  if (word == "ALLOFF") {
    PauseOff();
    PlayOff();
    become("NOTHING");
  } else if (word == "PLAYOFF") {
    PlayOff();
  } else if (word == "PLAYON") {
    if (buttons_.state == "PLAYING") {
      playing();
      return true;
    }
    PlayOn();
    PauseOff();
    become("PLAYING");
  } else if (word == "PAUSEOFF") {
    PauseOff();
  } else if (word == "PAUSEON") {
    PauseOn();
    PlayOff();
    become("PAUSED");
  } else if (word == "REBUILD") {
    rebuild();
  } else {
    return false;
  }
  return true;
}

void Buttons::rebuild() {
  const auto& player = display_.player;
  if (display_.IsMiniMode) return;
  if (buttons_.state.empty() || buttons_.state == "NOTHING") {
    // Drawing the keys again must not make anything play.
    draw("PLAYOFF");
    draw("PAUSEOFF");
    return;
  }
  if (player.IsPlaying && buttons_.state == "PLAYING") {
    PlayOn();
    PauseOff();
  }
  if (!player.IsPlaying) become("PAUSED");
  if (buttons_.state == "PAUSED") {
    PauseOn();
    PlayOff();
  }
}

void Buttons::BuildAllButs(bool stepButtons) {
  if (stepButtons) {
    for (const auto key : kStepKeys) BuildButton(key);
  }
  if (buttons_.stepLabelsEnabled != stepButtons) ++buttons_.revision;
  buttons_.stepLabelsEnabled = stepButtons;
  for (auto* timer : {&timers_.Timer1, &timers_.Timer6, &timers_.Timer7}) timer->stop();
  for (const auto key : kFaceKeys) BuildButton(key);
  timers_.Timer1.start();
  timers_.Timer6.start();
  const auto& shown = display_.player;
  if (!player_.PlayerIsEmpty() && shown.IsPlaying && !shown.clipWaits) player_.GlobalMediaPlay();
}

void Buttons::placeAnew() {
  for (auto& drawn : buttons_.drawn) {
    const auto row = std::ranges::find(kKeys, drawn.image, &KeyRow::image);
    if (row != kKeys.end()) drawn = drawnKey(*row, display_.interfaceSize);
  }
  ++buttons_.revision;
}

void Buttons::PlayOn() {
  draw("PLAYON");
  playing();
}

void Buttons::playing() {
  display_.player.IsPlaying = true;
  display_.player.IsPaused = false;
}

void Buttons::PlayOff() {
  draw("PLAYOFF");
  display_.player.IsPlaying = false;
}

void Buttons::PauseOn() {
  draw("PAUSEON");
  display_.player.IsPlaying = false;
  display_.player.IsPaused = true;
}

void Buttons::PauseOff() {
  draw("PAUSEOFF");
  display_.player.IsPlaying = true;
}

void Buttons::draw(std::string_view key) {
  if (display_.IsMiniMode) return;
  const auto row = std::ranges::find_if(kKeys, [&](const KeyRow& k) { return sameText(k.key, key); });
  if (row == kKeys.end()) return;
  auto& drawn = buttons_.drawn[static_cast<std::size_t>(row->place)];
  const auto now = drawnKey(*row, display_.interfaceSize);
  if (drawn == now) return;
  drawn = now;
  ++buttons_.revision;
}

void Buttons::become(std::string_view state) { buttons_.state = state; }

// Only with the editor open, which sets itself.
void Buttons::passOn(std::string_view key) {
  if (editor_ == nullptr) return;
  if (key == "FON") editor_->FON();
  if (key == "FOFF") editor_->FOFF();
  if (key == "RON") editor_->RON();
  if (key == "ROFF") editor_->ROFF();
}

}  // namespace kvo
