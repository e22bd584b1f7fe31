// Movies of every kind and every preset, taken apart again: what they are, and where picture and sound stand.
#include "engine/movies.h"
#include "engine/picture/compositor.h"
#include "engine/sound/mixer.h"
#include "media/media_facts.h"
#include "vocabulary/movie_presets.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

using test::documentOf;

class Formats : public Movies {
 protected:
  Formats() { media::silenceRemarks(); }

  Result<RenderReport> made(const std::string& text, RenderJob job, const std::string& name) {
    job.scratch = scratch_.path();
    return make(readDocument(text), name, job);
  }

  test::ScratchFolder scratch_;
};

struct Case {
  std::string name;
  RenderJob job;
  std::string picture;  // codec, width, height, rate
  std::string sound;    // codec, rate, channels
};

std::vector<Case> cases() {
  const std::string plain = ",96,64,unknown,unknown,unknown,unknown,25/1";
  const std::string tagged = ",96,64,tv,bt709,bt709,bt709,25/1";
  std::vector<Case> all = {{"k.wmv", {}, "wmv2" + plain, "wmav2,44100,2"},
                           {"k.wma", {}, "", "wmav2,44100,2"},
                           {"k.avi", {}, "rawvideo" + plain, "pcm_s16le,44100,2"},
                           {"k.wav", {}, "", "pcm_s16le,44100,2"},
                           {"k.mp4", {}, "h264" + tagged, "aac,44100,2"},
                           {"k.mov", {}, "prores" + tagged, "pcm_s16le,48000,2"},
                           {"k.webm", {}, "vp9" + tagged, "opus,48000,2"},
                           {"k.gif", {}, "gif" + plain, ""},
                           {"k.flac", {}, "", "flac,44100,2"},
                           {"k.mp3", {}, "", "mp3,44100,2"},
                           {"k.m4a", {}, "", "aac,44100,2"},
                           {"av1.webm", {"", {}, VideoCodec::Av1}, "av1" + tagged, "opus,48000,2"}};
  for (const auto& preset : moviePresets()) {
    const auto kind = std::find_if(all.begin(), all.end(),
                                   [&](const Case& c) { return outputKindOf(c.name) == preset.kind; });
    auto made = *kind;
    made.name = std::string(preset.name) + kind->name.substr(1);
    if (preset.mostRate < 25) made.picture.replace(made.picture.size() - 4, 2, ShortText(preset.mostRate));
    made.job.preset = &preset;
    all.push_back(made);
  }
  return all;
}

// Seconds to where a movie's sound begins, as our own readers have it.
double soundIn(const Timeline& movie) {
  media::DamageList damage;
  Mixer mixer(movie, 0, &damage);
  std::vector<float> samples(static_cast<std::size_t>(2 * 1.9 * 44100));
  EXPECT_TRUE(mixer.read(samples));
  EXPECT_TRUE(damage.all().empty());
  const auto loud = std::find_if(samples.begin(), samples.end(), [](float s) { return std::fabs(s) > 0.1; });
  return static_cast<double>(loud - samples.begin()) / 2 / 44100;
}

// The same to its one bright picture.
double pictureIn(const Timeline& movie) {
  Compositor compositor(movie, {});
  for (int frame = 0; frame < 47; ++frame) {
    const auto picture = compositor.frame(frame);
    EXPECT_TRUE(picture) << picture.error().text;
    if (!picture || picture->row(0, 32)[48] > 128) return frame / 25.0;
  }
  return -1;
}

