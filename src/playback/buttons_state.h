// The keys of the main window's face, as data: which picture is drawn where. The window draws it.
#pragma once

#include "playback/key_words.h"

#include <array>
#include <cstdint>

namespace kvo {

/// The places of keys on the face. One picture at a time stands at each.
enum class KeyPlace {
  Play,
  Pause,
  Volume,
  FastForward,
  FastRewind,
  FrameForward,
  FrameBack,
  Speeds,
  Size,
  PlayAll,
  Minimise,
  Mini,
};
inline constexpr std::size_t kKeyPlaces = 12;

struct DrawnKey {
  int image = 0;  ///< number in ImageList1; 0 while nothing has been drawn here
  int left = 0;   ///< pixels of the face
  int top = 0;
  bool lit = false;  ///< what it stands for is on
  int hover = 0;     ///< number of its picture under the pointer; 0: the same, lightened
  bool operator==(const DrawnKey&) const = default;
};

struct ButtonsState {
  std::array<DrawnKey, kKeyPlaces> drawn;
  PlayGroup group = PlayGroup::NotDrawn;
  /// The seven labels Lbl_Rew5d, Lbl_Snglfrbackdummy, Lbl_F1Dummy, Lbl_Adv5dummy, lbl_Speed025, Lbl_Speed05
  /// and Lbl_Speed02 take the mouse.
  bool stepLabelsEnabled = false;
  std::uint64_t revision = 1;  ///< higher after each change

  [[nodiscard]] const DrawnKey& at(KeyPlace place) const { return drawn[static_cast<std::size_t>(place)]; }
  /// The labels of a place take the mouse; `anyClip`: there are clips, which all need but those of the
  /// window.
  [[nodiscard]] bool takesMouse(KeyPlace place, bool anyClip) const;
};

}  // namespace kvo
