#include "engine/document/document_reader.h"

#include "base/document_names.h"
#include "base/numbers.h"
#include "base/text.h"
#include "engine/effects/registry.h"
#include "engine/transitions/registry.h"
#include "vocabulary/effects.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include <pugixml.hpp>

namespace kvo::engine {
namespace {

std::string attribute(const pugi::xml_node& node, const char* name) {
  std::string text = node.attribute(name).value();
  std::replace(text.begin(), text.end(), kHiddenQuote, '"');
  return text;
}

// A finite number, or nothing.
std::optional<double> numberAttribute(const pugi::xml_node& node, const char* name) {
  const auto value = numberIn(node.attribute(name).value());
  return value && std::isfinite(*value) && std::fabs(*value) < 1e9 ? value : std::nullopt;
}

// A clip that says nothing keeps its shape.
media::Fit fitOf(std::string_view mode) {
  if (mode.empty()) return media::Fit::Letterbox;
  if (sameText(mode, "preserveaspectratio")) return media::Fit::Letterbox;
  if (sameText(mode, "preserveaAspectrationoletterbox")) return media::Fit::Fill;
  if (sameText(mode, "crop")) return media::Fit::Crop;
  return media::Fit::Stretch;
}

// Held within what can be reckoned with; 0 for what is no number.
double bounded(double value) { return std::isnan(value) ? 0 : std::clamp(value, -1e9, 1e9); }

Keyed keyedNumber(const pugi::xml_node& param) {
  const auto valueIn = [](const pugi::xml_node& node) {
    return bounded(valueOf(node.attribute("value").value()));
  };
  Keyed keyed{valueIn(param), {}};
  for (const auto& key : param.children()) {
    const std::string_view kind(key.name());
    if (kind != "linear" && kind != "at") continue;
    keyed.keys.push_back({bounded(ToNumber(key.attribute("time").value())), valueIn(key), kind == "linear"});
  }
  std::stable_sort(keyed.keys.begin(), keyed.keys.end(),
                   [](const auto& a, const auto& b) { return a.time < b.time; });
  return keyed;
}

Params paramsOf(const pugi::xml_node& node) {
  Params params;
  for (const auto& param : node.children("param")) {
    params.add(param.attribute("name").value(), {attribute(param, "value"), keyedNumber(param)});
  }
  return params;
}

Error tooManyClips() { return {"the document has more than " + std::to_string(kMaxClips) + " clips"}; }

Outcome readClip(const pugi::xml_node& node, Clip& clip) {
  clip.src = attribute(node, "src");
  if (clip.src.empty()) return Error{"a clip of the document names no file"};
  const auto mstart = numberAttribute(node, "mstart");
  const auto mstop = numberAttribute(node, "mstop");
  const auto start = numberAttribute(node, "start");
  const auto stop = numberAttribute(node, "stop");
  if (!mstart || !mstop || !start || !stop) return Error{"clip " + clip.src + ": its times are no numbers"};
  if (*start < 0 || *stop <= *start || *mstop <= *mstart)
    return Error{"clip " + clip.src + ": it has no length"};
  clip.mstart = std::max(*mstart, 0.0);
  clip.mstop = *mstop;
  clip.start = *start;
  clip.stop = *stop;
  clip.fit = fitOf(node.attribute("stretchmode").value());
  return {};
}

// What a layer is called in an error line.
std::string nameOf(const Layer& layer) { return layer.src.empty() ? "a composition" : "clip " + layer.src; }

Outcome readEffects(const pugi::xml_node& node, Layer& layer) {
  for (const auto& child : node.children("effect")) {
    const auto clsid = attribute(child, "clsid");
    Effect effect{.kind = findEffect(clsid)};
    if (effect.kind == nullptr) return Error{nameOf(layer) + ": there is no effect " + clsid};
    const auto start = numberAttribute(child, "start");
    const auto stop = numberAttribute(child, "stop");
    if (!start || !stop) return Error{nameOf(layer) + ": the times of its effect are no numbers"};
    effect.start = *start;
    effect.stop = *stop;
    effect.params = paramsOf(child);
    layer.effects.push_back(std::move(effect));
  }
  return {};
}

Outcome readTransitions(const pugi::xml_node& node, Layer& layer) {
  for (const auto& child : node.children("transition")) {
    const auto start = numberAttribute(child, "start");
    const auto stop = numberAttribute(child, "stop");
    if (!start || !stop) return Error{nameOf(layer) + ": the times of its transition are no numbers"};
    const auto clsid = attribute(child, "clsid");
    if (isCutElement(clsid)) continue;
    const auto* kind = findTransition(clsid);
    if (kind == nullptr) return Error{nameOf(layer) + ": there is no transition " + clsid};
    layer.transitions.push_back({kind, *start, *stop, paramsOf(child)});
  }
  return {};
}

class VideoReading {
 public:
  // The tracks and compositions of a group or composition, one above the other.
  Outcome readLayers(const pugi::xml_node& node, std::vector<Layer>& layers, int depth = 0) {
    if (depth > kMaxDepth) return Error{"the compositions of the document are nested too deep"};
    for (const auto& child : node.children()) {
      const std::string_view kind(child.name());
      if (kind == "composite") {
        Layer composition;
        if (auto done = readLayers(child, composition.inside, depth + 1); !done) return done;
        if (composition.inside.empty()) continue;
        composition.start = composition.inside.front().start;
        for (const auto& inner : composition.inside) {
          composition.start = std::min(composition.start, inner.start);
          composition.stop = std::max(composition.stop, inner.stop);
        }
        if (auto done = readEffects(child, composition); !done) return done;
        if (auto done = readTransitions(child, composition); !done) return done;
        layers.push_back(std::move(composition));
      } else if (kind == "track") {
        if (auto done = readTrack(child, layers); !done) return done;
      }
    }
    return {};
  }

