// Pictures of skins and keys: what is read, at what size, and what is refused.
#include "ui/pictures.h"

#include "adapters/jpeg/turbo_jpeg.h"
#include "adapters/posix/posix_files.h"
#include "support/grey_jpeg.h"
#include "support/real_world.h"

#include <QImage>
#include <cstring>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace kvo {
namespace {

class Pictures : public testing::Test {
 protected:
  std::string keep(const std::string& name, const std::string& bytes) {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return folder_ / name;
  }
  std::string keep(const std::string& name, const QImage& picture) {
    EXPECT_TRUE(picture.save(QString::fromStdString(folder_ / name)));
    return folder_ / name;
  }

  test::ScratchFolder folder_;
  PosixFiles files_;
  TurboJpeg jpeg_;
  PictureReading reading_{files_, jpeg_};
};

QImage fourColours() {
  QImage picture(4, 4, QImage::Format_RGB32);
  picture.fill(0xFF2040C0);
  for (int x = 0; x < 4; ++x) picture.setPixel(x, x, 0xFFF0E000);
  picture.setPixel(3, 0, 0xFF000000);
  return picture;
}

TEST_F(Pictures, KeepTheirColoursInEveryForm) {
  const auto picture = fourColours();
  const std::pair<const char*, QImage> forms[] = {
      {"24.bmp", picture.convertToFormat(QImage::Format_RGB888)},
      {"8.bmp", picture.convertToFormat(QImage::Format_Indexed8)},
      {"a.png", picture},
      {"a.ppm", picture},
      {"another name.skin", QImage()},
  };
  for (const auto& [name, form] : forms) {
    const auto path = form.isNull() ? folder_ / name : keep(name, form);
    if (form.isNull()) std::filesystem::copy_file(folder_ / "24.bmp", path);
    const auto read = loadPicture(reading_, path);
    ASSERT_TRUE(read) << name;
    EXPECT_EQ(read->convertToFormat(QImage::Format_RGB32), picture) << name;
  }
}

TEST_F(Pictures, OfKeysKeepTheAlphaThatTheyWereRenderedWith) {
  const auto key = loadPicture(reading_, KVO_SHARE "/kvo5/ImageList1/2/03.bmp");
  ASSERT_TRUE(key);
  const auto plate = key->pixelColor(key->width() / 2, key->height() / 2);
  EXPECT_EQ(key->pixelColor(0, 0).alpha(), 0);
  EXPECT_EQ(plate.alpha(), 255);
  bool hasSoftEdge = false;
  for (int x = 0; x < key->width(); ++x) {
    const int alpha = key->pixelColor(x, key->height() / 4).alpha();
    hasSoftEdge |= alpha > 0 && alpha < 255;
  }
  EXPECT_TRUE(hasSoftEdge);
  EXPECT_EQ(keyedPicture(*key), key->convertToFormat(QImage::Format_ARGB32));
}

TEST_F(Pictures, AreStretchedToTheWindow) {
  QImage pixel(1, 1, QImage::Format_RGB32);
  pixel.fill(0xFF204060);
  const QSize window(562, 410);
  for (const auto* name : {"one.bmp", "one.png"}) {
    const auto skin = loadPicture(reading_, keep(name, pixel), window);
    ASSERT_TRUE(skin);
    ASSERT_EQ(skin->size(), window);
    EXPECT_EQ(skin->pixel(0, 0), 0xFF204060);
    EXPECT_EQ(skin->pixel(561, 409), 0xFF204060);
  }
  QImage halves(40, 10, QImage::Format_RGB32);
  halves.fill(0xFFFFFFFF);
  for (int y = 0; y < 10; ++y) {
    for (int x = 0; x < 20; ++x) halves.setPixel(x, y, 0xFF000000);
  }
  for (const auto* name : {"halves.jpg", "halves.png"}) {
    const auto skin = loadPicture(reading_, keep(name, halves), window);
    ASSERT_TRUE(skin);
    ASSERT_EQ(skin->size(), window);
    EXPECT_LT(qGray(skin->pixel(240, 5)), 30) << name;
    EXPECT_GT(qGray(skin->pixel(320, 400)), 225) << name;
  }
}

std::string hugeJpeg(std::size_t side) {
  std::vector<JSAMPLE> row(side, 40);
  std::fill(row.begin() + static_cast<std::ptrdiff_t>(side / 2), row.end(), JSAMPLE{200});
  return test::greyJpeg(std::move(row));
}

TEST_F(Pictures, ThatAreHugeAreDecodedSmallOrRefused) {
  const auto path = keep("huge.jpg", hugeJpeg(20000));
  const auto skin = loadPicture(reading_, path, {562, 410});
  ASSERT_TRUE(skin) << skin.error().text;
  EXPECT_NEAR(qGray(skin->pixel(140, 200)), 40, 2);
  EXPECT_NEAR(qGray(skin->pixel(420, 200)), 200, 2);

  auto bitmap = std::string(500, '\0');
  const std::uint32_t head[] = {54, 40, 10000, 9000, 1 | 24U << 16U};
  std::memcpy(bitmap.data() + 10, head, sizeof head);
  bitmap.replace(0, 2, "BM");
  const std::tuple<std::string, QSize, const char*> rows[] = {
      {path, QSize(), "20000 x 20000 pixels and would take 1526 MB"},
      {keep("huge.bmp", bitmap), QSize(562, 410), "10000 x 9000 pixels and would take 344 MB"}};
  for (const auto& [name, size, what] : rows) {
    const auto refused = loadPicture(reading_, name, size);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().text,
              "cannot show the picture " + name + ": it is " + what + ", where 256 are the limit");
  }
}

