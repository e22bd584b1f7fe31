// The phrases of a report on a media file's streams: what KVOprop prints, and what the report is read by.
#pragma once

#include <string_view>

namespace kvo {

inline constexpr std::string_view kProbeFailed = "KVO_FAIL";  ///< the file cannot be opened
inline constexpr std::string_view kProtectedPhrase = "Is Protected (DRM): true";
inline constexpr std::string_view kUnseekablePhrase = "Seekable: false";
inline constexpr std::string_view kStreamsPhrase = "NoofStreams ";  ///< their number and a blank follow
inline constexpr std::string_view kAudioPhrase = "Audio Stream proper";
inline constexpr std::string_view kVideoPhrase = "Video Stream proper";
inline constexpr std::string_view kRateBegin = "rate:";  ///< of bits; behind it the number
inline constexpr std::string_view kRateEnd = "bps";
/// The streams that are told of lie in a container of another family.
inline constexpr std::string_view kOtherContainerPhrase = "Is Windows Media: false";

/// What a report calls a codec, what a record calls it, and what FFmpeg calls it: one name, or several apart
/// at blanks.
struct CodecPhrase {
  std::string_view phrase;
  std::string_view word;
  std::string_view names;
};

// Tried from the first to the last; the last that is found holds.
inline constexpr CodecPhrase kAudioCodecs[] = {
    {"WMA V9", "WMA V9", "wmapro"},     {"WMA V9 (Lossless", "WMA V9 (LossLess)", "wmalossless"},
    {"WMA V7/V8", "WMA V7/8", "wmav2"}, {"WMA Speech Codec V9", "WMA Speech V9", "wmavoice"},
    {"WMA V2", "WMA V2", "wmav1"},      {"ACELP", "ACELP.net", "sipr"},
};
inline constexpr CodecPhrase kVideoCodecs[] = {
    {"WMV V7", "WMV7", "wmv1"},
    {"WMV Screen V7", "WMV7 Screen", "mss1"},
    {"WMV Screen V9", "WMV Screen V9", "mss2"},
    {"WMV V8", "WMV8", "wmv2"},
    {"WMV V9", "WMV9", "wmv3 vc1 wmv3image vc1image"},
    {"MS MPEG-4 V3", "MS MPEG4 V3", "msmpeg4v3"},
    {"ISO MPEG-4 V1", "ISO MPEG4 V1", "mpeg4"},
};

}  // namespace kvo
