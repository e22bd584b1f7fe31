// The collection reader and writer: 10 to 10,000 clips, the largest with 10,000 keyframes. Times are CPU
// seconds; they are to grow in a straight line, and 10,000 clips are to take about one.
#include "adapters/posix/posix_clock.h"
#include "adapters/posix/posix_files.h"
#include "program/collection_store.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <benchmark/benchmark.h>

namespace {

class NoBoxes : public kvo::MessageBoxes {
 public:
  kvo::Answer show(const kvo::Box& /*box*/) override { std::abort(); }
  kvo::StyledAnswer showStyled(const kvo::StyledBox& /*box*/) override { std::abort(); }
};

// A collection on disk whose clips all name one file that is there.
class SavedCollection {
 public:
  explicit SavedCollection(int clips) {
    std::filesystem::create_directories(folder_);
    std::ofstream(folder_ + "a.avi") << "x";
    for (int i = 1; i <= clips; ++i) {
      kvo::Movie clip;
      clip.MovieName("a.avi");
      clip.Path(folder_);
      clip.Notes(kvo::Value("a note of some length about clip " + std::to_string(i)));
      clip.DurationTime(kvo::Value(10));
      clip.DurationFrames(kvo::Value(250));
      clip.LoopEnd(kvo::Value(10));
      clip.TransType("Fade");
      clip.TransIn(10);
      clip.KeyID(i);
      collection.MovieList.add(std::move(clip));
    }
    for (int i = 1; i <= clips; ++i) {
      kvo::Keyframe keyframe;
      keyframe.Time = kvo::Value(0.04 * i);
      keyframe.FrameNo = i;
      keyframe.EffectNo = 8;
      for (auto& parameter : keyframe.Param) parameter = kvo::Value("0.5");
      keyframe.ClipName = i;
      collection.KeyframeList.add(std::move(keyframe));
    }
    write();
  }
  ~SavedCollection() { std::filesystem::remove_all(folder_); }

  void write() {
    if (!file.WriteINI(folder_, "bench.INI", true)) std::abort();
  }
  void read() {
    if (file.ReadINI(folder_ + "bench.INI", {.mayRewrite = false}).end != kvo::ReadEnd::Done) std::abort();
  }

  kvo::Collection collection;

 private:
  std::string folder_ = (std::filesystem::temp_directory_path() / "kvo5-bench-records").string() + "/";
  kvo::PosixFiles files_;
  kvo::PosixClock clock_;
  NoBoxes boxes_;
  kvo::KVO2 settings_;
  kvo::ProgramFolder program_{folder_};
  kvo::ErrorLog log_{files_, clock_, settings_, program_};

 public:
  kvo::CollectionStore file{files_, clock_, boxes_, log_, program_, settings_, collection};
};

void readCollection(benchmark::State& state) {
  SavedCollection saved(static_cast<int>(state.range(0)));
  while (state.KeepRunning()) saved.read();
  if (saved.collection.MovieList.count() != state.range(0)) state.SkipWithError("clips were lost");
  state.SetComplexityN(state.range(0));
}

void writeCollection(benchmark::State& state) {
  SavedCollection saved(static_cast<int>(state.range(0)));
  while (state.KeepRunning()) saved.write();
  state.SetComplexityN(state.range(0));
}

BENCHMARK(readCollection)->RangeMultiplier(10)->Range(10, 10000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(writeCollection)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

}  // namespace
