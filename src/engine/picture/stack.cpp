#include "engine/picture/stack.h"

#include "engine/effects/registry.h"
#include "engine/transitions/registry.h"
#include "media/pixel_rows.h"
#include "media/scaler.h"
#include "media/video_reader.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace kvo::engine {
using media::Picture;

Picture layOver(const Picture& below, const Picture& above) {
  if (!above.hasAlpha()) return above;
  auto out = media::Canvas::makeLike(below);
  std::vector<std::uint8_t> half(static_cast<std::size_t>(above.width(1)));
  for (int plane = 0; plane < out.planes(); ++plane) {
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
  return share(std::move(out));
}

// What is at work while a layer is shown.
struct Stack::Open {
  Open(OpenFiles* pool, const std::string& path) : files(pool), src(path) {}
  Open(const Open&) = delete;
  Open& operator=(const Open&) = delete;
  ~Open() {
    if (files != nullptr && source) files->give(src, std::move(source->reader));
  }

  OpenFiles* files;
  const std::string& src;  // the layer's
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

namespace {

// Bytes of pictures that have gone by, of each file: about ten of 720 lines. A sample that is made anew goes
// on where the one before was shown, a little behind what was made ahead.
constexpr std::size_t kPast = 16U << 20U;

Result<media::SharedFrame> standing(media::VideoReader& reader, double seconds) {
  auto toward = reader.frameToward(seconds, 0);
  if (!toward) return toward.error();
  return std::move(toward->frame);
}

}  // namespace

Stack::Stack(const std::vector<Layer>& layers, const Setting& setting) : layers_(layers), setting_(setting) {}
Stack::Stack(Stack&&) noexcept = default;
Stack::~Stack() = default;

void Stack::closeUnused(const FramePlan& plan) {
  const auto unused = [&](const auto& entry) {
    return !std::ranges::binary_search(plan, entry.first, {}, &PlannedLayer::number);
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

Result<Stack::Open*> Stack::opened(std::size_t layer) {
  const auto found = open_.find(layer);
  if (found != open_.end()) return found->second.get();
  const auto& wanted = layers_[layer];
  auto open = std::make_unique<Open>(setting_.files, wanted.src);
  expected_.erase(layer);
  if (wanted.inside.empty()) {
    auto reader = setting_.files != nullptr
                      ? setting_.files->take(wanted.src, setting_.decoderThreads, setting_.damage)
                      : media::VideoReader::open(wanted.src, setting_.decoderThreads, setting_.damage);
    if (!reader) return reader.error();
    if (setting_.files != nullptr) reader->keepPast(kPast);
    open->source = Open::Source{std::move(*reader), media::Scaler(setting_.size.width, setting_.size.height)};
  } else {
    open->inside = std::make_unique<Stack>(wanted.inside, setting_);
  }
  for (const auto& effect : wanted.effects) {
    open->effects.push_back(
        effect.kind->drawn.make(effect.params, setting_.size.width, setting_.size.height));
  }
  open->changes = changesByItself(wanted);
  return open_.emplace(layer, std::move(open)).first->second.get();
}

Result<double> Stack::approach(const FramePlan& plan, double most) {
  double left = 0;
  for (const auto& planned : plan) {
    if (planned.progress <= 0) continue;
    auto found = opened(planned.number);
    if (!found) return found.error();
    auto& open = **found;
    if (open.inside) {
      auto inner = open.inside->approach(planned.inside, most);
      if (!inner) return inner;
      left = std::max(left, *inner);
      continue;
    }
    const auto toward = open.source->reader.frameToward(planned.sourceTime, most);
    if (!toward) return toward.error();
    left = std::max(left, toward->left);
  }
  return left;
}

Result<Picture> Stack::drawAsItStands(const FramePlan& plan) {
  asItStands_ = true;
  auto drawn = draw(plan);
  asItStands_ = false;
  return drawn;
}

void Stack::expect(const FramePlan& plan) {
  if (setting_.files == nullptr) return;
  for (const auto& planned : plan) {
    if (const auto found = open_.find(planned.number); found != open_.end()) {
      if (found->second->inside) found->second->inside->expect(planned.inside);
      continue;
    }
    const auto& layer = *planned.layer;
    if (layer.inside.empty() && expected_.insert(planned.number).second)
      setting_.files->expect(layer.src, setting_.decoderThreads, layer.mstart);
  }
}

// The picture of a layer ahead of its effects; `same` when it is the one of the frame before.
Result<Picture> Stack::source(const PlannedLayer& planned, Open& open, bool& same) {
  same = false;
  if (open.inside) return open.inside->draw(planned.inside);
  const auto& clip = *planned.layer;
  auto frame = asItStands_ ? standing(open.source->reader, planned.sourceTime)
                           : open.source->reader.frameAt(planned.sourceTime);
  if (!frame) return frame.error();
  same = *frame == open.shown;
  if (same) return open.placed;
  auto placed = open.source->scaler.place(*frame, clip.fit);
  if (!placed) return Error{"clip " + clip.src + ": " + placed.error().text};
  open.shown = std::move(*frame);
  open.placed = *placed;
  return placed;
}

Result<Picture> Stack::picture(const PlannedLayer& planned) {
  auto found = opened(planned.number);
  if (!found) return found.error();
  auto& open = **found;
  open.lastFrame = asked_;
  bool same = false;
  auto shown = source(planned, open, same);
  if (!shown || !*shown || open.effects.empty()) return shown;
  if (same && !open.changes) return open.drawn;
  const auto& clip = *planned.layer;
  for (const auto& effect : planned.effects) {
    *shown = open.effects[effect.number](*shown, {effect.time, clip.stop - clip.start});
  }
  open.drawn = *shown;
  return shown;
}

Result<Picture> Stack::over(const Picture& below, const PlannedLayer& planned, const Picture& above) {
  if (planned.transition == nullptr) return layOver(below, above);
  const auto& transition = *planned.transition;
  auto& paint = open_.at(planned.number)->painters[&transition];
  if (!paint) {
    auto made = transition.kind->drawn.make(transition.params, setting_.size.width, setting_.size.height);
    if (!made) return made.error();
    paint = std::move(*made);
  }
  Picture first = below;
  Picture second = above;
  if (transition.kind->drawn.coversAll == nullptr) {
    // What a transition leads to is what is seen behind it: the layer over what lies below.
    if (second.hasAlpha()) second = layOver(first, second);
    if (first.hasAlpha() != second.hasAlpha()) {
      std::tie(first, second) = std::pair(withAlpha(first), withAlpha(second));
    }
  }
  auto out = media::Canvas::makeLike(first);
  paint(first, second, {planned.progress, planned.time}, out);
  return share(std::move(out));
}

Result<Picture> Stack::draw(const FramePlan& plan) {
  ++asked_;
  closeUnused(plan);

  // From the uppermost down to the first that covers all below it.
  std::vector<std::pair<const PlannedLayer*, Picture>> seen;
  for (auto planned = plan.rbegin(); planned != plan.rend(); ++planned) {
    if (planned->progress <= 0) continue;
    auto shown = picture(*planned);
    if (!shown) return shown;
    if (!*shown) continue;  // a composition with nothing in it now
    const bool coversAll = planned->transition == nullptr && !shown->hasAlpha();
    seen.emplace_back(&*planned, std::move(*shown));
    if (coversAll) break;
  }

  Picture result;
  for (auto layer = seen.rbegin(); layer != seen.rend(); ++layer) {
    const auto& [planned, above] = *layer;
    if (!result && planned->transition == nullptr) {
      result = above;
      continue;
    }
    if (!result) result = share(media::Canvas::clear(setting_.size.width, setting_.size.height));
    auto drawn = over(result, *planned, above);
    if (!drawn) return drawn;
    result = std::move(*drawn);
  }
  return result;
}

}  // namespace kvo::engine
