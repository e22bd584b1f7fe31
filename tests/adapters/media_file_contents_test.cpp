#include "adapters/media/media_file_contents.h"

#include "support/real_world.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(MediaFileContents, KnowsAFileThatHasChanged) {
  const test::ScratchFolder folder;
  MediaFileContents source;
  const auto path = folder / "clip.avi";
  const auto make = [&](const std::string& size) {
    test::makeMedia(folder, "clip.avi",
                    {"-f", "lavfi", "-i", "color=red:size=" + size + ":rate=25:duration=1", "-c:v", "mpeg4"});
  };
  EXPECT_FALSE(source.facts(path)) << "it is not there yet";
  make("64x48");
  const auto first = source.facts(path);
  ASSERT_TRUE(first) << "a failure is not remembered";
  EXPECT_EQ(first->width, 64);
  make("96x48");
  EXPECT_EQ(source.facts(path)->width, 96);
  // Of another size, at the same time.
  const auto time = std::filesystem::last_write_time(path);
  make("48x96");
  std::filesystem::resize_file(path, std::filesystem::file_size(path) + 1);
  std::filesystem::last_write_time(path, time);
  EXPECT_EQ(source.facts(path)->width, 48);
  std::filesystem::remove(path);
  EXPECT_FALSE(source.facts(path)) << "it is gone";
}

// A file of the same size and time is not opened again, whoever has found out what it holds.
TEST(MediaFileContents, KnowsWhatAnEarlierRunHasFoundOut) {
  const test::ScratchFolder folder;
  const auto path = test::makeCountingVideo(folder, "a\tb.avi", "25", 25);
  MediaFileContents first;
  const auto facts = first.facts(path);
  ASSERT_TRUE(facts);
  EXPECT_TRUE(first.hasNews());
  const auto text = first.known("us");
  const auto time = std::filesystem::last_write_time(path);
  {
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file << std::string(64, 'x');
  }
  std::filesystem::last_write_time(path, time);
  const struct {
    const char* name;
    std::string text, maker;
    bool isKnown;
  } rows[] = {{"as it was written", text, "us", true},
              {"by another", text, "them", false},
              {"nothing", "", "us", false},
              {"cut off", text.substr(0, text.size() - path.size()), "us", false},
              {"with a line that is none", "us\n12\tand more\n" + text.substr(3), "us", true}};
  for (const auto& row : rows) {
    MediaFileContents later;
    later.remember(row.text, row.maker);
    const auto again = later.facts(path);
    ASSERT_EQ(static_cast<bool>(again), row.isKnown) << row.name;
    if (!again) continue;
    EXPECT_FALSE(later.hasNews()) << row.name;
    EXPECT_EQ(std::tuple(again->width, again->codec, again->frameRate, again->duration, again->hasAudio),
              std::tuple(facts->width, facts->codec, facts->frameRate, facts->duration, facts->hasAudio));
  }
  MediaFileContents told;
  told.learn(path, {.hasVideo = true, .width = 7});
  EXPECT_EQ(told.facts(path)->width, 7);
}

TEST(MediaFileContents, GivesAFrameByItsTimeWithItsShapeKept) {
  const test::ScratchFolder folder;
  MediaFileContents source;
  const auto path = test::makeCountingVideo(folder, "count.avi", "25", 25);  // 64 x 48
  const auto at = [](const FramePicture& picture, int x, int y) {
    return picture.bgr.at(static_cast<std::size_t>(3 * (y * picture.width + x)));
  };
  int before = -1;
  for (const double seconds : {0.0, 0.4, 0.9}) {
    const auto picture = source.frame(path, seconds, 201, 96);
    ASSERT_TRUE(picture) << picture.error().text;
    EXPECT_EQ(picture->width, 202);
    EXPECT_EQ(picture->height, 96);
    EXPECT_EQ(picture->bgr.size(), std::size_t{202} * 96 * 3);
    EXPECT_LT(at(*picture, 20, 48), 3) << "black beside it";
    EXPECT_LT(at(*picture, 180, 48), 3);
    EXPECT_GT(at(*picture, 101, 48), before) << "each is brighter than the one ahead of it";
    before = at(*picture, 101, 48);
  }
  EXPECT_TRUE(source.frame(path, 0, 1, 1)) << "no box is too small";
  for (const auto& [name, seconds] : {std::pair{path, 30.0}, {folder / "none.avi", 0.0}}) {
    const auto none = source.frame(name, seconds, 64, 48);
    ASSERT_FALSE(none);
    EXPECT_NE(none.error().text.find(name), std::string::npos) << none.error().text;
  }
}

