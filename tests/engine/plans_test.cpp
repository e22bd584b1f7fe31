// What is decided ahead of any file or pixel: what a frame is made of, and how a movie is made.
#include "engine/document/document_reader.h"
#include "engine/picture/frame_plan.h"
#include "engine/run/render_plan.h"
#include "vocabulary/effects.h"
#include "vocabulary/transitions.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

std::string clip(const std::string& src, const std::string& times, const std::string& inside = "") {
  return "<clip src=\"" + src + "\" " + times + ">" + inside + "</clip>";
}

std::string element(const std::string& kind, std::string_view clsid, const std::string& times,
                    const std::string& params) {
  return "<" + kind + " clsid=\"" + std::string(clsid) + "\" " + times + ">" + params + "</" + kind + ">";
}

Timeline timelineOf(const std::string& video, const std::string& audio = "") {
  auto timeline =
      readDocument("<timeline><group type=\"video\" width=\"319\" height=\"240\" framerate=\"25\">" + video +
                   "</group><group type=\"audio\">" + audio + "</group></timeline>");
  EXPECT_TRUE(timeline) << timeline.error().text;
  return timeline ? *timeline : Timeline{};
}

constexpr auto kFade = transition_ids::kFade;
constexpr auto kBlur = effect_ids::kBlur;
constexpr auto kPlacing = transition_ids::kPlacing;

TEST(FramePlan, SaysWhatAFrameIsMadeOf) {
  const auto blur =
      element("effect", kBlur, "start=\"0.5\" stop=\"1.5\"",
              "<param name=\"PixelRadius\" value=\"0\"><linear time=\"1\" value=\"40\"/></param>");
  const auto fade =
      element("transition", kFade, "start=\"1\" stop=\"3\"",
              "<param name=\"Progress\" value=\"0.0\"><linear time=\"0.8\" value=\"1\"/></param>");
  const auto box =
      element("transition", kPlacing, "start=\"4\" stop=\"6\"",
              "<param name=\"Width\" value=\"160\"><linear time=\"1.6\" value=\"320\"/></param>");
  const auto timeline =
      timelineOf("<track>" + clip("a", "mstart=\"1\" mstop=\"5\" start=\"0\" stop=\"2\"", blur) +
                 "</track><track>" + clip("b", "mstart=\"0\" mstop=\"2\" start=\"1\" stop=\"3\"") + fade +
                 "</track><composite><track>" + clip("c", "mstart=\"0\" mstop=\"1\" start=\"4\" stop=\"6\"") +
                 "</track><track>" + clip("d", "mstart=\"0\" mstop=\"2\" start=\"4\" stop=\"6\"") + box +
                 "</track>" + element("transition", kFade, "start=\"4\" stop=\"5\"", "") + "</composite>");
  struct Row {
    std::int64_t frame;
    const char* plan;
  };
  const Row rows[] = {
      {0, "clip a at 1\n"},
      {15, "clip a at 2.2\n  effect Blur at 0.1: pixelradius 4\n"},
      {25,
       "clip a at 3\n  effect Blur at 0.5: pixelradius 20\n"
       "clip b at 0\n  transition Fade 0 at 0: progress 0\n"},
      {35,
       "clip a at 3.8\n  effect Blur at 0.9: pixelradius 36\n"
       "clip b at 0.4\n  transition Fade 0.5 at 0.4: progress 0.5\n"},
      {45, "clip a at 4.6\nclip b at 0.8\n"},  // the fade and the blur are over
      {50, "clip b at 1\n"},
      {80, ""},
      {100, "composition\n  transition Fade 0 at 0\n"},  // of which nothing is seen
      {110,
       "composition\n  clip c at 0.2\n  clip d at 0.4\n    transition Placing 0.5 at 0.4: width 200\n"
       "  transition Fade 0.4 at 0.4\n"},
      {145, "composition\n  clip c at 0.9\n  clip d at 1.8\n"},  // it covers all by now
      {150, ""},
  };
  FramePlanner planner(timeline);
  for (const auto& row : rows) {
    EXPECT_EQ(toText(planFrame(timeline, row.frame)), row.plan) << "frame " << row.frame;
    EXPECT_EQ(toText(planner.at(row.frame)), row.plan) << "frame " << row.frame << ", forward";
  }
  for (auto row = std::rbegin(rows); row != std::rend(rows); ++row) {
    EXPECT_EQ(toText(planner.at(row->frame)), row->plan) << "frame " << row->frame << ", backward";
  }
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
       {Row{kBlur, whole, radius, false}, Row{kBlur, whole, keyed, true},
        Row{kBlur, "start=\"1\" stop=\"2\"", radius, true},  // it begins
        Row{kBlur, "start=\"0\" stop=\"1\"", radius, true},  // it ends
        Row{kFade, whole, "", true},                         // to black
        Row{effect_ids::kPalette, whole, "<param name=\"EffectID\" value=\"1\"/>", false},
        Row{effect_ids::kPalette, whole, "<param name=\"EffectID\" value=\"21\"/>", true}}) {
    const auto timeline = timelineOf("<track>" +
                                     clip("a", "mstart=\"0\" mstop=\"2\" start=\"0\" stop=\"2\"",
                                          element("effect", row.clsid, row.times, row.params)) +
                                     "</track>");
    EXPECT_EQ(changesByItself(timeline.video.at(0)), row.changes) << row.clsid << row.times << row.params;
  }
}

