// A key that shows a colour and lets another one be chosen.
#pragma once

#include "ui/tokens.h"

#include <QPushButton>
#include <functional>
#include <optional>

namespace kvo {

class ColourButton : public QPushButton {
 public:
  explicit ColourButton(Rgb colour, QWidget* parent = nullptr);

  void setColour(Rgb colour);
  [[nodiscard]] Rgb colour() const { return colour_; }

  /// The user has chosen; not called by setColour.
  std::function<void(Rgb)> chosen;
  /// Asks for a colour, the present one offered first; none when the user leaves it. The dialogue unless set.
  std::function<std::optional<Rgb>(Rgb)> ask;

 private:
  Rgb colour_ = 0;
};

}  // namespace kvo
