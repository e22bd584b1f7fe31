#include "corpus/beeps.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace kvo::test {
namespace {

constexpr int kHeardRate = 44100;
constexpr double kLoud = 0.12;              // of full scale: a beep, not its echo ahead
constexpr std::size_t kStep = 44;           // samples of a look at the level: 1 ms
constexpr std::size_t kQuietSteps = 50;     // so long it is quiet between two beeps
constexpr std::size_t kBeepSamples = 3000;  // 68 ms: in these a beep comes to its peak
constexpr std::size_t kPitchSamples = 700;  // 16 ms

double pitchOf(int second) { return 600 + 300.0 * second; }

// How much of a pitch is in the samples.
double shareOf(double pitch, const std::vector<float>& samples) {
  std::complex<double> sum;
  const double turn = 2 * std::numbers::pi * pitch / kHeardRate;
  for (std::size_t i = 0; i < samples.size(); ++i)
    sum += static_cast<double>(samples[i]) * std::polar(1.0, turn * static_cast<double>(i));
  return std::abs(sum);
}

// A beep that is heard from `first` on begins where it comes to half of its peak: codecs and stretching
// spread some of it ahead.
Beep beepAt(std::size_t first, std::span<const float> samples) {
  const auto levelAt = [&](std::size_t i) { return static_cast<double>(std::fabs(samples[2 * i])); };
  const auto end = std::min(first + kBeepSamples, samples.size() / 2);
  Beep beep;
  for (auto i = first; i < end; ++i) beep.level = std::max(beep.level, levelAt(i));
  while (levelAt(first) < beep.level / 2) ++first;
  beep.at = static_cast<double>(first) / kHeardRate;
  std::vector<float> sound;
  for (auto i = first; i < std::min(first + kPitchSamples, end); ++i) sound.push_back(samples[2 * i]);
  double most = 0;
  for (int second = 0; second < kBeeps; ++second) {
    const double share = shareOf(pitchOf(second), sound);
    if (share > most) beep.second = second;
    most = std::max(most, share);
  }
  return beep;
}

}  // namespace

std::string drawnBeeps() {
  std::string bytes;
  for (int i = 0; i < kBeeps * kBeepRate; ++i) {
    const int second = i / kBeepRate;
    const double inside = static_cast<double>(i % kBeepRate) / kBeepRate;
    const double value =
        inside < kBeepLength ? kBeepLevel * std::cos(2 * std::numbers::pi * pitchOf(second) * inside) : 0;
    const auto sample = static_cast<int>(std::lround(value * 32767));
    for (int channel = 0; channel < 2; ++channel) {
      bytes += static_cast<char>(sample & 0xFF);
      bytes += static_cast<char>(sample >> 8 & 0xFF);
    }
  }
  return bytes;
}

std::vector<Beep> beepsIn(std::span<const float> samples) {
  std::vector<Beep> beeps;
  std::size_t quiet = kQuietSteps;
  for (std::size_t first = 0; first + kStep <= samples.size() / 2; first += kStep) {
    float level = 0;
    for (std::size_t i = first; i < first + kStep; ++i) level = std::max(level, std::fabs(samples[2 * i]));
    if (static_cast<double>(level) < kLoud) {
      ++quiet;
      continue;
    }
    if (quiet >= kQuietSteps) beeps.push_back(beepAt(first, samples));
    quiet = 0;
  }
  return beeps;
}

}  // namespace kvo::test
