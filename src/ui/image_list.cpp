#include "ui/image_list.h"

#include "base/paths.h"
#include "ui/pictures.h"

#include <QImage>
#include <QPainter>

namespace kvo {

const QPixmap& ImageList1::picture(int number, double interfaceSize, double pixelRatio) {
  const auto [entry, isNew] = pictures_.try_emplace({number, interfaceSize, pixelRatio});
  auto& pixmap = entry->second;
  if (!isNew) return pixmap;
  const auto name = QString("%1.bmp").arg(number, 2, 10, QChar('0')).toStdString();
  const auto file = pictureFile(withSeparator(folder_) + name, interfaceSize * pixelRatio);
  if (const auto read = loadPicture(reading_, file.path)) {
    pixmap = QPixmap::fromImage(keyedPicture(*read));
    pixmap.setDevicePixelRatio(file.size / interfaceSize);
  }
  return pixmap;
}

bool ImageList1::CreateActbut(QPainter& painter, double left, double top, int number, double interfaceSize) {
  const auto& drawn = picture(number, interfaceSize, painter.device()->devicePixelRatioF());
  painter.drawPixmap(QPointF(left, top), drawn);
  return !drawn.isNull();
}

}  // namespace kvo
