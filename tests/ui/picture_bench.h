// Pictures in files of a folder of their own, and what reads them.
#pragma once

#include "adapters/jpeg/turbo_jpeg.h"
#include "adapters/posix/posix_files.h"
#include "support/real_world.h"
#include "ui/pictures.h"

#include <QImage>
#include <string>

#include <gtest/gtest.h>

namespace kvo::test {

class PictureBench : public testing::Test {
 protected:
  std::string keep(const std::string& name, const QImage& picture) {
    EXPECT_TRUE(picture.save(QString::fromStdString(folder_ / name)));
    return folder_ / name;
  }
  static QImage plain(QRgb colour, int width = 1, int height = 1) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
  }

  ScratchFolder folder_;
  PosixFiles files_;
  TurboJpeg jpeg_;
  PictureReading reading_{files_, jpeg_};
};

}  // namespace kvo::test
