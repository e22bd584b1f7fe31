// A painter that is put back as it was.
#pragma once

#include <QPainter>

namespace kvo {

class Painting {
 public:
  explicit Painting(QPainter& painter) : painter_(painter) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
  }
  Painting(const Painting&) = delete;
  Painting& operator=(const Painting&) = delete;
  ~Painting() { painter_.restore(); }

 private:
  QPainter& painter_;
};

/// The middles of the pixels along the edge of `rect`: where a line of 1 px is sharp.
inline QRectF onPixels(const QRectF& rect) { return rect.adjusted(0.5, 0.5, -0.5, -0.5); }

}  // namespace kvo
