// Speed and level of the clip in hand, and the wheel that moves in it.
#pragma once

#include "windows/editor/editor_page.h"
#include "windows/editor/rush_acts.h"

#include <QCoreApplication>

namespace kvo {

class HeadedSlider;
class JogWheel;

class ClipSlidersPart final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::ClipSlidersPart)

 public:
  static constexpr QSize kPlace{260, 118};  ///< pixels at size 1

  /// Both outlive the part.
  ClipSlidersPart(const ClipSliders& state, const RushActs& acts, QWidget* parent);

  void draw();

 private:
  const ClipSliders& state_;
  HeadedSlider* rate_;
  HeadedSlider* level_;
};

class JogWheelPart final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::JogWheelPart)

 public:
  static constexpr QSize kPlace{260, 94};  ///< pixels at size 1

  /// Both outlive the part.
  JogWheelPart(const ClipSliders& state, const RushActs& acts, QWidget* parent);

  void draw();

 private:
  const ClipSliders& state_;
  QLabel* heading_;
  JogWheel* wheel_;
};

}  // namespace kvo
