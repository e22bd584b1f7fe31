// The positions on the player with its fake engines, in virtual time. Edits go into the record at once, as
// the history has them do.
#pragma once

#include "playback/player_bench.h"
#include "playback/positions/positions.h"

#include <string>
#include <vector>

namespace kvo::test {

class NotedTransport : public TransportCommands {
 public:
  std::string calls;  // "PreviewMovie2 "
  void PreviewMovie(int index) override { calls += "PreviewMovie" + std::to_string(index) + " "; }
  void NextMovie() override { calls += "NextMovie "; }
  void Img_Play_Click() override { calls += "play "; }
  void Lbl_PauseGraphic_Click() override { calls += "pause "; }
  void Lbl_PlayGraphic_Click() override { calls += "PlayGraphic "; }
  void Image8_Click() override { calls += "stop "; }
};

class NotedHost : public PositionsHost {
 public:
  explicit NotedHost(Collection& collection) : collection_(collection) {}
  std::vector<std::string> edits;  // "Mark-In of 96"
  bool visible = true;
  bool edit(std::string_view act, Integer changeCode, const std::function<void(Movie&)>& change,
            std::string_view /*series*/) override {
    edits.push_back(std::string(act) + " " + std::to_string(changeCode));
    auto& clip = *clipInHand(collection_);
    Movie changed = clip;
    change(changed);
    clip = changed;
    return true;
  }
  [[nodiscard]] bool windowVisible() const override { return visible; }
  void Displaymovieinfo() override {}
  void ShowSliderStuff() override {}
  void EndAnim() override {}

 private:
  Collection& collection_;
};

struct PositionsBench : PlayerBench {
  PositionsState state;
  SliderState slider;
  DisplayState glass;
  std::string label;
  NotedTransport transport;
  NotedHost noted{collection};
  Positions positions{{loop, player, timers, buttons, mode, state, slider, glass, label, settings, collection,
                       boxes, transport, noted}};

  PositionsBench() {
    mode.slider.X1 = 600;
    mode.slider.X2 = 8100;
  }
  explicit PositionsBench(const std::string& name, const FakeFile& file = {}, double start = 0,
                          double end = 0)
      : PositionsBench() {
    ready(name, file, start, end);
  }

  /// A clip that stands loaded at its Mark-In; by default 10 seconds, 25 pictures each.
  Movie& ready(const std::string& name = "a.avi", const FakeFile& file = {}, double start = 0,
               double end = 0) {
    auto& clip = add(name, file);
    clip.LoopStart(Value(start));
    clip.LoopEnd(Value(end > 0 ? end : file.duration));
    clip.IsVFWCompat(true);
    clip.IsDirty(false);
    open(collection.MovieList.count());
    player.PlayerShow();
    positions.core.section.SectionToPlay(false);
    positions.loaded();
    return clip;
  }
  void play() {
    buttons.BuildButton(KeyWord::PlayOn);
    player.GlobalMediaPlay();
  }
  [[nodiscard]] double seconds() {
    const InMode now(player, DisplayMode::Seconds);
    return player.PlayerGetCurrentPosition();
  }
  [[nodiscard]] Long frame() { return seenFrame(player).frame; }
  void seek(double seconds) { positions.core.seekSeconds(seconds); }
  /// "2 to 8, 50 to 200"
  [[nodiscard]] std::string marks() const {
    const auto& clip = *clipInHand(collection);
    return ShortText(clip.LoopStart().number()) + " to " + ShortText(clip.LoopEnd().number()) + ", " +
           std::to_string(clip.LoopStartFrames()) + " to " + std::to_string(clip.LoopEndFrames());
  }
};

}  // namespace kvo::test
