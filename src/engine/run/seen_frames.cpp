#include "engine/run/seen_frames.h"

namespace kvo::engine {
namespace {

std::size_t bytesOf(const media::Picture& picture) {
  const auto pixels = static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.height());
  return pixels + pixels / 2 + (picture.hasAlpha() ? pixels : 0);
}

}  // namespace

media::Picture SeenFrames::find(std::int64_t frame) {
  const auto place = places_.find(frame);
  if (place == places_.end()) return {};
  frames_.splice(frames_.begin(), frames_, place->second);
  return place->second->picture;
}

void SeenFrames::put(std::int64_t frame, const media::Picture& picture) {
  if (!picture || places_.contains(frame)) return;
  frames_.push_front({frame, picture});
  places_[frame] = frames_.begin();
  bytes_ += bytesOf(picture);
  shrink(most_);
}

void SeenFrames::shrink(std::size_t bytes) {
  while (bytes_ > bytes) {
    bytes_ -= bytesOf(frames_.back().picture);
    places_.erase(frames_.back().frame);
    frames_.pop_back();
  }
}

}  // namespace kvo::engine
