// The inner loops of compositing and conversion, over one picture of 1920 x 1080.
#include "media/pixel_rows.h"

#include <cstdint>
#include <vector>

#include <benchmark/benchmark.h>

namespace {

constexpr std::size_t kWidth = 1920;
constexpr std::size_t kHeight = 1080;

std::vector<std::uint8_t> noise(std::size_t count) {
  std::vector<std::uint8_t> bytes(count);
  std::uint32_t state = 1;
  for (auto& b : bytes) {
    state = state * 1664525U + 1013904223U;
    b = static_cast<std::uint8_t>(state >> 24U);
  }
  return bytes;
}

void blend(benchmark::State& state) {
  const auto below = noise(kWidth * kHeight);
  const auto above = noise(kWidth * kHeight);
  std::vector<std::uint8_t> out(kWidth * kHeight);
  while (state.KeepRunning()) {
    for (std::size_t y = 0; y < kHeight; ++y) {
      kvo::media::mixRow(&below[y * kWidth], &above[y * kWidth], &out[y * kWidth], kWidth, 77);
    }
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kWidth * kHeight));
}

void halve(benchmark::State& state) {
  const auto in = noise(kWidth * kHeight);
  std::vector<std::uint8_t> out(kWidth * kHeight / 4);
  while (state.KeepRunning()) {
    for (std::size_t y = 0; y < kHeight / 2; ++y) {
      kvo::media::halveRows(&in[2 * y * kWidth], &in[(2 * y + 1) * kWidth], &out[y * kWidth / 2], kWidth / 2);
    }
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kWidth * kHeight));
}

void toBgr(benchmark::State& state) {
  const auto y = noise(kWidth * kHeight);
  const auto u = noise(kWidth * kHeight / 4);
  const auto v = noise(kWidth * kHeight / 4);
  std::vector<std::uint8_t> out(kWidth * 3);
  while (state.KeepRunning()) {
    for (std::size_t row = 0; row < kHeight; ++row) {
      kvo::media::yuvToBgr(&y[row * kWidth], &u[row / 2 * kWidth / 2], &v[row / 2 * kWidth / 2], out.data(),
                           kWidth, kvo::media::Matrix::Bt709);
    }
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kWidth * kHeight));
}

BENCHMARK(blend)->Unit(benchmark::kMillisecond);
BENCHMARK(halve)->Unit(benchmark::kMillisecond);
BENCHMARK(toBgr)->Unit(benchmark::kMillisecond);

}  // namespace
