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

// Writes the pictures by an encoder for each stretch of them, and takes the file apart again.
std::vector<test::DecodedPicture> written(const std::string& path, const MovieFormat& form,
                                          const std::vector<std::vector<Picture>>& stretches) {
  PosixFiles files;
  auto target = files.replace(path);
  auto writer = MovieWriter::open(**target, form, path);
  EXPECT_TRUE(writer) << writer.error().text;
  std::int64_t number = 0;
  for (const auto& stretch : stretches) {
    auto encoder = writer->newVideoEncoder();
    EXPECT_TRUE(encoder);
    const auto write = [&](const Result<EncodedFrames>& frames) {
      EXPECT_TRUE(frames) << path << number;
      for (const auto& frame : *frames) EXPECT_TRUE(writer->writeVideo(frame)) << path << number;
    };
    for (const auto& picture : stretch) write(encoder->encode(picture, number++));
    write(encoder->finish());
  }
  EXPECT_TRUE(writer->finish());
  EXPECT_TRUE((*target)->commit());
  return test::picturesOf(path, form.video->width, form.video->height);
}

TEST(MovieWriter, RawPicturesKeepTheirColoursAtEveryDepth) {
  const test::ScratchFolder folder;
  struct Row {
    int depth;
    const char* format;
    int tolerance;
  };
  for (const auto& row : {Row{16, "rgb555le", 8}, Row{24, "bgr24", 2}, Row{32, "bgra", 2}}) {
    const auto path = folder / ("d" + std::to_string(row.depth) + ".avi");
    // An odd size: rows are padded to four bytes, and the picture has a row and a column more.
    const auto pictures =
        written(path, {Container::Avi, VideoFormat{VideoCodec::Raw, 31, 21, 25, row.depth}, false},
                {{filled(32, 22, 81, 90, 240),     // red
                  filled(32, 22, 145, 54, 34)}});  // green
    EXPECT_EQ(test::probed(path, "stream=pix_fmt"), row.format);
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
  const auto path = folder / "updown.avi";
  auto picture = copyOf(filled(16, 16, 16, 128, 128));
  std::fill_n(picture.row(0, 0), 16, std::uint8_t{235});
  const auto decoded = written(path, {Container::Avi, VideoFormat{VideoCodec::Raw, 16, 16, 25, 24}, false},
                               {{share(std::move(picture))}});
  ASSERT_EQ(decoded.size(), 1U);
  EXPECT_EQ(decoded[0].at(0, 0, 0), 255);
  EXPECT_EQ(decoded[0].at(0, 15, 0), 0);
  const auto bytes = *PosixFiles().read(path, 1U << 20U);
  const auto frame = bytes.find("00dc", bytes.find("movi"));
  ASSERT_NE(frame, std::string::npos);
  EXPECT_EQ(bytes.substr(frame + 8, 3), std::string(3, '\0')) << "the bottom row stands first";
}

// A movie parted between encoders plays like one from a single encoder.
TEST(MovieWriter, TakesStretchesOfSeveralEncoders) {
  const test::ScratchFolder folder;
  std::vector<std::vector<Picture>> stretches(3);
  for (int i = 0; i < 60; ++i)
    stretches[i < 17 ? 0 : i < 29 ? 1 : 2].push_back(filled(64, 48, 20 + 3 * i, 128, 128));
  for (const auto& [name, container, codec] : {std::tuple{"m.avi", Container::Avi, VideoCodec::Mpeg4},
                                               std::tuple{"w.wmv", Container::Wmv, VideoCodec::Wmv2},
                                               std::tuple{"h.mp4", Container::Mp4, VideoCodec::H264},
                                               std::tuple{"v.webm", Container::WebM, VideoCodec::Vp9},
                                               std::tuple{"p.mov", Container::Mov, VideoCodec::ProRes}}) {
    const auto pictures =
        written(folder / name, {container, VideoFormat{codec, 64, 48, 25, 24}, false}, stretches);
    ASSERT_EQ(pictures.size(), 60U) << name;
    for (int i = 0; i < 60; ++i)
      EXPECT_NEAR(pictures[static_cast<std::size_t>(i)].mean(), (4 + 3 * i) * 255 / 219.0, 3)
          << name << " " << i;
  }
}

// Keeps the heads and indexes of a file, and of its large chunks the first bytes.
class Outline : public Replacement {
 public:
  Outcome write(std::uint64_t at, std::string_view bytes) override {
    pieces_[at] = bytes.substr(0, bytes.size() < 1U << 20U ? bytes.size() : 16);
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
  for (int i = 0; i < kFrames; ++i) ASSERT_TRUE(writer->writeVideo(frame->front()));
  ASSERT_TRUE(writer->finish());
  EXPECT_GT(outline.size(), 2ULL << 30U);
  EXPECT_EQ(outline.count("AVIX"), 2);
  EXPECT_GE(outline.count("indx"), 1);
  EXPECT_EQ(outline.count("ix00"), 3) << "one index for each RIFF list";
}

}  // namespace
}  // namespace kvo::media
