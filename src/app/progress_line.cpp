#include "app/progress_line.h"

#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kvo {

std::string clockText(double seconds) {
  const auto whole = static_cast<long>(std::ceil(std::clamp(seconds, 0.0, 1e9)));
  const auto two = [](long value) { return FormatMask(static_cast<double>(value), "00"); };
  const auto hours = whole / 3600;
  const auto minutes = whole / 60 % 60;
  if (hours == 0) return std::to_string(minutes) + ":" + two(whole % 60);
  return std::to_string(hours) + ":" + two(minutes) + ":" + two(whole % 60);
}

std::string progressText(double done, double total, double elapsed) {
  const double share = total > 0 ? std::clamp(done / total, 0.0, 1.0) : 0;
  auto percent = std::to_string(static_cast<int>(share * 100));
  percent.insert(0, 3 - std::min<std::size_t>(percent.size(), 3), ' ');
  std::string text = percent + "%";
  if (done <= 0 || elapsed <= 0) return text;
  text += "  " + FormatMask(done / elapsed, "0.00") + " x real time";
  text += "  " + clockText(elapsed * (1 - share) / share) + " left";
  return text;
}

std::string bytesText(double bytes) {
  constexpr std::array<const char*, 4> kUnits = {" kB", " MB", " GB", " TB"};
  if (bytes < 1000) return ShortText(bytes) + " bytes";
  std::size_t unit = 0;
  for (bytes /= 1000; bytes >= 1000 && unit + 1 < kUnits.size(); ++unit) bytes /= 1000;
  return FormatMask(bytes, "0.0") + kUnits.at(unit);
}

}  // namespace kvo
