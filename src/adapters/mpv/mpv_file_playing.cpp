// How a file plays: its place, its end, its rate and its sound.
#include "adapters/mpv/mpv_file.h"
#include "base/numbers.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace kvo {
namespace {

// Containers that count in milliseconds put the first picture and each other one up to half of one beside
// its time.
constexpr double kStampError = 0.0011;
// Pictures that begin this little ahead of the end are not shown any more: their stamps are rounded.
constexpr double kEndTolerance = 0.0015;
constexpr double kShort = 0.0005;  // seconds: no time at all
constexpr int kSilence = -10000;

// The core's volume is the cube root of what the sound is multiplied with, in hundredths.
double coreVolume(const MpvSound& sound) {
  if (sound.volume <= kSilence) return 0;
  constexpr double kMost = 1000;
  return std::clamp(100 * std::cbrt(std::pow(10.0, sound.volume / 2000.0) * sound.level), 0.0, kMost);
}

// The other side gets quieter, by hundredths of a decibel.
std::string balanceFilter(int balance) {
  if (balance == 0) return {};
  const auto share = [](int lower) {
    return ShortText(lower <= kSilence ? 0.0 : std::pow(10.0, lower / 2000.0));
  };
  return "lavfi=[aformat=channel_layouts=stereo,pan=stereo|c0=" + share(std::min(0, -balance)) +
         "*c0|c1=" + share(std::min(0, balance)) + "*c1]";
}

}  // namespace

void MpvFile::run() {
  if (!isOpen() || runs_) return;
  const double end = end_ > 0 ? end_ : duration();
  if (stoodAt_) {
    if (*stoodAt_ >= end - kShort) return;
    seek(*std::exchange(stoodAt_, std::nullopt));  // the end is a later one now
  }
  runs_ = true;
  ++ends_;
  sendEnd(position());
  core_.set("mute", sound_.mute);
  if (!seeks_.busy()) core_.set("pause", false);
}

// Told in the middle of a step, the core would give that up; it stands by itself behind it.
void MpvFile::pause() {
  if (std::exchange(runs_, false) && isOpen() && !seeks_.stepsOn()) core_.set("pause", true);
}

double MpvFile::position() const {
  if (const auto wanted = seeks_.wanted()) return *wanted;
  if (stoodAt_) return *stoodAt_;
  return origin_ ? shownTime(time_) : 0;
}

// A picture of a constant rate begins at its place on the even grid; never ahead of its stamp, so that who
// asks for the picture at this time gets it.
double MpvFile::shownTime(double time) const {
  const double shown = std::max(time - origin_.value_or(0), 0.0);
  if (averageRate_ <= 0 || !hasPicture()) return shown;
  const double even = std::round(shown * averageRate_) / averageRate_;
  return even > shown && even - shown <= kStampError ? even : shown;
}

void MpvFile::seek(double seconds) {
  if (!canSeek()) return;
  const double to = duration() > 0 ? std::clamp(seconds, 0.0, duration()) : std::max(seconds, 0.0);
  if (stoodAt_ ? std::fabs(to - *stoodAt_) < kShort : seeks_.isShown(to, shownTime(time_))) return;
  if (!std::exchange(asked_, true) && !isAddress_ && hasPicture()) {
    const auto facts = house_.facts.facts(name_);
    seeks_.setRate(facts ? facts->steadyRate : 0);
    if (!stoodAt_ && seeks_.isShown(to, shownTime(time_))) return;
  }
  stoodAt_.reset();
  ++ends_;
  seeks_.want(to);
  if (runs_) sendEnd(to);
  goOn();
}

void MpvFile::standAt(double seconds) {
  if (isOpen()) return seek(seconds);
  standAt_ = seconds;
}

void MpvFile::step(int direction) {
  if (!hasPicture()) return;
  pause();
  sendEnd(end_);
  // At the end the last picture stands: the one ahead of it is wanted, not the last one once more.
  const auto end = std::exchange(stoodAt_, std::nullopt);
  if (end && direction < 0) seeks_.want(std::max(*end - kEndTolerance, 0.0));
  seeks_.wantStep(direction);
  goOn();
}

double MpvFile::duration() const {
  return isOpen() || stoodAt_ ? std::max(duration_ - origin_.value_or(0), 0.0) : 0;
}

void MpvFile::setEnd(double seconds) {
  end_ = std::max(seconds, 0.0);
  if (runs_) sendEnd(position());
}

// The core does not go behind the end when it comes from ahead of it.
void MpvFile::sendEnd(double from) {
  endHolds_ = end_ > 0 && from < end_ - kEndTolerance;
  core_.set("end", endHolds_ ? ShortText(origin_.value_or(0) + end_ - kEndTolerance) : "none");
}

void MpvFile::setRate(double rate) {
  if (rate <= 0 || rate == rate_) return;
  rate_ = rate;
  core_.set("speed", rate);
}

void MpvFile::setSound(const MpvSound& sound) {
  const auto before = std::exchange(sound_, sound);
  if (before == sound) return;
  core_.set("volume", coreVolume(sound));
  core_.set("mute", sound.mute);
  if (before.balance != sound.balance) core_.set("af", balanceFilter(sound.balance));
}

}  // namespace kvo
