// Whole renders of real media, measured on what comes out.
#include "engine/movies.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

using test::attribute;
using test::DocumentClip;
using test::documentOf;

std::string moving(const std::string& element, const std::string& param,
                   const std::vector<std::pair<double, double>>& keys) {
  auto text = "<" + element + ">\r\n<param " + param + ">\r\n";
  for (const auto& [time, value] : keys)
    text += "<linear" + attribute("time", time) + attribute("value", value) + "/>\r\n";
  return text + "</param>\r\n</" + element.substr(0, element.find(' ')) + ">\r\n";
}

std::string fade(double start, double stop, double length) {
  return moving("transition clsid=\"{16B280C5-EE70-11D1-9066-00C04FD9189D}\"" + attribute("start", start) +
                    attribute("stop", stop),
                "name=\"Progress\" value=\"0.0\"", {{length, 1}});
}

class Render : public Movies {
 protected:
  std::string rendered(const std::string& text, const std::string& name, const RenderJob& job = {}) {
    const auto report = make(readDocument(text), name, job);
    EXPECT_TRUE(report) << report.error().text;
    return out_ / name;
  }

  [[nodiscard]] std::string soundFile(const char* name, const char* filter) const {
    return test::makeMedia(media_, name, {"-f", "lavfi", "-i", filter});
  }
};

TEST_F(Render, ShowsTheSourceFrameOfEachTimeAtAnySpeed) {
  const auto pal = test::makeCountingVideo(media_, "pal.mkv", "25", 100);
  const auto film = test::makeCountingVideo(media_, "film.mkv", "24", 60);
  struct Row {
    const std::string& source;
    double rate, mstart, mstop, length;
  };
  for (const auto& row : {Row{pal, 25, 0, 2, 2}, Row{pal, 25, 1, 3, 1}, Row{pal, 25, 0.4, 1.4, 2},
                          Row{pal, 25, 0.52, 1.02, 1.5}, Row{film, 24, 0, 2, 2}}) {
    const auto path = rendered(documentOf({{row.source, row.mstart, row.mstop, 0, row.length}}), "speed.avi");
    const auto pictures = test::picturesOf(path, 64, 48);
    ASSERT_EQ(pictures.size(), static_cast<std::size_t>(std::lround(row.length * 25)));
    const double ratio = (row.mstop - row.mstart) / row.length;
    for (std::size_t i = 0; i < pictures.size(); ++i) {
      const double at = row.mstart + static_cast<double>(i) / 25 * ratio;
      EXPECT_EQ(test::frameNumber(pictures[i]), std::floor(at * row.rate + 0.02))
          << "frame " << i << " at ratio " << ratio;
    }
  }
}

TEST_F(Render, FadesFromOneClipIntoTheNextAndIsBlackWhereThereIsNone) {
  const auto plain = [&](const std::string& colour) {
    return test::makeMedia(
        media_, colour + ".mkv",
        {"-f", "lavfi", "-i", "color=" + colour + ":size=64x48:rate=25:duration=3", "-c:v", "ffv1"});
  };
  const auto black = plain("black");
  const auto white = plain("white");
  const auto text =
      documentOf({{black, 0, 2, 0, 2}, {white, 0, 2, 1, 3, "", fade(1, 3, 0.875)}, {white, 0, 1, 4, 5}});
  const auto pictures = test::picturesOf(rendered(text, "fade.avi"), 64, 48);
  ASSERT_EQ(pictures.size(), 125U);
  for (int i = 0; i < 125; ++i) {
    const double seen = i < 75 ? std::clamp((i - 25) / 25.0 / 0.875, 0.0, 1.0) : i < 100 ? 0 : 1;
    EXPECT_NEAR(pictures[static_cast<std::size_t>(i)].mean(), seen * 255, 2) << "frame " << i;
  }
}

