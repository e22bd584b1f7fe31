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

// Of the range; of one that ends before it begins nothing.
std::optional<double> rangeLength(const EstimateQuery& query) {
  if (!query.range || query.range->second <= query.range->first) return std::nullopt;
  return query.range->second - query.range->first;
}

double pictureLength(const EstimateQuery& query) { return rangeLength(query).value_or(query.videoTotal); }

}  // namespace

int boundEstimate(int seconds) { return seconds > 1024 ? 10 : seconds < 2 ? 5 : seconds; }

double estimateSlice(const EstimateQuery& query) {
  if (!query.hasVideo) return kSoundSlice;
  const double total = pictureLength(query);
  return total > 0 && total / 2 <= query.estimateSeconds ? total / 4 : query.estimateSeconds;
}

std::optional<std::pair<double, double>> estimateRange(const EstimateQuery& query) {
  const auto length = rangeLength(query);
  if (length.value_or(query.lastClipStop) <= query.estimateSeconds)
    return length ? query.range : std::nullopt;
  const double total = length.value_or(query.videoTotal > 0 ? query.videoTotal : query.audioTotal);
  double start = total / 2;
  if (start + estimateSlice(query) > total / 2) start = total / 4;
  if (length) start = query.range->first + std::min(start, *length - query.estimateSeconds);
  return std::pair{start, start + query.estimateSeconds};
}

EstimateResult projected(const EstimateQuery& query, double took, double bytes, double total) {
  EstimateResult result{took, bytes / kMegabyte / query.estimateSeconds * total, query.estimateSeconds};
  if (result.megabytes <= 0) result.megabytes = 1;
  const double pictures = pictureLength(query);
  if (query.hasVideo && pictures < query.estimateSeconds)
    result.estimateSeconds = std::max(1, static_cast<int>(RoundToWhole(pictures)));
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
