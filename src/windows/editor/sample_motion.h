// What lists of moving samples have in common: the step that all of them show, and their pictures as they are
// drawn.
#pragma once

#include "editor/tabs/moving_samples.h"

#include <QBasicTimer>
#include <QObject>
#include <QPixmap>
#include <QSize>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace kvo {

/// All samples move while the pointer is over them, and come to rest where it rests.
class SampleMotion final : public QObject {
 public:
  /// `moved` is called at each step, and when they come to rest.
  explicit SampleMotion(std::function<void()> moved) : moved_(std::move(moved)) {}

  /// The pointer moves over the list, or a key goes through it.
  void stir();
  /// It has left.
  void rest();
  /// The time of a step is over.
  void tick();
  /// Of all samples: that of one at rest while nothing moves.
  [[nodiscard]] int step() const { return moving_.isActive() ? step_ : kSampleStill; }

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  std::function<void()> moved_;
  QBasicTimer moving_;
  int step_ = kSampleStill;
  int left_ = 0;  // steps
};

/// Samples in the size that they are drawn with; each is scaled once.
class SamplePixmaps {
 public:
  explicit SamplePixmaps(MovingSamples& samples) : samples_(samples) {}

  /// The sample at a step, or else at rest; null while there is none. `size` is in logical pixels.
  const QPixmap& of(const std::string& name, int step, const QSize& size, double pixelRatio);

 private:
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
