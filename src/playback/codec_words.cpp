#include "playback/codec_words.h"

#include "base/text.h"

#include <optional>
#include <span>

namespace kvo {
namespace {

struct CodecRow {
  std::string_view found;  // in the report
  std::string_view word;
};

// Tried from the first to the last; the last that is found holds.
constexpr CodecRow kAudioCodecs[] = {
    {"WMA V9", "WMA V9"},      {"WMA V9 (Lossless", "WMA V9 (LossLess)"},
    {"WMA V7/V8", "WMA V7/8"}, {"WMA Speech Codec V9", "WMA Speech V9"},
    {"WMA V2", "WMA V2"},      {"ACELP", "ACELP.net"},
};
constexpr CodecRow kVideoCodecs[] = {
    {"WMV V7", "WMV7"},
    {"WMV Screen V7", "WMV7 Screen"},
    {"WMV Screen V9", "WMV Screen V9"},
    {"WMV V8", "WMV8"},
    {"WMV V9", "WMV9"},
    {"MS MPEG-4 V3", "MS MPEG4 V3"},
    {"ISO MPEG-4 V1", "ISO MPEG4 V1"},
};

constexpr std::string_view kUnknownWord = "Unknown";
constexpr std::string_view kBufferedWord = "WMV7(Buffrd)";
constexpr int kProbeTries = 40;

bool holds(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

// What the report says from a stream's own words on; nothing when it tells of no such stream.
std::optional<std::string_view> from(std::string_view report, std::string_view words) {
  const auto begin = report.find(words);
  if (begin == std::string_view::npos) return std::nullopt;
  return report.substr(begin);
}

std::string_view lastOf(std::span<const CodecRow> rows, std::string_view text) {
  std::string_view word;
  for (const auto& row : rows) {
    if (holds(text, row.found)) word = row.word;
  }
  return word;
}

// Between "rate:" and "bps".
std::string bitRate(std::string_view text) {
  constexpr std::string_view kBegin = "rate:";
  const auto begin = text.find(kBegin);
  if (begin == std::string_view::npos) return {};
  const auto rest = text.substr(begin + kBegin.size());
  const auto end = rest.find("bps");
  if (end == std::string_view::npos) return {};
  std::string rate(rest.substr(0, end));
  std::erase_if(rate, [](char c) { return c == 'b' || c == 'p' || c == 's'; });
  return std::string(trimmed(rate));
}

}  // namespace

CodecWords readCodecWords(std::string_view report, std::string_view extension) {
  const std::string unknown(kUnknownWord);
  if (holds(report, "KVO_FAIL")) return {unknown, "0", unknown, unknown};
  CodecWords words;
  words.isDrm = holds(report, "Is Protected (DRM): true");
  words.seekable = !holds(report, "Seekable: false");

  const auto audio = from(report, "Audio Stream proper");
  words.audioCodec = audio ? lastOf(kAudioCodecs, *audio) : std::string_view();
  if (words.audioCodec.empty()) words.audioCodec = unknown;
  if (audio) words.audioBitRate = bitRate(*audio);

  const bool asf = extension == "ASF";
  if (const auto video = from(report, "Video Stream proper")) {
    words.videoCodec = lastOf(kVideoCodecs, *video);
    words.videoBitRate = bitRate(*video);
    if (words.videoCodec == "WMV7" && !words.seekable) words.videoCodec = kBufferedWord;
    if (words.videoCodec.empty() && asf) words.videoCodec = kBufferedWord;
  } else if (asf && holds(report, "NoofStreams 3 ")) {
    words.videoCodec = kBufferedWord;
  }
  return words;
}

CodecWords GetWMVVer(Movie& clip, const std::string& path, StreamProbe& probe) {
  if (!trimmed(clip.VideoCodec()).empty())
    return {clip.VideoCodec(), clip.VideoBitRate(), clip.AudioCodec(), clip.AudioBitRate()};
  const auto report = probe.report(path, kProbeTries);
  if (!report) return {};
  auto words = readCodecWords(*report, extensionOf(path));
  clip.VideoCodec(words.videoCodec);
  clip.VideoBitRate(words.videoBitRate);
  clip.AudioCodec(words.audioCodec);
  clip.AudioBitRate(words.audioBitRate);
  return words;
}

}  // namespace kvo
