// A movie whose segments go through files of their own has the bytes of one that is made in one go.
#include "adapters/posix/posix_files.h"
#include "engine/document/document_reader.h"
#include "engine/run/renderer.h"
#include "media/segment_file.h"
#include "support/documents.h"
#include "support/real_world.h"

#include <filesystem>
#include <functional>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

namespace fs = std::filesystem;

class WorkFolderTest : public testing::Test {
 protected:
  WorkFolderTest()
      : video_(test::makeCountingVideo(media_, "count.mkv", "25", 150)),
        tone_(test::makeMedia(media_, "tone.wav", {"-f", "lavfi", "-i", "sine=duration=18"})),
        timeline_(*readDocument(
            test::documentOf({{video_, 0, 6, 0, 6}, {video_, 0, 6, 6, 12}, {video_, 0, 6, 12, 18}},
                             {{tone_, 0, 18, 0, 18}}))) {}

  Outcome make(const std::string& name, const std::optional<Work>& work) {
    RenderJob job{out_ / name, std::nullopt, codec_};
    job.work = work;
    const auto report =
        render(timeline_, job, files_, [this](const RenderStep& step) { taken_ = step.kept; });
    return report ? Outcome() : report.error();
  }

  std::string bytesOf(const std::string& name) { return files_.read(out_ / name, 1U << 28U).value(); }
  [[nodiscard]] std::vector<std::string> kept() const {
    std::vector<std::string> paths;
    for (const auto& entry : fs::directory_iterator(folder_)) paths.push_back(entry.path());
    return paths;
  }

  test::ScratchFolder media_;
  test::ScratchFolder out_;
  PosixFiles files_;
  std::string video_;
  std::string tone_;
  Timeline timeline_;
  VideoCodec codec_ = VideoCodec::Mpeg4;
  std::string folder_ = out_ / ".rendering-movie";
  double taken_ = 0;  // of what was kept, by the last render
};

TEST_F(WorkFolderTest, TheBytesAreThoseOfOneGo) {
  for (const auto& [name, codec] : {std::pair{"m.avi", VideoCodec::Mpeg4},
                                    {"raw.avi", VideoCodec::Raw},
                                    {"m.wmv", VideoCodec::Wmv2},
                                    {"m.mp4", VideoCodec::H264},
                                    {"m.webm", VideoCodec::Vp9},
                                    {"m.mov", VideoCodec::ProRes}}) {
    codec_ = codec;
    ASSERT_TRUE(make(name, std::nullopt));
    const auto whole = bytesOf(name);
    ASSERT_TRUE(make(name, Work{folder_, "id"}));
    EXPECT_TRUE(bytesOf(name) == whole) << name;
    EXPECT_FALSE(fs::exists(folder_)) << "it goes with the movie";
    fs::remove(out_ / name);
    for (std::size_t number = 0; number < 2; ++number) {
      ASSERT_TRUE(make(name, Work{folder_, "id", Share{number, 2}}));
      EXPECT_EQ(kept().size(), number == 0 ? 2U : 3U) << name;
      EXPECT_FALSE(fs::exists(out_ / name)) << "a share makes no movie";
    }
    ASSERT_TRUE(make(name, Work{folder_, "id"}));
    EXPECT_TRUE(bytesOf(name) == whole) << name << " by two";
  }
}

TEST_F(WorkFolderTest, TakesWhatIsFinishedAndWhatBelongsToItAlone) {
  ASSERT_TRUE(make("m.avi", std::nullopt));
  const auto whole = bytesOf("m.avi");
  const auto withOneKept = [&](const std::function<void(std::string & bytes)>& change, const char* identity) {
    EXPECT_TRUE(make("m.avi", Work{folder_, "id", Share{1, 3}}));
    const auto path = kept().at(0);
    auto bytes = files_.read(path, 1U << 28U).value();
    change(bytes);
    EXPECT_TRUE(writeDurably(files_, path, bytes));
    EXPECT_TRUE(make("m.avi", Work{folder_, identity}));
    EXPECT_TRUE(bytesOf("m.avi") == whole);
    return taken_ > 0;
  };
  const auto leave = [](std::string&) {};
  EXPECT_TRUE(withOneKept(leave, "id"));
  EXPECT_FALSE(withOneKept(leave, "another document"));
  EXPECT_FALSE(
      withOneKept([](std::string& bytes) { bytes.back() = static_cast<char>(bytes.back() ^ 1); }, "id"))
      << "rotten";
  EXPECT_FALSE(withOneKept([](std::string& bytes) { bytes.resize(bytes.size() / 2); }, "id")) << "torn";
  EXPECT_FALSE(withOneKept([](std::string& bytes) { bytes.clear(); }, "id"));
  const auto age = fs::last_write_time(video_);
  EXPECT_FALSE(
      withOneKept([&](std::string&) { fs::last_write_time(video_, age - std::chrono::seconds(2)); }, "id"))
      << "the source is another";
}

TEST_F(WorkFolderTest, LeavesWhatIsNotItsOwn) {
  const std::vector<std::string> others = {"letter.txt", "my.segment", "below/0123456789abcdef-1.segment"};
  fs::create_directories(folder_ + "/below");
  for (const auto& other : others) ASSERT_TRUE(writeDurably(files_, folder_ + "/" + other, "theirs"));
  ASSERT_TRUE(make("m.avi", Work{folder_, "id"}));
  for (const auto& other : others) EXPECT_TRUE(files_.exists(folder_ + "/" + other)) << other;
  EXPECT_EQ(kept().size(), others.size());
}

TEST_F(WorkFolderTest, AFileKeepsWhatWasMissingOfTheSources) {
  const std::vector<media::Damage> damage = {{"/a b.avi", media::Lost::Picture, 1, 2},
                                             {"", media::Lost::Sound, 0.5, 0.75}};
  const auto path = out_ / "x.segment";
  auto replacement = files_.replace(path);
  auto& target = *replacement;
  media::SegmentWriter writer(*target, 7);
  ASSERT_TRUE(writer.finish(damage));
  ASSERT_TRUE(target->commit());
  auto reader = media::SegmentReader::open(path, 7);
  ASSERT_TRUE(reader);
  EXPECT_EQ(reader->damage(), damage);
  EXPECT_FALSE(*reader->next());
  EXPECT_FALSE(media::SegmentReader::open(path, 8));
}

}  // namespace
}  // namespace kvo::engine
