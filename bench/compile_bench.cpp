// The compiler: clips with a transition, two effects and three keyframes each. A thousand are to take less
// than half a second, growing in a straight line.
#include "editor/compiler/compile.h"
#include "editor/compiler/effect_word.h"

#include <string>

#include <benchmark/benchmark.h>

namespace {

class SameStreams : public kvo::MediaContents {
 public:
  kvo::Result<kvo::StreamFacts> facts(const std::string& /*path*/) override {
    return kvo::StreamFacts{.hasVideo = true, .hasAudio = true};
  }
  kvo::Result<kvo::FramePicture> frame(const std::string& path, double /*seconds*/, int /*width*/,
                                       int /*height*/) override {
    return kvo::Error{path};  // no compiler looks at pictures
  }
};

void compileCollection(benchmark::State& state) {
  kvo::Collection collection;
  for (int i = 1; i <= state.range(0); ++i) {
    kvo::Movie clip;
    clip.MovieName("clip" + std::to_string(i) + ".avi");
    clip.Path("/v/");
    clip.LoopEnd(kvo::Value(10));
    clip.AudioOutputLevel(1);
    clip.RenderAudio(true);
    clip.TransType("Heart");
    clip.TransIn(10);
    clip.KeyID(i);
    kvo::EffectWord word;
    word.set(14, true);
    word.set(static_cast<int>(kvo::EffectSwitch::Blur), true);
    clip.EffectWord(word.text());
    collection.MovieList.add(std::move(clip));
    for (int k = 0; k < 3; ++k) {
      kvo::Keyframe keyframe;
      keyframe.EffectNo = 8;
      keyframe.FrameNo = 50 * k;
      keyframe.Time = kvo::Value(2.0 * k);
      for (auto& parameter : keyframe.Param) parameter = kvo::Value("5");
      keyframe.ClipName = i;
      collection.KeyframeList.add(std::move(keyframe));
    }
  }
  const kvo::KVO2 settings;
  const kvo::EffectsTable effects;
  SameStreams streams;
  const auto options = kvo::renderOptions(settings, "silence.wav");
  while (state.KeepRunning()) benchmark::DoNotOptimize(kvo::compile(collection, options, {streams, effects}));
  state.SetComplexityN(state.range(0));
}

BENCHMARK(compileCollection)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

}  // namespace
