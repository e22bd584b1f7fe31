#include "engine/picture/frame_plan.h"

#include "base/numbers.h"
#include "engine/effects/registry.h"
#include "engine/transitions/registry.h"

#include <algorithm>
#include <cmath>

namespace kvo::engine {
namespace {

std::vector<ActiveSet::Range> frameRanges(const std::vector<Layer>& layers, const FrameRate& rate) {
  std::vector<ActiveSet::Range> ranges;
  ranges.reserve(layers.size());
  for (const auto& layer : layers) {
    ranges.push_back({rate.frameFrom(layer.start), rate.frameFrom(layer.stop)});
  }
  return ranges;
}

// The last of a layer's transitions that is under way.
void planTransition(double time, const FrameSize& size, PlannedLayer& planned) {
  for (const auto& transition : planned.layer->transitions) {
    if (time < transition.start || time >= transition.stop) continue;
    auto* const coversAll = transition.kind->drawn.coversAll;
    const double since = time - transition.start;
    const double progress = coversAll == nullptr ? transition.progressAt(time) : 0.5;
    const bool isOver =
        coversAll == nullptr ? progress >= 1 : coversAll(transition.params, since, size.width, size.height);
    if (isOver) continue;
    planned.transition = &transition;
    planned.progress = progress;
    planned.time = since;
  }
}

void planEffects(double time, PlannedLayer& planned) {
  const auto& effects = planned.layer->effects;
  for (std::size_t i = 0; i < effects.size(); ++i) {
    if (time >= effects[i].start && time < effects[i].stop)
      planned.effects.push_back({i, time - effects[i].start});
  }
}

std::string decimals(double value) { return ShortText(std::round(value * 1e4) / 1e4); }

std::string paramsText(const Params& params, double time) {
  std::string text;
  for (const auto& [name, param] : params) {
    text += (text.empty() ? ": " : ", ") + name + " " +
            (param.number.keys.empty() ? param.text : decimals(param.number.at(time)));
  }
  return text;
}

void append(const FramePlan& plan, const std::string& indent, std::string& text) {
  for (const auto& planned : plan) {
    const auto& layer = *planned.layer;
    text +=
        indent +
        (layer.src.empty() ? "composition" : "clip " + layer.src + " at " + decimals(planned.sourceTime)) +
        "\n";
    append(planned.inside, indent + "  ", text);
    for (const auto& [number, time] : planned.effects) {
      const auto& effect = layer.effects[number];
      text += indent + "  effect " + std::string(effect.kind->name) + " at " + decimals(time) +
              paramsText(effect.params, time) + "\n";
    }
    if (const auto* transition = planned.transition) {
      text += indent + "  transition " + std::string(transition->kind->name) + " " +
              decimals(planned.progress) + " at " + decimals(planned.time) +
              paramsText(transition->params, planned.time) + "\n";
    }
  }
}

}  // namespace

FrameSize frameSizeOf(const Timeline& timeline) {
  const auto even = [](int side) { return (side + 1) & ~1; };
  return {even(timeline.width), even(timeline.height)};
}

FramePlanner::FramePlanner(const Timeline& timeline)
    : FramePlanner(timeline.video, timeline.frameRate, frameSizeOf(timeline)) {}

FramePlanner::FramePlanner(const std::vector<Layer>& layers, const FrameRate& rate, const FrameSize& size)
    : layers_(layers), rate_(rate), size_(size), active_(frameRanges(layers, rate)) {}

FramePlan FramePlanner::at(std::int64_t number) {
  const double time = rate_.secondsAt(number);
  const auto& active = active_.at(number);
  std::erase_if(inside_, [&](const auto& entry) {
    return !std::binary_search(active.begin(), active.end(), entry.first);
  });
  FramePlan plan;
  plan.reserve(active.size());
  for (const auto layerNumber : active) {
    const auto& layer = layers_[layerNumber];
    auto& planned = plan.emplace_back(PlannedLayer{.number = layerNumber, .layer = &layer});
    planTransition(time, size_, planned);
    planEffects(time - layer.start, planned);
    if (layer.inside.empty()) {
      planned.sourceTime = std::max(layer.sourceTime(time), layer.mstart);
    } else if (planned.progress > 0) {
      const auto found = inside_.find(layerNumber);
      auto& inner =
          found != inside_.end()
              ? found->second
              : inside_.emplace(layerNumber, FramePlanner(layer.inside, rate_, size_)).first->second;
      planned.inside = inner.at(number);
    }
  }
  return plan;
}

std::string toText(const FramePlan& plan) {
  std::string text;
  append(plan, "", text);
  return text;
}

bool changesByItself(const Layer& layer) {
  return std::any_of(layer.effects.begin(), layer.effects.end(), [&](const Effect& effect) {
    return effect.params.moves() ||
           (effect.kind->drawn.moves != nullptr && effect.kind->drawn.moves(effect.params)) ||
           effect.start > 0 || effect.stop < layer.stop - layer.start;
  });
}

}  // namespace kvo::engine
