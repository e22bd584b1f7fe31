// Frames of any kind as pictures: sizes, shapes, colours, alpha, and how they lie.
#include "media/scaler.h"

#include "media/bgr.h"
#include "media/colour.h"
#include "media/video_reader.h"
#include "support/pictures.h"
#include "support/real_world.h"

#include <fstream>

#include <gtest/gtest.h>

namespace kvo::media {
namespace {

using test::ScratchFolder;

Picture placed(const std::string& path, int width, int height, Fit fit = Fit::Stretch) {
  auto reader = VideoReader::open(path, 1);
  EXPECT_TRUE(reader) << reader.error().text;
  const auto frame = reader->frameAt(0);
  EXPECT_TRUE(frame) << frame.error().text;
  auto picture = Scaler(width, height).place(*frame, fit);
  EXPECT_TRUE(picture) << picture.error().text;
  return *picture;
}

TEST(Scaler, AGreyRampComesOutGreyWhateverTheFormatSpaceAndRange) {
  const ScratchFolder folder;
  const std::pair<const char*, std::vector<std::string>> rows[] = {
      {"rgb.png", {"-pix_fmt", "rgb24"}},
      {"grey.png", {"-pix_fmt", "gray"}},
      {"rgba.png", {"-pix_fmt", "rgba"}},
      {"deep.png", {"-pix_fmt", "rgb48be"}},
      {"full.mkv", {"-vf", "scale=out_range=full,format=yuvj420p", "-c:v", "ffv1"}},
      {"limited.mkv", {"-vf", "scale=out_range=limited,format=yuv420p", "-c:v", "ffv1"}},
      {"wide.mkv", {"-vf", "scale=out_range=limited,format=yuv422p10le", "-c:v", "ffv1"}},
      {"hd.mkv",
       {"-vf", "scale=out_range=limited:out_color_matrix=bt709,format=yuv444p", "-c:v", "ffv1", "-colorspace",
        "bt709"}},
      {"photo.jpg", {"-q:v", "2", "-pix_fmt", "yuvj444p"}},
  };
  for (auto [name, arguments] : rows) {
    arguments.insert(
        arguments.begin(),
        {"-f", "lavfi", "-i", "color=black:size=256x64,format=gray,geq=lum='X'", "-frames:v", "1"});
    const auto picture = placed(test::makeMedia(folder, name, arguments), 256, 64);
    EXPECT_FALSE(picture.hasAlpha()) << name << ": what covers all needs no alpha";
    for (const int x : {2, 64, 128, 200, 253}) {
      EXPECT_NEAR(picture.row(0, 30)[x], 16 + x * 219 / 255.0, 3) << name << " at " << x;
      EXPECT_NEAR(picture.row(1, 15)[x / 2], 128, 2) << name << " at " << x;
      EXPECT_NEAR(picture.row(2, 15)[x / 2], 128, 2) << name << " at " << x;
    }
  }
}

// A colour is the same colour, from a source of either space into a picture of either.
TEST(Scaler, ColoursKeepTheirPlaceBetweenTheSpaces) {
  const ScratchFolder folder;
  for (const auto* matrix : {"bt601", "bt709"}) {
    const auto path = test::makeMedia(
        folder, std::string(matrix) + ".mkv",
        {"-f", "lavfi", "-i", "color=0x3060C0:size=64x64,format=rgb24", "-frames:v", "1", "-vf",
         std::string("scale=out_color_matrix=") + matrix + ":out_range=limited,format=yuv420p", "-c:v",
         "ffv1", "-colorspace", matrix == std::string("bt601") ? "smpte170m" : "bt709"});
    for (const int height : {64, 720}) {
      const auto picture = placed(path, 64, height);
      const auto wanted = yuvOf({0x30, 0x60, 0xC0}, height);
      EXPECT_NEAR(picture.row(0, 9)[9], wanted.y, 2) << matrix << " " << height;
      EXPECT_NEAR(picture.row(1, 9)[9], wanted.u, 2) << matrix << " " << height;
      EXPECT_NEAR(picture.row(2, 9)[9], wanted.v, 2) << matrix << " " << height;
    }
  }
}

TEST(Scaler, AlphaOfAStillIsKept) {
  const ScratchFolder folder;
  // Red, its left half clear with green hidden in it, a strip in the middle half clear.
  const auto path = test::makeMedia(folder, "alpha.png",
                                    {"-f", "lavfi", "-i",
                                     "color=red:size=80x40,format=rgba,geq=r='if(lt(X,40),0,255)':g='if(lt(X,"
                                     "40),255,0)':b=0:a='if(lt(X,40),0,if(lt(X,60),128,255))'",
                                     "-frames:v", "1"});
  const auto picture = placed(path, 160, 80);
  ASSERT_TRUE(picture.hasAlpha());
  const auto red = yuvOf({255, 0, 0}, 80);
  EXPECT_EQ(picture.row(3, 40)[20], 0);
  EXPECT_NEAR(picture.row(3, 40)[100], 128, 2);
  EXPECT_EQ(picture.row(3, 40)[140], 255);
  EXPECT_EQ(picture.row(0, 40)[20], 16);
  EXPECT_NEAR(picture.row(0, 40)[100], 16 + (red.y - 16) / 2.0, 2);
  EXPECT_NEAR(picture.row(2, 20)[70], red.v, 2);
  // The hidden green does not shine into the edge: it darkens, and gets no greener.
  for (int x = 74; x < 86; ++x) EXPECT_LE(picture.row(0, 40)[x], 16 + (red.y - 16) / 2 + 6) << x;
  const auto boxed = placed(path, 80, 80, Fit::Letterbox);
  EXPECT_EQ(boxed.row(3, 4)[60], 0) << "around it nothing is seen";
}

TEST(Colours, AreReadFromTheirTexts) {
  const std::pair<const char*, Colour> rows[] = {{"ALICEBLUE", {240, 248, 255}}, {"red", {255, 0, 0}},
                                                 {" #00ff80 ", {0, 255, 128}},   {"0x102030", {16, 32, 48}},
                                                 {"FF8000", {255, 128, 0}},      {"255", {255, 0, 0}},
                                                 {"16711680", {0, 0, 255}},      {"0", {0, 0, 0}}};
  for (const auto& [text, colour] : rows) EXPECT_EQ(parseColour(text), colour) << text;
  for (const auto* text : {"", "None", "no colour", "random", "99999999999", "-1", "red@0.5", "#12"}) {
    EXPECT_FALSE(parseColour(text)) << text;
  }
}

TEST(Colours, EveryNameOfTheShippedListIsOne) {
  std::ifstream list(std::string(KVO_GOLDEN) + "/../../assets/share/ParamCols.dat");
  int count = 0;
  for (std::string name; std::getline(list, name, '\r'); list.ignore(1), ++count) {
    EXPECT_TRUE(parseColour(name)) << name;
  }
  EXPECT_GT(count, 100);
}

TEST(Bgr, GoesThereAndBack) {
  const auto goesBack = [](const Picture& picture) {
    const auto stride = 3 * static_cast<std::size_t>(picture.width());
    std::vector<std::uint8_t> bgr(stride * static_cast<std::size_t>(picture.height()));
    toBgr(picture, bgr.data(), stride);
    auto back = copyOf(picture);
    fromBgr(bgr.data(), stride, back);
    EXPECT_LT(test::difference(picture, back), 1.2);
    for (const int plane : {1, 2}) EXPECT_LT(test::difference(picture, back, plane), 1.5);
  };
  for (const int height : {96, 720}) goesBack(test::scene(128, height));
  // Half transparent, the colours are the same ones.
  auto half = copyWithAlpha(test::scene(64, 48));
  half.fill(3, 128);
  for (int plane = 0; plane < 3; ++plane) {
    const int black = Picture::blackOf(plane);
    for (int y = 0; y < half.height(plane); ++y) {
      for (int x = 0; x < half.width(plane); ++x)
        half.row(plane, y)[x] =
            static_cast<std::uint8_t>(black + (half.row(plane, y)[x] - black) * 128 / 255);
    }
  }
  goesBack(share(std::move(half)));
}

}  // namespace
}  // namespace kvo::media
