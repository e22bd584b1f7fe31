#include "media/container_traits.h"

#include <algorithm>

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

}  // namespace

const ContainerTraits& traitsOf(const AVFormatContext& format) {
  const std::string_view names(format.iformat->name);
  if (names.ends_with("_pipe")) return kStill;  // "png_pipe": each format of stills has a demuxer of its own
  const auto name = names.substr(0, names.find(','));
  const auto* row = std::find_if(std::begin(kKinds), std::end(kKinds),
                                 [&](const ContainerTraits& kind) { return kind.name == name; });
  return row == std::end(kKinds) ? kOthers : *row;
}

}  // namespace kvo::media
