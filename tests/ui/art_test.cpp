// The shipped pictures as they were rendered: every name that a window asks for, at every interface size.
#include "support/golden.h"

#include <QColor>
#include <QDir>
#include <QImage>
#include <set>

#include <gtest/gtest.h>

namespace kvo {
namespace {

constexpr const char* kSizes[] = {"", "1.25/", "1.5/", "2/"};

QImage pictureOf(const QString& folder, const QString& size, const QString& name) {
  return QImage(KVO_SHARE "/kvo5/" + folder + "/" + size + name);
}

TEST(Art, EveryPictureIsThereAtEverySize) {
  std::string all;
  for (const QString folder : {"Skins", "Remote", "Buttons", "Parts", "ImageList1"}) {
    const QDir shipped(KVO_SHARE "/kvo5/" + folder);
    for (const auto& name : shipped.entryList(QDir::Files, QDir::Name)) {
      all += (folder + "/" + name).toStdString();
      for (const auto* size : kSizes) {
        const auto picture = pictureOf(folder, size, name);
        all += QString(" %1x%2").arg(picture.width()).arg(picture.height()).toStdString();
      }
      all += "\n";
    }
  }
  test::expectGolden("pictures.txt", all);
}

// The pixel at 1, 1 tells what shows the skin: in a key it is transparent, and the key has a body.
TEST(Art, KeysAreCutOutByTheirAlpha) {
  for (int number = 1; number <= 19; ++number) {
    for (const auto* size : kSizes) {
      const auto picture = pictureOf("ImageList1", size, QString("%1.bmp").arg(number, 2, 10, QChar('0')));
      const auto alphaAt = [&](int x, int y) { return picture.pixelColor(x, y).alpha(); };
      EXPECT_EQ(alphaAt(1, 1), 0) << size << number;
      EXPECT_GT(alphaAt(picture.width() / 2, picture.height() / 2), 250) << size << number;
      std::set<int> seen;  // its edges are soft
      for (int x = 0; x < picture.width(); ++x) seen.insert(alphaAt(x, picture.height() / 4));
      EXPECT_TRUE(number != 3 || seen.size() > 2) << size;
    }
  }
}

// A shape is made of what is not black.
TEST(Art, MasksAreBlackOutsideAndNowhereElse) {
  for (const auto& [folder, name] : {std::pair{"Skins", "SkinMask.bmp"}, {"Remote", "RCV.bmp"}}) {
    for (const auto* size : kSizes) {
      const auto picture = pictureOf(folder, size, name).convertToFormat(QImage::Format_RGB32);
      const auto isBlack = [&](int x, int y) { return (picture.pixel(x, y) & 0xFFFFFFU) == 0; };
      EXPECT_TRUE(isBlack(0, 0)) << size << name;
      for (int y = 0; y < picture.height(); ++y) {
        // Each row is black up to the outline, then never, then black again.
        int changes = 0;
        for (int x = 1; x < picture.width(); ++x) changes += isBlack(x, y) != isBlack(x - 1, y) ? 1 : 0;
        ASSERT_EQ(changes, isBlack(0, y) ? 2 : 0) << size << name << " row " << y;
      }
    }
  }
}

TEST(Art, TheIconIsThereAtTheSizesOfADesktop) {
  for (const int side : {16, 24, 32, 48, 64, 128, 256})
    EXPECT_EQ(QImage(QString(KVO_SHARE "/icons/hicolor/%1x%1/apps/kvo5.png").arg(side)).size(),
              QSize(side, side));
}

}  // namespace
}  // namespace kvo
