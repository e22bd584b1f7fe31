#include "engine/picture/stack.h"

#include "media/pixel_rows.h"

#include <algorithm>
#include <tuple>

namespace kvo::engine {
namespace {

using media::Picture;

const Error kNoMemory{"out of memory for a picture"};

std::vector<ActiveSet::Range> frameRanges(const std::vector<Layer>& layers, const FrameRate& rate) {
  std::vector<ActiveSet::Range> ranges;
  ranges.reserve(layers.size());
  for (const auto& layer : layers) {
    ranges.push_back({rate.frameFrom(layer.start), rate.frameFrom(layer.stop)});
  }
  return ranges;
}

}  // namespace

Picture layOver(const Picture& below, const Picture& above) {
  if (!above.hasAlpha()) return above;
  auto out = Picture::makeLike(below);
  std::vector<std::uint8_t> half(static_cast<std::size_t>(above.width(1)));
  for (int plane = 0; out && plane < out.planes(); ++plane) {
    for (int y = 0; y < out.height(plane); ++y) {
      const auto* alpha = above.row(3, y);
      if (Picture::isChroma(plane)) {
        media::halveRows(above.row(3, 2 * y), above.row(3, 2 * y + 1), half.data(), half.size());
        alpha = half.data();
      }
      media::overRow(below.row(plane, y), above.row(plane, y), alpha, out.row(plane, y),
                     static_cast<std::size_t>(out.width(plane)), Picture::blackOf(plane));
    }
  }
  return out;
}

// What is at work while a layer is shown.
struct Stack::Open {
  struct Source {
    media::VideoReader reader;
    media::Scaler scaler;
  };
  std::optional<Source> source;   // of a clip
  std::unique_ptr<Stack> inside;  // of a composition
  std::vector<DrawEffect> effects;
  bool changes = false;  // the effects make something else of the same picture in another frame
  std::map<const Transition*, PaintTransition> painters;
  std::int64_t lastFrame = 0;  // by the count of frames that were asked for
  media::SharedFrame shown;    // what `placed` was made from
  Picture placed;
  Picture drawn;  // `placed` with its effects
};

Stack::Stack(const std::vector<Layer>& layers, const Setting& setting)
    : layers_(layers), setting_(setting), active_(frameRanges(layers, setting.frameRate)) {}
Stack::Stack(Stack&&) noexcept = default;
Stack::~Stack() = default;

void Stack::closeUnused(const std::vector<std::size_t>& active) {
  const auto unused = [&](const auto& entry) {
    return !std::binary_search(active.begin(), active.end(), entry.first);
  };
  const auto count = static_cast<std::size_t>(std::count_if(open_.begin(), open_.end(), unused));
  if (count <= setting_.keptOpen) return;
  if (setting_.keptOpen == 0) {
    std::erase_if(open_, unused);
    return;
  }
  // The one that was shown the longest ago goes.
  auto oldest = open_.end();
  for (auto entry = open_.begin(); entry != open_.end(); ++entry) {
    if (unused(*entry) && (oldest == open_.end() || entry->second->lastFrame < oldest->second->lastFrame))
      oldest = entry;
  }
  open_.erase(oldest);
}

Stack::Part Stack::partOf(std::size_t layer, double time) const {
  Part part{layer};
  for (const auto& transition : layers_[layer].transitions) {
    if (time < transition.start || time >= transition.stop) continue;
    const auto* kind = findTransition(transition.clsid);
    if (kind->coversAll != nullptr) {
      if (!kind->coversAll(transition.params, time - transition.start, setting_.width, setting_.height)) {
        part = {layer, &transition, 0.5};
      }
    } else if (const double progress = transition.progressAt(time); progress < 1) {
      part = {layer, &transition, progress};
    }
  }
  return part;
}

Result<Stack::Open*> Stack::opened(std::size_t layer) {
  const auto found = open_.find(layer);
  if (found != open_.end()) return found->second.get();
  const auto& wanted = layers_[layer];
  auto open = std::make_unique<Open>();
  if (wanted.inside.empty()) {
    auto reader = media::VideoReader::open(wanted.src, setting_.decoderThreads, setting_.damage);
    if (!reader) return reader.error();
    open->source = Open::Source{std::move(*reader), media::Scaler(setting_.width, setting_.height)};
  } else {
    open->inside = std::make_unique<Stack>(wanted.inside, setting_);
  }
  for (const auto& effect : wanted.effects) {
    const auto* kind = findEffect(effect.clsid);
    open->effects.push_back(kind->make(effect.params, setting_.width, setting_.height));
    open->changes |= effect.params.moves() || (kind->moves != nullptr && kind->moves(effect.params)) ||
                     effect.start > 0 || effect.stop < wanted.stop - wanted.start;
  }
  return open_.emplace(layer, std::move(open)).first->second.get();
}

// The picture of a layer ahead of its effects; `same` when it is the one of the frame before.
Result<Picture> Stack::source(std::size_t layer, Open& open, std::int64_t number, bool& same) {
  same = false;
  if (open.inside) return open.inside->frame(number);
  const auto& clip = layers_[layer];
  const double time = setting_.frameRate.secondsAt(number);
  auto frame = open.source->reader.frameAt(std::max(clip.sourceTime(time), clip.mstart));
  if (!frame) return frame.error();
  same = *frame == open.shown;
  if (same) return open.placed;
  auto placed = open.source->scaler.place(*frame, clip.fit);
  if (!placed) return Error{"clip " + clip.src + ": " + placed.error().text};
  open.shown = std::move(*frame);
  open.placed = *placed;
  return placed;
}

Result<Picture> Stack::picture(std::size_t layer, std::int64_t number) {
  auto found = opened(layer);
  if (!found) return found.error();
  auto& open = **found;
  open.lastFrame = asked_;
  bool same = false;
  auto shown = source(layer, open, number, same);
  if (!shown || !*shown || open.effects.empty()) return shown;
  if (same && !open.changes) return open.drawn;
  const auto& clip = layers_[layer];
  const double time = setting_.frameRate.secondsAt(number) - clip.start;
  for (std::size_t i = 0; i < open.effects.size(); ++i) {
    const auto& effect = clip.effects[i];
    if (time < effect.start || time >= effect.stop) continue;
    *shown = open.effects[i](*shown, {time - effect.start, clip.stop - clip.start});
    if (!*shown) return kNoMemory;
  }
  open.drawn = *shown;
  return shown;
}

Result<Picture> Stack::over(const Picture& below, const Part& part, const Picture& above, double time) {
  if (part.transition == nullptr) {
    auto laid = layOver(below, above);
    return laid ? Result<Picture>(std::move(laid)) : Result<Picture>(kNoMemory);
  }
  const auto& transition = *part.transition;
  const auto* kind = findTransition(transition.clsid);
  auto& paint = open_.at(part.layer)->painters[&transition];
  if (!paint) {
    auto made = kind->make(transition.params, setting_.width, setting_.height);
    if (!made) return made.error();
    paint = std::move(*made);
  }
  Picture first = below;
  Picture second = above;
  if (kind->coversAll == nullptr) {
    // What a transition leads to is what is seen behind it: the layer over what lies below.
    if (second.hasAlpha()) second = layOver(first, second);
    if (second && first.hasAlpha() != second.hasAlpha())
      std::tie(first, second) = std::pair(withAlpha(first), withAlpha(second));
  }
  auto out = first ? Picture::makeLike(first) : Picture();
  if (!out || !second) return kNoMemory;
  paint(first, second, {part.progress, time - transition.start}, out);
  return out;
}

Result<Picture> Stack::frame(std::int64_t number) {
  const double time = setting_.frameRate.secondsAt(number);
  const auto& active = active_.at(number);
  ++asked_;
  closeUnused(active);

  // From the uppermost down to the first that covers all below it.
  std::vector<std::pair<Part, Picture>> seen;
  for (auto layer = active.rbegin(); layer != active.rend(); ++layer) {
    const auto part = partOf(*layer, time);
    if (part.progress <= 0) continue;
    auto shown = picture(*layer, number);
    if (!shown) return shown;
    if (!*shown) continue;  // a composition with nothing in it now
    const bool coversAll = part.transition == nullptr && !shown->hasAlpha();
    seen.emplace_back(part, std::move(*shown));
    if (coversAll) break;
  }

  Picture result;
  for (auto layer = seen.rbegin(); layer != seen.rend(); ++layer) {
    const auto& [part, above] = *layer;
    if (!result && part.transition == nullptr) {
      result = above;
      continue;
    }
    if (!result) result = Picture::clear(setting_.width, setting_.height);
    if (!result) return kNoMemory;
    auto drawn = over(result, part, above, time);
    if (!drawn) return drawn;
    result = std::move(*drawn);
  }
  return result;
}

}  // namespace kvo::engine
