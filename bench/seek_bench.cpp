// How long the player takes from a seek to the picture: bench_seeks DOCUMENT
#include "engine/document/document_reader.h"
#include "engine/run/playback.h"
#include "media/media_facts.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <random>
#include <sstream>
#include <vector>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  kvo::media::silenceRemarks();
  std::stringstream text;
  text << std::ifstream(argv[1]).rdbuf();
  auto timeline = kvo::engine::readDocument(text.str());
  if (!timeline) {
    std::fprintf(stderr, "%s\n", timeline.error().text.c_str());
    return 1;
  }
  constexpr int kSeeks = 200;
  kvo::engine::Playback playback(std::move(*timeline), nullptr);
  std::mt19937 random(1);
  std::vector<double> took;
  for (int i = 0; i < kSeeks; ++i) {
    const auto begun = std::chrono::steady_clock::now();
    playback.seek(static_cast<std::int64_t>(random() % static_cast<unsigned>(playback.frames())), 0);
    if (const auto shown = playback.step(0); !shown) {
      std::fprintf(stderr, "%s\n", shown.error().text.c_str());
      return 1;
    }
    took.push_back(
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begun).count());
  }
  std::sort(took.begin(), took.end());
  std::printf("  %s: median %.0f ms, nine of ten within %.0f ms, all within %.0f ms\n", argv[1],
              took[kSeeks / 2], took[kSeeks * 9 / 10], took.back());
  return 0;
}
