// The packed switches of a clip's effects: 46 characters, "1" for on, counted from 1.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kvo {

/// Positions in the word. 9 to 42 are the 34 slots of the palette.
enum class EffectSwitch {
  Mirror = 1,
  Invert = 2,
  FlipVertical = 3,
  XRay = 4,
  Grayscale = 5,
  Engrave = 6,
  Emboss = 7,
  FadeToBlack = 8,
  FirstPaletteSlot = 9,
  LastPaletteSlot = 42,
  Blur = 43,
  MotionBlur = 44,
  FilmAge = 45,
  Ease = 46,
};

class EffectWord {
 public:
  static constexpr int kSwitches = 46;

  EffectWord() = default;
  /// A shorter text counts as switched off behind its end; only "1" is on.
  explicit EffectWord(std::string_view text);

  [[nodiscard]] bool isOn(int position) const { return on_[static_cast<std::size_t>(position - 1)]; }
  [[nodiscard]] bool isOn(EffectSwitch effect) const { return isOn(static_cast<int>(effect)); }
  void set(int position, bool on) { on_[static_cast<std::size_t>(position - 1)] = on; }
  [[nodiscard]] bool any() const;

  /// 46 characters.
  [[nodiscard]] std::string text() const;

 private:
  std::array<bool, kSwitches> on_{};
};

/// The class identifier of an effect by its name in any case; empty for an unknown name, and in any language
/// but "EN-US".
std::string_view GetEffectClsid(std::string_view name, std::string_view language = "EN-US");

}  // namespace kvo
