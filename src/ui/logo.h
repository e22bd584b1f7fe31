// The side logo of the main window: a box that is filled from one colour to another, with a caption that
// reads downward.
#pragma once

#include <QColor>
#include <QRect>
#include <QString>

class QPainter;

namespace kvo {

class cLogo {
 public:
  QString Caption;
  QPainter* DrawingObject = nullptr;  ///< alive while Draw runs
  QRect box;                          ///< where on it, in logical pixels
  QColor StartColor;                  ///< at the top
  QColor EndColor;                    ///< at the foot
  double interfaceSize = 1;

  /// Fills the box band by band and writes the caption, in white, into its dark upper part.
  void Draw() const;

  /// Logical pixels that there are for it.
  [[nodiscard]] double captionRoom() const;
};

}  // namespace kvo
