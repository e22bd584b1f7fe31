#include "engine/document_reader.h"

#include "base/numbers.h"
#include "base/text.h"
#include "engine/transitions/registry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>

#include <pugixml.hpp>

namespace kvo::engine {
namespace {

constexpr std::string_view kAudioEnvelope = "{036A9790-C153-11d2-9EF7-006008039E37}";
constexpr char kHiddenQuote = '\x01';  // stands for a quote inside a name while the XML is parsed

// A name may hold quote characters. A clip's name ends where its next attribute begins.
void hideQuotesInNames(std::string& text) {
  constexpr std::string_view kOpen = "<clip src=\"";
  constexpr std::array<std::string_view, 3> kEnds = {"\" mstart=\"", "\"  stretchmode=\"",
                                                     "\" stretchmode=\""};
  for (auto at = text.find(kOpen); at != std::string::npos; at = text.find(kOpen, at)) {
    at += kOpen.size();
    const auto lineEnd = std::min(text.find('\n', at), text.size());
    const auto line = std::string_view(text).substr(0, lineEnd);
    auto end = std::string_view::npos;
    for (const auto mark : kEnds) end = std::min(end, line.find(mark, at));
    if (end != std::string_view::npos)
      std::replace(text.begin() + static_cast<std::ptrdiff_t>(at),
                   text.begin() + static_cast<std::ptrdiff_t>(end), '"', kHiddenQuote);
  }
}

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

media::Fit fitOf(std::string_view mode) {
  if (sameText(mode, "preserveaspectratio")) return media::Fit::Letterbox;
  if (sameText(mode, "preserveaAspectrationoletterbox")) return media::Fit::Fill;
  if (sameText(mode, "crop")) return media::Fit::Crop;
  return media::Fit::Stretch;
}

Keyed keyedParam(const pugi::xml_node& param) {
  Keyed keyed{ToNumber(param.attribute("value").value()), {}};
  for (const auto& key : param.children()) {
    const std::string_view kind(key.name());
    if (kind != "linear" && kind != "at") continue;
    keyed.keys.push_back({ToNumber(key.attribute("time").value()), ToNumber(key.attribute("value").value()),
                          kind == "linear"});
  }
  std::stable_sort(keyed.keys.begin(), keyed.keys.end(),
                   [](const auto& a, const auto& b) { return a.time < b.time; });
  return keyed;
}

pugi::xml_node paramNamed(const pugi::xml_node& node, std::string_view name) {
  for (const auto& param : node.children("param")) {
    if (sameText(param.attribute("name").value(), name)) return param;
  }
  return {};
}

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

Outcome readVideoTrack(const pugi::xml_node& track, Timeline& timeline) {
  for (const auto& node : track.children("clip")) {
    VideoClip clip;
    if (auto done = readClip(node, clip); !done) return done;
    if (const auto effect = node.child("effect")) {
      return Error{"clip " + clip.src + ": there is no effect " + attribute(effect, "clsid")};
    }
    timeline.video.push_back(std::move(clip));
  }
  for (const auto& node : track.children("transition")) {
    if (timeline.video.empty()) return Error{"a transition of the document stands ahead of every clip"};
    auto& clip = timeline.video.back();
    Transition transition{attribute(node, "clsid"), 0, 0, {}, {}};
    const auto start = numberAttribute(node, "start");
    const auto stop = numberAttribute(node, "stop");
    if (!start || !stop) return Error{"clip " + clip.src + ": the times of its transition are no numbers"};
    if (isCutElement(transition.clsid)) continue;
    if (findTransition(transition.clsid) == nullptr) {
      return Error{"clip " + clip.src + ": there is no transition " + transition.clsid};
    }
    transition.start = *start;
    transition.stop = *stop;
    for (const auto& param : node.children("param")) {
      transition.params.emplace(lower(param.attribute("name").value()), param.attribute("value").value());
    }
    transition.progress = keyedParam(paramNamed(node, "Progress"));
    clip.transitions.push_back(std::move(transition));
  }
  return {};
}

Outcome readAudioTrack(const pugi::xml_node& track, Timeline& timeline) {
  for (const auto& node : track.children("clip")) {
    AudioClip clip;
    if (auto done = readClip(node, clip); !done) return done;
    for (const auto& effect : node.children("effect")) {
      if (!sameText(attribute(effect, "clsid"), kAudioEnvelope)) {
        return Error{"clip " + clip.src + ": there is no sound effect " + attribute(effect, "clsid")};
      }
      clip.envelopes.push_back(keyedParam(paramNamed(effect, "Vol")));
    }
    timeline.audio.push_back(std::move(clip));
  }
  return {};
}

Outcome readVideoGroup(const pugi::xml_node& group, Timeline& timeline) {
  const auto width = numberAttribute(group, "width");
  const auto height = numberAttribute(group, "height");
  const auto rate = numberAttribute(group, "framerate");
  const auto depth = numberAttribute(group, "bitdepth");
  if (!width || !height || *width < 2 || *height < 2 || *width > kMaxSide || *height > kMaxSide) {
    return Error{"the movie's size " + attribute(group, "width") + " x " + attribute(group, "height") +
                 " is not within 2 to " + std::to_string(kMaxSide)};
  }
  if (!rate || *rate <= 0 || *rate > 1000) {
    return Error{"the movie's frame rate " + attribute(group, "framerate") + " is not within 0 to 1000"};
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
  for (const auto& group : root.children("group")) {
    const bool isVideo = sameText(group.attribute("type").value(), "video");
    if (isVideo) {
      if (auto done = readVideoGroup(group, timeline); !done) return done.error();
    }
    for (const auto& track : group.children("track")) {
      if (auto done = isVideo ? readVideoTrack(track, timeline) : readAudioTrack(track, timeline); !done) {
        return done.error();
      }
      if (timeline.video.size() + timeline.audio.size() > kMaxClips) {
        return Error{"the document has more than " + std::to_string(kMaxClips) + " clips"};
      }
    }
  }
  if (timeline.length() <= 0) return Error{"the document has no clips"};
  return timeline;
}

}  // namespace kvo::engine
