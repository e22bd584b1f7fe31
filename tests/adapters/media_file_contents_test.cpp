#include "adapters/media/media_file_contents.h"

#include "support/real_world.h"

namespace kvo {
namespace {

using test::bytesOf;
using test::lineOf;

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
  std::fstream(path, std::ios::in | std::ios::out | std::ios::binary) << std::string(64, 'x');
  std::filesystem::last_write_time(path, time);
  const auto told = [](const StreamFacts& f) {
    return lineOf(f.width, f.codec, f.frameRate, f.duration, f.hasAudio);
  };
  for (const auto& [kept, maker, isKnown] :
       {std::tuple{text, "us", true},
        {text, "them", false},
        {std::string(), "us", false},
        {text.substr(0, text.size() - path.size()), "us", false},
        {"us\n12\tand more\n" + text.substr(3), "us", true}}) {  // with a line that is none
    MediaFileContents later;
    later.remember(kept, maker);
    const auto again = later.facts(path);
    EXPECT_EQ(again ? told(*again) : "", isKnown ? told(*facts) : "") << kept << maker;
    EXPECT_FALSE(isKnown && later.hasNews()) << kept;
  }
  first.learn(path, {.hasVideo = true, .width = 7});
  EXPECT_EQ(first.facts(path)->width, 7);
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
    EXPECT_EQ(lineOf(picture->width, picture->height, picture->bgr.size()), "202 96 58176");
    EXPECT_LT(std::max(at(*picture, 20, 48), at(*picture, 180, 48)), 3) << "black beside it";
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

// The picture in four quarters, row by row: whether a colour is full or none in the middle of each.
std::string quartersOf(const FramePicture& picture, std::size_t colour) {
  std::string all;
  for (int quarter = 0; quarter < 4; ++quarter) {
    const int x = picture.width / 4 + quarter % 2 * picture.width / 2;
    const int y = picture.height / 4 + quarter / 2 * picture.height / 2;
    const int level = picture.bgr.at(static_cast<std::size_t>(3 * (y * picture.width + x)) + colour);
    all += level > 240 ? '1' : level < 12 ? '0' : '?';
  }
  return all;
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
  // In the directory of a TIFF, whose tags rise, for what it tells of the software that has made it.
  file.erase(file.find(number(305, 2) + number(2, 2)), entry.size());
  return file.insert(file.find(number(277, 2) + number(3, 2)), entry);
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
  // From orientation 1 on: where the light is, and how large it is.
  const char* const seen[] = {"1000 64 32", "0100 64 32", "0001 64 32", "0010 64 32", "1000 32 64",
                              "0100 32 64", "0001 32 64", "0010 32 64", "1000 64 32"};
  for (const std::string kind : {"jpg", "png", "tiff", "webp"}) {
    const auto plain = bytesOf(test::makeMedia(
        folder, "plain." + kind,
        {"-f", "lavfi", "-i", "color=black:size=64x32,drawbox=0:0:32:16:white:fill", "-frames:v", "1"}));
    for (std::uint32_t orientation = 1; orientation <= std::size(seen); ++orientation) {
      MediaFileContents source;
      const auto path = folder / ("held." + kind);
      std::ofstream(path, std::ios::binary) << heldSo(plain, kind, orientation);
      const auto facts = source.facts(path);
      ASSERT_TRUE(facts) << kind << ": " << facts.error().text;
      const auto picture = source.frame(path, 0, facts->width, facts->height);
      ASSERT_TRUE(picture) << kind << ": " << picture.error().text;
      EXPECT_EQ(lineOf(quartersOf(*picture, 0), facts->width, facts->height), seen[orientation - 1])
          << kind << orientation;
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
  for (const auto& [name, expected] :  // of blue and of red
       {std::pair{"plain.avif", "0000 1000 64 32"},
        {"0.heic", "0000 1000 64 32"},
        {"0.avif", "0000 1000 64 32"},
        {"1.avif", "0000 0010 32 64"},
        {"2.avif", "0000 0001 64 32"},
        {"3.avif", "0000 0100 32 64"}}) {
    MediaFileContents source;
    const auto facts = source.facts(folder / name);
    ASSERT_TRUE(facts) << facts.error().text;
    EXPECT_TRUE(facts->isStill && facts->hasVideo);
    const auto picture = source.frame(folder / name, 1000, facts->width, facts->height);
    ASSERT_TRUE(picture) << picture.error().text;
    EXPECT_EQ(lineOf(quartersOf(*picture, 0), quartersOf(*picture, 2), facts->width, facts->height), expected)
        << name;
  }
  MediaFileContents source;
  for (const std::size_t size : {20, 60, 300}) {
    std::ofstream(folder / "cut.avif", std::ios::binary) << bytesOf(plain).substr(0, size);
    EXPECT_FALSE(source.frame(folder / "cut.avif", 0, 64, 32)) << size;
  }
}

}  // namespace
}  // namespace kvo
