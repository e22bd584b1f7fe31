#include "engine/compositor.h"

#include "engine/transitions/registry.h"

#include <algorithm>

namespace kvo::engine {
namespace {

// Frame threads of one decoder: while a frame is composited the next ones are being decoded.
constexpr int kDecoderThreads = 2;

constexpr int even(int side) { return (side + 1) & ~1; }

std::vector<ActiveSet::Range> frameRanges(const Timeline& timeline) {
  std::vector<ActiveSet::Range> ranges;
  ranges.reserve(timeline.video.size());
  for (const auto& clip : timeline.video) {
    ranges.push_back({timeline.frameFrom(clip.start), timeline.frameFrom(clip.stop)});
  }
  return ranges;
}

}  // namespace

Compositor::Compositor(const Timeline& timeline)
    : timeline_(timeline),
      width_(even(timeline.width)),
      height_(even(timeline.height)),
      clips_(frameRanges(timeline)) {}

// From the uppermost down to the first that covers all below it.
std::vector<Compositor::Layer> Compositor::layersAt(double time,
                                                    const std::vector<std::size_t>& active) const {
  std::vector<Layer> layers;
  for (auto number = active.rbegin(); number != active.rend(); ++number) {
    Layer layer{*number, nullptr, 1};
    for (const auto& transition : timeline_.video[*number].transitions) {
      if (time < transition.start || time >= transition.stop) continue;
      const double progress = transition.progress.at(time - transition.start);
      if (progress < 1) layer = {*number, &transition, std::max(progress, 0.0)};
    }
    if (layer.progress > 0) layers.push_back(layer);
    if (layer.transition == nullptr) break;
  }
  return layers;
}

void Compositor::closeUnused(const std::vector<std::size_t>& active) {
  const auto unused = [&](std::size_t clip) {
    return !std::binary_search(active.begin(), active.end(), clip);
  };
  std::erase_if(open_, [&](const auto& entry) { return unused(entry.first); });
  std::erase_if(painters_, [&](const auto& entry) { return unused(entry.first.first); });
}

Result<Compositor::Source*> Compositor::source(std::size_t clip) {
  const auto found = open_.find(clip);
  if (found != open_.end()) return &found->second;
  auto reader = media::VideoReader::open(timeline_.video[clip].src, kDecoderThreads);
  if (!reader) return reader.error();
  const auto added =
      open_.emplace(clip, Source{std::move(*reader), media::Scaler(width_, height_), nullptr, {}});
  return &added.first->second;
}

Result<media::Picture> Compositor::pictureOf(std::size_t clip, double time) {
  auto opened = source(clip);
  if (!opened) return opened.error();
  auto& s = **opened;
  const auto& wanted = timeline_.video[clip];
  auto frame = s.reader.frameAt(std::max(wanted.sourceTime(time), wanted.mstart));
  if (!frame) return frame.error();
  if (*frame == s.shown) return s.picture;
  auto placed = s.scaler.place(*frame, wanted.fit);
  if (!placed) return Error{"clip " + wanted.src + ": " + placed.error().text};
  s.shown = std::move(*frame);
  s.picture = std::move(*placed);
  return s.picture;
}

const PaintTransition& Compositor::painter(const Layer& layer) {
  auto& paint = painters_[{layer.clip, layer.transition}];
  if (!paint) paint = findTransition(layer.transition->clsid)(layer.transition->params, width_, height_);
  return paint;
}

Result<media::Picture> Compositor::frame(std::int64_t number) {
  const double time = static_cast<double>(number) / timeline_.frameRate;
  const auto& active = clips_.at(number);
  closeUnused(active);
  const auto layers = layersAt(time, active);

  const Error noMemory{"out of memory for a picture"};
  media::Picture shown;
  bool ours = false;  // `shown` belongs to nobody else, so it may be drawn on
  for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer) {
    auto picture = pictureOf(layer->clip, time);
    if (!picture) return picture.error();
    if (layer->transition == nullptr) {
      shown = std::move(*picture);
      continue;
    }
    if (!shown) {
      shown = media::Picture::black(width_, height_);
      ours = true;
      if (!shown) return noMemory;
    }
    auto mixed = ours ? shown : media::Picture::make(width_, height_);
    if (!mixed) return noMemory;
    painter (*layer)(shown, *picture, layer->progress, mixed);
    shown = std::move(mixed);
    ours = true;
  }
  if (!shown) shown = media::Picture::black(width_, height_);
  if (!shown) return noMemory;
  return shown;
}

}  // namespace kvo::engine
