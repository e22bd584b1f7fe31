// What is painted on the skinned window: the skin, pictures of buttons, the side logo, the outline.
#include "ui/skin_face.h"

#include "adapters/jpeg/turbo_jpeg.h"
#include "adapters/posix/posix_files.h"
#include "support/real_world.h"
#include "ui/image_list.h"
#include "ui/logo.h"
#include "ui/tokens.h"

#include <QPainter>
#include <filesystem>
#include <functional>

#include <gtest/gtest.h>

namespace kvo {
namespace {

constexpr QSize kWindow(562, 410);

class SkinPainting : public testing::Test {
 protected:
  std::string keep(const std::string& name, const QImage& picture) {
    EXPECT_TRUE(picture.save(QString::fromStdString(folder_ / name)));
    return folder_ / name;
  }
  QImage painted(const FaceSize& size, const std::function<void(QPainter&)>& paint) {
    QImage image(size.device(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(size.pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter);
    painter.end();
    return image;
  }

  test::ScratchFolder folder_;
  PosixFiles files_;
  TurboJpeg jpeg_;
  PictureReading reading_{files_, jpeg_};
};

// Each column has a colour of its own.
QImage columns(QSize size) {
  QImage picture(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) picture.setPixel(x, y, qRgb(x / 256, x % 256, 7));
  }
  return picture;
}

TEST_F(SkinPainting, PutsThePictureALittleToTheLeftAndFillsTheStrip) {
  for (const auto& size :
       {FaceSize{kWindow, 1, 1}, FaceSize{kWindow, 1, 2}, FaceSize{kWindow * 1.5, 1.5, 1}}) {
    const int width = size.device().width(), shift = qRound(100.0 / 15 * size.scale());
    SkinFace face(reading_, size);
    const auto skin = keep("skin.bmp", columns(size.device()));
    ASSERT_TRUE(face.load(skin));
    const auto image = painted(size, [&](QPainter& painter) { face.PaintPicture(painter, skin); });
    const auto column = [&](int x) { return qRed(image.pixel(x, 99)) * 256 + qGreen(image.pixel(x, 99)); };
    EXPECT_EQ(column(0), shift);
    EXPECT_EQ(column(width - shift - 1), width - 1);
    EXPECT_EQ(column(width - shift), width - 1);
    EXPECT_EQ(column(width - 1), width - shift);
  }
}

TEST_F(SkinPainting, ReadsThePictureAnewForAnotherSizeAndKeepsOneThatIsGone) {
  QImage pixel(1, 1, QImage::Format_RGB32);
  pixel.fill(0xFF204060);
  const auto skin = keep("one.png", pixel);
  std::string log;
  SkinFace face(reading_, {kWindow, 1, 1}, {}, [&](const std::string& line) { log += line; });
  ASSERT_TRUE(face.load(skin));
  EXPECT_FALSE(face.load(folder_ / "none.png"));
  const auto cornerOf = [&](double size, const std::string& path) {
    face.resize({kWindow * size, size, 1});
    const auto image =
        painted({kWindow * size, size, 1}, [&](QPainter& painter) { face.PaintPicture(painter, path); });
    return image.pixel(image.width() - 1, image.height() - 1);
  };
  const auto cornerAt = [&](double size) { return cornerOf(size, skin); };
  EXPECT_EQ(cornerAt(1), 0xFF204060);
  EXPECT_EQ(cornerAt(2), 0xFF204060);
  std::filesystem::remove(skin);
  EXPECT_EQ(cornerAt(2), 0xFF204060) << "what is painted stays";
  EXPECT_EQ(log, "");
  EXPECT_EQ(cornerAt(1), 0xFF204060);
  EXPECT_NE(log.find("one.png"), std::string::npos);
  EXPECT_EQ(cornerAt(1.5), 0xFF204060);
  EXPECT_EQ(cornerOf(1.5, folder_ / "none.png"), 0xFF000000 | token("ink1")) << "another is not that one";
}

TEST_F(SkinPainting, OnlyThePicturesOfTheProgramAreThereForSeveralSizes) {
  QImage pixel(1, 1, QImage::Format_RGB32);
  pixel.fill(0xFF204060);
  const auto skin = keep("one.png", pixel);
  std::filesystem::create_directory(folder_ / "2");
  pixel.fill(0xFF806040);
  keep("2/one.png", pixel);
  const FaceSize twice{kWindow * 2, 2, 1};
  for (const auto& [shipped, colour] :
       {std::pair{std::string(), 0xFF204060}, {folder_ / "", 0xFF806040}, {folder_ / "2", 0xFF204060}}) {
    SkinFace face(reading_, twice, shipped);
    EXPECT_EQ(painted(twice, [&](QPainter& painter) { face.PaintPicture(painter, skin); }).pixel(9, 9),
              colour)
        << shipped;
  }
}

TEST_F(SkinPainting, ShowsTheSkinThroughTheKeyOfAButton) {
  QImage opaque(3, 3, QImage::Format_ARGB32);
  opaque.fill(0xFFFF00FF);
  opaque.setPixel(0, 2, 0xFF00FF00);
  auto clear = opaque;
  clear.setPixel(1, 1, 0);
  keep("01.bmp", opaque);
  keep("12.png", clear);
  std::filesystem::rename(folder_ / "12.png", folder_ / "12.bmp");
  ImageList1 images(reading_, folder_ / "");
  const struct {
    int number;
    QRgb key, beside, other;
  } rows[] = {{1, 0xFF102030, 0xFF102030, 0xFF00FF00}, {12, 0xFF102030, 0xFFFF00FF, 0xFF00FF00}};
  for (const auto& row : rows) {
    const auto image = painted({{20, 20}, 1, 1}, [&](QPainter& painter) {
      painter.fillRect(0, 0, 20, 20, QColor(0x10, 0x20, 0x30));
      EXPECT_TRUE(images.CreateActbut(painter, 5, 6, row.number, 1));
      EXPECT_FALSE(images.CreateActbut(painter, 5, 6, 99, 1));
    });
    EXPECT_EQ(image.pixel(6, 7), row.key) << row.number;
    EXPECT_EQ(image.pixel(7, 6), row.beside) << row.number;
    EXPECT_EQ(image.pixel(5, 8), row.other) << row.number;
  }
}

TEST_F(SkinPainting, CutsTheWindowOutByTheMask) {
  QImage mask(100, 80, QImage::Format_RGB32);
  mask.fill(Qt::black);
  for (int y = 0; y < 80; ++y) {
    for (int x = 0; x < 100; ++x) {
      if (x > 40 || (x - 40) * (x - 40) + (y - 40) * (y - 40) < 1600) mask.setPixel(x, y, qRgb(1, 0, 0));
    }
  }
  const auto path = keep("mask.bmp", mask);
  for (const double ratio : {1.0, 2.0}) {
    const FaceSize size{{100, 80}, 1, ratio};
    SkinOutline outline(reading_);
    ASSERT_TRUE(outline.load(path, size));
    const auto bounds = boundsOf(*outline.region().region());
    EXPECT_EQ(bounds, (RegionRectangle{1, 0, 100, 80}));
    const auto image = painted(size, [&](QPainter& painter) {
      painter.fillRect(0, 0, 100, 80, Qt::red);
      outline.paintRim(painter);
      outline.soften(painter);
    });
    const auto alphaAt = [&](double x, double y) {
      return qAlpha(image.pixel(static_cast<int>(x * ratio), static_cast<int>(y * ratio)));
    };
    EXPECT_EQ(alphaAt(0, 0), 0);
    EXPECT_EQ(alphaAt(50, 0), 255) << "straight edges are sharp";
    EXPECT_EQ(alphaAt(40, 40), 255);
    int soft = 0;
    for (int x = 0; x < 40 * ratio; ++x) {
      const int alpha = qAlpha(image.pixel(x, static_cast<int>(10 * ratio)));
      soft += alpha > 0 && alpha < 255 ? 1 : 0;
    }
    EXPECT_TRUE(soft >= 1 && soft <= 4) << soft;
    EXPECT_LT(qRed(image.pixel(static_cast<int>(60 * ratio), 0)), 100) << "the rim";
    ASSERT_TRUE(outline.load({}, size));
    EXPECT_EQ(outline.region().region(), nullptr);
  }
  SkinOutline outline(reading_);
  mask.fill(Qt::black);
  EXPECT_FALSE(outline.load(keep("black.bmp", mask), {{100, 80}, 1, 1}));
  EXPECT_FALSE(outline.load(folder_ / "none.bmp", {{100, 80}, 1, 1}));
  EXPECT_EQ(outline.region().region(), nullptr);
}

TEST(Logo, GoesFromColourToColourWithItsCaptionInTheUpperPart) {
  cLogo logo;
  logo.box = {0, 0, 22, 410};
  logo.StartColor = colourOf(0x9C2918);
  logo.EndColor = colourOf(0xC0C000);
  const auto draw = [&](const QString& caption) {
    QImage image(22, 410, QImage::Format_RGB32);
    QPainter painter(&image);
    logo.Caption = caption;
    logo.DrawingObject = &painter;
    logo.Draw();
    return image;
  };
  const auto bare = draw("");
  EXPECT_NEAR(qBlue(bare.pixel(6, 0)), 156, 16);
  EXPECT_NEAR(qGreen(bare.pixel(6, 409)), 192, 16);
  const auto rowDiffers = [&](const QImage& image, int y) {
    return image.copy(0, y, 22, 1) != bare.copy(0, y, 22, 1);
  };
  const auto name = draw("KVO5     ");
  EXPECT_TRUE(rowDiffers(name, 44) && !rowDiffers(name, 38) && !rowDiffers(name, 100));
  const auto longer = QString("WWWWWWWWWWWWWWWW").repeated(3);
  EXPECT_TRUE(rowDiffers(draw(longer), 240) && !rowDiffers(draw(longer), 250)) << "the foot is bright";
}

}  // namespace
}  // namespace kvo
