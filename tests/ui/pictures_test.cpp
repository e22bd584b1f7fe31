// Pictures of skins and keys, and JPEG files at the four scales: what is read, at what size, and what is
// refused.
#include "ui/pictures.h"

#include "ui/dib_section.h"
#include "ui/load_jpeg.h"
#include "ui/picture_bench.h"

#include <QBuffer>
#include <QImageWriter>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <jpeglib.h>

#include <gtest/gtest.h>

namespace kvo {
namespace {

std::string jpegOf(const QImage& picture, bool progressive = false) {
  QBuffer buffer;
  QImageWriter writer(&buffer, "jpg");
  writer.setQuality(95);
  writer.setProgressiveScanWrite(progressive);
  EXPECT_TRUE(writer.write(picture));
  return buffer.data().toStdString();
}

// Slow waves, so that what is averaged on the way to a smaller picture does not depend on the manner.
QImage waves(int width, int height) {
  QImage picture(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const auto level = [](double phase) { return static_cast<int>(127 + 100 * std::sin(phase)); };
      picture.setPixel(x, y, qRgb(level(x / 25.0), level(y / 30.0), level((x + y) / 40.0)));
    }
  }
  return picture;
}

// The height and width in the head of a file, told anew.
std::string withSize(std::string file, int width, int height) {
  const auto frame = std::min(file.find("\xFF\xC0"), file.find("\xFF\xC2"));  // plain or progressive
  const int bytes[] = {height >> 8, height, width >> 8, width};
  for (std::size_t i = 0; i < 4; ++i) file.at(frame + 5 + i) = static_cast<char>(bytes[i]);
  return file;
}

// A grey JPEG file as high as `row` is wide, each row being `row`. With a script it is progressive, in the
// script's passes.
std::string greyJpeg(std::vector<JSAMPLE> row, const std::vector<jpeg_scan_info>& script = {}) {
  const auto side = static_cast<JDIMENSION>(row.size());
  jpeg_compress_struct coder{};
  jpeg_error_mgr errors{};
  coder.err = jpeg_std_error(&errors);
  jpeg_create_compress(&coder);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&coder, &bytes, &size);
  coder.image_width = coder.image_height = side;
  coder.input_components = 1;
  coder.in_color_space = JCS_GRAYSCALE;
  jpeg_set_defaults(&coder);
  if (!script.empty()) {
    coder.scan_info = script.data();
    coder.num_scans = static_cast<int>(script.size());
  }
  jpeg_start_compress(&coder, TRUE);
  JSAMPROW rows = row.data();
  while (coder.next_scanline < side) jpeg_write_scanlines(&coder, &rows, 1);
  jpeg_finish_compress(&coder);
  jpeg_destroy_compress(&coder);
  std::string file(reinterpret_cast<const char*>(bytes), size);
  std::free(bytes);
  return file;
}

// Left dark, right light, written row by row: it need not fit into memory as a picture.
std::string hugeJpeg(std::size_t side) {
  std::vector<JSAMPLE> row(side, 40);
  std::fill(row.begin() + static_cast<std::ptrdiff_t>(side / 2), row.end(), JSAMPLE{200});
  return greyJpeg(std::move(row));
}

class Pictures : public test::PictureBench {
 protected:
  using PictureBench::keep;
  std::string keep(const std::string& name, const std::string& bytes) {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return folder_ / name;
  }

  cDIBSection surface_;
};

TEST_F(Pictures, KeepTheirColoursInEveryForm) {
  auto picture = plain(0xFF2040C0, 4, 4);
  for (int x = 0; x < 4; ++x) picture.setPixel(x, x, 0xFFF0E000);
  keep("24.bmp", picture.convertToFormat(QImage::Format_RGB888));
  keep("8.bmp", picture.convertToFormat(QImage::Format_Indexed8));
  keep("a.png", picture);
  keep("a.ppm", picture);
  std::filesystem::copy_file(folder_ / "24.bmp", folder_ / "another name.skin");
  for (const auto* name : {"24.bmp", "8.bmp", "a.png", "a.ppm", "another name.skin"}) {
    const auto read = loadPicture(reading_, folder_ / name);
    ASSERT_TRUE(read) << name;
    EXPECT_EQ(read->convertToFormat(QImage::Format_RGB32), picture) << name;
  }
}