TEST_F(Render, PlacesStillsByTheirStretchMode) {
  // Red, 80 x 20, with a white middle of 20 x 20.
  const auto still = test::makeMedia(
      media_, "still.png",
      {"-f", "lavfi", "-i", "color=red:size=80x20,format=rgb24,drawbox=x=30:y=0:w=20:h=20:color=white:t=fill",
       "-frames:v", "1"});
  struct Row {
    const char* mode;
    int cornerRed, whiteWidth;
  };
  for (const auto& row : {Row{"stretch", 254, 16}, Row{"preserveaspectratio", 0, 16},  // bars above and below
                          Row{"preserveaAspectrationoletterbox", 254, 48},             // fills, sides cut off
                          Row{"crop", 0, 20}}) {  // not scaled, black about it
    DocumentClip clip{still, 0, 1, 0, 0.2};
    clip.attributes = attribute("stretchmode", row.mode);
    const auto picture = test::picturesOf(rendered(documentOf({clip}), "still.avi"), 64, 48).front();
    EXPECT_NEAR(picture.at(2, 2, 0), row.cornerRed, 4) << row.mode;
    int white = 0;
    for (int x = 0; x < 64; ++x) white += picture.at(x, 24, 1) > 128 ? 1 : 0;
    EXPECT_NEAR(white, row.whiteWidth, 2) << row.mode;
  }
}

TEST_F(Render, KeepsTheSoundInStepToTheSample) {
  const auto clicks = soundFile("click.wav", "aevalsrc='if(eq(mod(n,22050),0),0.8,0)':s=44100:d=6");
  const auto text = documentOf({}, {{clicks, 0.25, 2.25, 0, 2}, {clicks, 1.9, 3.9, 2.5, 4.5}});
  // 0.5 s of the source stands at 0.25 s, and 2.0 s of it at 2.6 s.
  for (const auto* name : {"clicks.wav", "clicks.wma"}) {
    const auto samples = test::samplesOf(rendered(text, name));
    for (const double at : {0.25, 0.75, 1.25, 2.6, 3.1}) {
      const auto wanted = static_cast<std::ptrdiff_t>(std::lround(at * 44100));
      const auto loudest = std::max_element(samples.begin() + wanted - 2000, samples.begin() + wanted + 2000,
                                            [](float a, float b) { return std::fabs(a) < std::fabs(b); });
      EXPECT_NEAR(static_cast<double>(loudest - samples.begin()), static_cast<double>(wanted), 44)
          << name << " at " << at;
      EXPECT_GT(std::fabs(*loudest), 0.2F);
    }
  }
  const auto wav = test::samplesOf(rendered(text, "length.wav"));
  EXPECT_EQ(wav.size(), static_cast<std::size_t>(4.5 * 44100));
}

TEST_F(Render, FollowsVolumeEnvelopes) {
  const auto tone = soundFile("tone.wav", "sine=frequency=441:sample_rate=44100:duration=5");
  const auto plain = test::samplesOf(rendered(documentOf({}, {{tone, 0, 4, 0, 4}}), "plain.wav"));
  DocumentClip clip{tone, 0, 4, 0, 4};
  clip.inside = moving("effect start=\"0\" stop=\"9\" clsid=\"{036A9790-C153-11d2-9EF7-006008039E37}\"",
                       "name=\"Vol\" value=\"0\"", {{1, 0.5}, {3, 0.5}, {4, 0}});
  const auto shaped = test::samplesOf(rendered(documentOf({}, {clip}), "shaped.wav"));
  for (const auto& [at, factor] :
       {std::pair{0.25, 0.125}, std::pair{0.5, 0.25}, std::pair{2.0, 0.5}, std::pair{3.5, 0.25}}) {
    EXPECT_NEAR(test::levelOf(shaped, at - 0.01, at + 0.01),
                test::levelOf(plain, at - 0.01, at + 0.01) + 20 * std::log10(factor), 0.2)
        << at;
  }
  EXPECT_LT(test::levelOf(shaped, 3.999, 4), -60);
}

TEST_F(Render, AddsOverlappingSoundWithinFullScale) {
  const auto loud = soundFile("loud.wav", "aevalsrc='0.9*sin(2*PI*300*t)':s=44100:d=3");
  const auto samples =
      test::samplesOf(rendered(documentOf({}, {{loud, 0, 2, 0, 2}, {loud, 0, 2, 1, 3}}), "sum.wav"));
  for (std::size_t i = 1; i < samples.size(); ++i) {
    ASSERT_LE(std::fabs(samples[i]), 1.0F);
    ASSERT_LT(std::fabs(samples[i] - samples[i - 1]), 0.15F) << "no click";
  }
  EXPECT_GT(test::levelOf(samples, 1.4, 1.6), -4);
}

