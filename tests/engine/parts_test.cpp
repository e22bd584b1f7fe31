// The small parts of the engine, without media.
#include "engine/document/document_reader.h"
#include "engine/document/params.h"
#include "engine/document/timeline.h"
#include "engine/run/segments.h"
#include "engine/run/size_aim.h"
#include "engine/sound/limiter.h"
#include "support/documents.h"

#include <cmath>
#include <functional>
#include <numbers>

#include <gtest/gtest.h>

namespace kvo::engine {
namespace {

TEST(Keyed, RunsStraightJumpsAndHolds) {
  const Keyed keyed{0, {{1, 1, true}, {2, 1, true}, {3, 0.5, false}, {4, 0, true}}};
  const std::pair<double, double> rows[] = {{0, 0},   {0.25, 0.25}, {1, 1}, {1.5, 1}, {2.9, 1},
                                            {3, 0.5}, {3.5, 0.25},  {4, 0}, {9, 0}};
  for (const auto& [time, value] : rows) {
    EXPECT_NEAR(keyed.at(time), value, 1e-12) << time;
  }
  EXPECT_EQ((Keyed{0.7, {}}).at(5), 0.7);
  EXPECT_EQ((Keyed{0, {{-0.115, 1, true}}}).at(0), 1) << "a key ahead of the start has been passed";
}

TEST(Limiter, PassesWhatFitsAndHoldsWhatDoesNot) {
  constexpr std::size_t kCount = 20000;
  const auto run = [](float loud) {
    Limiter limiter;
    std::vector<float> in(2 * kCount);
    std::vector<float> out;
    for (std::size_t i = 0; i < kCount; ++i) {
      const float amplitude = i >= 4410 && i < 5292 ? loud : 0.5F;
      in[2 * i] = in[2 * i + 1] =
          amplitude * std::sin(static_cast<float>(i) * 2 * std::numbers::pi_v<float> * 1000 / 44100);
    }
    limiter.process(in, out);
    EXPECT_EQ(out.size(), in.size() - 2 * (Limiter::kLookAhead - 1));
    return std::pair{in, out};
  };
  const auto [quietIn, quietOut] = run(0.99F);
  for (std::size_t i = 0; i < quietOut.size(); ++i) ASSERT_EQ(quietOut[i], quietIn[i]) << i;

  const auto [loudIn, loudOut] = run(3.0F);
  float step = 0;
  for (std::size_t i = 2; i < loudOut.size(); ++i) {
    ASSERT_LE(std::fabs(loudOut[i]), 1.0001F) << i;
    step = std::max(step, std::fabs(loudOut[i] - loudOut[i - 2]));
  }
  EXPECT_LT(step, 0.2F) << "no click where it turns down";
  EXPECT_EQ(loudOut[100], loudIn[100]);
}

// Layers one behind the other, each over the one before by `overlap` seconds.
Timeline movieOf(int clips, double seconds, double overlap) {
  std::vector<test::DocumentClip> all;
  for (int i = 0; i < clips; ++i) {
    const double start = i * (seconds - overlap);
    all.push_back({"c.avi", 0, seconds, start, start + seconds});
    if (i > 0 && overlap > 0)
      all.back().behind = "<transition clsid=\"{16B280C5-EE70-11D1-9066-00C04FD9189D}\"" +
                          test::attribute("start", start) + test::attribute("stop", start + overlap) + "/>";
  }
  return *readDocument(test::documentOf(all));
}

TEST(Segments, BeginAtCutsAndBehindTransitions) {
  using Segments = std::vector<Segment>;
  EXPECT_EQ(segmentsOf(movieOf(3, 8, 0), 0, 600), (Segments{{0, 200}, {200, 400}, {400, 600}}));
  EXPECT_EQ(segmentsOf(movieOf(3, 8, 1), 0, 550), (Segments{{0, 200}, {200, 375}, {375, 550}}))
      << "where the transition is over";
  EXPECT_EQ(segmentsOf(movieOf(30, 1, 0), 0, 750), (Segments{{0, 200}, {200, 400}, {400, 600}, {600, 750}}))
      << "several short clips in one";
  EXPECT_EQ(segmentsOf(movieOf(1, 6, 0), 0, 150), (Segments{{0, 150}})) << "too short to part";
  EXPECT_EQ(segmentsOf(movieOf(1, 100, 0), 0, 2500),
            (Segments{{0, 750}, {750, 1500}, {1500, 2250}, {2250, 2500}}));
  for (const auto first : {0, 33, 199}) {
    std::int64_t at = first;
    for (const auto& segment : segmentsOf(movieOf(20, 7.3, 0.9), first, 3000)) {
      EXPECT_EQ(segment.first, at);
      EXPECT_GE(segment.stop - segment.first, 100);
      at = segment.stop;
    }
    EXPECT_EQ(at, 3000);
  }
}

// Encoders that meet the bit rate, that have a floor, that are full early, and that go up and down by chance.
TEST(SizeAim, EndsBehindFiveTriesWithinTheSizeWhereOneWas) {
  struct Row {
    const char* what;
    std::function<double(double rate, int number)> made;  // bytes of the pictures of a try
    Fits end;
    int tries;
  };
  constexpr double kSecond = 1e6 / 8;  // bytes at the rate of the plan
  const auto share = [](double rate) { return 40 * kSecond * rate / 1e6; };
  const Row rows[] = {
      {"meets it", [&](double rate, int) { return share(rate); }, Fits::Good, 1},
      {"gives a fifth more", [&](double rate, int) { return 1.2 * share(rate); }, Fits::Good, 2},
      {"gives a fifth less", [&](double rate, int) { return 0.8 * share(rate); }, Fits::Good, 2},
      {"has a floor", [&](double, int) { return 2 * 40 * kSecond; }, Fits::Never, 5},
      {"takes no more", [&](double, int) { return 0.5 * 40 * kSecond; }, Fits::Good, 2},
      {"up and down",
       [&](double rate, int number) {
         return number == 5 ? share(rate) : (number % 2 == 0 ? 1.2 : 0.8) * share(rate);
       },
       Fits::Good, 5},
      {"down and up at the end", [&](double, int number) { return (number == 4 ? 0.9 : 1.3) * 40 * kSecond; },
       Fits::Good, 4},
  };
  RenderPlan plan;
  plan.format.video = media::VideoFormat{.bitRate = 1'000'000};
  plan.steps = 25;
  plan.stop = 40 * 25;
  plan.mostBytes = static_cast<std::uint64_t>(40 * kSecond);
  for (const auto& row : rows) {
    SizeAim aim(plan);
    auto fits = Fits::TryAgain;
    int tries = 0;
    double bytes = 0;
    while (fits == Fits::TryAgain && tries < 10) {
      bytes = row.made(aim.bitRate(), ++tries);
      fits = aim.judge(static_cast<std::uint64_t>(bytes), static_cast<std::uint64_t>(bytes), false);
    }
    EXPECT_EQ(fits, row.end) << row.what;
    EXPECT_EQ(tries, row.tries) << row.what;
    EXPECT_EQ(fits == Fits::Good, bytes <= 40 * kSecond) << row.what;
  }
}

TEST(Params, AreReadByNameInAnyCase) {
  Params params;
  params.add("Bands", {"7.6", {7.6, {}}});
  params.add("bands", {"9", {9, {}}});
  params.add("Add", {"True", {valueOf("True"), {}}});
  params.add("Style", {" CIRCLE ", {}});
  params.add("Level", {"0", {0, {{2, 1, true}}}});
  EXPECT_EQ(params.count("bands", 1), 8) << "the first of a name stands";
  EXPECT_EQ(params.count("spokes", 4), 4);
  EXPECT_EQ(params.word("style"), "circle");
  EXPECT_TRUE(params.flag("add"));
  EXPECT_FALSE(params.flag("nothing"));
  EXPECT_EQ(params.number("level", 1, 9), 0.5);
  EXPECT_EQ(params.number("level", 9, 9, 0, 0.75), 0.75);
  EXPECT_TRUE(params.moves());
  EXPECT_FALSE(Params().moves());
}

}  // namespace
}  // namespace kvo::engine
