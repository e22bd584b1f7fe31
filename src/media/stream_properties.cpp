#include "media/stream_properties.h"

#include "media/container_traits.h"
#include "media/facts_of.h"
#include "media/ffmpeg.h"
#include "media/heif.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>

namespace kvo::media {
namespace {

// Whether an ASF can be sought in, by the flags of its File Properties Object.
// FFmpeg reads the flag, and keeps it for itself.
bool asfTellsUnseekable(const std::string& path) {
  constexpr std::string_view kFileProperties(
      "\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4\x00\xC0\x0C\x20\x53\x65", 16);
  constexpr std::size_t kFlags = 88;  // from the object's begin
  constexpr unsigned kSeekable = 2;
  std::array<char, 65536> head{};
  std::ifstream file(path, std::ios::binary);
  file.read(head.data(), head.size());
  const std::string_view bytes(head.data(), static_cast<std::size_t>(file.gcount()));
  const auto at = bytes.find(kFileProperties);
  if (at == std::string_view::npos || at + kFlags >= bytes.size()) return false;
  return (static_cast<unsigned char>(bytes[at + kFlags]) & kSeekable) == 0;
}

StreamProperty propertyOf(const AVStream& stream) {
  const auto& p = *stream.codecpar;
  StreamProperty property;
  if (p.codec_type == AVMEDIA_TYPE_AUDIO) property.kind = StreamProperty::Kind::Audio;
  // The cover picture of a piece of music is no video.
  if (p.codec_type == AVMEDIA_TYPE_VIDEO && (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) == 0)
    property.kind = StreamProperty::Kind::Video;
  property.codec = avcodec_get_name(p.codec_id);
  const auto* descriptor = avcodec_descriptor_get(p.codec_id);
  property.codecName = descriptor != nullptr && descriptor->long_name != nullptr ? descriptor->long_name : "";
  if (const auto* language = av_dict_get(stream.metadata, "language", nullptr, 0))
    property.language = language->value;
  property.bitRate = static_cast<double>(std::max<std::int64_t>(p.bit_rate, 0));
  property.width = p.width;
  property.height = p.height;
  property.frameRate = stream.avg_frame_rate.den > 0 ? av_q2d(stream.avg_frame_rate) : 0;
  property.sampleRate = p.sample_rate;
  property.channels = p.ch_layout.nb_channels;
  return property;
}

// A file whose one stream tells no rate: what the whole file has.
void fillRate(StreamProperties& properties) {
  StreamProperty* untold = nullptr;
  double told = 0;
  for (auto& stream : properties.streams) {
    if (stream.kind == StreamProperty::Kind::Other) continue;
    told += stream.bitRate;
    if (stream.bitRate > 0) continue;
    if (untold != nullptr) return;
    untold = &stream;
  }
  if (untold != nullptr) untold->bitRate = std::max(properties.bitRate - told, 0.0);
}

// FFmpeg takes a picture for a film of one, of 25 a second.
void becomeStill(StreamProperties& properties) {
  properties.isStill = true;
  properties.duration = properties.bitRate = 0;
  for (auto& stream : properties.streams) stream.frameRate = stream.bitRate = 0;
}

Result<StreamProperties> heifProperties(const std::string& path) {
  const auto facts = heifFacts(path);
  if (!facts) return facts.error();
  StreamProperties properties;
  properties.container = "HEIF (High Efficiency Image File Format)";
  properties.isStill = true;
  properties.streams.push_back({.kind = StreamProperty::Kind::Video,
                                .codec = facts->codec == "AVIF" ? "avif" : "heic",
                                .codecName = facts->codec,
                                .width = facts->width,
                                .height = facts->height});
  return properties;
}

}  // namespace

Result<StreamProperties> readStreamProperties(const std::string& path) {
  if (isHeif(path)) return heifProperties(path);
  const auto opened = openInput(path);
  if (!opened) return opened.error();
  const auto& format = **opened;
  if (format.nb_streams == 0) return Error{"cannot open " + path + ": it is no media file, or damaged"};
  StreamProperties properties;
  properties.container =
      format.iformat->long_name != nullptr ? format.iformat->long_name : format.iformat->name;
  properties.isWindowsMedia = std::string_view(format.iformat->name) == "asf";
  properties.isProtected = isProtected(format);
  properties.isSeekable = (format.ctx_flags & AVFMTCTX_UNSEEKABLE) == 0 &&
                          !(properties.isWindowsMedia && asfTellsUnseekable(path));
  properties.duration = wholeLength(**opened);
  properties.bitRate = static_cast<double>(std::max<std::int64_t>(format.bit_rate, 0));
  for (unsigned i = 0; i < format.nb_streams; ++i)
    properties.streams.push_back(propertyOf(*format.streams[i]));
  fillRate(properties);
  if (traitsOf(format).isStill) becomeStill(properties);
  const AVDictionaryEntry* tag = nullptr;
  while ((tag = av_dict_get(format.metadata, "", tag, AV_DICT_IGNORE_SUFFIX)) != nullptr)
    properties.tags.emplace_back(tag->key, tag->value);
  return properties;
}

}  // namespace kvo::media
