// Pictures of clips as widgets draw them.
#pragma once

#include "ports/media_contents.h"
#include "ui/pictures.h"

#include <QPixmap>

namespace kvo {

/// As large as its pixels are on a screen of this ratio.
inline QPixmap framePixmap(const FramePicture& picture, double pixelRatio) {
  auto pixmap = QPixmap::fromImage(imageOver(picture).convertToFormat(QImage::Format_RGB32));
  pixmap.setDevicePixelRatio(pixelRatio);
  return pixmap;
}

}  // namespace kvo
