#include "editor/samples/engine_samples.h"

#include "base/guarded.h"
#include "editor/samples/sample_pictures.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::size_t kMostWaiting = 640;  // older ones are asked for again when they are looked at

}  // namespace

EngineSamples::EngineSamples(SampleArt art, MediaContents& streams, std::function<void()> come,
                             std::function<bool()> areCalm)
    : art_(std::move(art)),
      streams_(streams),
      come_(std::move(come)),
      areCalm_(std::move(areCalm)),
      thread_([this](const std::stop_token& stopped) { work(stopped); }) {}

EngineSamples::~EngineSamples() = default;

// Other clips: what has been made is not of them.
void EngineSamples::follow() {
  auto places = art_.places();
  if (places == places_) return;
  places_ = std::move(places);
  done_.clear();
  waiting_.clear();
  ++revision_;
}

MovingSamples::Picture EngineSamples::picture(std::string_view name, int step) {
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

void EngineSamples::work(const std::stop_token& stopped) {
  for (;;) {
    Wanted wanted;
    SamplePlaces places;
    {
      std::unique_lock lock(mutex_);
      if (!asked_.wait(lock, stopped, [this] { return !waiting_.empty(); })) return;
      wanted = std::move(waiting_.back());
      waiting_.pop_back();
      places = places_;
      done_[wanted] = nullptr;
    }
    make(wanted, std::move(places));
  }
}

void EngineSamples::make(const Wanted& wanted, SamplePlaces places) {
  if (drawn_ != places) {
    drawn_ = std::move(places);
    ground_.clear();
    prepared_ = {};
  }
  auto made = guarded([&]() -> Result<FramePicture> {
    if (prepared_.name != wanted.first) {
      auto paint = art_.prepare(
          wanted.first, [this](std::size_t place) -> const auto& { return ground(place); });
      if (!paint) return paint.error();
      prepared_ = {wanted.first, std::move(*paint)};
    }
    return prepared_.paint(wanted.second);
  });
  if (!made) return;  // it stays without a picture
  {
    const std::lock_guard lock(mutex_);
    if (drawn_ != places_) return;
    done_[wanted] = std::make_shared<const FramePicture>(std::move(*made));
    ++revision_;
  }
  come_();
}

const FramePicture& EngineSamples::ground(std::size_t index) {
  if (const auto found = ground_.find(index); found != ground_.end()) return found->second;
  const auto& place = drawn_.at(index);
  if (!place.path.empty()) {
    auto shown = streams_.frame(place.path, place.seconds, place.width, place.height);
    if (shown) return ground_[index] = std::move(*shown);
  }
  return ground_[index] = index == 0 ? plainPicture(place.width, place.height, 0x3B, 0x46, 0x56)
                                     : plainPicture(place.width, place.height, 0x2C, 0xC9, 0xC4);
}

}  // namespace kvo
