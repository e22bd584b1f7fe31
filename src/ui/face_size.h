// The measures of a skinned window.
#pragma once

#include <QSize>

namespace kvo {

struct FaceSize {
  QSize window;              ///< logical pixels
  double interfaceSize = 1;  ///< 1, 1.25, 1.5 or 2
  double pixelRatio = 1;     ///< device pixels to a logical one

  bool operator==(const FaceSize&) const = default;

  /// The window in device pixels.
  [[nodiscard]] QSize device() const { return (QSizeF(window) * pixelRatio).toSize(); }
  /// Device pixels to one at size 1: what pictures are chosen by.
  [[nodiscard]] double scale() const { return interfaceSize * pixelRatio; }
};

}  // namespace kvo
