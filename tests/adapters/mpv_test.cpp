#include "adapters/media/media_frame_source.h"
#include "adapters/mpv/mpv_control_engine.h"
#include "adapters/mpv/mpv_filter_graphs.h"
#include "adapters/posix/poll_loop.h"
#include "support/loop_rules.h"
#include "support/real_world.h"

#include <cmath>
#include <numeric>
#include <vector>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::turnUntil;

constexpr int kGreyStep = 4;  // levels of luma from one picture to the next
constexpr int kPictures = 50;

// Pictures 0 to 49, each a little brighter than the one before, with the times that `stamps` gives them.
std::string makeNumbered(const test::ScratchFolder& folder, const std::string& name, const std::string& rate,
                         const std::string& stamps, const std::vector<std::string>& codec) {
  std::vector<std::string> arguments = {
      "-f", "lavfi", "-i",
      "color=black:size=64x48:rate=" + rate + ",format=yuv420p,geq=lum='16+" + std::to_string(kGreyStep) +
          "*N':cb=128:cr=128,settb=1/1000" + (stamps.empty() ? "" : ",setpts='" + stamps + "'")};
  if (stamps.empty()) arguments.back() = arguments.back().substr(0, arguments.back().rfind(",settb"));
  for (const auto& word : {"-frames:v", "50", "-fps_mode", "passthrough"}) arguments.emplace_back(word);
  arguments.insert(arguments.end(), codec.begin(), codec.end());
  return test::makeMedia(folder, name, arguments);
}

int numberOfGrey(double grey) { return static_cast<int>(std::lround(grey * 219 / 255 / kGreyStep)); }

// Both engines on a loop of their own, and somebody who draws.
struct Bench {
  test::ScratchFolder folder;
  PollLoop loop;
  MediaFrameSource facts;
  MpvLimits limits{.address = std::chrono::milliseconds(700)};
  MpvStage stage{loop, facts, limits};
  MpvControlEngine engine{stage};
  MpvFilterGraphs graphs{stage};
  int ended = 0;

  Bench() {
    engine.whenEndOfStream([this] { ++ended; });
  }

  // The number of the picture that is drawn; -1 for none.
  int drawn() {
    if (!stage.output().hasPicture()) return -1;
    std::vector<std::uint8_t> pixels(std::size_t{64} * 48 * 4);
    stage.output().draw({pixels.data(), 64, 48, std::size_t{64} * 4});
    double sum = 0;
    for (std::size_t i = 0; i < pixels.size(); i += 4) sum += pixels[i];
    return numberOfGrey(sum * 4 / static_cast<double>(pixels.size()));
  }
  // The number of the picture that a render shows at this time.
  int rendered(const std::string& path, double seconds) {
    const auto picture = facts.frame(path, seconds, 64, 48);
    if (!picture) return -1;
    double sum = 0;
    for (const auto byte : picture->bgr) sum += byte;
    return numberOfGrey(sum / static_cast<double>(picture->bgr.size()));
  }
  bool shows(int number) {
    return turnUntil(loop, [&] { return drawn() == number; });
  }
};

TEST(MpvPlayer, ShowsThePictureThatThePositionSaysAndARenderWouldShow) {
  Bench bench;
  const std::vector<std::string> h264 = {"-c:v", "libx264", "-crf", "4", "-g", "20", "-bf", "2"};
  const std::vector<std::string> wmv = {"-c:v", "wmv2", "-q:v", "2", "-g", "20"};
  const std::string uneven = "180*floor(N/3)+20*eq(mod(N,3),1)+80*eq(mod(N,3),2)";
  const auto with = [](std::vector<std::string> words, std::initializer_list<std::string> more) {
    words.insert(words.end(), more);
    return words;
  };
  struct Row {
    std::string name;
    std::string rate;
    std::string stamps;
    std::vector<std::string> codec;
    int beside = 0;  // how many pictures it may be off
  };
  for (const auto& row : {Row{"even.mp4", "25", "", h264}, Row{"ntsc.mp4", "30000/1001", "", h264},
                          Row{"uneven.mp4", "25", uneven, with(h264, {"-video_track_timescale", "1000"})},
                          Row{"even.mkv", "30", "", h264}, Row{"uneven.mkv", "25", uneven, h264},
                          Row{"even.wmv", "30", "", wmv}, Row{"uneven.wmv", "25", uneven, wmv},
                          Row{"b.avi", "25", "", {"-c:v", "mpeg4", "-q:v", "1", "-g", "20", "-bf", "2"}, 1},
                          Row{"b.ts", "25", "", h264, 1}}) {
    SCOPED_TRACE(row.name);
    const auto path = makeNumbered(bench.folder, row.name, row.rate, row.stamps, row.codec);
    auto& engine = bench.engine;
    engine.setFileName(path);
    ASSERT_EQ(engine.opening(), EngineOpening::Open) << engine.errorDescription();
    EXPECT_EQ(engine.sourceWidth(), 64);
    EXPECT_EQ(engine.position(), 0);
    EXPECT_NEAR(bench.drawn(), 0, row.beside);
    const auto standsAt = [&](int wanted, const char* how) {
      EXPECT_TRUE(turnUntil(bench.loop, [&] { return std::abs(bench.drawn() - wanted) <= row.beside; }))
          << how << ": " << bench.drawn() << " for " << wanted;
      EXPECT_TRUE(turnUntil(
          bench.loop,
          [&] { return std::abs(bench.rendered(path, engine.position()) - bench.drawn()) <= row.beside; }))
          << how << " at " << engine.position();
    };
    const auto begin = [&](int number) {  // of a picture, seconds
      if (!row.stamps.empty())
        return (180 * (number / 3) + 20 * (number % 3 == 1) + 80 * (number % 3 == 2)) / 1000.0;
      return row.rate == "25" ? number / 25.0 : row.rate == "30" ? number / 30.0 : number * 1001 / 30000.0;
    };
    for (const int number : {33, 8, 41, 20, 19, 49, 0}) {
      for (const double share : {0.0, 0.6}) {
        engine.seek(begin(number) + share * (begin(number + 1) - begin(number)));
        standsAt(number, share == 0 ? "sought at its begin" : "sought within it");
      }
      const double near = row.beside == 0 ? 0.00075 : 0.05;
      EXPECT_TRUE(turnUntil(bench.loop, [&] { return std::fabs(engine.position() - begin(number)) <= near; }))
          << engine.position() << " for " << number;
    }
    engine.seek(begin(17));
    engine.step(1);
    standsAt(18, "one on");
    engine.step(1);
    engine.step(1);
    standsAt(20, "two more");
    engine.step(-1);
    standsAt(19, "one back over a key picture");
    engine.seek(engine.duration());
    standsAt(49, "at the end");
    engine.step(1);
    standsAt(49, "nothing behind the last");
  }
}

}  // namespace
}  // namespace kvo
