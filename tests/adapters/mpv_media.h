// Films that say which picture is shown, and who reads that.
#pragma once

#include "ports/video_output.h"
#include "support/real_world.h"

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {

// Codecs with key pictures a second apart, and with pictures that look ahead.
inline const std::vector<std::string> kH264 = {"-c:v", "libx264", "-crf", "4", "-g", "20", "-bf", "2"};
inline const std::vector<std::string> kWmv = {"-c:v", "wmv2", "-q:v", "2", "-g", "20"};

inline constexpr int kGreyStep = 4;  // levels of luma from one picture to the next

// Pictures 0 to 49, each a little brighter than the one before, with the times that `stamps` gives them.
inline std::string makeNumbered(const ScratchFolder& folder, const std::string& name, const std::string& rate,
                                const std::string& stamps, const std::vector<std::string>& codec,
                                const std::vector<std::string>& sound = {}) {
  std::vector<std::string> arguments = {
      "-f", "lavfi", "-i",
      "color=black:size=64x48:rate=" + rate + ",format=yuv420p,geq=lum='16+" + std::to_string(kGreyStep) +
          "*N':cb=128:cr=128,settb=1/1000" + (stamps.empty() ? "" : ",setpts='" + stamps + "'")};
  if (stamps.empty()) arguments.back() = arguments.back().substr(0, arguments.back().rfind(",settb"));
  arguments.insert(arguments.end(), sound.begin(), sound.end());
  for (const auto& word : {"-frames:v", "50", "-fps_mode", "passthrough"}) arguments.emplace_back(word);
  arguments.insert(arguments.end(), codec.begin(), codec.end());
  return makeMedia(folder, name, arguments);
}

inline int numberOfGrey(double grey) { return static_cast<int>(std::lround(grey * 219 / 255 / kGreyStep)); }

// Stamps for makeNumbered: the next picture comes 20, 60 and 100 ms later, and so on, in milliseconds.
inline const char* const kUneven = "180*floor(N/3)+20*eq(mod(N,3),1)+80*eq(mod(N,3),2)";
// When picture `number` of those begins, seconds.
inline double unevenBegin(int number) {
  return (180 * (number / 3) + 20 * (number % 3 == 1) + 80 * (number % 3 == 2)) / 1000.0;
}

// The number of the picture that is drawn; -1 for none.
inline int drawnNumber(VideoOutput& output) {
  if (!output.hasPicture()) return -1;
  std::vector<std::uint8_t> pixels(std::size_t{64} * 48 * 4);
  output.draw({pixels.data(), 64, 48, std::size_t{64} * 4});
  double sum = 0;
  for (std::size_t i = 0; i < pixels.size(); i += 4) sum += pixels[i];
  return numberOfGrey(sum * 4 / static_cast<double>(pixels.size()));
}

}  // namespace kvo::test