  [[nodiscard]] std::size_t clips() const { return clips_; }

 private:
  static constexpr int kMaxDepth = 16;

  Outcome readTrack(const pugi::xml_node& track, std::vector<Layer>& layers) {
    const auto before = layers.size();
    for (const auto& node : track.children("clip")) {
      Layer layer;
      if (auto done = readClip(node, layer); !done) return done;
      if (auto done = readEffects(node, layer); !done) return done;
      layers.push_back(std::move(layer));
      if (++clips_ > kMaxClips) return tooManyClips();
    }
    if (layers.size() > before) return readTransitions(track, layers.back());
    const auto first = track.child("transition");
    return first && !isCutElement(attribute(first, "clsid"))
               ? Outcome(Error{"a transition of the document stands on a track without a clip"})
               : Outcome();
  }

  std::size_t clips_ = 0;
};

Outcome readAudioTrack(const pugi::xml_node& track, Timeline& timeline) {
  for (const auto& node : track.children("clip")) {
    AudioClip clip;
    if (auto done = readClip(node, clip); !done) return done;
    for (const auto& effect : node.children("effect")) {
      if (!sameText(attribute(effect, "clsid"), effect_ids::kAudioEnvelope)) {
        return Error{"clip " + clip.src + ": there is no sound effect " + attribute(effect, "clsid")};
      }
      // The volume stands in the effect or, where that is closed at once, behind it in the clip.
      const auto params = paramsOf(effect.child("param") ? effect : node);
      const auto* volume = params.find("vol");
      clip.envelopes.push_back(volume == nullptr ? Keyed{1, {}} : volume->number);
    }
    timeline.audio.push_back(std::move(clip));
  }
  return {};
}

Outcome readVideoGroup(const pugi::xml_node& group, Timeline& timeline) {
  const auto width = numberAttribute(group, "width");
  const auto height = numberAttribute(group, "height");
  const auto perSecond = numberAttribute(group, "framerate");
  const auto depth = numberAttribute(group, "bitdepth");
  if (!width || !height || *width < 2 || *height < 2 || *width > kMaxSide || *height > kMaxSide) {
    return Error{"the movie's size " + attribute(group, "width") + " x " + attribute(group, "height") +
                 " is not within 2 to " + std::to_string(kMaxSide)};
  }
  const auto rate = FrameRate::fromDecimal(perSecond.value_or(0));
  if (!rate || *perSecond < 1 || *perSecond > 1000) {
    return Error{"the movie's frame rate " + attribute(group, "framerate") + " is not within 1 to 1000"};
  }
  timeline.hasVideo = true;
  timeline.width = toLongClamped(*width);
  timeline.height = toLongClamped(*height);
  timeline.frameRate = *rate;
  timeline.bitDepth = depth ? toLongClamped(*depth) : 24;
  if (timeline.bitDepth != 16 && timeline.bitDepth != 24 && timeline.bitDepth != 32) timeline.bitDepth = 24;
  return {};
}

}  // namespace

Result<Timeline> readDocument(std::string text) {
  if (text.size() > kMaxDocumentBytes) return Error{"the document is larger than 256 MB"};
  hideQuotesInNames(text);
  pugi::xml_document document;
  const auto parsed =
      document.load_buffer_inplace(text.data(), text.size(), pugi::parse_minimal, pugi::encoding_utf8);
  if (!parsed) {
    return Error{std::string("the document is damaged at byte ") + std::to_string(parsed.offset) + ": " +
                 parsed.description()};
  }
  const auto root = document.child("timeline");
  if (!root) return Error{"this is no timeline document: it has no <timeline>"};

  Timeline timeline;
  VideoReading video;
  for (const auto& group : root.children("group")) {
    if (sameText(group.attribute("type").value(), "video")) {
      // A further group lies above the first, which says what the movie is like.
      if (!timeline.hasVideo) {
        if (auto done = readVideoGroup(group, timeline); !done) return done.error();
      }
      if (auto done = video.readLayers(group, timeline.video); !done) return done.error();
    } else {
      for (const auto& track : group.children("track")) {
        if (auto done = readAudioTrack(track, timeline); !done) return done.error();
        if (video.clips() + timeline.audio.size() > kMaxClips) return tooManyClips();
      }
    }
  }
  if (timeline.length() <= 0) return Error{"the document has no clips"};
  return timeline;
}

}  // namespace kvo::engine
