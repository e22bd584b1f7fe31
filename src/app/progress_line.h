// How far a long work has come, as one line: per cent, speed, time left.
#pragma once

#include <string>

namespace kvo {

/// " 43%  2.10 x real time  0:12 left": `done` of `total` seconds of movie, after `elapsed` seconds of work.
std::string progressText(double done, double total, double elapsed);

/// "1:05" or "1:01:05"; whole seconds, rounded up.
std::string clockText(double seconds);

/// "17.4 MB", "812 bytes"; powers of ten.
std::string bytesText(double bytes);

}  // namespace kvo
