#include "windows/main/part_pictures.h"

#include "ui/pictures.h"

namespace kvo {

QPixmap partPicture(const std::string& path, double interfaceSize, double pixelRatio) {
  const auto file = pictureFile(path, interfaceSize * pixelRatio);
  QPixmap picture(QString::fromStdString(file.path));
  if (!picture.isNull()) picture.setDevicePixelRatio(file.size / interfaceSize);
  return picture;
}

}  // namespace kvo
