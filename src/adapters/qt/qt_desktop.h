// The desktop by Qt.
#pragma once

#include "adapters/dbus/motion_setting.h"
#include "adapters/dbus/screen_saver.h"
#include "ports/desktop.h"

namespace kvo {

class QtDesktop : public Desktop {
 public:
  [[nodiscard]] ScreenFacts screen() const override;
  [[nodiscard]] std::vector<Screen> screens() const override;
  void beep() override;
  [[nodiscard]] std::string videosFolder() const override;
  bool openPage(const std::string& address) override;
  bool openFile(const std::string& path) override;
  [[nodiscard]] bool reducesMotion() const override { return motion_.isReduced(); }
  void inhibitScreenSaver(bool on) override { screenSaver_.inhibit(on); }

 private:
  ScreenSaver screenSaver_;
  mutable MotionSetting motion_;  // asks when it is asked
};

}  // namespace kvo
