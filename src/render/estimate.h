// What is reckoned from a short render of a part of the movie: how long all of it takes, and how large it
// gets.
#pragma once

#include <optional>
#include <utility>

namespace kvo {

/// Seconds of the part that are asked for: above 1024 it becomes 10, below 2 it becomes 5.
int boundEstimate(int seconds);

struct EstimateQuery {
  bool hasVideo = false;
  double videoTotal = 0;    ///< seconds
  double audioTotal = 0;    ///< seconds
  double lastClipStop = 0;  ///< seconds: where the last clip of the list ends
  int estimateSeconds = 5;  ///< bounded
};

/// The length that the part is reckoned with, in seconds: with a picture a quarter of a movie that is not
/// twice as long as the estimate; 25 without a picture.
double estimateSlice(const EstimateQuery& query);

/// The part that is rendered, from and to in seconds; nothing for a movie that is rendered whole, as short as
/// it is.
std::optional<std::pair<double, double>> estimateRange(const EstimateQuery& query);

struct EstimateResult {
  double seconds = 0;       ///< that the part took
  double megabytes = 1;     ///< that the whole movie is going to have, of 1024 * 1024 bytes; never 0
  int estimateSeconds = 5;  ///< that the rate is reckoned with; 1 or more
};

/// `total` is the length of what is going to be rendered, in seconds.
EstimateResult projected(const EstimateQuery& query, double took, double bytes, double total);

/// How long the render is going to take, in seconds; 0 for a movie of no length.
double renderSecondsOf(const EstimateResult& estimate, double length);

/// The period of a render's countdown, in whole seconds: half of what it is going to take. 0 only where that
/// is 0, as a machine may be done within a second.
int countdownSeconds(double renderSeconds);

/// True when a file of so many megabytes is not sure to find room.
bool isDiskShort(double megabytes, double freeMegabytes);

}  // namespace kvo