TEST_F(Render, MakesASliceLikeThePartOfTheWhole) {
  const auto source = test::makeCountingVideo(media_, "count.mkv", "25", 100);
  const auto tone = soundFile("sweep.wav", "aevalsrc='0.5*sin(2*PI*(200+100*t)*t)':s=44100:d=5");
  const DocumentClip sound{tone, 0, 4, 0, 4};
  const auto both =
      documentOf({{source, 0, 2, 0, 2}, {source, 2, 4, 1.5, 3.5, "", fade(1.5, 3.5, 0.5)}}, {sound});
  const auto all = test::samplesOf(rendered(documentOf({}, {sound}), "all.wav"));
  ASSERT_EQ(all.size(), 4U * 44100);
  const auto expectPart = [&](const std::string& file, double from, double to) {
    const auto part = test::samplesOf(file);
    const auto first = static_cast<std::size_t>(std::lround(from * 44100));
    ASSERT_EQ(part.size(), std::lround(std::min(to, 4.0) * 44100) - std::lround(from * 44100));
    for (std::size_t i = 0; i < part.size(); ++i)
      ASSERT_NEAR(part[i], all[first + i], 1e-4F) << from << ": " << i;
  };
  for (const auto& [from, to] : {std::pair{1.63, 2.41}, std::pair{0.05, 0.07}, std::pair{3.99, 9.0}})
    expectPart(rendered(documentOf({}, {sound}), "part.wav", {{}, Slice{from, to}}), from, to);
  const auto whole = test::picturesOf(rendered(both, "whole.avi"), 64, 48);
  const auto slice = rendered(both, "slice.avi", {{}, Slice{1.6, 2.4}});
  expectPart(slice, 1.6, 2.4);
  const auto part = test::picturesOf(slice, 64, 48);
  ASSERT_EQ(part.size(), 20U);
  for (std::size_t i = 0; i < part.size(); ++i) EXPECT_EQ(part[i].rgb, whole[40 + i].rgb) << i;
}

// Rates that television has are ratios of 1001, however few decimals they are given with: in the header, in
// the number of frames and in the length of the sound.
TEST_F(Render, RatesOfTelevisionAreExact) {
  const auto still =
      test::makeMedia(media_, "still.png", {"-f", "lavfi", "-i", "color=red:size=16x16", "-frames:v", "1"});
  const auto tone = soundFile("tone.wav", "sine=duration=61");
  struct Row {
    const char* rate;
    std::int64_t numerator, denominator;
    std::int64_t milliseconds = 6006;  // a whole number of frames at the rates of television
  };
  for (const auto& row :
       {Row{"23.976", 24000, 1001, 60060}, Row{"23.98", 24000, 1001}, Row{"23.97602", 24000, 1001},
        Row{"29.97", 30000, 1001, 60060}, Row{"29.98", 30000, 1001}, Row{"59.94", 60000, 1001, 60060},
        Row{"59.95", 60000, 1001}, Row{"24", 24, 1}, Row{"12.5", 25, 2}, Row{"33.33", 3333, 100}}) {
    const double length = static_cast<double>(row.milliseconds) / 1000;
    const auto text =
        documentOf({{still, 0, length, 0, length}}, {{tone, 0, length, 0, length}}, {16, 16, row.rate});
    const auto frames =
        (row.milliseconds * row.numerator + 1000 * row.denominator - 1) / (1000 * row.denominator);
    const auto samples = (frames * 44100 * row.denominator + row.numerator / 2) / row.numerator;
    const auto ratio = std::to_string(row.numerator) + "/" + std::to_string(row.denominator);
    EXPECT_EQ(test::probed(rendered(text, "rate.avi"), "stream=r_frame_rate,nb_frames,duration_ts"),
              ratio + " " + std::to_string(frames) + " " + std::to_string(frames) + " 0/0 N/A " +
                  std::to_string(samples))
        << row.rate;
  }
}

