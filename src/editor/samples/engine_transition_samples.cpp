#include "editor/samples/engine_transition_samples.h"

#include "base/guarded.h"
#include "core/records/media_kinds.h"
#include "editor/samples/transition_painter.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr double kFromEnd = 1;            // seconds: films begin and end black
constexpr std::size_t kMostWaiting = 64;  // older ones are asked for again when they are looked at

bool hasPictureByName(const Movie& clip) {
  const auto* kind = mediaKind(clip.MovieName());
  return kind != nullptr && kind->mediaClass != MediaClass::Sound;
}

// Near an end of the section that is played.
SamplePlace placeIn(const Movie& clip, bool atEnd) {
  const double start = clip.LoopStart().number();
  const double end = std::max(clip.LoopEnd().number(), start);
  const double inside = std::min(kFromEnd, (end - start) / 2);
  return {clipFile(clip), clip.IsStill() ? 0 : atEnd ? end - inside : start + inside};
}

}  // namespace

EngineTransitionSamples::EngineTransitionSamples(const Collection& collection, FrameSource& streams,
                                                 std::function<void()> come)
    : collection_(collection),
      streams_(streams),
      come_(std::move(come)),
      ground_(pictureAt({}, true), pictureAt({}, false)),
      thread_([this](const std::stop_token& stopped) { work(stopped); }) {}

EngineTransitionSamples::~EngineTransitionSamples() = default;

EngineTransitionSamples::Places EngineTransitionSamples::placesNow() const {
  const auto& clips = collection_.MovieList;
  const int inHand = collection_.icurMov;
  Places places;
  if (inHand < 1 || inHand > clips.count() || !hasPictureByName(clips[inHand])) return places;
  places.second = placeIn(clips[inHand], false);
  for (int before = inHand - 1; before >= 1; --before) {
    if (!hasPictureByName(clips[before])) continue;
    places.first = placeIn(clips[before], true);
    break;
  }
  return places;
}

// Other clips: what has been made is not of them.
void EngineTransitionSamples::follow() {
  auto places = placesNow();
  if (places == places_) return;
  places_ = std::move(places);
  done_.clear();
  waiting_.clear();
  ++revision_;
}

TransitionSamples::Picture EngineTransitionSamples::picture(std::string_view name, int step) {
  const Wanted wanted(name, step);
  const std::lock_guard lock(mutex_);
  follow();
  if (const auto found = done_.find(wanted); found != done_.end()) return found->second;
  std::erase(waiting_, wanted);
  waiting_.push_back(wanted);
  if (waiting_.size() > kMostWaiting) waiting_.erase(waiting_.begin());
  asked_.notify_one();
  return nullptr;
}

void EngineTransitionSamples::work(const std::stop_token& stopped) {
  for (;;) {
    Wanted wanted;
    Places places;
    {
      std::unique_lock lock(mutex_);
      if (!asked_.wait(lock, stopped, [this] { return !waiting_.empty(); })) return;
      wanted = std::move(waiting_.back());
      waiting_.pop_back();
      places = places_;
      done_[wanted] = nullptr;
    }
    make(wanted, places);
  }
}

void EngineTransitionSamples::make(const Wanted& wanted, const Places& places) {
  auto made = guarded([&]() -> Result<FramePicture> {
    if (drawn_ != places) {
      ground_ = {pictureAt(places.first, true), pictureAt(places.second, false)};
      drawn_ = places;
    }
    auto paint = preparePainting(wanted.first, ground_.first, ground_.second);
    if (!paint) return paint.error();
    return (*paint)((wanted.second + 0.5) / kTransitionSampleSteps);
  });
  if (!made) return;  // it stays without a picture
  {
    const std::lock_guard lock(mutex_);
    if (places != places_) return;
    done_[wanted] = std::make_shared<const FramePicture>(std::move(*made));
    ++revision_;
  }
  come_();
}

FramePicture EngineTransitionSamples::pictureAt(const SamplePlace& place, bool isFirst) const {
  if (!place.path.empty()) {
    auto shown = streams_.frame(place.path, place.seconds, kTransitionSampleWidth, kTransitionSampleHeight);
    if (shown) return std::move(*shown);
  }
  return isFirst ? plainSamplePicture(0x3B, 0x46, 0x56) : plainSamplePicture(0x2C, 0xC9, 0xC4);
}

}  // namespace kvo
