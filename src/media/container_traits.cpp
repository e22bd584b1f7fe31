#include "media/container_traits.h"

#include <algorithm>
#include <array>

namespace kvo::media {
namespace {

constexpr ContainerTraits kOthers;
constexpr ContainerTraits kStill{.name = "image2", .isStill = true};

constexpr ContainerTraits kKinds[] = {
    kStill,
    {.name = "avi", .numbersChunks = true, .tellsLengthOfEach = true},
    {.name = "mov", .tellsLengthOfEach = true},
    {.name = "mpeg", .beginsAnywhere = true},
    {.name = "mpegvideo", .hasNoTimes = true},
    {.name = "mpegts", .beginsAnywhere = true, .tellsSizeLate = true},
    {.name = "aiff", .guessesSoundTimes = true},
    {.name = "au", .guessesSoundTimes = true},
    {.name = "caf", .guessesSoundTimes = true},
    {.name = "w64", .guessesSoundTimes = true},
    {.name = "wav", .guessesSoundTimes = true},
    {.name = "concat", .refersToOthers = true},
    {.name = "dash", .refersToOthers = true},
    {.name = "hls", .refersToOthers = true},
    {.name = "imf", .refersToOthers = true},
    {.name = "sdp", .refersToOthers = true},
};

bool isLocked(const AVStream& stream) {
  constexpr std::array kLockedKinds = {MKTAG('d', 'r', 'm', 's'), MKTAG('d', 'r', 'm', 'i'),
                                       MKTAG('e', 'n', 'c', 'v'), MKTAG('e', 'n', 'c', 'a')};
  const auto tag = stream.codecpar->codec_tag;
  return std::any_of(kLockedKinds.begin(), kLockedKinds.end(), [&](auto kind) { return tag == kind; }) ||
         av_stream_get_side_data(&stream, AV_PKT_DATA_ENCRYPTION_INIT_INFO, nullptr) != nullptr;
}

}  // namespace

const ContainerTraits& traitsOf(const AVFormatContext& format) {
  const std::string_view names(format.iformat->name);
  if (names.ends_with("_pipe")) return kStill;  // "png_pipe": each format of stills has a demuxer of its own
  const auto name = names.substr(0, names.find(','));
  const auto* row = std::find_if(std::begin(kKinds), std::end(kKinds),
                                 [&](const ContainerTraits& kind) { return kind.name == name; });
  return row == std::end(kKinds) ? kOthers : *row;
}

bool isProtected(const AVFormatContext& format) {
  return av_dict_get(format.metadata, "ASF_Protection_Type", nullptr, 0) != nullptr ||
         std::any_of(format.streams, format.streams + format.nb_streams,
                     [](const auto* stream) { return isLocked(*stream); });
}

}  // namespace kvo::media
