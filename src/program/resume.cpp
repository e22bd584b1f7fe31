#include "program/resume.h"

#include "base/paths.h"
#include "core/telling/translated.h"
#include "playback/in_seconds.h"
#include "program/clip_texts.h"

#include <cmath>
#include <utility>

namespace kvo {
namespace {

constexpr double kLong = 600;         // seconds: clips that are worth it
constexpr double kStart = 30;         // a place so near to the start is none
constexpr double kEnd = 60;           // from here to the end it has been seen
constexpr double kNoteEvery = 60;     // seconds of play, in case that the program does not come to its end
constexpr int kOfferStands = 10'000;  // milliseconds
constexpr double kMovedOn = 15;       // seconds from where it was loaded: the user has gone somewhere else
constexpr std::uint64_t kMostBytes = 1U << 20U;

}  // namespace

Resume::Resume(Parts parts)
    : parts_(std::move(parts)), offerEnds_(parts_.loop.timer([this] { endOffer(); })) {}

const Movie* Resume::clipInPlayer() const {
  const int number = parts_.window.mode.player.clip;
  if (parts_.player.PlayerIsEmpty() || number < 1 || number > parts_.collection.MovieList.count())
    return nullptr;
  return &parts_.collection.MovieList[number];
}

// A file may be in the collection twice, each time with other marks.
void Resume::settled() {
  if (parts_.placesFile.empty()) return;
  const auto* clip = clipInPlayer();
  const auto path = clip == nullptr ? std::string() : parts_.window.mode.player.path;
  const Long key = clip == nullptr ? 0 : clip->KeyID();
  if (path != path_ || key != clip_) {
    note();
    endOffer();
    path_ = path;
    clip_ = key;
    begin();
  }
  if (!looksAfter()) return;
  const double before = std::exchange(position_, placeInSeconds(parts_.player));
  if (offered_ && (std::abs(position_ - before) > kMovedOn || !parts_.settings.user.OfferResume)) endOffer();
  if (std::abs(position_ - noted_) > kNoteEvery) note();
}

void Resume::begin() {
  section_ = {};
  const auto* clip = clipInPlayer();
  if (clip == nullptr || path_.empty() || isAddress(path_)) return;
  const double length = playedLength(*clip).value_or(0);
  const auto file = parts_.files.facts(path_);
  if (length < kLong || !file) return;
  file_ = *file;
  section_ = sectionOf(*clip, length);
  position_ = noted_ = section_.first;
  if (!parts_.settings.user.OfferResume) {
    parts_.files.remove(parts_.placesFile);  // whoever turns it off wants nothing kept
    return;
  }
  offered_ = places().value_or(ResumePlaces()).find(path_, file_);
  if (offered_ && !worthNoting(*offered_)) offered_.reset();
  if (!offered_) return;
  parts_.window.resume.chip = translated("Resume at %1", {playTimeText(*offered_)});
  offerEnds_->start(kOfferStands);
}

void Resume::endOffer() {
  offered_.reset();
  offerEnds_->stop();
  parts_.window.resume.chip.clear();
}

void Resume::take() {
  if (!offered_) return;
  const double to = *offered_;
  endOffer();
  goToSeconds(parts_.player, to, true);
}

// Nothing where there is a file that cannot be read just now: what is in it is not to be lost.
std::optional<ResumePlaces> Resume::places() const {
  if (!parts_.files.exists(parts_.placesFile)) return ResumePlaces();
  const auto text = parts_.files.read(parts_.placesFile, kMostBytes);
  return text ? std::optional(ResumePlaces::read(*text)) : std::nullopt;
}

bool Resume::worthNoting(double seconds) const {
  return seconds >= section_.first + kStart && seconds <= section_.second - kEnd;
}

// What was seen to its end is forgotten; one of which only the start was seen keeps the place that it had.
void Resume::note() {
  if (!looksAfter() || position_ < section_.first + kStart || !parts_.settings.user.OfferResume) return;
  noted_ = position_;
  auto all = places();
  if (!all) return;
  if (worthNoting(position_)) {
    all->keep({path_, file_, position_});
  } else if (!all->forget(path_)) {
    return;
  }
  // A place that cannot be kept is none that anybody has to be told of.
  static_cast<void>(parts_.files.makeFolder(std::string(folderPart(parts_.placesFile))));
  static_cast<void>(writeDurably(parts_.files, parts_.placesFile, all->text()));
}

}  // namespace kvo
