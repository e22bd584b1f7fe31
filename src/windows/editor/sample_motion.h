// What lists of moving samples have in common: the step that all of them show, and their pictures as they are
// drawn.
#pragma once

#include "editor/tabs/moving_samples.h"

#include <QBasicTimer>
#include <QObject>
#include <QPainter>
#include <QPixmap>
#include <QSize>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace kvo {

/// All samples move while the pointer is over them, and come to rest where it rests. Calm ones move alone,
/// each below the pointer.
class SampleMotion final : public QObject {
 public:
  /// `moved` is called at each step, and when they come to rest.
  SampleMotion(const MovingSamples& samples, std::function<void()> moved)
      : samples_(samples), moved_(std::move(moved)) {}

  /// The pointer moves over the list, or a key goes through it.
  void stir();
  /// It has left.
  void rest();
  /// The time of a step is over.
  void tick();
  /// Of a sample: that of one at rest while it does not move.
  [[nodiscard]] int step(bool isBelowPointer) const {
    return moving_.isActive() && (isBelowPointer || !isCalm_) ? step_ : kSampleStill;
  }

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  const MovingSamples& samples_;
  std::function<void()> moved_;
  bool isCalm_ = false;
  QBasicTimer moving_;
  int step_ = kSampleStill;
  int left_ = 0;  // steps
};

/// Samples in the size that they are drawn with; each is scaled once.
class SamplePixmaps {
 public:
  explicit SamplePixmaps(MovingSamples& samples) : samples_(samples) {}

  /// Draws the sample at a step, or else at rest, in its shape in the middle of `place`, with round corners.
  /// Plain while there is none.
  void paint(QPainter& painter, const QRectF& place, const std::string& name, int step, bool enabled);

 private:
  /// `size` is in logical pixels.
  const QPixmap& of(const std::string& name, int step, const QSize& size, double pixelRatio);

  struct Scaled {
    MovingSamples::Picture picture;
    QPixmap pixmap;
  };

  MovingSamples& samples_;
  QSize size_;  // of the screen
  double ratio_ = 1;
  std::map<std::pair<std::string, int>, Scaled> scaled_;
};

}  // namespace kvo