TEST_F(Formats, EveryKindAndPresetHoldsWhatItSaysAtItsTime) {
  const auto source = test::makeMedia(
      media_, "flash.mkv",
      {"-f", "lavfi", "-i", "color=black:s=96x64:r=25:d=2,drawbox=c=white:t=fill:enable='between(n,25,26)'",
       "-f", "lavfi", "-i", "aevalsrc='if(between(t,1,1.1),0.7*sin(2*PI*900*t),0)':s=44100:d=2", "-ac", "2",
       "-c:v", "ffv1", "-c:a", "flac"});
  const std::vector<test::DocumentClip> none;
  const auto text = documentOf({{source, 0, 2, 0, 2}}, {{source, 0, 2, 0, 2}}, {96, 64});
  for (const auto& c : cases()) {
    SCOPED_TRACE(c.name);
    const auto report = made(text, c.job, c.name);
    ASSERT_TRUE(report) << report.error().text;
    const auto path = out_ / c.name;
    const auto told =
        test::runProgram({"ffprobe", "-v", "error", "-show_entries",
                          "stream=codec_name,width,height,r_frame_rate,sample_rate,channels,"
                          "color_range,color_space,color_transfer,color_primaries:format=duration",
                          "-of", "csv", path})
            .out;
    const auto format = told.find("format,");
    EXPECT_EQ(told.substr(0, format), (c.picture.empty() ? "" : "stream," + c.picture + "\n") +
                                          (c.sound.empty() ? "" : "stream," + c.sound + ",0/0\n"));
    const bool isExact = c.name.ends_with(".wmv") || c.name.ends_with(".wma");  // the header tells it
    EXPECT_NEAR(std::atof(told.substr(format + 7).c_str()), 2, isExact ? 0.0025 : 0.04);
    EXPECT_EQ(test::runProgram({"ffmpeg", "-v", "error", "-i", path, "-f", "null", "-"}).err, "");
    if (c.name.ends_with(".mp4")) {
      EXPECT_LT(bytes(c.name).find("moov"), bytes(c.name).find("mdat")) << "the index stands in front";
    }
    const std::vector<test::DocumentClip> again = {{path, 0, 1.9, 0, 1.9}};
    const auto movie =
        readDocument(documentOf(c.picture.empty() ? none : again, c.sound.empty() ? none : again, {96, 64}));
    ASSERT_TRUE(movie) << movie.error().text;
    if (!c.sound.empty()) {
      EXPECT_NEAR(soundIn(*movie), 1, 0.010);
    }
    if (!c.picture.empty()) {
      EXPECT_NEAR(pictureIn(*movie), 1, 0.041);
    }
  }
}

TEST_F(Formats, AMovieKeepsWithinItsSizeAndMeetsIt) {
  const auto noise = test::makeMedia(
      media_, "noise.mkv",
      {"-f", "lavfi", "-i", "testsrc2=s=160x120:r=25:d=31,noise=alls=40:allf=t", "-f", "lavfi", "-i",
       "anoisesrc=d=31:a=0.3", "-c:v", "libx264", "-preset", "ultrafast", "-crf", "10", "-c:a", "flac"});
  const auto still = test::makeMedia(media_, "still.mkv",
                                     {"-f", "lavfi", "-i", "color=gray:s=160x120:r=25:d=31", "-c:v", "ffv1"});
  struct Row {
    const char* what;
    std::string file;
    double seconds;
    double megabytes;
    double least;  // of the size
  };
  for (const auto& row : {Row{"long", noise, 31, 1.5, 0.97}, Row{"tight", noise, 31, 0.3, 0.97},
                          Row{"short", noise, 4, 0.3, 0.3}, Row{"needs less", still, 31, 1, 0}}) {
    SCOPED_TRACE(row.what);
    RenderJob job;
    job.megabytes = row.megabytes;
    const std::vector<test::DocumentClip> clips = {{row.file, 0, row.seconds, 0, row.seconds}};
    const auto report =
        made(documentOf(clips, row.least > 0 ? clips : std::vector<test::DocumentClip>{}, {160, 120}), job,
             "m.mp4");
    ASSERT_TRUE(report) << report.error().text;
    const auto size = static_cast<double>(bytes("m.mp4").size());
    EXPECT_LE(size, row.megabytes * 1e6);
    EXPECT_GE(size, row.megabytes * 1e6 * row.least);
    EXPECT_EQ(test::runProgram({"ffmpeg", "-v", "error", "-i", out_ / "m.mp4", "-f", "null", "-"}).err, "");
    const auto share = [](const RenderStep& step) { return step.done / step.total; };
    EXPECT_TRUE(std::ranges::is_sorted(steps_, {}, share)) << "also where it is tried again";
    EXPECT_EQ(share(steps_.back()), 1);
    EXPECT_TRUE(row.least > 0 || share(steps_.at(steps_.size() - 2)) < 0.91) << "no pass but the two";
  }
  RenderJob job;
  job.megabytes = 0.05;
  const auto report = made(documentOf({{noise, 0, 31, 0, 31}}, {{noise, 0, 31, 0, 31}}), job, "tiny.mp4");
  ASSERT_FALSE(report);
  EXPECT_NE(report.error().text.find("does not go into 0.05 MB"), std::string::npos) << report.error().text;
}

}  // namespace
}  // namespace kvo::engine
