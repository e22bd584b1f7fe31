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

  EngineRoute PlayerSetFilename(const std::string& path, int index) override;
  void PlayerClear() override;
  [[nodiscard]] bool PlayerIsEmpty() const override { return true; }
  void Med_previewClear() override { PlayerClear(); }
  void CoronaClear() override {}
  [[nodiscard]] bool UsingCorona() const override { return corona_; }
  [[nodiscard]] std::string PlayerGetFileName() const override { return display_.player.path; }
  [[nodiscard]] std::string PlayerGetErrorDescription() const override { return {}; }
  void openAhead(int /*index*/) override {}

  void GlobalMediaPlay() override {}
  void PlayerPause() override { state().IsPlaying = false; }
  void PlayerStop() override { state().IsPlaying = false; }
  [[nodiscard]] EngineState PlayerGetPlayState() const override { return EngineState::Stopped; }
  void PlayerSetPlayCount(int /*times*/) override {}

  void PlayerSetAutoRewind(bool /*on*/) override {}
  void PlayerSetAutoStart(bool /*on*/) override {}
  void PlayerSetShowCaptions(bool /*on*/) override {}
  void PlayerSetCaptionFile(const std::string& /*file*/) override {}
  [[nodiscard]] std::string PlayerGetCaptionFile() const override { return {}; }
  [[nodiscard]] StreamReport streamReport() const override { return {}; }
  void PlayerMuteON() override {}
  void PlayerMuteOFF() override {}

  void PlayerSetDisplayMode(DisplayMode mode) override { mode_ = mode; }
  [[nodiscard]] DisplayMode PlayerGetDisplayMode() const override { return mode_; }
  [[nodiscard]] double PlayerGetDuration() const override { return 0; }
  [[nodiscard]] double PlayerGetCurrentPosition() const override { return 0; }
  void PlayerSetCurrentPosition(double /*position*/) override {}
  void PlayerStep(int /*direction*/) override {}
  [[nodiscard]] double PlayerGetSelectionStart() const override { return 0; }
  void PlayerSetSelectionStart(double /*position*/) override {}
  [[nodiscard]] double PlayerGetSelectionEnd() const override { return 0; }
  void PlayerSetSelectionEnd(double /*position*/) override {}
  void ResetCoronaPlayerEnd(double /*seconds*/) override {}
  [[nodiscard]] double coronaStopTime() const override { return 0; }
  [[nodiscard]] bool coronaAtStopTime() const override { return false; }
  [[nodiscard]] bool canSeek() const override { return false; }
  double PlayerCoronaGetFrameRate(int /*index*/) override { return 0; }

  bool PlayerSetRate(double /*rate*/) override { return false; }
  [[nodiscard]] double PlayerGetRate() const override { return 1; }
  void PlayerSetVolume(int /*hundredths*/) override {}
  void PlayerSetBalance(int /*balance*/) override {}
  void PlayerSetOutputLevel(double /*factor*/) override {}

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
  [[nodiscard]] std::vector<MediaTrack> PlayerGetTracks() const override { return {}; }
  void PlayerChooseTrack(MediaTrack::Kind /*kind*/, int /*id*/) override {}
  void whenEndOfStream(std::function<void()> /*heard*/) override {}
  void whenGraphStops(std::function<void()> /*heard*/) override {}

 private:
  [[nodiscard]] PlayerState& state() { return display_.player; }

  DisplayModeState& display_;
  const Collection& collection_;
  FrameSource& streams_;
  bool corona_ = false;
  DisplayMode mode_ = DisplayMode::Seconds;
};

}  // namespace kvo
