// The port to whatever darkens the screen while nobody moves a hand.
#pragma once

namespace kvo {

class ScreenSaver {
 public:
  ScreenSaver() = default;
  ScreenSaver(const ScreenSaver&) = delete;
  ScreenSaver& operator=(const ScreenSaver&) = delete;
  virtual ~ScreenSaver() = default;

  /// Keeps the screen awake from now on, or no longer. Nothing where the desktop cannot be asked.
  virtual void inhibit(bool on) = 0;
};

}  // namespace kvo
