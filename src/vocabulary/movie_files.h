// The kinds of file that a movie can be made as, and what each of them holds.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kvo {

enum class OutputKind {
  Wmv,  ///< Opt_CompressorType 0, as Wma
  Wma,
  Avi,
  Wav,
  Mp4,
  Mov,
  WebM,
  Gif,
  Flac,
  Mp3,
  M4a,
};

enum class VideoCodec {
  Raw,    ///< uncompressed, bottom row first, at the bit depth asked for
  Mpeg4,  ///< MPEG-4 part 2
  Wmv2,   ///< Windows Media Video 8
  H264,   ///< tagged as BT.709, as all below
  Vp9,
  Av1,
  ProRes,  ///< 422 HQ, 10 bits
  Gif,     ///< 256 colours, chosen anew every few seconds
};

enum class SoundCodec { Pcm, Wma2, Aac, Opus, Flac, Mp3 };

/// What a file is like where nothing else is asked for.
struct MovieFile {
  OutputKind kind{};
  std::string_view extension;  ///< in capitals
  const char* muxer = "";      ///< FFmpeg's
  bool hasPicture = true;
  VideoCodec codec = VideoCodec::Raw;
  std::optional<SoundCodec> sound{};  ///< none for a file without any
  int sampleRate = 44100;
  int soundBits = 0;       ///< a second; 0 where it is not compressed, or without loss
  const char* about = "";  ///< what is in it, whole: "H.264 and AAC"
};

const MovieFile& movieFileOf(OutputKind kind);

/// By the extension of a file name in any case; nothing for another one.
std::optional<OutputKind> outputKindOf(std::string_view path);

/// ".WMV, .WMA or .M4A": all extensions, or those of sound alone.
std::string extensionsText(bool soundOnly);

constexpr bool isWindowsMedia(OutputKind kind) { return kind == OutputKind::Wmv || kind == OutputKind::Wma; }

/// Who encodes the pictures of an MP4.
enum class EncoderWish {
  Software,
  Auto,      ///< a device where one works; else the software, and that is told
  Hardware,  ///< a device; without one that works there is no movie
};

/// "software", "auto", "hardware"; and back.
std::string_view encoderWord(EncoderWish wish);
std::optional<EncoderWish> encoderNamed(std::string_view word);

/// The codecs that a kind of file takes, its own first.
std::span<const VideoCodec> codecsOf(OutputKind kind);

/// Which sides of a codec's pictures are even, whatever is asked for.
struct EvenSides {
  bool width = false;
  bool height = false;
};
EvenSides evenSidesOf(VideoCodec codec);

/// The word of a codec on a command line: "raw", "mpeg4", "h264", "vp9", "av1"; and back.
std::string_view codecWord(VideoCodec codec);
std::optional<VideoCodec> codecNamed(std::string_view word);

}  // namespace kvo
