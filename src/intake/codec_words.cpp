#include "intake/codec_words.h"

#include "base/text.h"
#include "intake/stream_phrases.h"

#include <optional>
#include <span>

namespace kvo {
namespace {

constexpr std::string_view kUnknownWord = "Unknown";
constexpr std::string_view kBufferedWord = "WMV7(Buffrd)";
constexpr int kProbeTries = 40;
constexpr int kTestTries = 20;

bool holds(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

// What the report says from a stream's own words on; nothing when it tells of no such stream.
std::optional<std::string_view> from(std::string_view report, std::string_view words) {
  const auto begin = report.find(words);
  if (begin == std::string_view::npos) return std::nullopt;
  return report.substr(begin);
}

std::string_view lastOf(std::span<const CodecPhrase> rows, std::string_view text) {
  std::string_view word;
  for (const auto& row : rows) {
    if (holds(text, row.phrase)) word = row.word;
  }
  return word;
}

std::string bitRate(std::string_view text) {
  const auto begin = text.find(kRateBegin);
  if (begin == std::string_view::npos) return {};
  const auto rest = text.substr(begin + kRateBegin.size());
  const auto end = rest.find(kRateEnd);
  if (end == std::string_view::npos) return {};
  std::string rate(rest.substr(0, end));
  std::erase_if(rate, [](char c) { return c == 'b' || c == 'p' || c == 's'; });
  return std::string(trimmed(rate));
}

}  // namespace

CodecWords readCodecWords(std::string_view report, std::string_view extension) {
  const std::string unknown(kUnknownWord);
  if (holds(report, kProbeFailed)) return {unknown, "0", unknown, unknown};
  CodecWords words;
  words.isDrm = holds(report, kProtectedPhrase);
  words.seekable = !holds(report, kUnseekablePhrase);

  const auto audio = from(report, kAudioPhrase);
  words.audioCodec = audio ? lastOf(kAudioCodecs, *audio) : std::string_view();
  if (words.audioCodec.empty()) words.audioCodec = unknown;
  if (audio) words.audioBitRate = bitRate(*audio);

  const bool asf = extension == "ASF";
  if (const auto video = from(report, kVideoPhrase)) {
    words.videoCodec = lastOf(kVideoCodecs, *video);
    words.videoBitRate = bitRate(*video);
    if (words.videoCodec == "WMV7" && !words.seekable) words.videoCodec = kBufferedWord;
    if (words.videoCodec.empty() && asf) words.videoCodec = kBufferedWord;
  } else if (asf && holds(report, std::string(kStreamsPhrase) + "3 ")) {
    words.videoCodec = kBufferedWord;
  }
  return words;
}

CodecWords GetWMVVer(Collection& collection, int number, const std::string& path, StreamProbe& probe) {
  auto& clips = collection.MovieList;
  if (number < 1 || number > clips.count()) return {};
  const auto* asked = &clips[number];
  if (!trimmed(asked->VideoCodec()).empty())
    return {asked->VideoCodec(), asked->VideoBitRate(), asked->AudioCodec(), asked->AudioBitRate()};
  const auto report = probe.report(path, kProbeTries);
  const int now = clips.numberOf(asked);
  if (!report || now < 1) return {};
  auto& clip = clips[now];
  auto words = readCodecWords(*report, extensionOf(path));
  // What the file tells no sound of stays as it is.
  if (!holds(*report, kProbeFailed) && !holds(*report, kAudioPhrase))
    words.audioBitRate = std::string(trimmed(clip.AudioBitRate()));
  clip.VideoCodec(words.videoCodec);
  clip.VideoBitRate(words.videoBitRate);
  clip.AudioCodec(words.audioCodec);
  clip.AudioBitRate(words.audioBitRate);
  return words;
}

bool tellsOfWindowsMedia(std::string_view report) {
  if (holds(report, kProbeFailed)) return false;
  if (holds(report, kVideoCodecs[0].phrase)) return true;
  return !holds(report, kOtherContainerPhrase) &&
         (holds(report, kAudioPhrase) || holds(report, kVideoPhrase));
}

bool IsWMV(const std::string& path, StreamProbe& probe) {
  const auto report = probe.report(path, kTestTries);
  return report && tellsOfWindowsMedia(*report);
}

}  // namespace kvo
