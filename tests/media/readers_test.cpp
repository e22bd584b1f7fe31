#include "media/audio_reader.h"
#include "media/media_facts.h"
#include "media/video_reader.h"
#include "support/pictures.h"
#include "support/real_world.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

namespace kvo::media {
namespace {

using test::ScratchFolder;

// H.264 with B frames and few key frames, checked against a reader that never seeks; on each frame's start,
// in its middle, and just ahead of the next.
TEST(VideoReader, GivesTheFrameThatIsShownAtATime) {
  const ScratchFolder folder;
  const auto path = test::makeMedia(folder, "b.mp4",
                                    {"-f", "lavfi", "-i", "testsrc=size=64x48:rate=30000/1001:duration=10.01",
                                     "-c:v", "libx264", "-bf", "3", "-g", "100", "-pix_fmt", "yuv420p"});
  auto forward = VideoReader::open(path, 1);
  auto seeking = VideoReader::open(path, 2);
  ASSERT_TRUE(forward && seeking);
  const auto seenAt = [](VideoReader& reader, double number) {
    const auto frame = reader.frameAt(number * 1001 / 30000);
    EXPECT_TRUE(frame) << frame.error().text;
    return Picture(*frame);
  };
  std::vector<Picture> pictures;
  for (int i = 0; i < 300; ++i) pictures.push_back(seenAt(*forward, i + 0.5));
  for (const int number : {0, 1, 250, 3, 299, 120, 99, 100, 101, 0, 201}) {
    for (const double inside : {0.0, 0.5, 0.96}) {
      const auto seen = seenAt(*seeking, number + inside);
      EXPECT_EQ(test::difference(seen, pictures[static_cast<std::size_t>(number)]), 0)
          << number << " + " << inside;
    }
  }
  EXPECT_EQ(test::difference(seenAt(*seeking, 300.3), pictures.back()), 0) << "the last stands for a moment";
  const auto behind = seeking->frameAt(12);
  ASSERT_FALSE(behind);
  EXPECT_NE(behind.error().text.find("b.mp4"), std::string::npos) << behind.error().text;
}

TEST(VideoReader, GoesBackToWhatHasGoneBy) {
  const ScratchFolder folder;
  const auto path = folder / "v.mp4";
  test::makeMedia(folder, "v.mp4",
                  {"-f", "lavfi", "-i", "testsrc2=size=64x48:rate=25:duration=4", "-c:v", "libx264", "-g",
                   "200", "-bf", "3"});
  auto exact = VideoReader::open(path, 1);
  auto keeping = VideoReader::open(path, 1);
  ASSERT_TRUE(exact && keeping);
  keeping->keepPast(1U << 20U);
  const auto same = [&](double seconds) {
    return test::difference(Picture(*keeping->frameAt(seconds)), Picture(*exact->frameAt(seconds)));
  };
  const auto last = keeping->frameAt(1.4);
  ASSERT_TRUE(last);
  for (int i = 0; i < 20; ++i) ASSERT_TRUE(keeping->frameAt(1.4 + i * 0.04));
  const auto again = keeping->frameAt(1.4);
  EXPECT_TRUE(again && *again == *last) << "the very one: nothing is decoded";
  for (const double seconds : {1.44, 1.42, 2.16, 1.3, 0.2, 3.5, 3.4, 0.0})
    EXPECT_EQ(same(seconds), 0) << seconds;
  // The way there by stretches, which ends at the same picture.
  int stretches = 0;
  for (;; ++stretches) {
    const auto toward = keeping->frameToward(3.2, 0.4);
    ASSERT_TRUE(toward);
    if (toward->left <= 0) break;
    EXPECT_LT(toward->left, 3.2 - 0.4 * stretches);
  }
  EXPECT_GT(stretches, 5);
  EXPECT_EQ(same(3.2), 0);
}

TEST(AudioReader, StandsAtTheRightSampleAfterASeek) {
  const ScratchFolder folder;
  const std::pair<std::string, std::vector<std::string>> rows[] = {
      {"a.wav", {"-c:a", "pcm_s16le"}},
      {"a.flac", {"-c:a", "flac"}},
      {"a.mp4", {"-c:a", "aac", "-b:a", "256k"}},
      {"a.mp3", {"-c:a", "libmp3lame", "-b:a", "320k"}},
      {"a8k.wav", {"-ar", "8000", "-c:a", "pcm_s16le"}},
      {"a96k.wav", {"-ar", "96000", "-ac", "6", "-c:a", "pcm_s24le"}},
      {"a192k.wav", {"-ar", "192000", "-ac", "8", "-c:a", "pcm_s32le"}}};
  for (auto [name, arguments] : rows) {
    arguments.insert(arguments.begin(),
                     {"-f", "lavfi", "-i", "aevalsrc='if(eq(mod(n,11025),0),0.9,0)':s=44100:d=6"});
    test::makeMedia(folder, name, arguments);
    const int tolerance = name == "a.wav" || name == "a.flac" ? 0 : 44;  // samples: 44 is 1 ms
    auto reader = AudioReader::open(folder / name);
    ASSERT_TRUE(reader) << reader.error().text;
    // Forward, and back again; the click that comes next.
    const std::pair<std::int64_t, std::int64_t> places[] = {
        {0, 11025}, {44600, 55125}, {150000, 154350}, {3000, 11025}};
    for (const auto& [from, click] : places) {
      ASSERT_TRUE(reader->seek(from));
      std::vector<float> samples(2 * 22050);
      ASSERT_TRUE(reader->read(samples));
      const auto wanted = click - from;
      const auto levelAt = [&](std::int64_t i) {
        return std::fabs(samples[static_cast<std::size_t>(2 * i)]);
      };
      auto loudest = wanted - 2000;
      for (auto i = loudest; i < wanted + 2000; ++i) {
        if (levelAt(i) > levelAt(loudest)) loudest = i;
      }
      EXPECT_NEAR(static_cast<double>(loudest), static_cast<double>(wanted), tolerance)
          << name << " from " << from;
    }
    // Behind the end, which a compressed file fills up to a whole block, it is silent.
    ASSERT_TRUE(reader->seek(6 * 44100 - 100));
    std::vector<float> samples(2 * 22050, 1.0F);
    ASSERT_TRUE(reader->read(samples));
    const auto behind = samples.begin() + 2 * (100 + (tolerance > 0 ? 4096 : 0));
    EXPECT_EQ(std::count(behind, samples.end(), 0.0F), samples.end() - behind) << name;
  }
}

TEST(MediaFacts, TellWhatAFileHolds) {
  const ScratchFolder folder;
  const auto video = readFacts(test::makeCountingVideo(folder, "v.mkv", "25", 50));
  ASSERT_TRUE(video);
  EXPECT_TRUE(video->hasVideo && !video->hasAudio && !video->isStill);
  EXPECT_EQ(video->width * 1000 + video->height, 64048);
  EXPECT_NEAR(video->duration, 2, 0.05);
  EXPECT_NEAR(video->frameRate, 25, 0.01);
  EXPECT_EQ(video->codec, "FFmpeg video codec #1");
  const auto still = readFacts(
      test::makeMedia(folder, "s.png", {"-f", "lavfi", "-i", "color=red:size=30x20", "-frames:v", "1"}));
  ASSERT_TRUE(still);
  EXPECT_TRUE(still->isStill && still->hasVideo && still->duration == 0);
  const auto photo = readFacts(
      test::makeMedia(folder, "p.jpg", {"-f", "lavfi", "-i", "color=red:size=32x32", "-frames:v", "1"}));
  EXPECT_EQ(photo ? photo->codec : std::string(), "JPEG");
  // A song with a cover picture has no video.
  const auto song =
      readFacts(test::makeMedia(folder, "song.mp3",
                                {"-f", "lavfi", "-i", "sine=duration=1", "-i", folder / "s.png", "-map", "0",
                                 "-map", "1", "-c:v", "png", "-disposition:v", "attached_pic"}));
  ASSERT_TRUE(song);
  EXPECT_TRUE(song->hasAudio && !song->hasVideo);
  EXPECT_EQ(song->codec + " " + std::to_string(song->channels), "MP3 1") << "and not the cover's";
}

}  // namespace
}  // namespace kvo::media
