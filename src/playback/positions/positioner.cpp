#include "playback/positions/positioner.h"

#include "base/numbers.h"
#include "core/telling/translated.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr int kPositionerTick = 200;                               // milliseconds
constexpr std::array<double, 4> kIncrements{0.1, 0.01, 0.001, 1};  // seconds; the last a frame
constexpr std::size_t kMostTyped = 9;
constexpr std::string_view kSecondsMask = "###0.##0";
constexpr std::string_view kFramesMask = "0###0";

}  // namespace

Positioner::Positioner(PositionsCore& core, Marks& marks, Stepping& stepping)
    : core_(core), marks_(marks), stepping_(stepping), timer_(core.loop.timer([this] { show(); })) {}

bool Positioner::inFrames() const { return core_.state.positioner.Opt_Increment == Increment::Frames; }

void Positioner::Pic_DigNumbers_Click(Whatto what) {
  const auto* clip = core_.clip();
  if (clip == nullptr || clip->IsStill() || clip->DurationTime().number() <= 0) return;
  auto& state = core_.state.positioner;
  const double rate = framesPerSecond(*clip);
  state.visible = true;
  state.Opt_Whatto = what;
  state.framesOnly = rate > 0 && rate <= 1;
  if (state.framesOnly) state.Opt_Increment = Increment::Frames;
  state.typed.clear();
  state.refusal.clear();
  timer_->start(kPositionerTick);
  show();
}

void Positioner::close() {
  core_.state.positioner.visible = false;
  timer_->stop();
}

void Positioner::choose(Whatto what) { core_.state.positioner.Opt_Whatto = what; }

void Positioner::choose(Increment increment) {
  auto& state = core_.state.positioner;
  if (state.framesOnly) increment = Increment::Frames;
  state.Opt_Increment = increment;
  state.typed.clear();
  show();
}

void Positioner::show() {
  auto& state = core_.state.positioner;
  const auto* clip = core_.clip();
  if (clip == nullptr || clip->IsStill()) return close();
  const InMode mode(core_.player, DisplayMode::Seconds);
  const auto seen = seenFrame(core_.player);
  const double at = seen.seconds;
  if (inFrames()) {
    state.unit = "frames";
    state.digits = digitalText(seen.frame);
    state.reading = translated(
        "%1 of %2", {FormatMask(at, kSecondsMask), FormatMask(core_.slider.duration(), kSecondsMask)});
  } else {
    state.unit = "seconds";
    state.digits = digitalText(at);
    state.reading = translated("%1 of %2", {FormatMask(seen.frame, kFramesMask),
                                            FormatMask(clip->DurationFrames().number(), kFramesMask)});
  }
}

void Positioner::type(std::string_view text) {
  auto& state = core_.state.positioner;
  state.typed.clear();
  state.refusal.clear();
  for (const char c : text) {
    const bool stop = c == '.' && !inFrames() && state.typed.find('.') == std::string::npos;
    if (((c >= '0' && c <= '9') || stop) && state.typed.size() < kMostTyped) state.typed += c;
  }
}

bool Positioner::goToTyped() {
  auto& state = core_.state.positioner;
  if (state.typed.empty()) return true;
  const double to = ToNumber(state.typed);
  const InMode mode(core_.player, inFrames() ? DisplayMode::Frames : DisplayMode::Seconds);
  const double length = core_.slider.duration();
  if (!core_.canSeek() || to > length) {
    state.refusal = translated(inFrames() ? "The clip has %1 frames" : "The clip has %1 seconds",
                               {FormatMask(length, inFrames() ? "0" : "0.00")});
    return false;
  }
  state.typed.clear();
  core_.player.PlayerSetCurrentPosition(to);
  if (core_.mode.player.IsPlaying) core_.player.GlobalMediaPlay();
  core_.displays.showPosition();
  show();
  return true;
}

void Positioner::nudge(int increments) {
  if (!core_.canSeek()) return;
  core_.player.PlayerStop();
  core_.buttons.BuildButton(KeyWord::PauseOn);
  const InMode mode(core_.player, inFrames() ? DisplayMode::Frames : DisplayMode::Seconds);
  const double by = kIncrements[static_cast<std::size_t>(core_.state.positioner.Opt_Increment)] * increments;
  const double to = core_.player.PlayerGetCurrentPosition() + by;
  core_.player.PlayerSetCurrentPosition(std::clamp(to, 0.0, core_.slider.duration()));
  core_.displays.showPosition();
  show();
}

void Positioner::gotoMarkIn() {
  stepping_.Lbl_Start_Click();
  show();
}

void Positioner::gotoMarkOut() {
  stepping_.Lbl_End_Click();
  show();
}

void Positioner::reset() {
  marks_.ResetMarks();
  show();
}

void Positioner::apply() {
  if (!goToTyped()) return;
  switch (core_.state.positioner.Opt_Whatto) {
    case Whatto::SetMarkInPoint:
      marks_.SetMarkIn();
      break;
    case Whatto::SetMarkoutPoint:
      marks_.SetMarkOut();
      break;
    case Whatto::PositionDirectly:
      break;
  }
  show();
}

}  // namespace kvo