TEST(RenderPlan, SaysHowAMovieIsMade) {
  std::string video;
  for (const auto& [start, stop] : {std::pair{"0", "8"}, std::pair{"8", "16"}, std::pair{"16", "20.01"}}) {
    const auto times = std::string("start=\"") + start + "\" stop=\"" + stop + "\"";
    video += "<track>" + clip("a", "mstart=\"0\" mstop=\"9\" " + times) + "</track>";
  }
  const auto timeline = timelineOf(
      video, "<track>" + clip("t", "mstart=\"0\" mstop=\"9\" start=\"0\" stop=\"5\"") + "</track>");
  auto large = timeline;
  large.width = 1920;
  large.height = 1080;
  auto silent = timeline;
  silent.audio.clear();
  auto dark = timeline;
  dark.video.clear();
  const std::string segments = "segments 0-200 200-400 400-501\n";
  const std::string movie = "319 x 240 at 25, sound\nsteps 0-501, samples 0-883764\n";
  struct Row {
    const Timeline& timeline;
    RenderJob job;
    int cores;
    std::string plan;
  };
  // clang-format off
  const Row rows[] = {
      {timeline, {"m.avi"}, 1,
       "AVI, raw " + movie + segments + "workers 1, threads of a decoder 1, encoders 1\n"},
      {timeline, {"m.AVI"}, 8,
       "AVI, raw " + movie + segments + "workers 3, threads of a decoder 2, encoders 1\n"},
      {timeline, {"m.avi", {}, media::VideoCodec::Mpeg4}, 2,
       "AVI, MPEG-4 " + movie + segments + "workers 2, threads of a decoder 1, encoders 3\n"},
      {timeline, {"m.wmv", Slice{0.02, 3.999}}, 0,  // what a machine says that does not know
       "WMV, WMV 8 319 x 240 at 25, sound\nsteps 1-100, samples 1764-176400\n"
       "segments 1-100\nworkers 1, threads of a decoder 1, encoders 1\n"},
      {silent, {"m.wmv", Slice{20, 99}}, 2,
       "WMV, WMV 8 319 x 240 at 25\nsteps 500-501, samples 882000-883764\n"
       "segments 500-501\nworkers 1, threads of a decoder 2, encoders 1\n"},
      // Large pictures cannot wait for their turn, and large references are not held four times.
      {large, {"m.avi"}, 8,
       "AVI, raw 1920 x 1080 at 25, sound\nsteps 0-501, samples 0-883764\n"
       "segments 0-501\nworkers 1, threads of a decoder 4, encoders 1\n"},
      {large, {"m.wmv"}, 8,
       "WMV, WMV 8 1920 x 1080 at 25, sound\nsteps 0-501, samples 0-883764\n" + segments +
       "workers 2, threads of a decoder 4, encoders 3\n"},
      {timeline, {"m.wav"}, 4, "WAV, sound\nsteps 0-201, samples 0-882441\n"},
      {timeline, {"m.wma", Slice{0.05, 0.07}}, 4, "WMA, sound\nsteps 0-1, samples 2205-3087\n"},
      {timeline, {"m.mov"}, 1, "cannot write m.mov: its name must end in .AVI, .WAV, .WMV or .WMA"},
      {silent, {"m.wav"}, 1, "cannot write m.wav: there is no sound"},
      {dark, {"m.avi"}, 1, "cannot write m.avi: there is no picture; a sound file ends in .WAV or .WMA"},
      {timeline, {"m.avi", Slice{21, 22}}, 1, "the range 21.00-22.00 is not within the 20.01 s of the movie"},
      {timeline, {"m.avi", Slice{-1, 2}}, 1, "the range -1.00-2.00 is not within the 20.01 s of the movie"},
      {timeline, {"m.avi", Slice{2, 2}}, 1, "the range 2.00-2.00 is not within the 20.01 s of the movie"},
  };
  // clang-format on
  for (const auto& row : rows) {
    const auto plan = planRender(row.timeline, row.job, row.cores);
    EXPECT_EQ(plan ? toText(*plan) : plan.error().text, row.plan) << row.job.output;
  }
}

// Each step has its samples, and all of them together are those of the whole.
TEST(RenderPlan, StepsHaveAllTheSamples) {
  auto timeline =
      timelineOf("<track>" + clip("a", "mstart=\"0\" mstop=\"9\" start=\"0\" stop=\"9\"") + "</track>",
                 "<track>" + clip("t", "mstart=\"0\" mstop=\"9\" start=\"0\" stop=\"9\"") + "</track>");
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
}  // namespace kvo::engine
