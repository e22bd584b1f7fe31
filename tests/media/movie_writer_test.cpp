#include "media/movie_writer.h"

#include "adapters/posix/posix_files.h"
#include "support/real_world.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::media {
namespace {

Picture filled(int width, int height, int luma, int u, int v) {
  auto canvas = Canvas::make(width, height);
  const int values[] = {luma, u, v};
  for (int plane = 0; plane < 3; ++plane) canvas.fill(plane, static_cast<std::uint8_t>(values[plane]));
  return share(std::move(canvas));
}

bool write(MovieWriter& writer, const std::vector<Picture>& pictures) {
  auto encoder = writer.newVideoEncoder();
  std::int64_t number = 0;
  for (const auto& picture : pictures) {
    const auto frame = encoder ? encoder->encode(picture, number++) : Result<EncodedFrame>(encoder.error());
    if (!frame || !writer.writeVideo(*frame)) return false;
  }
  return true;
}

TEST(MovieWriter, RawPicturesKeepTheirColoursAtEveryDepth) {
  const test::ScratchFolder folder;
  PosixFiles files;
  struct Row {
    int depth;
    const char* format;
    int tolerance;
  };
  for (const auto& row : {Row{16, "rgb555le", 8}, Row{24, "bgr24", 2}, Row{32, "bgra", 2}}) {
    const auto path = folder / ("d" + std::to_string(row.depth) + ".avi");
    auto target = files.replace(path);
    // An odd size: rows are padded to four bytes, and the picture has a row and a column more.
    auto writer = MovieWriter::open(
        **target, {Container::Avi, VideoFormat{VideoCodec::Raw, 31, 21, 25, row.depth}, false}, path);
    ASSERT_TRUE(writer) << writer.error().text;
    ASSERT_TRUE(write(*writer, {filled(32, 22, 81, 90, 240),     // red
                                filled(32, 22, 145, 54, 34)}));  // green
    ASSERT_TRUE(writer->finish());
    ASSERT_TRUE((*target)->commit());
    EXPECT_EQ(test::probed(path, "stream=pix_fmt"), row.format);
    const auto pictures = test::picturesOf(path, 31, 21);
    ASSERT_EQ(pictures.size(), 2U);
    for (const auto& [x, y] : {std::pair{0, 0}, std::pair{30, 20}}) {
      EXPECT_NEAR(pictures[0].at(x, y, 0), 254, row.tolerance) << row.depth;
      EXPECT_NEAR(pictures[0].at(x, y, 2), 0, row.tolerance) << row.depth;
      EXPECT_NEAR(pictures[1].at(x, y, 1), 255, row.tolerance) << row.depth;
    }
  }
}

TEST(MovieWriter, TheFirstRowOfARawPictureComesLastInTheFile) {
  const test::ScratchFolder folder;
  PosixFiles files;
  const auto path = folder / "updown.avi";
  auto target = files.replace(path);
  auto writer = MovieWriter::open(
      **target, {Container::Avi, VideoFormat{VideoCodec::Raw, 16, 16, 25, 24}, false}, path);
  ASSERT_TRUE(writer);
  auto picture = copyOf(filled(16, 16, 16, 128, 128));
  std::fill_n(picture.row(0, 0), 16, std::uint8_t{235});
  ASSERT_TRUE(write(*writer, {share(std::move(picture))}));
  ASSERT_TRUE(writer->finish());
  ASSERT_TRUE((*target)->commit());
  const auto decoded = test::picturesOf(path, 16, 16);
  ASSERT_EQ(decoded.size(), 1U);
  EXPECT_EQ(decoded[0].at(0, 0, 0), 255);
  EXPECT_EQ(decoded[0].at(0, 15, 0), 0);
  const auto bytes = *files.read(path, 1U << 20U);
  const auto frame = bytes.find("00dc", bytes.find("movi"));
  ASSERT_NE(frame, std::string::npos);
  EXPECT_EQ(bytes.substr(frame + 8, 3), std::string(3, '\0')) << "the bottom row stands first";
}

// A movie parted between encoders plays like one from a single encoder.
TEST(MovieWriter, TakesStretchesOfSeveralEncoders) {
  const test::ScratchFolder folder;
  PosixFiles files;
  for (const auto& [name, container, codec] : {std::tuple{"m.avi", Container::Avi, VideoCodec::Mpeg4},
                                               std::tuple{"w.wmv", Container::Wmv, VideoCodec::Wmv2}}) {
    const auto path = folder / name;
    auto target = files.replace(path);
    auto writer = MovieWriter::open(**target, {container, VideoFormat{codec, 64, 48, 25, 24}, false}, path);
    ASSERT_TRUE(writer) << writer.error().text;
    for (const auto& [first, stop] : {std::pair{0, 17}, std::pair{17, 29}, std::pair{29, 60}}) {
      auto encoder = writer->newVideoEncoder();
      ASSERT_TRUE(encoder);
      for (int i = first; i < stop; ++i) {
        const auto frame = encoder->encode(filled(64, 48, 20 + 3 * i, 128, 128), i);
        ASSERT_TRUE(frame && writer->writeVideo(*frame)) << name << " " << i;
      }
    }
    ASSERT_TRUE(writer->finish());
    ASSERT_TRUE((*target)->commit());
    const auto pictures = test::picturesOf(path, 64, 48);
    ASSERT_EQ(pictures.size(), 60U) << name;
    for (int i = 0; i < 60; ++i) {
      EXPECT_NEAR(pictures[static_cast<std::size_t>(i)].mean(), (4 + 3 * i) * 255 / 219.0, 3)
          << name << " " << i;
    }
  }
}

// Keeps where each chunk of a file begins and what its first bytes are, not the pictures themselves.
class Outline : public Replacement {
 public:
  Outcome write(std::uint64_t at, std::string_view bytes) override {
    pieces_[at] = bytes.size() < kSmall ? std::string(bytes) : std::string(bytes.substr(0, 16));
    size_ = std::max(size_, at + bytes.size());
    return {};
  }
  [[nodiscard]] std::uint64_t size() const override { return size_; }
  Outcome commit() override { return {}; }

