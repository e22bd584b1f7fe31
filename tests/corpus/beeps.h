// A short beep at every whole second, its pitch telling the second, and the finding of it in what is heard.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace kvo::test {

inline constexpr int kBeepRate = 48000;      ///< samples a second of drawnBeeps()
inline constexpr double kBeepLevel = 0.5;    ///< of full scale
inline constexpr double kBeepLength = 0.04;  ///< seconds
inline constexpr int kBeeps = 5;

/// Beeps from 0 s on, as 16 bits little endian, stereo.
std::string drawnBeeps();

struct Beep {
  double at = 0;     ///< seconds
  int second = 0;    ///< by its pitch
  double level = 0;  ///< peak, of full scale
};

/// The beeps in stereo samples at 44.1 kHz.
std::vector<Beep> beepsIn(std::span<const float> samples);

}  // namespace kvo::test
