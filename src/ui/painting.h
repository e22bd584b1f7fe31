// A painter that is put back as it was, and what is drawn with it in several places.
#pragma once

#include <QMargins>
#include <QPainter>
#include <algorithm>

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

/// What a window throws on what lies below it, in pixels.
struct Shadow {
  int down = 14;
  int soft = 18;  ///< how far it fades out
  double opacity = 0.55;

  /// The room that it takes about the window.
  [[nodiscard]] QMargins margins() const { return {soft, std::max(0, soft - down), soft, soft + down}; }
};

/// Draws the shadow of a rounded rectangle, below which it is.
void drawShadow(QPainter& painter, const QRectF& rect, double radius, const Shadow& shadow);

}  // namespace kvo
