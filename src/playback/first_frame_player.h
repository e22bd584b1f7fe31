// The player while no engine stands behind it: it keeps its place and shows the first frame of the clip that
// it was given. It plays nothing and says so: it is empty, and stands.
#pragma once

#include "core/records/collection.h"
#include "playback/display/display_mode_state.h"
#include "playback/player.h"
#include "ports/frame_source.h"

namespace kvo {

class FirstFramePlayer : public Player {
 public:
  /// All outlive the player. `streams` is asked for the size of a clip whose record does not know it.
  FirstFramePlayer(DisplayModeState& display, const Collection& collection, FrameSource& streams)
      : display_(display), collection_(collection), streams_(streams) {}

  void PlayerSetFilename(const std::string& path, int index) override;
  void PlayerClear() override;
  [[nodiscard]] bool PlayerIsEmpty() const override { return true; }
  [[nodiscard]] bool UsingCorona() const override { return corona_; }

  void GlobalMediaPlay() override {}
  void PlayerPause() override { state().IsPlaying = false; }
  void PlayerStop() override { state().IsPlaying = false; }
  [[nodiscard]] PlayerPlayState PlayerGetPlayState() const override { return PlayerPlayState::Stopped; }
  void PlayerSetPlayCount(int times) override { state().playCount = times; }

  void PlayerShow() override { state().visible = true; }
  void PlayerHide() override { state().visible = false; }
  void SendPlayerFarLeft() override { state().place.left = kParked; }

  [[nodiscard]] int PlayerGetSourceWidth() const override { return display_.player.sourceWidth; }
  [[nodiscard]] int PlayerGetSourceHeight() const override { return display_.player.sourceHeight; }

  [[nodiscard]] Twips PlayerGetLeft() const override { return display_.player.place.left; }
  [[nodiscard]] Twips PlayerGetTop() const override { return display_.player.place.top; }
  [[nodiscard]] Twips PlayerGetWidth() const override { return display_.player.place.width; }
  [[nodiscard]] Twips PlayerGetHeight() const override { return display_.player.place.height; }
  void PlayerSetLeft(Twips left) override { state().place.left = left; }
  void PlayerSetTop(Twips top) override { state().place.top = top; }
  void PlayerSetWidth(Twips width) override { state().place.width = width; }
  void PlayerSetHeight(Twips height) override { state().place.height = height; }

  void PlayerSetDisplaySize(int size) override;
  void PlayerSetFullScreenMode(bool on) override;
  [[nodiscard]] bool PlayerGetFullScreenMode() const override { return display_.player.fullScreen; }

 private:
  [[nodiscard]] PlayerState& state() { return display_.player; }

  DisplayModeState& display_;
  const Collection& collection_;
  FrameSource& streams_;
  bool corona_ = false;
};

}  // namespace kvo
