// Films that say which picture is shown, and who reads that.
#pragma once

#include "adapters/media/media_file_contents.h"
#include "adapters/media/media_picture_counts.h"
#include "adapters/mpv/mpv_control_engine.h"
#include "adapters/mpv/mpv_filter_graphs.h"
#include "adapters/posix/poll_loop.h"
#include "support/loop_rules.h"
#include "support/real_world.h"

#include <cmath>
#include <numeric>

namespace kvo::test {

// Codecs with key pictures a second apart, and with pictures that look ahead.
inline const std::vector<std::string> kH264 = {"-c:v", "libx264", "-crf", "4", "-g", "20", "-bf", "2"};
inline const std::vector<std::string> kWmv = {"-c:v", "wmv2", "-q:v", "2", "-g", "20"};

inline constexpr int kGreyStep = 4;  // levels of luma from one picture to the next

// A rate of pictures that come 20, 60 and 100 milliseconds after the one ahead of them, and so on.
inline const std::string kUneven = "uneven";

// When picture `number` begins at a rate, seconds.
inline double beginAt(const std::string& rate, int number) {
  if (rate == kUneven) return (180 * (number / 3) + 20 * (number % 3 == 1) + 80 * (number % 3 == 2)) / 1000.0;
  return rate == "30000/1001" ? number * 1001 / 30000.0 : number / std::stod(rate);
}

// Pictures 0 to 49, each a little brighter than the one before.
inline std::string makeNumbered(const ScratchFolder& folder, const std::string& name, const std::string& rate,
                                const std::vector<std::string>& codec,
                                const std::vector<std::string>& sound = {}) {
  const bool uneven = rate == kUneven;
  std::vector<std::string> arguments = {
      "-f", "lavfi", "-i",
      "color=black:size=64x48:rate=" + (uneven ? "25" : rate) + ",format=yuv420p,geq=lum='16+" +
          std::to_string(kGreyStep) + "*N':cb=128:cr=128" +
          (uneven ? ",settb=1/1000,setpts='180*floor(N/3)+20*eq(mod(N,3),1)+80*eq(mod(N,3),2)'" : "")};
  arguments.insert(arguments.end(), sound.begin(), sound.end());
  arguments.insert(arguments.end(), {"-frames:v", "50", "-fps_mode", "passthrough"});
  arguments.insert(arguments.end(), codec.begin(), codec.end());
  return makeMedia(folder, name, arguments);
}

inline int numberOfGrey(double grey) { return static_cast<int>(std::lround(grey * 219 / 255 / kGreyStep)); }

// Both engines on a loop of their own, and somebody who draws.
struct Stage {
  ScratchFolder folder;
  PollLoop loop;
  MediaFileContents facts;
  MpvStage stage{
      loop, facts, {.address = std::chrono::milliseconds(2500)}};  // a busy machine is slow to begin
  MpvControlEngine engine{stage};
  MpvFilterGraphs graphs{stage};
  MediaPictureCounts counts{loop, facts};

  template <class Condition>
  bool until(const Condition& holds) {
    return turnUntil(loop, holds);
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
    const double sum = std::accumulate(picture->bgr.begin(), picture->bgr.end(), 0.0);
    return numberOfGrey(sum / static_cast<double>(picture->bgr.size()));
  }
  bool shows(int number) {
    return until([&] { return drawn() == number; });
  }
};

}  // namespace kvo::test
