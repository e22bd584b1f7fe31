// The strip over the keyframes: the clip, and the curve of the effect's level with a diamond for each
// keyframe. Diamonds can be dragged, and moved by the arrow keys.
#pragma once

#include "editor/tabs/keyframe_window.h"

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

namespace kvo {

class KeyframeStrip final : public QWidget {
 public:
  KeyframeStrip(const KeyframeWindow& state, QWidget* parent);

  std::function<void(int line)> chosen;
  std::function<void(int line, Long frame, double level)> dragged;
  std::function<void(int frame)> wentTo;

  /// `picture` of the clip, for the ground; may be null.
  void draw(const QImage& picture);

  /// Where a frame and a level lie, pixels.
  [[nodiscard]] QPointF at(Long frame, double level) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  [[nodiscard]] Long frameAt(double x) const;
  [[nodiscard]] double levelAt(double y) const;
  [[nodiscard]] std::optional<KeyframePoint> pointAt(const QPointF& place) const;
  [[nodiscard]] const KeyframePoint* chosenPoint() const;
  void drawGround(QPainter& painter) const;
  void drawRuler(QPainter& painter) const;
  void drawCurve(QPainter& painter) const;

  // What the strip shows of the state.
  struct Shown {
    ClipSlider frames;
    int ListIndex = -1;
    std::vector<KeyframePoint> points;
    qint64 picture = 0;
    bool operator==(const Shown&) const = default;
  };

  const KeyframeWindow& state_;
  Shown drawn_;
  QImage picture_;
  std::optional<int> dragging_;  // a line; -1 while the frame is dragged
};

}  // namespace kvo