std::string number(std::uint32_t value, int bytes, bool bigEndian = false) {
  std::string text;
  for (int i = 0; i < bytes; ++i)
    text += static_cast<char>(value >> static_cast<unsigned>(8 * (bigEndian ? bytes - 1 - i : i)));
  return text;
}

std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The picture file with Exif's orientation written into it.
std::string heldSo(std::string file, const std::string& kind, std::uint32_t orientation) {
  const auto entry = number(274, 2) + number(3, 2) + number(1, 4) + number(orientation, 4);
  const auto exif = "II" + number(42, 2) + number(8, 4) + number(1, 2) + entry + number(0, 4);
  if (kind == "jpg") {
    const auto named = std::string("Exif\0\0", 6) + exif;
    return file.insert(2, "\xFF\xE1" + number(static_cast<std::uint32_t>(named.size()) + 2, 2, true) + named);
  }
  if (kind == "png")
    return file.insert(
        33, number(static_cast<std::uint32_t>(exif.size()), 4, true) + "eXIf" + exif + number(0, 4));
  if (kind == "webp") {
    const auto extended = "VP8X" + number(10, 4) + number(8, 4) + number(63, 3) + number(31, 3);
    file = extended + file.substr(12) + "EXIF" + number(static_cast<std::uint32_t>(exif.size()), 4) + exif;
    return "RIFF" + number(static_cast<std::uint32_t>(file.size()) + 4, 4) + "WEBP" + file;
  }
  // A second directory of a TIFF, which is the first with one entry more, at the end.
  const auto at = [&](std::size_t from, int bytes) {
    std::size_t value = 0;
    for (int i = bytes; i-- > 0;)
      value = value << 8U | static_cast<unsigned char>(file[from + static_cast<std::size_t>(i)]);
    return value;
  };
  const auto directory = at(4, 4);
  const auto count = at(directory, 2);
  std::string entries = file.substr(directory + 2, count * 12);
  std::size_t place = 0;
  while (place < entries.size() && (static_cast<unsigned char>(entries[place]) |
                                    static_cast<unsigned char>(entries[place + 1]) << 8U) < 274)
    place += 12;
  entries.insert(place, entry);
  const auto end = static_cast<std::uint32_t>(file.size());
  file += number(static_cast<std::uint32_t>(count) + 1, 2) + entries + number(0, 4);
  return file.replace(4, 4, number(end, 4));
}

TEST(MediaFileContents, OfAMenuOfADvdItIsTheFilm) {
  const test::ScratchFolder disc;
  test::makeMedia(disc, "VTS_01_1.VOB",
                  {"-f", "lavfi", "-i", "color=red:size=64x48:rate=25:duration=1", "-c:v", "mpeg2video"});
  std::ofstream(disc / "VIDEO_TS.IFO") << "DVDVIDEO-VMG";
  const auto facts = MediaFileContents().facts(disc / "VIDEO_TS.IFO");
  ASSERT_TRUE(facts) << facts.error().text;
  EXPECT_EQ(facts->width, 64);
}

TEST(MediaFileContents, AStillStandsAsItsCameraWasHeld) {
  const test::ScratchFolder folder;
  const struct {
    std::uint32_t orientation;
    bool swapped;
    int x, y;  // the half that the light is in
  } rows[] = {{1, false, 0, 0}, {2, false, 1, 0}, {3, false, 1, 1}, {4, false, 0, 1}, {5, true, 0, 0},
              {6, true, 1, 0},  {7, true, 1, 1},  {8, true, 0, 1},  {9, false, 0, 0}};
  for (const std::string kind : {"jpg", "png", "tiff", "webp"}) {
    const auto plain = bytesOf(test::makeMedia(
        folder, "plain." + kind,
        {"-f", "lavfi", "-i", "color=black:size=64x32,drawbox=0:0:32:16:white:fill", "-frames:v", "1"}));
    for (const auto& row : rows) {
      MediaFileContents source;
      const auto path = folder / ("held." + kind);
      std::ofstream(path, std::ios::binary) << heldSo(plain, kind, row.orientation);
      const auto facts = source.facts(path);
      ASSERT_TRUE(facts) << kind << ": " << facts.error().text;
      const int width = row.swapped ? 32 : 64;
      const int height = row.swapped ? 64 : 32;
      EXPECT_EQ(facts->width, width) << kind << row.orientation;
      EXPECT_EQ(facts->height, height) << kind << row.orientation;
      const auto picture = source.frame(path, 0, width, height);
      ASSERT_TRUE(picture) << kind << ": " << picture.error().text;
      for (int half = 0; half < 4; ++half) {
        const int x = width / 4 + half % 2 * width / 2;
        const int y = height / 4 + half / 2 * height / 2;
        const bool light = picture->bgr[static_cast<std::size_t>(3 * (y * width + x))] > 128;
        EXPECT_EQ(light, half == row.x + 2 * row.y) << kind << row.orientation << " at " << x << ", " << y;
      }
    }
  }
}

