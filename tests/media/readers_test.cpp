#include "media/audio_reader.h"
#include "media/media_facts.h"
#include "media/scaler.h"
#include "media/video_reader.h"
#include "support/real_world.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

namespace kvo::media {
namespace {

using test::ScratchFolder;

// The frame number that a counting picture shows at a time.
int numberAt(VideoReader& reader, double seconds) {
  const auto frame = reader.frameAt(seconds);
  if (!frame) return -1;
  Scaler scaler(64, 48);
  const auto picture = scaler.place(*frame, Fit::Stretch);
  return picture ? static_cast<int>(std::lround((picture->row(0, 0)[0] - 16) / 2.0)) : -2;
}

TEST(VideoReader, GivesTheFrameThatIsShownAtATime) {
  const ScratchFolder folder;
  struct Row {
    const char* name;
    const char* rate;
    double fps;
  };
  for (const auto& row :
       {Row{"pal.mkv", "25", 25}, Row{"ntsc.mkv", "30000/1001", 30000.0 / 1001}, Row{"film.avi", "24", 24}}) {
    auto reader = VideoReader::open(test::makeCountingVideo(folder, row.name, row.rate, 100), 1);
    ASSERT_TRUE(reader) << reader.error().text;
    // On the frame's start, in its middle, and just ahead of the next; forward, far ahead, and back.
    for (const int number : {0, 1, 2, 40, 41, 99, 7, 6, 98, 0}) {
      for (const double inside : {0.0, 0.5, 0.96}) {
        EXPECT_EQ(numberAt(*reader, (number + inside) / row.fps), number) << row.name << " + " << inside;
      }
    }
    EXPECT_EQ(numberAt(*reader, 100.3 / row.fps), 99) << "the last frame stands for a moment";
    const auto behind = reader->frameAt(100 / row.fps + 2);
    ASSERT_FALSE(behind);
    EXPECT_NE(behind.error().text.find(row.name), std::string::npos) << behind.error().text;
  }
}

TEST(VideoReader, SeeksToTheFrameAmongReorderedOnes) {
  const ScratchFolder folder;
  // H.264 with B frames and few key frames, checked against a reader that never seeks.
  const auto path = test::makeMedia(folder, "b.mp4",
                                    {"-f", "lavfi", "-i", "testsrc=size=64x48:rate=25:duration=12", "-c:v",
                                     "libx264", "-bf", "3", "-g", "100", "-pix_fmt", "yuv420p"});
  auto forward = VideoReader::open(path, 1);
  auto seeking = VideoReader::open(path, 2);
  ASSERT_TRUE(forward && seeking);
  std::vector<std::vector<std::uint8_t>> lumas;
  const auto lumaAt = [](VideoReader& reader, int number) {
    const auto frame = reader.frameAt((number + 0.5) / 25);
    EXPECT_TRUE(frame) << frame.error().text;
    const Picture picture(*frame);
    std::vector<std::uint8_t> luma;
    for (int y = 0; y < 48; ++y) {
      const auto* row = picture.row(0, y);
      luma.insert(luma.end(), row, row + 64);
    }
    return luma;
  };
  for (int i = 0; i < 300; ++i) lumas.push_back(lumaAt(*forward, i));
  for (const int number : {250, 3, 299, 120, 99, 100, 101, 0, 201}) {
    EXPECT_EQ(lumaAt(*seeking, number), lumas[static_cast<std::size_t>(number)]) << number;
  }
}

TEST(AudioReader, StandsAtTheRightSampleAfterASeek) {
  const ScratchFolder folder;
  const std::string clicks = "aevalsrc='if(eq(mod(n,11025),0),0.9,0)':s=44100:d=6";
  const std::vector<test::MediaRow> rows = {
      {"a.wav", {"-c:a", "pcm_s16le"}},
      {"a.flac", {"-c:a", "flac"}},
      {"a.mp4", {"-c:a", "aac", "-b:a", "256k"}},
      {"a.mp3", {"-c:a", "libmp3lame", "-b:a", "320k"}},
      {"a8k.wav", {"-ar", "8000", "-c:a", "pcm_s16le"}},
      {"a96k.wav", {"-ar", "96000", "-ac", "6", "-c:a", "pcm_s24le"}},
      {"a192k.wav", {"-ar", "192000", "-ac", "8", "-c:a", "pcm_s32le"}}};
  test::makeMediaOf(folder, {"-f", "lavfi", "-i", clicks}, rows);
  for (const auto& [name, codec] : rows) {
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
