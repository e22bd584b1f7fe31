// A movie whose segments go through files of their own has the bytes of one that is made in one go.
#include "engine/movies.h"
#include "media/segment_file.h"

#include <filesystem>
#include <functional>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

namespace fs = std::filesystem;

class WorkFolderTest : public Movies {
 protected:
  bool made(const std::string& name, const std::optional<Work>& work) {
    RenderJob job;
    job.codec = codec_;
    job.work = work;
    return make(timeline_, name, job).ok();
  }

  [[nodiscard]] std::vector<std::string> kept() const {
    std::vector<std::string> paths;
    for (const auto& entry : fs::directory_iterator(folder_)) paths.push_back(entry.path());
    return paths;
  }

  std::string video_ = test::makeCountingVideo(media_, "count.mkv", "25", 150);
  std::string tone_ = test::makeMedia(media_, "tone.wav", {"-f", "lavfi", "-i", "sine=duration=18"});
  Result<Timeline> timeline_ = inThree(video_, {{tone_, 0, 18, 0, 18}});
  VideoCodec codec_ = VideoCodec::Mpeg4;
  std::string folder_ = out_ / ".rendering-movie";
};

TEST_F(WorkFolderTest, TheMovieIsThatOfOneGo) {
  const auto movie = [&](const std::string& name) {
    const bool isH264 = codec_ == VideoCodec::H264;
    return std::pair(isH264 ? "" : bytes(name), isH264 ? shown(name) : std::vector<test::DecodedPicture>());
  };
  for (const auto& [name, codec] : {std::pair{"m.avi", VideoCodec::Mpeg4},
                                    {"raw.avi", VideoCodec::Raw},
                                    {"m.wmv", VideoCodec::Wmv2},
                                    {"m.mp4", VideoCodec::H264},
                                    {"m.webm", VideoCodec::Vp9},
                                    {"m.mov", VideoCodec::ProRes}}) {
    codec_ = codec;
    ASSERT_TRUE(made(name, std::nullopt));
    const auto whole = movie(name);
    ASSERT_TRUE(made(name, Work{folder_, "id"}));
    EXPECT_TRUE(movie(name) == whole) << name;
    EXPECT_FALSE(fs::exists(folder_)) << "it goes with the movie";
    fs::remove(out_ / name);
    for (std::size_t number = 0; number < 2; ++number) {
      ASSERT_TRUE(made(name, Work{folder_, "id", SegmentShare{number, 2}}));
      EXPECT_EQ(kept().size(), number == 0 ? 2U : 3U) << name;
      EXPECT_FALSE(fs::exists(out_ / name)) << "a share makes no movie";
    }
    ASSERT_TRUE(made(name, Work{folder_, "id"}));
    EXPECT_TRUE(movie(name) == whole) << name << " by two";
  }
}

TEST_F(WorkFolderTest, TakesWhatIsFinishedAndWhatBelongsToItAlone) {
  ASSERT_TRUE(made("m.avi", std::nullopt));
  const auto whole = bytes("m.avi");
  const auto withOneKept = [&](const std::function<void(std::string & bytes)>& change, const char* identity) {
    EXPECT_TRUE(made("m.avi", Work{folder_, "id", SegmentShare{1, 3}}));
    const auto path = kept().at(0);
    auto file = test::bytesOf(path);
    change(file);
    EXPECT_TRUE(writeDurably(files_, path, file));
    EXPECT_TRUE(made("m.avi", Work{folder_, identity}));
    EXPECT_TRUE(bytes("m.avi") == whole);
    return steps_.back().kept > 0;
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
  ASSERT_TRUE(made("m.avi", Work{folder_, "id"}));
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
