// The numbered pictures of the buttons that are drawn into the face of the main window.
#pragma once

#include "ui/load_jpeg.h"

#include <QPixmap>
#include <map>
#include <string>
#include <tuple>

class QPainter;

namespace kvo {

class ImageList1 {
 public:
  /// `folder` holds picture 1 as "01.bmp", and those for other interface sizes in folders of their own.
  ImageList1(const PictureReading& reading, std::string folder)
      : reading_(reading), folder_(std::move(folder)) {}

  /// Draws picture `number` with its corner at `left`, `top`, in logical pixels. Its pixel 1, 1 tells the
  /// key: an opaque one takes all pixels of its colour away, a transparent one leaves the picture's alpha as
  /// it is. False where there is no such picture.
  bool CreateActbut(QPainter& painter, double left, double top, int number, double interfaceSize);

  /// The picture without what its key takes away; null where there is none. It is read once.
  const QPixmap& picture(int number, double interfaceSize, double pixelRatio);

 private:
  using Key = std::tuple<int, double, double>;  // number, interface size, pixel ratio

  PictureReading reading_;
  std::string folder_;
  std::map<Key, QPixmap> pictures_;
};

}  // namespace kvo
