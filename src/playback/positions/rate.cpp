#include "playback/positions/rate.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/telling/failures.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr double kNoChange = 20;
constexpr double kTenths = 10;
constexpr double kLightsAtNormal = 5;
constexpr std::array<std::string_view, 5> kFixedKinds{"WMV", "WAX", "WVX", "ASX", "ASF"};

}  // namespace

void Rate::offerWave() {
  Box box{"KVO5 - Convert Audio",
          "A WMA file cannot change speed. It can be converted to a WAV file.\r\n"
          "(This is done faster than real-time)",
          BoxButtons::YesNo, BoxIcon::Question};
  const auto& strip = core_.doors.StripWavFromCurrentVideo;
  if (!strip) {  // nothing here converts it
    box.text = "A WMA file cannot change speed.";
    box.buttons = BoxButtons::Ok;
    box.icon = BoxIcon::Information;
    core_.boxes.show(box);
    return;
  }
  box.text.append(kCrLf).append("Do you wish to convert the file ?");
  if (core_.boxes.show(box) != Answer::Yes) return;
  strip();
  core_.transport.PreviewMovie(core_.collection.icurMov);
  core_.transport.Img_Play_Click();
}

// True when the clip's speed stays, in the order in which it is told why.
bool Rate::refused() {
  const auto kind = core_.kind();
  if (core_.clip() == nullptr) return true;
  if (kind == "WMA") {
    offerWave();
    return true;
  }
  if (std::ranges::find(kFixedKinds, kind) != kFixedKinds.end()) return true;
  if (core_.isTrack()) {
    core_.boxes.show({std::string(kProductName) + " - Audio Speed Change",
                      "Cannot change speed for Audio CD tracks - Convert the track to a 44.1Khz 2Ch PCM WAV "
                      "first.",
                      BoxButtons::Ok, BoxIcon::Warning});
    return true;
  }
  return !core_.isFileInHand() || core_.player.PlayerIsEmpty();
}

void Rate::SetRate(std::string_view rateText) {
  if (refused()) return;
  const double rate = ToNumber(rateText);
  if (rate > 0) changeBy(rate);
}

void Rate::changeBy(double rate) {
  auto& player = core_.player;
  const int number = core_.collection.icurMov;
  core_.host.EndAnim();
  const bool plays = core_.mode.player.IsPlaying;
  if (player.UsingCorona()) player.PlayerStop();
  if (!player.PlayerSetRate(rate)) {
    if (core_.collection.icurMov != number) return;  // it may have been told in a box
    if (plays) player.GlobalMediaPlay();
    return showRate(player.PlayerGetRate());
  }
  player.PlayerSetDisplayMode(DisplayMode::Seconds);
  core_.buttons.BuildButton(KeyWord::PauseOff);
  player.GlobalMediaPlay();
  core_.buttons.BuildButton(KeyWord::PlayOn);
  core_.timers.Timer5.start();
  core_.loop.yield();
  if (core_.collection.icurMov != number) return;  // another clip has come in hand meanwhile
  const double taken = player.PlayerGetRate();
  keep(taken);
  showRate(taken);
}

void Rate::keep(double rate) {
  const auto* clip = core_.clip();
  if (clip == nullptr || static_cast<double>(clip->Playspeed()) == rate * kTenths) return;
  core_.host.edit(
      "speed of", kSpeedChangeCode,
      [rate](Movie& changed) { changed.Playspeed(static_cast<Single>(rate * kTenths)); }, "speed");
}

void Rate::Lbl_Speedo_Click() {
  if (refused()) return;
  auto& player = core_.player;
  const double own = static_cast<double>(core_.clip()->Playspeed()) / kTenths;
  const double now = player.PlayerGetRate();
  const double then = now == 1 ? own : 1;
  static_cast<void>(player.PlayerSetRate(then));  // what is shown tells whether it was taken
  showRate(player.PlayerGetRate());
}

void Rate::takeRecord() {
  const auto* clip = core_.clip();
  if (clip == nullptr || !core_.isFileInHand() || core_.player.PlayerIsEmpty()) return;
  const double own = static_cast<double>(clip->Playspeed()) / kTenths;
  if (!core_.player.UsingCorona() && core_.player.PlayerGetRate() != own) core_.player.PlayerSetRate(own);
  core_.glass.rate = rateLabel(core_.player.PlayerGetRate());
}

void Rate::showRate(double rate) {
  core_.glass.rate = rateLabel(rate);
  reloadWindow(rate);
}

void Rate::reloadWindow(double rate) {
  auto& state = core_.state.rate;
  if (rate == kNoChange) return window_.show("Rate", state.value, state.lights);
  window_.show("Rate", rateLabel(rate), std::max(1, static_cast<int>(RoundToWhole(rate * kLightsAtNormal))));
}

}  // namespace kvo
