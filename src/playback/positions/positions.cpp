#include "playback/positions/positions.h"

namespace kvo {

void Positions::loaded() {
  core.state.held = {};
  core.player.PlayerSetDisplayMode(DisplayMode::Seconds);
  levels.takeRecord();
  rate.takeRecord();
  marks.showMarks();
  core.sliderState.position = 0;
  core.slider.loaded();
  core.displays.showPosition();
  markers.CheckMarkers();
}

void Positions::takeRecord() {
  if (core.clip() == nullptr || core.player.PlayerIsEmpty()) return;
  marks.takeMarks();
  rate.takeRecord();
  levels.takeRecord();
  core.displays.showPosition();
}

void Positions::endOfPlayMoved(const Movie& clip) {
  const auto* inHand = core.clip();
  if (inHand != nullptr && inHand->KeyID() == clip.KeyID())
    core.player.ResetCoronaPlayerEnd(clip.LoopEnd().number());
}

void Positions::closeDisplays() {
  shuttle.rest();
  rate.closeWindow();
  levels.closeWindow();
  markers.close();
  core.state.markers.available = false;
}

}  // namespace kvo