TEST_F(Pictures, ThatAreNoneAreToldByName) {
  const auto jpeg = hugeJpeg(64);
  const std::string rows[] = {keep("empty.bmp", std::string()), keep("text.jpg", std::string("no picture")),
                              keep("head.bmp", std::string("BM")),
                              keep("cut.jpg", jpeg.substr(0, jpeg.size() / 2)), folder_ / "none.png"};
  for (const auto& path : rows) {
    const auto read = loadPicture(reading_, path, {10, 10});
    ASSERT_FALSE(read) << path;
    EXPECT_NE(read.error().text.find(path), std::string::npos) << read.error().text;
  }
}

TEST(KeyedPicture, LosesTheColourOfItsPixelOneOne) {
  struct Row {
    const char* what;
    QRgb key;
    QRgb other;
    QRgb keyAfter;
    QRgb otherAfter;
  };
  const Row rows[] = {
      {"an opaque key", 0xFFFF00FF, 0xFF102030, 0, 0xFF102030},
      {"all of the key", 0xFFFF00FF, 0xFFFF00FF, 0, 0},
      {"nearly the key", 0xFFFF00FF, 0xFFFF00FE, 0, 0xFFFF00FE},
      {"the key's colour, half covering", 0xFFFF00FF, 0x80FF00FF, 0, 0x80FF00FF},
      {"black and white", 0xFF000000, 0xFFFFFFFF, 0, 0xFFFFFFFF},
      {"a transparent key", 0x00000000, 0xFF000000, 0x00000000, 0xFF000000},
      {"a transparent key of a colour", 0x00FF00FF, 0xFFFF00FF, 0x00FF00FF, 0xFFFF00FF},
  };
  for (const auto& row : rows) {
    QImage picture(3, 2, QImage::Format_ARGB32);
    picture.fill(row.other);
    picture.setPixel(1, 1, row.key);
    const auto keyed = keyedPicture(picture);
    EXPECT_EQ(keyed.pixel(1, 1), row.keyAfter) << row.what;
    EXPECT_EQ(keyed.pixel(0, 0), row.otherAfter) << row.what;
    EXPECT_EQ(keyed.pixel(2, 1), row.otherAfter) << row.what;
  }
  QImage small(1, 1, QImage::Format_RGB32);
  small.fill(0xFF102030);
  EXPECT_EQ(keyedPicture(small).pixel(0, 0), 0xFF102030) << "no pixel there";
}

TEST(PictureFile, IsTheLeastThatIsLargeEnough) {
  const test::ScratchFolder folder;
  for (const auto* name : {"Skins/blue.bmp", "Skins/1.5/Blue.bmp", "Skins/2/blue.bmp", "Skins/mine.jpg"}) {
    std::filesystem::create_directories(std::filesystem::path(folder / name).parent_path());
    std::ofstream(folder / name) << "picture";
  }
  struct Row {
    const char* name;
    double size;
    const char* file;
    double fileSize;
  };
  const Row rows[] = {
      {"Skins/blue.bmp", 1, "Skins/blue.bmp", 1},          {"\\skins\\BLUE.BMP", 1, "Skins/blue.bmp", 1},
      {"Skins/blue.bmp", 1.25, "Skins/1.5/Blue.bmp", 1.5}, {"skins/Blue.bmp", 1.75, "Skins/2/blue.bmp", 2},
      {"Skins/blue.bmp", 3, "Skins/2/blue.bmp", 2},        {"Skins/MINE.jpg", 2, "Skins/mine.jpg", 1},
      {"Skins/none.bmp", 2, "Skins/none.bmp", 1},
  };
  for (const auto& row : rows) {
    const auto file = pictureFile(folder / row.name, row.size);
    EXPECT_EQ(file.path, folder / row.file) << row.name << row.size;
    EXPECT_EQ(file.size, row.fileSize) << row.name << row.size;
  }
}

}  // namespace
}  // namespace kvo
