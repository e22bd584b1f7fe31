// The row under the preview's picture: its place in digits, the keys of the player, what remains and the
// total, and the bar with the cuts of the movie.
#pragma once

#include "editor/preview/preview_state.h"

#include <QCoreApplication>
#include <QFrame>
#include <array>
#include <cstdint>
#include <functional>

class QAbstractButton;
class QLabel;
class QPushButton;
class QSlider;

namespace kvo {

class DigitDisplay;

/// None may be empty.
struct PositionActs {
  std::function<void()> toStart, stepBack, playOrPause, stepForward, toEnd;
  std::function<void(bool held)> holdRange;
  std::function<void(double seconds)> moveRange;
};

class PositionRowPart final : public QFrame {
  Q_DECLARE_TR_FUNCTIONS(kvo::PositionRowPart)

 public:
  static constexpr int kHeight = 72;  ///< pixels at size 1

  /// `state` outlives the part.
  PositionRowPart(const PreviewState& state, PositionActs acts, QWidget* parent);

  void draw();
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  static constexpr std::size_t kKeys = 5;

  void connectBar();
  void layOut();
  void drawPlayKey();

  const PreviewState& state_;
  PositionActs acts_;
  DigitDisplay* pic_DigDisplay_ = nullptr;
  std::array<QPushButton*, kKeys> keys_{};
  std::array<QLabel*, 2> captions_{};
  QLabel* Lbl_Remain_ = nullptr;
  QLabel* Lbl_TotDur_ = nullptr;
  QSlider* FSB_RenderRange_ = nullptr;
  bool isDrawing_ = false;
  std::uint64_t drawnCuts_ = 0;
  double drawnTotal_ = 0;
  bool showsPause_ = false;
  int below_ = 0;  // pixels that the keys of a narrow row stand lower
};

}  // namespace kvo
