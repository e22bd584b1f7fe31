// JPEG files at the four scales, compared with what Qt makes of them; and files that are none.
#include "adapters/jpeg/turbo_jpeg.h"
#include "adapters/posix/posix_files.h"
#include "support/grey_jpeg.h"
#include "support/real_world.h"
#include "ui/dib_section.h"
#include "ui/load_jpeg.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <array>
#include <cmath>
#include <fstream>

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
  for (std::size_t at = 2; at + 8 < file.size();) {
    const auto kind = static_cast<unsigned char>(file[at + 1]);
    if (kind == 0xC0 || kind == 0xC2) {
      file[at + 5] = static_cast<char>(height >> 8);
      file[at + 6] = static_cast<char>(height);
      file[at + 7] = static_cast<char>(width >> 8);
      file[at + 8] = static_cast<char>(width);
      return file;
    }
    at += 2U + (static_cast<unsigned char>(file[at + 2]) << 8U) + static_cast<unsigned char>(file[at + 3]);
  }
  ADD_FAILURE() << "no frame in the file";
  return file;
}

class LoadsJpeg : public testing::Test {
 protected:
  std::string keep(const std::string& name, const std::string& bytes) {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return folder_ / name;
  }

  test::ScratchFolder folder_;
  PosixFiles files_;
  TurboJpeg jpeg_;
  PictureReading reading_{files_, jpeg_};
  cDIBSection surface_;
};

TEST_F(LoadsJpeg, AtEachScaleWithSidesRoundedUp) {
  for (const bool progressive : {false, true}) {
    const auto file = jpegOf(waves(203, 101), progressive);
    const auto path = keep("waves.jpg", file);
    const auto whole = QImage::fromData(QByteArray::fromStdString(file));
    for (const auto& [scale, width, height] :
         {std::tuple{1, 203, 101}, {2, 102, 51}, {4, 51, 26}, {8, 26, 13}}) {
      ASSERT_GT(LoadJpeg(reading_, surface_, path, scale), 0);
      ASSERT_EQ(surface_.dib_width(), width);
      ASSERT_EQ(surface_.dib_height(), height);
      double difference = 0;
      for (int y = 0; y < 101 / scale; ++y) {
        for (int x = 0; x < 203 / scale; ++x) {
          const auto expected = whole.pixelColor(x * scale + scale / 2, y * scale + scale / 2);
          const auto* pixel = surface_.row(y).data() + static_cast<std::size_t>(x) * 3;
          difference += std::abs(pixel[0] - expected.blue()) + std::abs(pixel[1] - expected.green()) +
                        std::abs(pixel[2] - expected.red());
        }
      }
      EXPECT_LT(difference / (3 * (101 / scale) * (203 / scale)), 4) << scale << progressive;
    }
  }
}

TEST_F(LoadsJpeg, OfGrey) {
  QImage grey(9, 9, QImage::Format_Grayscale8);
  grey.fill(100);
  ASSERT_GT(LoadJpeg(reading_, surface_, keep("grey.jpg", jpegOf(grey)), 1), 0);
  const auto row = surface_.row(8);
  for (const auto level : row) EXPECT_NEAR(level, 100, 2);
}

TEST_F(LoadsJpeg, NothingOfWhatIsDamagedOrTooLarge) {
  const auto good = jpegOf(waves(64, 64));
  auto noise = good;
  for (std::size_t i = good.size() / 2; i < good.size() - 2; ++i) noise[i] = '\xFF';
  struct Row {
    const char* what;
    std::string bytes;
    int scale;
  };
  const Row rows[] = {
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
  for (const auto& row : rows) {
    ASSERT_TRUE(surface_.Create(2, 2));
    EXPECT_EQ(LoadJpeg(reading_, surface_, keep("bad.jpg", row.bytes), row.scale), 0) << row.what;
    EXPECT_EQ(surface_.dib_width(), 0) << row.what;
  }
  EXPECT_EQ(LoadJpeg(reading_, surface_, folder_ / "none.jpg", 1), 0);
}

// A progressive file is decoded from memory that holds it whole, however small it is shown.
TEST_F(LoadsJpeg, WithinALimitOfMemory) {
  const auto large = withSize(jpegOf(waves(64, 64), true), 20000, 20000);
  std::vector<std::uint8_t> rows(2500 * 7500);
  const auto done = jpeg_.decode(large, 8, rows, 7500);
  ASSERT_FALSE(done);
  EXPECT_NE(done.error().text.find("Backing store"), std::string::npos) << done.error().text;
}

// A sound progressive file in which each coefficient, and then its last bit, has a pass of its own.
std::string inPasses(int passes) {
  std::vector<jpeg_scan_info> script;
  for (int i = 0; i < passes; ++i) {
    const int coefficient = i % DCTSIZE2;
    script.push_back({1, {0}, coefficient, coefficient, i < DCTSIZE2 ? 0 : 1, i < DCTSIZE2 ? 1 : 0});
  }
  return test::greyJpeg({10, 90, 30, 200, 120, 0, 255, 70}, script);
}

TEST_F(LoadsJpeg, InAHundredPassesAtMost) {
  std::vector<std::uint8_t> rows(8 * 24);
  EXPECT_TRUE(jpeg_.decode(inPasses(100), 1, rows, 24));
  const auto done = jpeg_.decode(inPasses(128), 1, rows, 24);
  ASSERT_FALSE(done);
  EXPECT_EQ(done.error().text, "more than 100 passes over the picture");
}

TEST_F(LoadsJpeg, IntoRowsThatHoldIt) {
  const auto file = jpegOf(waves(10, 10));
  std::vector<std::uint8_t> rows(10 * 32);
  EXPECT_TRUE(jpeg_.decode(file, 1, rows, 32));
  EXPECT_FALSE(jpeg_.decode(file, 1, std::span(rows).first(9 * 32), 32));
  EXPECT_FALSE(jpeg_.decode(file, 1, rows, 29));
}

TEST_F(LoadsJpeg, OrTakesABitmapByItsName) {
  const auto good = jpegOf(waves(16, 16));
  EXPECT_TRUE(CanLoadStill(reading_, "/no/such/file.bmp"));
  EXPECT_TRUE(CanLoadStill(reading_, keep("good.jpg", good)));
  EXPECT_TRUE(CanLoadStill(reading_, keep("good.any", good)));
  EXPECT_FALSE(CanLoadStill(reading_, keep("damaged.jpg", good.substr(0, good.size() / 2))));
  EXPECT_FALSE(CanLoadStill(reading_, folder_ / "none.jpg"));
}

}  // namespace
}  // namespace kvo
