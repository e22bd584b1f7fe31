#include "render/progress.h"

#include "base/numbers.h"
#include "core/telling/translated.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kvo {

double shareDone(const RenderProgress& progress) {
  const auto& movie = progress.movie;
  return movie.total > 0 ? std::clamp(movie.done / movie.total, 0.0, 1.0) : 0;
}

std::optional<double> speedOf(const RenderProgress& progress) {
  const double made = progress.movie.done - progress.movie.kept;
  if (made <= 0 || progress.elapsed <= 0) return std::nullopt;
  return made / progress.elapsed;
}

std::optional<double> secondsLeft(const RenderProgress& progress) {
  const auto speed = speedOf(progress);
  if (!speed || progress.movie.total <= 0) return std::nullopt;
  const auto& movie = progress.movie;
  const double left = std::max(movie.total - movie.done, 0.0);
  const double made = movie.done - std::max(progress.begunWith, movie.kept);
  const double took = progress.elapsed - progress.begunAt;
  return made > 0 && took > 0 ? left * took / made : left / *speed;
}

std::optional<double> bytesInAll(const RenderProgress& progress) {
  const auto& movie = progress.movie;
  const auto most = progress.most > 0 ? std::optional(progress.most) : std::nullopt;
  if (movie.bytes <= 0 || movie.written <= 0) return most;
  const double whole = movie.bytes * std::max(movie.total / movie.written, 1.0);
  return most ? std::min(whole, *most) : whole;
}

std::optional<double> SteadyTimeLeft::after(const RenderProgress& progress) {
  constexpr double kMostRise = 1.2;
  auto left = secondsLeft(progress);
  if (left && shown_ && shareDone(progress) >= 0.5) left = std::min(*left, *shown_ * kMostRise);
  shown_ = left;
  return left;
}

std::string madeText(const RenderProgress& progress, std::optional<double> secondsLeft) {
  auto text = translated("%1 %", {std::to_string(static_cast<int>(shareDone(progress) * 100))});
  if (secondsLeft) text += ", " + translated("%1 left", {clockText(*secondsLeft)});
  if (const auto inAll = bytesInAll(progress)) {
    const auto& bytes = progress.movie.bytes;
    text += ", " + (bytes > 0 ? translated("%1 of about %2", {bytesText(bytes), bytesText(*inAll)})
                              : translated("about %1", {bytesText(*inAll)}));
  }
  return text;
}

std::string progressText(const RenderProgress& progress) {
  auto percent = std::to_string(static_cast<int>(shareDone(progress) * 100));
  percent.insert(0, 3 - std::min<std::size_t>(percent.size(), 3), ' ');
  std::string text = percent + "%";
  const auto left = secondsLeft(progress);
  if (!left) return text;
  return text + "  " + FormatMask(*speedOf(progress), "0.00") + " x real time  " + clockText(*left) + " left";
}

std::string clockText(double seconds) {
  const auto whole = static_cast<long>(std::ceil(std::clamp(seconds, 0.0, 1e9)));
  const auto two = [](long value) { return FormatMask(static_cast<double>(value), "00"); };
  const auto hours = whole / 3600;
  const auto minutes = whole / 60 % 60;
  if (hours == 0) return std::to_string(minutes) + ":" + two(whole % 60);
  return std::to_string(hours) + ":" + two(minutes) + ":" + two(whole % 60);
}

std::string bytesText(double bytes) {
  constexpr std::array<const char*, 4> kUnits = {" kB", " MB", " GB", " TB"};
  if (bytes < 1000) return ShortText(bytes) + " bytes";
  std::size_t unit = 0;
  for (bytes /= 1000; bytes >= 1000 && unit + 1 < kUnits.size(); ++unit) bytes /= 1000;
  return FormatMask(bytes, "0.0") + kUnits.at(unit);
}

}  // namespace kvo
