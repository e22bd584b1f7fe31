#include "render/estimate.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kMegabyte = 1024.0 * 1024;
constexpr double kSpareMegabytes = 10;
constexpr double kSoundSlice = 25;
constexpr double kSlowSound = 30;  // seconds: beyond, a tenth of the time is reckoned with
constexpr double kSafety = 1.6;

}  // namespace

int boundEstimate(int seconds) { return seconds > 1024 ? 10 : seconds < 2 ? 5 : seconds; }

double estimateSlice(const EstimateQuery& query) {
  if (!query.hasVideo) return kSoundSlice;
  const double total = query.videoTotal;
  return total > 0 && total / 2 <= query.estimateSeconds ? total / 4 : query.estimateSeconds;
}

std::optional<std::pair<double, double>> estimateRange(const EstimateQuery& query) {
  if (query.lastClipStop <= query.estimateSeconds) return std::nullopt;
  const double total = query.videoTotal > 0 ? query.videoTotal : query.audioTotal;
  double start = total / 2;
  if (start + estimateSlice(query) > total / 2) start = total / 4;
  return std::pair{start, start + query.estimateSeconds};
}

EstimateResult projected(const EstimateQuery& query, double took, double bytes, double total) {
  EstimateResult result{took, bytes / kMegabyte / query.estimateSeconds * total, query.estimateSeconds};
  if (result.megabytes <= 0) result.megabytes = 1;
  if (query.hasVideo && query.videoTotal < query.estimateSeconds)
    result.estimateSeconds = std::max(1, static_cast<int>(RoundToWhole(query.videoTotal)));
  if (!query.hasVideo && took > kSlowSound) result.seconds = took / 10;
  return result;
}

double renderSecondsOf(const EstimateResult& estimate, double length) {
  double rate = ToNumber(ShortText(estimate.seconds / estimate.estimateSeconds));
  if (rate == 0) rate = 1;
  return rate * length * kSafety;
}

int countdownSeconds(double renderSeconds) {
  if (renderSeconds <= 0) return 0;
  // The wait counts in milliseconds of 32 bits.
  constexpr double kMost = 2'000'000;
  return static_cast<int>(std::clamp(RoundToWhole(renderSeconds / 2), 1.0, kMost));
}

bool isDiskShort(double megabytes, double freeMegabytes) {
  return megabytes > freeMegabytes - kSpareMegabytes;
}

}  // namespace kvo
