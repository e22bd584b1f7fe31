#include "render/output_kinds.h"

#include "base/text.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr std::array kOutputKinds{
    OutputKindRow{
        OutputKind::Avi, "AVI", "film", "Full Frames Uncompressed AVI",
        "Highest quality, no compression: files will be VERY large.",
        "(Output HxW is maintained)\r\n"
        "Highest quality output as no compression is applied but file sizes will be VERY large - Use "
        "this if you want to compress to the highest quality movies in an alternative format such as "
        "MPEG,  DivX, QuickTime or RealMedia."},
    OutputKindRow{OutputKind::Wmv, "WMV", "movie", "Windows Media Format (WMV)",
                  "For the web, mail and playing anywhere. Choose the quality from the list."},
    OutputKindRow{OutputKind::Wma, "WMA", "music", "Windows Media Audio (WMA)",
                  "The sound of the movie alone.", "", false},
    OutputKindRow{
        OutputKind::Wav, "WAV", "vol", "44.1Khz Stereo WAV",
        "Exceptional sound, large files. For compressing later to another format.",
        "A 44.1Khz Stereo PCM format WAV file will be created. Use this format if you wish to compress "
        "later to a different format such as WM9 Professional or RealAudio. 44.1Khz WAV files offer "
        "exceptional quality but require large amounts of disk space.",
        false}};

}  // namespace

std::span<const OutputKindRow> outputKinds() { return kOutputKinds; }

const OutputKindRow& kindRow(OutputKind kind) {
  return *std::find_if(kOutputKinds.begin(), kOutputKinds.end() - 1,
                       [&](const auto& row) { return row.kind == kind; });
}

const OutputKindRow* kindNamed(std::string_view extension) {
  const auto* found = std::find_if(kOutputKinds.begin(), kOutputKinds.end(),
                                   [&](const auto& row) { return sameText(row.extension, extension); });
  return found == kOutputKinds.end() ? nullptr : found;
}

}  // namespace kvo
