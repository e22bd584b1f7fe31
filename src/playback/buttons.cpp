#include "playback/buttons.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

struct Spot {
  int left, top;  // pixels
};

// The two tables of places: one for an interface of 1.25, and one for 1 that the others multiply.
struct KeyRow {
  int image;
  KeyPlace place;
  Spot big, small;
  bool lit = false;
  int hover = 0;  // its picture under the pointer
};

constexpr std::array<KeyRow, 23> kKeys{{
    // in the order of KeyWord
    {1, KeyPlace::Play, {93, 435}, {70, 350}},
    {2, KeyPlace::Play, {93, 435}, {70, 350}, true},
    {3, KeyPlace::Pause, {150, 440}, {126, 355}},
    {4, KeyPlace::Pause, {150, 440}, {126, 355}, true},
    {5, KeyPlace::Volume, {42, 429}, {30, 338}},
    {6, KeyPlace::FastForward, {315, 465}, {250, 370}, true},
    {6, KeyPlace::FastForward, {315, 465}, {250, 370}, true},
    {7, KeyPlace::FastForward, {315, 465}, {250, 370}},
    {8, KeyPlace::FastRewind, {215, 465}, {158, 370}, true},
    {8, KeyPlace::FastRewind, {215, 465}, {158, 370}, true},
    {9, KeyPlace::FastRewind, {215, 465}, {158, 370}},
    {10, KeyPlace::FrameForward, {280, 465}, {220, 370}, true},
    {10, KeyPlace::FrameForward, {280, 465}, {220, 370}, true},
    {11, KeyPlace::FrameForward, {280, 465}, {220, 370}},
    {12, KeyPlace::FrameBack, {250, 465}, {188, 370}, true},
    {12, KeyPlace::FrameBack, {250, 465}, {188, 370}, true},
    {13, KeyPlace::FrameBack, {250, 465}, {188, 370}},
    {14, KeyPlace::Speeds, {378, 465}, {300, 370}},
    {15, KeyPlace::Size, {500, 463}, {402, 370}},
    {16, KeyPlace::PlayAll, {560, 463}, {444, 367}, false, 17},
    {17, KeyPlace::PlayAll, {560, 463}, {444, 367}},
    {18, KeyPlace::Minimise, {538, 1}, {425, 1}},
    {19, KeyPlace::Mini, {635, 470}, {500, 375}},
}};

constexpr double kBigTableSize = 1.25;

constexpr std::array kStepKeys{KeyWord::FOff, KeyWord::FFOff, KeyWord::ROff, KeyWord::RROff, KeyWord::Speeds};
constexpr std::array kFaceKeys{KeyWord::Volume, KeyWord::Minimise, KeyWord::Mini,
                               KeyWord::Size,   KeyWord::PlayAll,  KeyWord::Rebuild};
constexpr std::array kHeldKeys{KeyWord::RROn, KeyWord::ROn, KeyWord::FOn, KeyWord::FFOn};  // show as paused

const KeyRow& rowOf(KeyWord word) { return kKeys[static_cast<std::size_t>(word)]; }

// Halves go up, as they do for everything else on the face.
DrawnKey drawnKey(const KeyRow& row, double size) {
  const auto place = [size](int pixels) { return static_cast<int>(std::lround(pixels * size)); };
  const auto spot = size == kBigTableSize ? row.big : Spot{place(row.small.left), place(row.small.top)};
  return {row.image, spot.left, spot.top, row.lit, row.hover};
}

}  // namespace

bool ButtonsState::takesMouse(KeyPlace place, bool anyClip) const {
  switch (place) {
    case KeyPlace::Mini:
    case KeyPlace::Minimise:
      return true;
    case KeyPlace::FastRewind:
    case KeyPlace::FrameBack:
    case KeyPlace::FrameForward:
    case KeyPlace::FastForward:
    case KeyPlace::Speeds:
      return anyClip && stepLabelsEnabled;
    default:
      return anyClip;
  }
}

void Buttons::BuildButton(KeyWord word, bool playOn) {
  passOn(word);
  if (playOn) {
    become(PlayGroup::Playing);
    PlayOn();
    return;
  }
  if (playWord(word)) return;
  draw(word);
  if (std::ranges::find(kHeldKeys, word) == kHeldKeys.end()) return;
  become(PlayGroup::Paused);
  PauseOn();
}

// The words that act on the play group.
bool Buttons::playWord(KeyWord word) {
  switch (word) {
    case KeyWord::AllOff:
      PauseOff();
      PlayOff();
      become(PlayGroup::Nothing);
      return true;
    case KeyWord::PlayOff:
      PlayOff();
      return true;
    case KeyWord::PlayOn:
      if (buttons_.group == PlayGroup::Playing) {
        playing();
        return true;
      }
      PlayOn();
      PauseOff();
      become(PlayGroup::Playing);
      return true;
    case KeyWord::PauseOff:
      PauseOff();
      return true;
    case KeyWord::PauseOn:
      PauseOn();
      PlayOff();
      become(PlayGroup::Paused);
      return true;
    case KeyWord::Rebuild:
      rebuild();
      return true;
    default:
      return false;
  }
}

void Buttons::rebuild() {
  const auto& player = display_.player;
  if (display_.IsMiniMode) return;
  if (buttons_.group == PlayGroup::NotDrawn || buttons_.group == PlayGroup::Nothing) {
    // Drawing the keys again must not make anything play.
    draw(KeyWord::PlayOff);
    draw(KeyWord::PauseOff);
    return;
  }
  if (player.IsPlaying && buttons_.group == PlayGroup::Playing) {
    PlayOn();
    PauseOff();
  }
  if (!player.IsPlaying) become(PlayGroup::Paused);
  if (buttons_.group == PlayGroup::Paused) {
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
  draw(KeyWord::PlayOn);
  playing();
}

void Buttons::playing() {
  display_.player.IsPlaying = true;
  display_.player.IsPaused = false;
}

void Buttons::PlayOff() {
  draw(KeyWord::PlayOff);
  display_.player.IsPlaying = false;
}

void Buttons::PauseOn() {
  draw(KeyWord::PauseOn);
  display_.player.IsPlaying = false;
  display_.player.IsPaused = true;
}

void Buttons::PauseOff() {
  draw(KeyWord::PauseOff);
  display_.player.IsPlaying = true;
}

void Buttons::draw(KeyWord word) {
  if (display_.IsMiniMode) return;
  const auto& row = rowOf(word);
  auto& drawn = buttons_.drawn[static_cast<std::size_t>(row.place)];
  const auto now = drawnKey(row, display_.interfaceSize);
  if (drawn == now) return;
  drawn = now;
  ++buttons_.revision;
}

void Buttons::become(PlayGroup group) { buttons_.group = group; }

// Only with the editor open, which sets itself.
void Buttons::passOn(KeyWord word) {
  if (editor_ == nullptr) return;
  if (word == KeyWord::FOn) editor_->FON();
  if (word == KeyWord::FOff) editor_->FOFF();
  if (word == KeyWord::ROn) editor_->RON();
  if (word == KeyWord::ROff) editor_->ROFF();
}

}  // namespace kvo
