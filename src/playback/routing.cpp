#include "playback/routing.h"

#include "base/paths.h"
#include "base/text.h"
#include "playback/clip_kinds.h"

#include <algorithm>
#include <array>
#include <span>

namespace kvo {
namespace {

using Words = std::span<const std::string_view>;

constexpr std::array<std::string_view, 4> kSystemsWithoutGraphs{"NT4", "NT3", "95", "98"};

// As extensionOf gives them, with three letters at most.
constexpr std::array<std::string_view, 3> kMpeg{"PEG", "MPG", "M2P"};
constexpr std::array<std::string_view, 11> kAskProbe{"WMV", "ASF", "WMA", "WAX", "WM", "WMP",
                                                     "WPL", "WVX", "AU",  "SND", "MPA"};

constexpr std::string_view kUnknown = "Unknown";
constexpr std::string_view kBuffered = "WMV7(Buffrd)";
constexpr std::string_view kRerouted = "WMV7 - BuffReRoute";

constexpr std::array<std::string_view, 11> kGraphWords{
    "MPEG",        "DVD",          "WMV8",        "WMV7",   "WMV9",   "WMV Screen V9",
    "MS MPEG4 V3", "ISO MPEG4 V1", "WMV7 Screen", kUnknown, kRerouted};

bool among(Words words, std::string_view word) { return std::ranges::find(words, word) != words.end(); }

EngineRoute forced(const RoutingFacts& facts, std::string_view extension) {
  if (isDvdFile(facts.path)) return EngineRoute::MpegOrDvd;
  if (facts.MPEGRoutingVMR && among(kMpeg, extension)) return EngineRoute::MpegOrDvd;
  return extension == "AVI" && facts.IsCorona ? EngineRoute::AviByCorona : EngineRoute::NotForced;
}

}  // namespace

Routing routeOf(const RoutingFacts& facts, const std::function<std::string()>& videoCodec) {
  // An address is opened step by step, which only the engine of properties tells of.
  if (among(kSystemsWithoutGraphs, facts.system) || isAddress(facts.path)) return {};
  const auto extension = extensionOf(facts.path);
  const auto probed = [&] {
    auto word = videoCodec();
    if (word.empty()) return std::string(kUnknown);
    return word == kBuffered ? std::string(kRerouted) : word;
  };
  Routing routing{.route = forced(facts, extension), .codecWord = "NOTCORONA"};
  if (routing.route == EngineRoute::MpegOrDvd) {
    routing.codecWord = isDvdFile(facts.path) ? "DVD" : "MPEG";
  } else if (routing.route == EngineRoute::AviByCorona || among(kAskProbe, extension)) {
    routing.codecWord = probed();
  }
  routing.corona = among(kGraphWords, routing.codecWord);
  return routing;
}

bool isSoundOfGraph(std::string_view path) {
  const auto extension = extensionOf(path);
  return extension == "WMA" || extension == "WAV";
}

}  // namespace kvo