// The AVIF that ffmpeg makes, of one picture, to be turned by quarters against the clock.
std::string turnedAvif(std::string file, int quarters) {
  const auto box = [&](const char* name) { return file.find(name) - 4; };
  const auto grow = [&](std::size_t at, std::uint32_t bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) value = value << 8U | static_cast<unsigned char>(file[at + i]);
    file.replace(at, 4, number(value + bytes, 4, true));
    return value;
  };
  constexpr std::size_t kPlaceOfPicture = 22;
  constexpr std::size_t kCountOfProperties = 18;
  grow(box("meta"), 10);
  grow(box("iprp"), 10);
  grow(box("ipco"), 9);
  grow(box("iloc") + kPlaceOfPicture, 10);
  const auto ties = box("ipma");
  const auto end = ties + grow(ties, 1);
  const char count = ++file[ties + kCountOfProperties];
  file.insert(end, 1, static_cast<char>(0x80 | count));
  return file.insert(ties, number(9, 4, true) + "irot" + static_cast<char>(quarters));
}

TEST(MediaFileContents, APhotographOfAPhoneStandsUprightAndGoesOnForEver) {
  const test::ScratchFolder folder;
  const auto plain =
      test::makeMedia(folder, "plain.avif",
                      {"-f", "lavfi", "-i", "color=black:size=64x32,drawbox=0:0:32:16:red:fill", "-frames:v",
                       "1", "-c:v", "libaom-av1", "-still-picture", "1"});
  const auto png = test::makeMedia(
      folder, "plain.png",
      {"-f", "lavfi", "-i", "color=black:size=64x32,drawbox=0:0:32:16:red:fill", "-frames:v", "1"});
  ASSERT_EQ(test::runProgram({"heif-enc", png, "-o", folder / "0.heic"}).exitCode, 0);
  for (int quarters = 0; quarters < 4; ++quarters)
    std::ofstream(folder / (std::to_string(quarters) + ".avif"), std::ios::binary)
        << turnedAvif(bytesOf(plain), quarters);
  const struct {
    const char* name;
    int red;  // the quarter that it is in, row by row
  } rows[] = {{"plain.avif", 0}, {"0.heic", 0}, {"0.avif", 0}, {"1.avif", 2}, {"2.avif", 3}, {"3.avif", 1}};
  for (const auto& row : rows) {
    MediaFileContents source;
    const auto facts = source.facts(folder / row.name);
    ASSERT_TRUE(facts) << facts.error().text;
    const bool swapped = row.name[0] == '1' || row.name[0] == '3';
    EXPECT_EQ(std::pair(facts->width, facts->height), swapped ? std::pair(32, 64) : std::pair(64, 32));
    EXPECT_TRUE(facts->isStill && facts->hasVideo);
    const auto picture = source.frame(folder / row.name, 1000, facts->width, facts->height);
    ASSERT_TRUE(picture) << picture.error().text;
    for (int quarter = 0; quarter < 4; ++quarter) {
      const int x = facts->width / 4 + quarter % 2 * facts->width / 2;
      const int y = facts->height / 4 + quarter / 2 * facts->height / 2;
      const auto* pixel = &picture->bgr[static_cast<std::size_t>(3 * (y * facts->width + x))];
      EXPECT_NEAR(pixel[2], quarter == row.red ? 253 : 0, 12) << row.name << quarter;
      EXPECT_LT(pixel[0], 12);
    }
  }
  MediaFileContents source;
  for (const std::size_t size : {20, 60, 300}) {
    std::ofstream(folder / "cut.avif", std::ios::binary) << bytesOf(plain).substr(0, size);
    EXPECT_FALSE(source.frame(folder / "cut.avif", 0, 64, 32)) << size;
  }
}

}  // namespace
}  // namespace kvo
