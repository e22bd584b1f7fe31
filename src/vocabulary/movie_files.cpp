#include "vocabulary/movie_files.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kvo {
namespace {

// clang-format off
constexpr std::array<MovieFile, 11> kFiles = {{
    {OutputKind::Wmv,  "WMV",  "asf",  true,  VideoCodec::Wmv2,   SoundCodec::Wma2, 44100, 128000, "Windows Media"},
    {OutputKind::Wma,  "WMA",  "asf",  false, VideoCodec::Raw,    SoundCodec::Wma2, 44100, 192000, "Windows Media Audio"},
    {OutputKind::Avi,  "AVI",  "avi",  true,  VideoCodec::Raw,    SoundCodec::Pcm,  44100, 0, "uncompressed"},
    {OutputKind::Wav,  "WAV",  "wav",  false, VideoCodec::Raw,    SoundCodec::Pcm,  44100, 0, "uncompressed"},
    {OutputKind::Mp4,  "MP4",  "mp4",  true,  VideoCodec::H264,   SoundCodec::Aac,  44100, 160000, "H.264 and AAC"},
    {OutputKind::Mov,  "MOV",  "mov",  true,  VideoCodec::ProRes, SoundCodec::Pcm,  48000, 0, "ProRes and PCM"},
    {OutputKind::WebM, "WEBM", "webm", true,  VideoCodec::Vp9,    SoundCodec::Opus, 48000, 128000, "VP9 and Opus"},
    {OutputKind::Gif,  "GIF",  "gif",  true,  VideoCodec::Gif,    {},               44100, 0, "256 colours, no sound"},
    {OutputKind::Flac, "FLAC", "flac", false, VideoCodec::Raw,    SoundCodec::Flac, 44100, 0, "compressed without loss"},
    {OutputKind::Mp3,  "MP3",  "mp3",  false, VideoCodec::Raw,    SoundCodec::Mp3,  44100, 192000, "MP3"},
    {OutputKind::M4a,  "M4A",  "ipod", false, VideoCodec::Raw,    SoundCodec::Aac,  44100, 192000, "AAC"},
}};
// clang-format on

constexpr std::array<std::string_view, 8> kCodecWords = {"raw", "mpeg4", "wmv2",   "h264",
                                                         "vp9", "av1",   "prores", "gif"};
constexpr std::array<std::string_view, 3> kEncoderWords = {"software", "auto", "hardware"};
constexpr std::array kOfAvi = {VideoCodec::Raw, VideoCodec::Mpeg4};
constexpr std::array kOfWebM = {VideoCodec::Vp9, VideoCodec::Av1};

}  // namespace

const MovieFile& movieFileOf(OutputKind kind) { return kFiles.at(static_cast<std::size_t>(kind)); }

std::optional<OutputKind> outputKindOf(std::string_view path) {
  for (const auto& file : kFiles) {
    const auto dot = path.size() - std::min(path.size(), file.extension.size() + 1);
    if (dot > 0 && path[dot] == '.' && sameText(path.substr(dot + 1), file.extension)) return file.kind;
  }
  return std::nullopt;
}

std::string extensionsText(bool soundOnly) {
  std::vector<std::string_view> names;
  for (const auto& file : kFiles) {
    if (!soundOnly || !file.hasPicture) names.push_back(file.extension);
  }
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) text += i + 1 == names.size() ? " or " : ", ";
    text.append(".").append(names[i]);
  }
  return text;
}

std::span<const VideoCodec> codecsOf(OutputKind kind) {
  if (kind == OutputKind::Avi) return kOfAvi;
  if (kind == OutputKind::WebM) return kOfWebM;
  const auto& file = movieFileOf(kind);
  return file.hasPicture ? std::span(&file.codec, 1) : std::span<const VideoCodec>();
}

// Where a sample of colour stands for two pixels of a row, or of a column too.
EvenSides evenSidesOf(VideoCodec codec) {
  switch (codec) {
    case VideoCodec::H264:
    case VideoCodec::Av1:
      return {true, true};
    case VideoCodec::Wmv2:
    case VideoCodec::ProRes:
      return {true, false};
    case VideoCodec::Raw:
    case VideoCodec::Mpeg4:
    case VideoCodec::Vp9:
    case VideoCodec::Gif:
      break;
  }
  return {};
}

std::string_view codecWord(VideoCodec codec) { return kCodecWords.at(static_cast<std::size_t>(codec)); }

std::optional<VideoCodec> codecNamed(std::string_view word) {
  const auto found =
      std::find_if(kCodecWords.begin(), kCodecWords.end(), [&](auto known) { return sameText(known, word); });
  if (found == kCodecWords.end()) return std::nullopt;
  return static_cast<VideoCodec>(found - kCodecWords.begin());
}

std::string_view encoderWord(EncoderWish wish) { return kEncoderWords.at(static_cast<std::size_t>(wish)); }

std::optional<EncoderWish> encoderNamed(std::string_view word) {
  const auto found = std::find_if(kEncoderWords.begin(), kEncoderWords.end(),
                                  [&](auto known) { return sameText(known, word); });
  if (found == kEncoderWords.end()) return std::nullopt;
  return static_cast<EncoderWish>(found - kEncoderWords.begin());
}

}  // namespace kvo