  [[nodiscard]] int count(std::string_view word) const {
    int found = 0;
    for (const auto& [at, bytes] : pieces_) {
      for (auto i = bytes.find(word); i != std::string::npos; i = bytes.find(word, i + 1)) ++found;
    }
    return found;
  }

 private:
  static constexpr std::size_t kSmall = 1U << 20U;
  std::map<std::uint64_t, std::string> pieces_;
  std::uint64_t size_ = 0;
};

// OpenDML AVI 2.0: beyond 1 GB the movie goes on in further RIFF lists, and an index of indexes leads to all.
TEST(MovieWriter, AnAviBeyondTwoGigabytesHasAnOpenDmlIndex) {
  Outline outline;
  auto writer = MovieWriter::open(
      outline, {Container::Avi, VideoFormat{VideoCodec::Raw, 4096, 4096, 25, 32}, false}, "big.avi");
  ASSERT_TRUE(writer);
  auto encoder = writer->newVideoEncoder();
  ASSERT_TRUE(encoder);
  const auto frame = encoder->encode(filled(4096, 4096, 126, 128, 128), 0);
  ASSERT_TRUE(frame);
  constexpr int kFrames = 34;  // 64 MB each
  for (int i = 0; i < kFrames; ++i) ASSERT_TRUE(writer->writeVideo(*frame));
  ASSERT_TRUE(writer->finish());
  EXPECT_GT(outline.size(), 2ULL << 30U);
  EXPECT_EQ(outline.count("AVIX"), 2);
  EXPECT_GE(outline.count("indx"), 1);
  EXPECT_EQ(outline.count("ix00"), 3) << "one index for each RIFF list";
}

TEST(MovieWriter, ContainersAreToldByTheExtensionInAnyCase) {
  EXPECT_EQ(containerOf("a.AVI"), Container::Avi);
  EXPECT_EQ(containerOf("/x/b.wAv"), Container::Wav);
  EXPECT_EQ(containerOf("c.wmv"), Container::Wmv);
  EXPECT_EQ(containerOf("c.WMA"), Container::Wma);
  for (const auto* name : {"a.mp4", "avi", ".avi", "a.avi.txt", ""}) EXPECT_FALSE(containerOf(name)) << name;
}

}  // namespace
}  // namespace kvo::media