TEST_F(Pictures, AreStretchedToTheWindow) {
  auto halves = plain(0xFFFFFFFF, 40, 10);
  for (int i = 0; i < 200; ++i) halves.setPixel(i % 20, i / 20, 0xFF000000);
  for (const auto* name : {"halves.bmp", "halves.jpg", "halves.png"}) {
    const auto skin = loadPicture(reading_, keep(name, halves), QSize(562, 410));
    ASSERT_TRUE(skin) << name;
    EXPECT_EQ(skin->size(), QSize(562, 410)) << name;
    EXPECT_LT(qGray(skin->pixel(240, 5)), 30) << name;
    EXPECT_GT(qGray(skin->pixel(320, 400)), 225) << name;
  }
  const auto one = loadPicture(reading_, keep("one.png", plain(0xFF204060)), QSize(562, 410));
  ASSERT_TRUE(one);
  EXPECT_EQ(one->convertToFormat(QImage::Format_RGB32), plain(0xFF204060, 562, 410));
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

TEST_F(Pictures, OfJpegThatAreDamagedOrTooLargeGiveNothing) {
  const auto good = jpegOf(waves(64, 64));
  auto noise = good;
  for (std::size_t i = good.size() / 2; i < good.size() - 2; ++i) noise[i] = '\xFF';
  const std::tuple<const char*, std::string, int> rows[] = {
      {"empty", "", 1},
      {"no JPEG", "BM and so on", 1},
      {"head alone", good.substr(0, 20), 1},
      {"cut short", good.substr(0, good.size() * 3 / 4), 1},
      {"cut short, small", good.substr(0, good.size() * 3 / 4), 8},
      {"noise", noise, 1},
      {"more than a surface holds", withSize(good, 20000, 20000), 1},
      {"less in it than it tells", withSize(good, 20000, 20000), 8},
      {"no width", withSize(good, 0, 64), 1},
      {"a scale that there is not", good, 3},
      {"no scale", good, 0},
  };
  for (const auto& [what, bytes, scale] : rows) {
    ASSERT_TRUE(surface_.Create(2, 2));
    EXPECT_EQ(LoadJpeg(reading_, surface_, keep("bad.jpg", bytes), scale), 0) << what;
    EXPECT_EQ(surface_.dib_width(), 0) << what;
  }
  EXPECT_EQ(LoadJpeg(reading_, surface_, folder_ / "none.jpg", 1), 0);
}

// A sound progressive file in which each coefficient, and then its last bit, has a pass of its own.
std::string inPasses(int passes) {
  std::vector<jpeg_scan_info> script;
  for (int i = 0; i < passes; ++i) {
    const int coefficient = i % DCTSIZE2;
    script.push_back({1, {0}, coefficient, coefficient, i < DCTSIZE2 ? 0 : 1, i < DCTSIZE2 ? 1 : 0});
  }
  return greyJpeg({10, 90, 30, 200, 120, 0, 255, 70}, script);
}

// A progressive file is decoded from memory that holds it whole, however small it is shown.
TEST_F(Pictures, OfJpegAreDecodedWithinLimitsOfMemoryPassesAndRows) {
  std::vector<std::uint8_t> rows(2500 * 7500);
  const auto whole = std::span(rows);
  const auto small = jpegOf(waves(10, 10));
  const struct {
    std::string file;
    int scale;
    std::span<std::uint8_t> rows;
    std::size_t stride;
    std::string says;
  } cases[] = {{withSize(jpegOf(waves(64, 64), true), 20000, 20000), 8, whole, 7500, "Backing store"},
               {inPasses(100), 1, whole, 24, ""},
               {inPasses(128), 1, whole, 24, "more than 100 passes over the picture"},
               {small, 1, whole.first(10 * 32), 32, ""},
               {small, 1, whole.first(9 * 32), 32, " "},
               {small, 1, whole.first(10 * 32), 29, " "}};
  for (const auto& row : cases) {
    const auto done = jpeg_.decode(row.file, row.scale, row.rows, row.stride);
    EXPECT_EQ(done.ok(), row.says.empty()) << row.stride;
    const auto says = done ? std::string() : done.error().text;
    EXPECT_NE(says.find(row.says), std::string::npos) << says;
  }
}

TEST_F(Pictures, OfKeysLoseTheColourOfTheirPixelOneOne) {
  const struct {
    const char* what;
    QRgb key, other, keyAfter, otherAfter;
  } rows[] = {{"an opaque key", 0xFFFF00FF, 0xFF102030, 0, 0xFF102030},
              {"all of the key", 0xFFFF00FF, 0xFFFF00FF, 0, 0},
              {"nearly the key", 0xFFFF00FF, 0xFFFF00FE, 0, 0xFFFF00FE},
              {"the key's colour, half covering", 0xFFFF00FF, 0x80FF00FF, 0, 0x80FF00FF},
              {"a transparent key", 0x00000000, 0xFF000000, 0x00000000, 0xFF000000},
              {"a transparent key of a colour", 0x00FF00FF, 0xFFFF00FF, 0x00FF00FF, 0xFFFF00FF}};
  for (const auto& row : rows) {
    QImage picture(3, 2, QImage::Format_ARGB32);
    picture.fill(row.other);
    picture.setPixel(1, 1, row.key);
    auto after = picture;
    after.fill(row.otherAfter);
    after.setPixel(1, 1, row.keyAfter);
    EXPECT_EQ(keyedPicture(picture).convertToFormat(after.format()), after) << row.what;
  }
  EXPECT_EQ(keyedPicture(plain(0xFF102030)).pixel(0, 0), 0xFF102030) << "no pixel there";
}

// Notes at which scale a picture of this size is asked for.
class NotedJpeg : public TurboJpeg {
 public:
  JpegSize whole;
  mutable int asked = 0;
  [[nodiscard]] Result<JpegSize> size(std::string_view /*file*/) const override { return whole; }
  Outcome decode(std::string_view /*file*/, int scale, std::span<std::uint8_t> /*rows*/,
                 std::size_t /*stride*/) const override {
    asked = scale;
    return Error{"noted"};
  }
};

TEST_F(Pictures, OfJpegAreDecodedAsSmallAsStillFillsWhatIsWantedOrAsMemoryAllows) {
  const auto path = keep("any.jpg", hugeJpeg(16));
  const struct {
    JpegSize whole;
    QSize wanted;
    int scale;  // 0: not at all
  } rows[] = {{{8000, 6000}, {562, 410}, 8}, {{4000, 3000}, {562, 410}, 4},   {{600, 500}, {562, 410}, 1},
              {{300, 200}, {562, 410}, 1},   {{2246, 65535}, {1124, 820}, 2}, {{9000, 9000}, {8000, 8000}, 2},
              {{9000, 9000}, {}, 0}};
  for (const auto& row : rows) {
    NotedJpeg jpeg;
    jpeg.whole = row.whole;
    EXPECT_FALSE(loadPicture({files_, jpeg}, path, row.wanted));
    EXPECT_EQ(jpeg.asked, row.scale) << row.whole.width << "x" << row.whole.height;
  }
}

}  // namespace
}  // namespace kvo
