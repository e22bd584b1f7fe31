#include "playback/positions/markers.h"

#include "base/numbers.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::size_t kLeastMarkers = 2;
constexpr int kIndexTick = 500;    // milliseconds
constexpr double kNearly = 0.001;  // seconds: a seek to a marker has reached it

}  // namespace

Markers::Markers(PositionsCore& core) : core_(core), timer_(core.loop.timer([this] { highlight(); })) {}

void Markers::CheckMarkers() {
  auto& state = core_.state.markers;
  close();
  state.markers.clear();
  const auto found = core_.player.PlayerGetMarkers();
  state.available = found.size() >= kLeastMarkers;
  std::vector<std::string> lines;
  if (state.available) {
    const InMode seconds(core_.player, DisplayMode::Seconds);
    const double end = core_.player.PlayerGetDuration();
    for (std::size_t i = 0; i < found.size(); ++i) {
      const double next = i + 1 < found.size() ? found[i + 1].time : end;
      auto length = markerTime(std::max(next - found[i].time, 0.0));
      lines.push_back(std::to_string(i + 1) + ")  " + found[i].name + " - " + length);
      state.markers.push_back({.Time = found[i].time, .Length = std::move(length)});
    }
  }
  state.list.assign(std::move(lines));
  if (state.available) open();
}

void Markers::open() {
  if (!core_.state.markers.available) return;
  core_.state.markers.visible = true;
  timer_->start(kIndexTick);
  highlight();
}

void Markers::close() {
  core_.state.markers.visible = false;
  core_.state.markers.reached = -1;
  timer_->stop();
}

void Markers::choose(int entry) {
  const auto& markers = core_.state.markers.markers;
  if (entry < 0 || entry >= static_cast<int>(markers.size())) return;
  if (!core_.canSeek()) {
    core_.boxes.show({"KVO - Warning - Seeking Not Available", "Seeking is not possible in this stream",
                      BoxButtons::Ok, BoxIcon::Warning});
    return;
  }
  const bool playing = core_.mode.player.IsPlaying;
  core_.seekSeconds(markers[static_cast<std::size_t>(entry)].Time.number());
  if (playing) core_.player.GlobalMediaPlay();
  highlight();
}

void Markers::highlight() {
  auto& state = core_.state.markers;
  const auto* clip = core_.clip();
  if (clip == nullptr || hasAddress(*clip)) return;
  const InMode seconds(core_.player, DisplayMode::Seconds);
  const double at = core_.player.PlayerGetCurrentPosition() + kNearly;
  const auto behind =
      std::ranges::find_if(state.markers, [&](const auto& m) { return m.Time.number() > at; });
  state.reached = static_cast<int>(behind - state.markers.begin()) - 1;
}

}  // namespace kvo
