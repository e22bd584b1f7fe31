// What is decided ahead of any file or pixel: what a frame is made of, and how a movie is made.
#include "engine/document/document_reader.h"
#include "engine/picture/frame_plan.h"
#include "engine/run/render_plan.h"
#include "support/golden.h"
#include "vocabulary/effects.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::engine::planned {
namespace {

Timeline timelineOf(const std::string& video, const std::string& audio = "") {
  auto timeline =
      readDocument("<timeline><group type=\"video\" width=\"319\" height=\"240\" framerate=\"25\">" + video +
                   "</group><group type=\"audio\">" + audio + "</group></timeline>");
  EXPECT_TRUE(timeline) << timeline.error().text;
  return timeline ? *timeline : Timeline{};
}

// A track of one clip, which is not there.
std::string track(const std::string& times, const std::string& inside = "") {
  return "<track><clip src=\"a\" mstart=\"0\" mstop=\"9\" " + times + ">" + inside + "</clip></track>";
}

TEST(FramePlan, SaysWhatAFrameIsMadeOf) {
  const auto timeline = timelineOf(R"(
<track><clip src="a" mstart="1" mstop="5" start="0" stop="2">
  <effect clsid="{7312498D-E87A-11d1-81E0-0000F87557DB}" start="0.5" stop="1.5">
    <param name="PixelRadius" value="0"><linear time="1" value="40"/></param></effect></clip></track>
<track><clip src="b" mstart="0" mstop="2" start="1" stop="3"></clip>
  <transition clsid="{16B280C5-EE70-11D1-9066-00C04FD9189D}" start="1" stop="3">
    <param name="Progress" value="0.0"><linear time="0.8" value="1"/></param></transition></track>
<composite>
  <track><clip src="c" mstart="0" mstop="1" start="4" stop="6"></clip></track>
  <track><clip src="d" mstart="0" mstop="2" start="4" stop="6"></clip>
    <transition clsid="{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}" start="4" stop="6">
      <param name="Width" value="160"><linear time="1.6" value="320"/></param></transition></track>
  <transition clsid="{16B280C5-EE70-11D1-9066-00C04FD9189D}" start="4" stop="5"></transition>
</composite>)");
  FramePlanner planner(timeline);
  std::string all;
  std::vector<std::pair<int, std::string>> seen;
  for (const int frame : {0, 15, 25, 35, 45, 50, 80, 100, 110, 145, 150}) {
    seen.emplace_back(frame, toText(FramePlanner(timeline).at(frame)));
    EXPECT_EQ(toText(planner.at(frame)), seen.back().second) << "frame " << frame << ", forward";
    all += "== frame " + std::to_string(frame) + "\n" + seen.back().second;
  }
  test::expectGolden("frame-plans.txt", all);
  for (auto row = seen.rbegin(); row != seen.rend(); ++row)
    EXPECT_EQ(toText(planner.at(row->first)), row->second) << "frame " << row->first << ", backward";
}

// A picture that stands still is drawn anew only where its effects can change it.
TEST(FramePlan, KnowsWhichEffectsChangeByThemselves) {
  struct Row {
    std::string_view clsid;
    const char *times, *params;
    bool changes;
  };
  const auto* whole = "start=\"0\" stop=\"2\"";
  const auto* radius = "<param name=\"PixelRadius\" value=\"9\"/>";
  const auto* keyed = "<param name=\"PixelRadius\" value=\"9\"><at time=\"1\" value=\"1\"/></param>";
  for (const auto& row :
       {Row{effect_ids::kBlur, whole, radius, false}, Row{effect_ids::kBlur, whole, keyed, true},
        Row{effect_ids::kBlur, "start=\"1\" stop=\"2\"", radius, true},  // it begins
        Row{effect_ids::kBlur, "start=\"0\" stop=\"1\"", radius, true},  // it ends
        Row{effect_ids::kFade, whole, "", true},
        Row{effect_ids::kPalette, whole, "<param name=\"EffectID\" value=\"1\"/>", false},
        Row{effect_ids::kPalette, whole, "<param name=\"EffectID\" value=\"21\"/>", true}}) {  // grain
    const auto timeline = timelineOf(track(whole, "<effect clsid=\"" + std::string(row.clsid) + "\" " +
                                                      row.times + ">" + row.params + "</effect>"));
    EXPECT_EQ(changesByItself(timeline.video.at(0)), row.changes) << row.clsid << row.times << row.params;
  }
}

TEST(RenderPlan, SaysHowAMovieIsMade) {
  const auto timeline = timelineOf(track("start=\"0\" stop=\"8\"") + track("start=\"8\" stop=\"16\"") +
                                       track("start=\"16\" stop=\"20.01\""),
                                   track("start=\"0\" stop=\"5\""));
  auto large = timeline;
  large.width = 1920;
  large.height = 1080;
  auto silent = timeline;
  silent.audio.clear();
  auto dark = timeline;
  dark.video.clear();
  struct Row {
    const char* what;
    const Timeline& timeline;
    RenderJob job;
    int cores;
  };
  const auto mpeg4 = VideoCodec::Mpeg4;
  const Row rows[] = {
      {"AVI, one core", timeline, {"m.avi"}, 1},
      {"AVI, eight cores", timeline, {"m.AVI"}, 8},
      {"MPEG-4, two cores", timeline, {"m.avi", {}, mpeg4}, 2},
      {"0.02 to 3.999 s, a machine that does not know its cores", timeline, {"m.wmv", Slice{0.02, 3.999}}, 0},
      {"20 s to the end, silent", silent, {"m.wmv", Slice{20, 99}}, 2},
      // Large pictures cannot wait for their turn, and large references are not held four times.
      {"AVI, large", large, {"m.avi"}, 8},
      {"WMV, large", large, {"m.wmv"}, 8},
      {"MP4", timeline, {"m.mp4"}, 4},
      {"AV1, which one encoder makes", timeline, {"m.webm", {}, VideoCodec::Av1}, 4},
      {"GIF, by its preset", timeline, {.output = "m.gif", .preset = presetNamed("gif")}, 2},
      {"MP4 within a size", timeline, {.output = "m.mp4", .megabytes = 1}, 2},
      {"a codec of another kind", timeline, {"m.mp4", {}, VideoCodec::Vp9}, 1},
      {"a preset of another kind", timeline, {.output = "m.webm", .preset = presetNamed("web")}, 1},
      {"WebM within a size", timeline, {.output = "m.webm", .megabytes = 1}, 1},
      {"WAV", timeline, {"m.wav"}, 4},
      {"WMA, 0.05 to 0.07 s", timeline, {"m.wma", Slice{0.05, 0.07}}, 4},
      {"an extension that is not known", timeline, {"m.mkv"}, 1},
      {"a sound file, silent", silent, {"m.wav"}, 1},
      {"a movie without a picture", dark, {"m.avi"}, 1},
      {"behind the end", timeline, {"m.avi", Slice{21, 22}}, 1},
      {"ahead of the start", timeline, {"m.avi", Slice{-1, 2}}, 1},
      {"of no length", timeline, {"m.avi", Slice{2, 2}}, 1},
  };
  std::string all;
  for (const auto& row : rows) {
    const auto plan = planRender(row.timeline, row.job, row.cores);
    all += std::string("== ") + row.what + "\n" + (plan ? toText(*plan) : plan.error().text + "\n");
  }
  test::expectGolden("render-plans.txt", all);
}

// Each step has its samples, and all of them together are those of the whole.
TEST(RenderPlan, StepsHaveAllTheSamples) {
  auto timeline = timelineOf(track("start=\"0\" stop=\"9\""), track("start=\"0\" stop=\"9\""));
  for (const auto& rate : {FrameRate(30000, 1001), FrameRate(25), FrameRate(3333, 100)}) {
    timeline.frameRate = rate;
    for (const char* name : {"m.avi", "m.wav"}) {
      for (const auto& slice : {Slice{0, 9}, Slice{1.63, 2.41}}) {
        const auto plan = *planRender(timeline, {name, slice}, 1);
        EXPECT_EQ(plan.sampleOf(plan.first), plan.firstSample);
        EXPECT_EQ(plan.sampleOf(plan.stop), plan.stopSample);
        for (auto step = plan.first; step < plan.stop; ++step) {
          const auto count = static_cast<double>(plan.sampleOf(step + 1) - plan.sampleOf(step));
          const double usual = 44100 / plan.steps.perSecond();
          EXPECT_LE(count, usual + 1) << name << ", step " << step;
          EXPECT_GE(count, step + 1 < plan.stop ? usual - 1 : 1) << name << ", step " << step;
        }
      }
    }
  }
}

}  // namespace
}  // namespace kvo::engine::planned
