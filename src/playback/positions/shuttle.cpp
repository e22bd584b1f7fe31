#include "playback/positions/shuttle.h"

#include <array>

namespace kvo {
namespace {

constexpr int kFirstForward = 79;
constexpr int kFirstBackward = 85;
constexpr std::array<double, 6> kForward{1.0, 1.5, 1.8, 1.9, 15, 100};  // rates, and numbers of jumps
constexpr std::array<int, 6> kBackward{280, 180, 150, 140, 100, 75};    // milliseconds
constexpr double kFirstJumping = 3;
constexpr double kJump = 0.15;      // seconds of the clip
constexpr int kJumpInterval = 50;   // milliseconds
constexpr int kWatchInterval = 50;  // milliseconds
constexpr int kRestInterval = 150;  // of Timer8, milliseconds
constexpr int kAbove = 30;          // intervals between these two step by large steps
constexpr int kBelow = 181;

}  // namespace

Shuttle::Shuttle(const Parts& parts)
    : parts_(parts),
      core_(parts.core),
      jumping_(parts.core.loop.timer([this] { jump(); })),
      watch_(parts.core.loop.timer([this] {
        const auto* clip = core_.clip();
        const InMode seconds(core_.player, DisplayMode::Seconds);
        if (clip != nullptr && core_.player.PlayerGetCurrentPosition() > clip->LoopStart().number()) return;
        rest();
      })) {}

bool Shuttle::IsShuttleProInstalled() const { return core_.settings.state.ShuttleProInstalled; }

void Shuttle::rest() {
  jumping_->stop();
  watch_->stop();
  parts_.stepping.letGo();
  core_.state.held.ShuttleStepping = false;
}

void Shuttle::toStart() {
  core_.player.PlayerStop();
  core_.seekSeconds(0);
  core_.buttons.BuildButton(KeyWord::PauseOn);
}

void Shuttle::stand() {
  rest();
  core_.player.PlayerStop();
  core_.player.PlayerSetRate(1);
  core_.buttons.BuildButton(KeyWord::PauseOn);
  core_.timers.Timer8.setInterval(kRestInterval);
}

// Below the slowest rate: frame by frame, the way that the wheel was going.
void Shuttle::stepOn() {
  const auto held = core_.state.held.ButtonHeld;
  const bool back = held == Step::Rew1 || held == Step::Rew5;
  stand();
  if (!core_.canSeek()) return;
  parts_.stepping.hold(back ? Step::Rew1 : Step::Adv1, kRestInterval);
  if (back) watch_->start(kWatchInterval);
}

bool Shuttle::KeyCommandSHUTTLEPRO(int code) {
  if (core_.clip() == nullptr) return false;
  if (code >= kFirstBackward && code < kFirstBackward + static_cast<int>(kBackward.size())) {
    ApplyShuttleBCKSpeed(kBackward[static_cast<std::size_t>(code - kFirstBackward)]);
    return true;
  }
  if (code >= kFirstForward && code < kFirstBackward) {
    ApplyShuttleFWDSpeed(kForward[static_cast<std::size_t>(code - kFirstForward)]);
    return true;
  }
  switch (code) {
    case 65:
    case 66:
      core_.host.ShowSliderStuff();
      parts_.positioner.Pic_DigNumbers_Click(code == 65 ? Whatto::SetMarkInPoint : Whatto::SetMarkoutPoint);
      return true;
    case 67:
      parts_.marks.SetMarkIn();
      return true;
    case 68:
      parts_.marks.SetMarkOut();
      return true;
    case 69:
    case 70:
      core_.transport.Image8_Click();
      if (core_.doors.AddMoviesm) core_.doors.AddMoviesm();
      return true;
    case 73:
      toStart();
      return true;
    case 75:
      parts_.remote.Lbl_Pause_Click();
      return true;
    case 76:
      parts_.remote.Lbl_Play_Click();
      return true;
    case 77:
      stand();
      return true;
    case 78:
      stepOn();
      return true;
    default:
      return false;
  }
}

void Shuttle::ApplyShuttleFWDSpeed(double rate) {
  rest();
  auto& player = core_.player;
  if (!core_.canSeek()) return;
  if (rate >= kFirstJumping) {
    jumps_ = static_cast<int>(rate);
    const InMode seconds(player, DisplayMode::Seconds);
    jumpedTo_ = player.PlayerGetCurrentPosition();
    jumping_->start(kJumpInterval);
    return;
  }
  player.PlayerSetDisplayMode(DisplayMode::Seconds);
  player.PlayerSetRate(rate);
  core_.state.held.ButtonHeld = Step::Adv1;
  player.GlobalMediaPlay();
  core_.buttons.BuildButton(KeyWord::PlayOn);
}

void Shuttle::jump() {
  const auto* clip = core_.clip();
  if (clip == nullptr || --jumps_ <= 0) jumping_->stop();
  if (clip == nullptr) return;
  jumpedTo_ += kJump;
  if (jumpedTo_ > clip->LoopEnd().number()) jumpedTo_ = clip->LoopStart().number();
  core_.seekSeconds(jumpedTo_);
}

void Shuttle::ApplyShuttleBCKSpeed(int interval) {
  rest();
  if (!core_.canSeek()) return;
  core_.player.PlayerSetRate(1);
  core_.player.PlayerStop();
  core_.buttons.BuildButton(KeyWord::PauseOn);
  const bool large = interval > kAbove && interval < kBelow;
  core_.state.held.ShuttleStepping = large;
  parts_.stepping.hold(large ? Step::Rew5 : Step::Rew1, interval);
  watch_->start(kWatchInterval);
}

}  // namespace kvo
