// What is painted on the skinned window: the skin, pictures of buttons, the side logo, the outline.
#include "ui/skin_face.h"

#include "ui/image_list.h"
#include "ui/logo.h"
#include "ui/picture_bench.h"
#include "ui/tokens.h"

#include <QPainter>
#include <filesystem>
#include <functional>

#include <gtest/gtest.h>

namespace kvo {
namespace {

constexpr QSize kWindow(562, 410);

class SkinPainting : public test::PictureBench {
 protected:
  static QImage painted(const FaceSize& size, const std::function<void(QPainter&)>& paint) {
    QImage image(size.device(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(size.pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter);
    painter.end();
    return image;
  }
};

TEST_F(SkinPainting, PutsThePictureALittleToTheLeftAndFillsTheStrip) {
  for (const auto& size :
       {FaceSize{kWindow, 1, 1}, FaceSize{kWindow, 1, 2}, FaceSize{kWindow * 1.5, 1.5, 1}}) {
    const int width = size.device().width(), shift = qRound(100.0 / 15 * size.scale());
    auto columns = plain(0, width, size.device().height());  // each of a colour of its own
    for (int i = 0; i < width * columns.height(); ++i) {
      const int x = i % width;
      columns.setPixel(x, i / width, qRgb(x / 256, x % 256, 7));
    }
    SkinFace face(reading_, size);
    const auto skin = keep("skin.bmp", columns);
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
  const auto skin = keep("one.png", plain(0xFF204060));
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
  for (const double size : {1.0, 2.0}) EXPECT_EQ(cornerOf(size, skin), 0xFF204060) << size;
  std::filesystem::remove(skin);
  EXPECT_EQ(cornerOf(2, skin), 0xFF204060) << "what is painted stays";
  EXPECT_EQ(log, "");
  for (const double size : {1.0, 1.5}) EXPECT_EQ(cornerOf(size, skin), 0xFF204060) << size;
  EXPECT_NE(log.find("one.png"), std::string::npos);
  EXPECT_EQ(cornerOf(1.5, folder_ / "none.png"), 0xFF000000 | token("ink1")) << "another is not that one";
}

TEST_F(SkinPainting, OnlyThePicturesOfTheProgramAreThereForSeveralSizes) {
  const auto skin = keep("one.png", plain(0xFF204060));
  std::filesystem::create_directory(folder_ / "2");
  keep("2/one.png", plain(0xFF806040));
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
  auto picture = plain(0xFFFF00FF, 3, 3).convertToFormat(QImage::Format_ARGB32);
  picture.setPixel(0, 2, 0xFF00FF00);
  keep("01.bmp", picture);
  picture.setPixel(1, 1, 0);
  keep("12.png", picture);
  std::filesystem::rename(folder_ / "12.png", folder_ / "12.bmp");
  ImageList1 images(reading_, folder_ / "");
  for (const auto& [number, beside] : {std::pair{1, 0xFF102030}, {12, 0xFFFF00FF}}) {
    const auto image = painted({{20, 20}, 1, 1}, [&, shown = number](QPainter& painter) {
      painter.fillRect(0, 0, 20, 20, QColor(0x10, 0x20, 0x30));
      EXPECT_TRUE(images.CreateActbut(painter, 5, 6, shown, 1));
      EXPECT_FALSE(images.CreateActbut(painter, 5, 6, 99, 1));
    });
    EXPECT_EQ(image.pixel(6, 7), 0xFF102030) << number;
    EXPECT_EQ(image.pixel(7, 6), beside) << number;
    EXPECT_EQ(image.pixel(5, 8), 0xFF00FF00) << number;
  }
}

TEST_F(SkinPainting, CutsTheWindowOutByTheMask) {
  auto mask = plain(qRgb(0, 0, 0), 100, 80);
  for (int i = 0; i < 8000; ++i) {  // a half circle, and all at its right
    const int x = i % 100 - 40, y = i / 100 - 40;
    if (x > 0 || x * x + y * y < 1600) mask.setPixel(x + 40, y + 40, qRgb(1, 0, 0));
  }
  const auto path = keep("mask.bmp", mask);
  for (const double ratio : {1.0, 2.0}) {
    const FaceSize size{{100, 80}, 1, ratio};
    SkinOutline outline(reading_);
    ASSERT_TRUE(outline.load(path, size));
    EXPECT_EQ(boundsOf(*outline.region().region()), (RegionRectangle{1, 0, 100, 80}));
    const auto image = painted(size, [&](QPainter& painter) {
      painter.fillRect(0, 0, 100, 80, Qt::red);
      outline.paintRim(painter);
      outline.soften(painter);
    });
    const auto alphaAt = [&](double x, double y) {
      return qAlpha(image.pixel(static_cast<int>(x * ratio), static_cast<int>(y * ratio)));
    };
    EXPECT_EQ(alphaAt(0, 0), 0);
    EXPECT_TRUE(alphaAt(50, 0) == 255 && alphaAt(40, 40) == 255) << "straight edges are sharp";
    int soft = 0;
    for (double x = 0; x < 40; x += 1 / ratio) soft += alphaAt(x, 10) % 255 != 0 ? 1 : 0;
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
  // Which of these rows a caption touches.
  const auto touched = [&](const QString& caption, std::vector<int> rows) {
    const auto image = draw(caption);
    std::erase_if(rows, [&](int y) { return image.copy(0, y, 22, 1) == bare.copy(0, y, 22, 1); });
    return rows;
  };
  EXPECT_EQ(touched("KVO5     ", {38, 44, 100}), std::vector{44});
  EXPECT_EQ(touched(QString(48, 'W'), {240, 250}), std::vector{240}) << "the foot is bright";
}

}  // namespace
}  // namespace kvo
