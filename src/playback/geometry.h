// Places on the window. A twip is the program's own unit of length: 15 of them are a pixel at interface size
// 1, and a design measured in twips looks the same at every size.
#pragma once

namespace kvo {

using Twips = double;

/// The left of what stands out of sight, far past any screen.
inline constexpr Twips kParked = 40000;

struct Place {
  Twips left = 0;
  Twips top = 0;
  Twips width = 0;
  Twips height = 0;
  bool operator==(const Place&) const = default;
  [[nodiscard]] bool parked() const { return left >= kParked; }
};

/// A control of the window: where it stands, and whether it is seen there.
struct Control {
  Place place;
  bool visible = false;
  bool operator==(const Control&) const = default;
};

}  // namespace kvo
