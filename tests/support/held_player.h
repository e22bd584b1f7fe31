// A player whose clip is where a test puts it.
#pragma once

#include "playback/player_bench.h"
#include "support/scripted_probe.h"

#include <string>
#include <vector>

namespace kvo::test {

/// What a player stands on, none of which is asked here.
struct HeldEngines {
  explicit HeldEngines(EventLoop& loop) : control(loop, engineFiles), graphs(loop, engineFiles) {}
  FakeFiles engineFiles;
  FakeControlEngine control;
  FakeFilterGraphs graphs;
  NamedCounts counts;
  ScriptedProbe probe;
  PlainPlayerHost host;
};

class HeldPlayer : private HeldEngines, public PlayerFacade {
 public:
  template <class Bench>
  explicit HeldPlayer(Bench& bench)
      : HeldEngines(bench.loop),
        PlayerFacade({bench.window.mode, bench.collection, bench.settings, control, graphs, bench.streams,
                      counts, probe, bench.boxes, host}),
        state_(bench.window.mode.player) {}

  double position = 0;  ///< seconds
  double rate = 1;
  bool seekable = true;
  std::string calls;  ///< "play seek 12 ", in order
  std::vector<MediaTrack> tracks;
  std::string captionFile;
  bool captions = false;

  EngineRoute PlayerSetFilename(const std::string& path, int index) override {
    state_.path = path;
    state_.clip = index;
    return EngineRoute::NotForced;
  }
  void PlayerClear() override { state_.path.clear(); }
  [[nodiscard]] std::string PlayerGetFileName() const override { return state_.path; }
  [[nodiscard]] bool PlayerIsEmpty() const override { return state_.path.empty(); }
  void GlobalMediaPlay() override { calls += "play "; }
  [[nodiscard]] double PlayerGetCurrentPosition() const override { return position; }
  void PlayerSetCurrentPosition(double to) override {
    position = to;
    calls += "seek " + std::to_string(static_cast<int>(to)) + " ";
  }
  [[nodiscard]] bool canSeek() const override { return seekable; }
  [[nodiscard]] double PlayerGetRate() const override { return rate; }
  [[nodiscard]] std::vector<MediaTrack> PlayerGetTracks() const override { return tracks; }
  void PlayerSetShowCaptions(bool on) override { captions = on; }
  void PlayerSetCaptionFile(const std::string& file) override { captionFile = file; }
  [[nodiscard]] std::string PlayerGetCaptionFile() const override { return captionFile; }

 private:
  PlayerState& state_;
};

}  // namespace kvo::test
