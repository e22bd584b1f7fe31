#include "program/outside_controls.h"

#include "base/paths.h"
#include "core/records/media_kinds.h"
#include "playback/in_seconds.h"
#include "playback/positions/section.h"
#include "program/clip_texts.h"

#include <array>
#include <cmath>
#include <utility>

namespace kvo {
namespace {

constexpr double kPlayingSlack = 0.75;  // seconds: what is told of a position comes a little late
constexpr double kStandingSlack = 0.001;
constexpr std::array kCoverNames = {"cover.jpg",  "cover.png", "folder.jpg",
                                    "folder.png", "front.jpg", "front.png"};

bool canPlay(const Movie& clip) { return hasSound(clip); }

}  // namespace

bool JumpWatch::sees(std::chrono::milliseconds now, double position, bool plays, double rate) {
  const double ran = std::chrono::duration<double>(now - then_).count() * rate_;
  const double expected = std::exchange(expected_, expected_ + ran) + ran;
  then_ = now;
  const bool stood = std::exchange(rate_, plays ? rate : 0) == 0 && !plays;
  if (std::exchange(position_, position) == position) return false;
  expected_ = position;
  return std::abs(position - expected) > (stood ? kStandingSlack : kPlayingSlack);
}

std::string coverOf(const Files& files, const Movie& clip) {
  if (clip.IsStill()) return clipFile(clip);
  if (kindOf(clip) != ClipKind::Sound || isAddress(clip.MovieName())) return {};
  for (const auto* name : kCoverNames) {
    auto path = nameInAnyCase(withSeparator(clip.Path()) + name);
    if (files.exists(path)) return path;
  }
  return {};
}

void OutsideControls::begin() {
  listens_ = controls_.listen(*this);
  settled();
}

void OutsideControls::settled() {
  if (!listens_) return;
  takeClip();
  const auto now = toTell();
  const bool sameClip = now.clip.track == told_.clip.track;
  const bool plays = now.state == PlayingState::Playing;
  const double at = position();
  const bool jumped = jumps_.sees(parts_.loop.now(), at, plays, now.rate);
  if (now != told_) controls_.tell(now);
  told_ = now;
  if (jumped && sameClip && now.clip.track != 0) controls_.tellJump(at);
}

// What of the clip in hand stays the same while it is in hand.
void OutsideControls::takeClip() {
  const auto* clip = clipInHand(parts_.collection);
  const int number = clip == nullptr ? 0 : parts_.collection.icurMov;
  const auto file = clip == nullptr ? std::string() : clipFile(*clip);
  if (number != clipNumber_ || file != clip_.file) {
    clipNumber_ = number;
    stopped_ = false;
    clip_ = {};
    clip_.track = number == 0 ? 0 : ++tracks_;
    clip_.file = file;
    if (clip != nullptr) clip_.cover = coverOf(parts_.files, *clip);
  }
  if (clip == nullptr) return;
  clip_.title = listedName(*clip);
  clip_.artist = clip->Artist();
  clip_.album = clip->Album();
  clip_.length = playedLength(*clip).value_or(0);
}

MediaTold OutsideControls::toTell() const {
  MediaTold told;
  told.clip = clip_;
  const auto& ticks = parts_.window.menu;
  told.repeating = ticks.mnu_Looping   ? Repeating::Clip
                   : ticks.mnu_LoopCol ? Repeating::Collection
                                       : Repeating::Nothing;
  const auto* clip = clipInHand(parts_.collection);
  if (clip == nullptr) return told;
  const auto& player = parts_.window.mode.player;
  told.state = player.IsPlaying                                                ? PlayingState::Playing
               : stopped_ || !player.IsPaused || parts_.player.PlayerIsEmpty() ? PlayingState::Stopped
                                                                               : PlayingState::Paused;
  told.rate = parts_.player.PlayerGetRate();
  told.volume = parts_.window.display.sound ? parts_.window.display.volume / 100.0 : 1;
  told.canGoNext = parts_.collection.icurMov < parts_.collection.MovieList.count();
  told.canGoPrevious = parts_.collection.icurMov > 1;
  told.canPlay = canPlay(*clip);
  told.canSeek = told.canPlay && !player.clipWaits && parts_.player.canSeek();
  return told;
}

// Between two clips the player still holds the one before.
double OutsideControls::position() const {
  return parts_.window.mode.player.clipWaits ? 0 : placeInSeconds(parts_.player);
}

// On the loop, as if a key had been pressed; nothing while a command is under way.
void OutsideControls::later(std::function<void()> command) {
  parts_.loop.post([this, command = std::move(command)] {
    if (!parts_.window.busy()) command();
  });
}

void OutsideControls::play() {
  later([this] {
    if (toTell().canPlay && !parts_.window.mode.player.IsPlaying) parts_.transport.Img_Play_Click();
    stopped_ = false;
  });
}

void OutsideControls::pause() {
  later([this] {
    if (parts_.window.mode.player.IsPlaying) parts_.transport.Lbl_PauseGraphic_Click();
  });
}

void OutsideControls::playPause() { parts_.window.mode.player.IsPlaying ? pause() : play(); }

void OutsideControls::stop() {
  later([this] {
    const auto* clip = clipInHand(parts_.collection);
    if (clip == nullptr || !canPlay(*clip)) return;
    parts_.transport.Image8_Click();
    stopped_ = true;
    if (parts_.player.canSeek()) goTo(clip->LoopStart().number());
  });
}

void OutsideControls::next() {
  later([this] {
    if (toTell().canGoNext) parts_.transport.NextMovie();
  });
}

void OutsideControls::previous() {
  later([this] {
    if (toTell().canGoPrevious) parts_.transport.PreviewMovie(parts_.collection.icurMov - 1);
  });
}

void OutsideControls::goTo(double seconds) {
  if (parts_.window.mode.player.clipWaits) return;  // what is in the player is the clip before
  goToSeconds(parts_.player, seconds, parts_.window.mode.player.IsPlaying);
}

void OutsideControls::seek(double seconds) {
  later([this, seconds] {
    const auto now = toTell();
    if (!now.canSeek) return;
    const double to = position() + seconds;
    if (now.clip.length > 0 && to > now.clip.length) {
      if (now.canGoNext) parts_.transport.NextMovie();
      return;
    }
    goTo(std::max(to, 0.0));
  });
}

void OutsideControls::setPosition(int track, double seconds) {
  later([this, track, seconds] {
    takeClip();
    const auto now = toTell();
    if (track != now.clip.track || !now.canSeek || seconds < 0 || seconds > now.clip.length) return;
    goTo(seconds);
  });
}

void OutsideControls::setVolume(double volume) {
  later([this, volume] { parts_.list.setVolume(static_cast<int>(std::lround(volume * 100))); });
}

void OutsideControls::setRate(double rate) {
  later([this, rate] { parts_.setRate(rate); });
}

void OutsideControls::setRepeating(Repeating repeating) {
  later([this, repeating] {
    const auto& ticks = parts_.window.menu;
    if (ticks.mnu_Looping != (repeating == Repeating::Clip)) parts_.menu.choose({MenuCommand::mnu_Looping});
    if (ticks.mnu_LoopCol != (repeating == Repeating::Collection))
      parts_.menu.choose({MenuCommand::mnu_LoopCollectionsOnPlayback});
  });
}

void OutsideControls::raise() {
  later([this] { parts_.window.face.raise = true; });
}

// Exit itself says what a command under way means for it.
void OutsideControls::quit() {
  parts_.loop.post([this] { parts_.shutDown.exit(); });
}

void OutsideControls::open(const std::string& fileOrAddress) {
  later([this, fileOrAddress] { parts_.mailbox.takeFiles({fileOrAddress}); });
}

}  // namespace kvo
