#include "media/media_look.h"

#include "base/text.h"
#include "media/container_traits.h"
#include "media/facts_of.h"
#include "media/heif.h"

#include <utility>

namespace kvo::media {
namespace {

constexpr std::size_t kLongestTag = 1000;  // characters

std::string tagOf(const AVDictionary* tags, const char* name) {
  const auto* found = av_dict_get(tags, name, nullptr, 0);
  return found == nullptr ? std::string() : std::string(cutTo(found->value, kLongestTag));
}

// Those of the file, or else those of its sound, which is where some containers keep them.
std::string tagOf(const AVFormatContext& format, const char* name) {
  auto text = tagOf(format.metadata, name);
  for (unsigned i = 0; text.empty() && i < format.nb_streams; ++i) {
    if (format.streams[i]->codecpar->codec_type == AVMEDIA_TYPE_AUDIO)
      text = tagOf(format.streams[i]->metadata, name);
  }
  return text;
}

// The best stream of a kind cannot be decoded.
bool lacksDecoder(AVFormatContext& format, AVMediaType kind) {
  const int stream = av_find_best_stream(&format, kind, -1, -1, nullptr, 0);
  return stream >= 0 && avcodec_find_decoder(format.streams[stream]->codecpar->codec_id) == nullptr;
}

}  // namespace

MediaLook lookInto(const std::string& path) {
  if (isHeif(path)) {
    auto facts = heifFacts(path);
    return facts ? MediaLook{.facts = std::move(*facts)} : MediaLook{.errorText = facts.error().text};
  }
  auto opened = openInput(path);
  if (!opened) return {.errorText = opened.error().text};
  auto& format = **opened;
  MediaLook look;
  look.tags = {tagOf(format, "title"), tagOf(format, "artist"), tagOf(format, "album"),
               tagOf(format, "genre")};
  if (auto facts = factsOf(format, path)) {
    look.facts = std::move(*facts);
  } else {
    look.errorText = facts.error().text;
  }
  // A film whose sound alone cannot be decoded plays without it.
  if (lacksDecoder(format, AVMEDIA_TYPE_VIDEO) ||
      (!look.facts.hasVideo && lacksDecoder(format, AVMEDIA_TYPE_AUDIO)))
    look.errorText = kNoDecompressor;
  if (isProtected(format)) look.errorText = kDrmProtected;
  return look;
}

}  // namespace kvo::media
