// What is kept of media files: its bytes, its folder, and how it is made.
#include "adapters/jpeg/turbo_jpeg.h"
#include "sketches/kept_sketches.h"
#include "sketches/sketch_maker.h"
#include "support/golden.h"
#include "support/memory_files.h"
#include "support/named_streams.h"
#include "support/texts.h"

namespace kvo {
namespace {

using test::lineOf;
using test::MemoryFiles;

const SketchFile kSketch{{"/v/a b.avi", 0x0102030405ULL, 1700000000},
                         {{0, "jpeg"}, {1500, ""}, {4000000000U, "\xff\xd8"}},
                         std::string("\x00\x7f\xff", 3)};

TEST(SketchFile, BytesStayAsTheyAre) {
  test::expectGolden("a.sketch", sketchBytes(kSketch));
  for (const auto& sketch : {kSketch, SketchFile{{"", 0, -1}, {}, {}}, SketchFile{{"x", 1, 1}, {}, ""}})
    EXPECT_EQ(readSketch(sketchBytes(sketch)), sketch);
}

std::string summed(std::string body) {
  const auto sum = sketchSum(body);
  for (unsigned i = 0; i < 8; ++i) body += static_cast<char>(sum >> (8 * i));
  return body;
}

TEST(SketchFile, WhatIsDamagedIsNone) {
  const auto whole = sketchBytes(kSketch);
  for (std::size_t i = 0; i < whole.size(); ++i) {
    EXPECT_FALSE(readSketch(whole.substr(0, i))) << "cut off at " << i;
    auto other = whole;
    other[i] = static_cast<char>(other[i] ^ 1);
    EXPECT_FALSE(readSketch(other)) << "another byte at " << i;
  }
  // The sum is right, and the rest is not: another version, more of anything than there is, and less.
  const auto body = whole.substr(0, whole.size() - 8);
  const std::pair<int, int> wrong[] = {{8, 2},  {12, 11},  {12, 9}, {15, 127}, {32, 4},
                                       {32, 2}, {35, 127}, {36, 0}, {36, 2},   {40, 4},
                                       {40, 2}, {47, 127}, {59, 6}, {62, 5},   {65, 127}};
  for (const auto& [at, byte] : wrong) {
    auto other = body;
    other[static_cast<std::size_t>(at)] = static_cast<char>(byte);
    EXPECT_FALSE(readSketch(summed(other))) << at << " " << byte;
  }
  EXPECT_TRUE(readSketch(summed(body)));
}

struct FolderBench {
  MemoryFiles files;
  SketchFolder folder{files, "/c/sketches", 2000};
  FolderBench() { files.all["/v/a.avi"] = "film"; }
  void keep(const std::string& media, std::uint32_t milliseconds, const std::string& jpeg) {
    auto sketch = folder.find(media);
    ASSERT_TRUE(sketch) << media;
    sketch->add({milliseconds, jpeg});
    EXPECT_TRUE(folder.keep(*sketch));
  }
  // "500:half 1000:one|loud"
  std::string kept(const std::string& media) {
    const auto sketch = folder.find(media);
    std::string all;
    for (const auto& picture : sketch->pictures)
      all += lineOf(picture.milliseconds) + ":" + picture.jpeg + " ";
    return all + sketch->peaks.value_or("");
  }
};

TEST(SketchFolder, KeepsWhatIsAddedWhileTheFileStaysAsItIs) {
  FolderBench b;
  EXPECT_FALSE(b.folder.find("/v/none.avi"));
  auto early = b.folder.find("/v/a.avi");
  b.keep("/v/a.avi", 1000, "one");
  early->peaks = "loud";
  EXPECT_TRUE(b.folder.keep(*early)) << "what another process has added meanwhile stays";
  b.keep("/v/a.avi", 500, "half");
  EXPECT_EQ(b.kept("/v/a.avi"), "500:half 1000:one loud");
  const auto path = b.folder.fileOf("/v/a.avi");
  b.files.all[path].resize(b.files.all[path].size() / 2);
  EXPECT_EQ(b.kept("/v/a.avi"), "") << "cut off";
  b.keep("/v/a.avi", 500, "again");
  EXPECT_EQ(b.kept("/v/a.avi"), "500:again ");
  b.files.all["/v/a.avi"] = "another film";
  EXPECT_EQ(b.kept("/v/a.avi"), "") << "of an earlier state";
  // A disk that is full leaves what there was.
  const auto before = b.files.all[path];
  for (b.files.failAt = 1; b.files.failAt < 4; ++b.files.failAt) {
    b.files.calls = 0;
    auto more = *b.folder.find("/v/a.avi");
    more.add({7, "new"});
    EXPECT_FALSE(b.folder.keep(more)) << b.files.failAt;
    EXPECT_EQ(b.files.all[path], before);
  }
  SketchFolder nowhere(b.files, "");
  const auto count = b.files.all.size();
  EXPECT_TRUE(nowhere.keep(kSketch));
  EXPECT_EQ(b.files.all.size(), count);
}

TEST(SketchFolder, LetsTheOldestGoWhereAllGrowTooLarge) {
  FolderBench b;
  b.files.all["/c/sketches/mine.txt"] = std::string(5000, ' ');
  for (int i = 0; i <= SketchFolder::kSweepEvery; ++i) {
    const auto media = "/v/" + std::to_string(i);
    b.files.all[media] = "film";
    b.keep(media, 0, std::string(static_cast<std::size_t>(500 + i), 'x'));  // by their length as old as large
  }
  std::uint64_t total = 0;
  for (const auto& [path, bytes] : b.files.all) total += path.ends_with(".sketch") ? bytes.size() : 0;
  EXPECT_LE(total, 2000U);
  EXPECT_GT(total, 1000U) << "no more than has to";
  EXPECT_TRUE(b.folder.find("/v/0")->pictures.empty());
  EXPECT_FALSE(b.folder.find("/v/" + std::to_string(SketchFolder::kSweepEvery))->pictures.empty());
  EXPECT_TRUE(b.files.exists("/c/sketches/mine.txt")) << "no sketch";
  const auto named = [](const char* cache, const char* home) {
    return sketchesFolder([=](const char* name) { return std::string(name[0] == 'X' ? cache : home); });
  };
  EXPECT_EQ(named("/c", "/h") + named("c", "/h") + named("", ""), "/c/kvo5/sketches/h/.cache/kvo5/sketches");
}

struct NotedStreams : test::NamedStreams {
  std::string drawn;
  Result<FramePicture> frame(const std::string& path, double seconds, int w, int h) override {
    drawn += lineOf(w, "x", h) + " ";
    return test::NamedStreams::frame(path, seconds, w, h);
  }
};

struct CountedSounds : SoundPeaks {
  int heard = 0;
  Result<std::vector<std::uint8_t>> peaks(const std::string& path, int perSecond,
                                          const std::function<void()>& alive) override {
    ++heard;
    alive();
    if (path == "/v/mute.avi") return Error{"no sound in " + path};
    return std::vector<std::uint8_t>(static_cast<std::size_t>(perSecond), 9);
  }
};

TEST(SketchMaker, MakesEachOnceInTheShapeOfTheFile) {
  FolderBench b;
  NotedStreams streams;
  CountedSounds sounds;
  const TurboJpeg jpeg;
  SketchMaker maker({b.folder, streams, sounds, jpeg});
  for (const auto& [width, height] :
       {std::pair{1920, 1080}, {640, 480}, {720, 1280}, {4000, 100}, {64, 48}}) {
    const auto path = "/v/" + std::to_string(width);
    b.files.all[path] = "film";
    streams.all[path] = {.hasVideo = true, .width = width, .height = height};
    EXPECT_FALSE(maker.picture(path, 77000).empty());
  }
  const auto bytes = maker.picture("/v/640", 77000);  // this one out of the folder
  EXPECT_EQ(streams.drawn, "256 x 144 192 x 144 81 x 144 256 x 6 64 x 48 ");
  std::vector<std::uint8_t> rows(std::size_t{192} * 144 * 3);
  ASSERT_TRUE(jpeg.decode(bytes, 1, rows, std::size_t{192} * 3));
  EXPECT_NEAR(rows[1000], 77, 2) << "as grey as its time";
  b.files.all["/v/mute.avi"] = "film";
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(maker.peaks("/v/640", [] {}), std::string(kKeptPeaks, 9));
    EXPECT_EQ(maker.peaks("/v/mute.avi", [] {}), "");
    EXPECT_EQ(maker.picture("/v/mute.avi", 0), "") << "no picture";
  }
  EXPECT_EQ(sounds.heard, 2) << "what has none is not asked again";
  EXPECT_EQ(maker.picture("/v/gone.avi", 0) + maker.peaks("/v/gone.avi", [] {}), "");
}

TEST(Peaks, AtAnyRateMissNothingThatIsLoud) {
  std::vector<std::uint8_t> peaks(100, 1);
  peaks[33] = 200;
  for (const auto& [rate, loud] : {std::pair{100, 33}, {50, 16}, {3, 0}, {1, 0}, {200, 66}}) {
    const auto at = peaksAtRate(peaks, 100, rate);
    EXPECT_EQ(at.size(), static_cast<std::size_t>(rate));
    EXPECT_EQ(at.at(static_cast<std::size_t>(loud)), 200) << rate;
  }
  EXPECT_EQ(peaksAtRate(peaks, 100, 3)[2], 1);
  EXPECT_TRUE(peaksAtRate({}, 100, 7).empty());
}

}  // namespace
}  // namespace kvo
