// Pictures of skins and keys, from files.
#pragma once

#include "ui/load_jpeg.h"

#include <QImage>
#include <QSize>
#include <string>

namespace kvo {

/// A picture of rows of blue, green and red bytes as an image over them, which is to be gone before they are.
template <class Picture>
QImage imageOver(const Picture& picture) {
  return {picture.bgr.data(), picture.width, picture.height, qsizetype{3} * picture.width,
          QImage::Format_BGR888};
}

/// A picture's file, and the interface size that it is drawn for.
struct SizedPicture {
  std::string path;
  double size = 1;
};

/// The file to take at an interface size. `path` names the picture for size 1 ("/prog/Skins/blue.bmp"); those
/// for 1.25, 1.5 and 2 lie in folders beside it ("/prog/Skins/1.5/blue.bmp"). It is the least of them that is
/// not below `size`, else the largest there is. Names are found in any case of letters, and by "\" as by "/".
SizedPicture pictureFile(const std::string& path, double size);

/// Reads a picture: BMP with its alpha, JPEG, and what Qt has readers for. With `stretchedTo` it is brought
/// to that size, whatever its shape, and a large JPEG is decoded no larger than need be. Fails with a line
/// for the log, which names the file; also where a picture would take more than 256 MB.
Result<QImage> loadPicture(const PictureReading& reading, const std::string& path, QSize stretchedTo = {});

/// `picture` without what shows the skin: where the pixel at 1, 1 is opaque, all pixels of its colour become
/// transparent; where it is not, the picture's alpha stands as it is.
QImage keyedPicture(const QImage& picture);

}  // namespace kvo
