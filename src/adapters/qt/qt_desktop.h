// The desktop by Qt.
#pragma once

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
};

}  // namespace kvo