TEST_F(Render, HeadersOfWindowsMediaTellTheTrueLength) {
  const auto source = test::makeCountingVideo(media_, "count.mkv", "25", 100);
  const auto tone = soundFile("tone.wav", "sine=duration=5");
  for (const double length : {0.4, 1.0, 3.48}) {
    const DocumentClip picture{source, 0, length, 0, length};
    const DocumentClip sound{tone, 0, length, 0, length};
    for (const auto& [name, text] :
         {std::pair{"both.wmv", documentOf({picture}, {sound})},
          std::pair{"picture.wmv", documentOf({picture})}, std::pair{"sound.wma", documentOf({}, {sound})}}) {
      EXPECT_NEAR(std::stod(test::probed(rendered(text, name), "format=duration")), length, 0.0025) << name;
    }
  }
}

TEST_F(Render, MonoKeepsItsLevel) {
  const auto tone = soundFile("mono.wav", "aevalsrc='0.5*sin(2*PI*300*t)':s=44100:d=2");
  const auto both =
      soundFile("stereo.wav", "aevalsrc='0.5*sin(2*PI*300*t)|0.25*sin(2*PI*300*t)':s=44100:d=2");
  const double full = 20 * std::log10(0.5 / std::sqrt(2));
  for (const auto& [file, right] : {std::pair{tone, full}, std::pair{both, full - 6.02}}) {
    const auto made = rendered(documentOf({}, {{file, 0, 2, 0, 2}}), "level.wav");
    EXPECT_NEAR(test::levelOf(test::samplesOf(made, 0), 0.5, 1.5), full, 0.05) << file;
    EXPECT_NEAR(test::levelOf(test::samplesOf(made, 1), 0.5, 1.5), right, 0.05) << file;
  }
}

TEST_F(Render, FailsWithALineAndLeavesWhatWasThere) {
  const auto source = test::makeCountingVideo(media_, "count.mkv", "25", 25);
  const auto sound = soundFile("tone.wav", "sine=duration=1");
  std::filesystem::copy(source, out_ / "source.avi");
  std::filesystem::create_directory(out_ / "folder.avi");
  const auto cut = test::bytesOf(source);
  ASSERT_TRUE(writeDurably(files_, media_ / "cut.mkv", cut.substr(0, cut.size() / 2)));
  const std::tuple<std::string, const char*, const char*> rows[] = {
      {documentOf({{media_ / "none.avi", 0, 1, 0, 1}}), "o.avi", "none.avi"},
      {documentOf({{sound, 0, 1, 0, 1}}), "o.avi", "no picture in"},
      {documentOf({{source, 0, 1, 0, 1}}, {{source, 0, 1, 0, 1}}), "o.avi", "no sound in"},
      {documentOf({{source, 0, 9, 0, 9}}), "o.avi", "count.mkv ends at 1.00 s"},
      {documentOf({{media_ / "cut.mkv", 0, 1, 0, 1}}), "o.avi", "cut.mkv"},
      {documentOf({{out_ / "source.avi", 0, 1, 0, 1}}), "source.avi", "it is one of the clips"},
      {documentOf({{source, 0, 1, 0, 1}}), "none/o.avi", "No such file"},
      {documentOf({{source, 0, 1, 0, 1}}), "folder.avi", "it is a folder"},
      {documentOf({{source, 0, 1, 0, 1}}), "o.mkv", "must end in"},
      {documentOf({{source, 0, 1, 0, 1}}, {}, {101, 76}), "o.wmv", "its width of 101 is odd"},
      {documentOf({{source, 0, 1, 0, 1}}, {}, {100, 75}), "o.mp4", "its height of 75 is odd"},
  };
  ASSERT_TRUE(writeDurably(files_, out_ / "o.avi", "the old movie"));
  const auto before = out_.names();
  const auto sourceBytes = bytes("source.avi");
  for (const auto& [text, output, says] : rows) {
    const auto report = make(readDocument(text), output);
    ASSERT_FALSE(report) << says;
    EXPECT_NE(report.error().text.find(says), std::string::npos) << report.error().text;
    EXPECT_EQ(out_.names(), before);
  }
  EXPECT_EQ(bytes("o.avi"), "the old movie");
  EXPECT_TRUE(bytes("source.avi") == sourceBytes);
}

}  // namespace
}  // namespace kvo::engine
