// Pictures of clips as widgets draw them.
#pragma once

#include "ports/media_contents.h"

#include <QImage>
#include <QPixmap>

namespace kvo {

/// As large as its pixels are on a screen of this ratio.
inline QPixmap framePixmap(const FramePicture& picture, double pixelRatio) {
  const QImage image(picture.bgr.data(), picture.width, picture.height, qsizetype{3} * picture.width,
                     QImage::Format_BGR888);
  auto pixmap = QPixmap::fromImage(image.convertToFormat(QImage::Format_RGB32));
  pixmap.setDevicePixelRatio(pixelRatio);
  return pixmap;
}

}  // namespace kvo
