#include "playback/positions/levels.h"

#include "base/numbers.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr double kBalanceShift = 1000;  // of what a record holds
constexpr double kLevelTenths = 10;
constexpr std::array<std::string_view, 7> kWithoutLevel{"WMA", "WMV", "WAX", "WVX", "ASF", "CDA", "ASX"};

}  // namespace

bool Levels::hasOutputLevel() const {
  const auto* clip = core_.clip();
  return core_.isFileInHand() && clip->IsVFWCompat() &&
         std::ranges::find(kWithoutLevel, core_.kind()) == kWithoutLevel.end();
}

void Levels::SetAudioOutputLevel() {
  if (core_.clip() == nullptr) return;
  core_.player.PlayerSetOutputLevel(hasOutputLevel() ? static_cast<double>(core_.clip()->AudioOutputLevel())
                                                     : 1);
}

void Levels::takeRecord() {
  const auto* clip = core_.clip();
  if (clip == nullptr || clip->IsStill()) return;
  core_.player.PlayerSetVolume(-clip->Volume());
  core_.player.PlayerSetBalance(static_cast<int>(RoundToWhole(clip->Balance().number() - kBalanceShift)));
  SetAudioOutputLevel();
  core_.glass.muted ? core_.player.PlayerMuteON() : core_.player.PlayerMuteOFF();
}

void Levels::UpdateRateDisp(int tenths) {
  if (core_.clip() == nullptr || !hasOutputLevel()) return;
  const auto level = static_cast<Single>(std::clamp(tenths, 0, Osd::kLights) / kLevelTenths);
  core_.host.edit(
      "level of", kLevelChangeCode, [level](Movie& changed) { changed.AudioOutputLevel(level); }, "level");
  SetAudioOutputLevel();
  showLevel();
}

void Levels::showLevel() {
  if (core_.clip() == nullptr) return;
  const double level = hasOutputLevel() ? static_cast<double>(core_.clip()->AudioOutputLevel()) : 1;
  const bool off = core_.glass.muted || level == 0;
  window_.show("Output Level", off ? "Mute" : levelLabel(level),
               off ? 0 : static_cast<int>(RoundToWhole(level * kLevelTenths)));
}

void Levels::toggleMute() {
  core_.glass.muted = !core_.glass.muted;
  core_.glass.muted ? core_.player.PlayerMuteON() : core_.player.PlayerMuteOFF();
  showLevel();
}

}  // namespace kvo
