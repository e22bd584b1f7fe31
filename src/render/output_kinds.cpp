#include "render/output_kinds.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr std::array kOutputKinds{
    OutputKindRow{
        OutputKind::Mp4, "movie", "MP4 movie", "Plays everywhere: phones, televisions, the web, mail.",
        "H.264 and AAC.\r\n"
        "Small files that nearly every phone, television, browser and program plays. The picture has the "
        "size and the rate of the Create page."},
    OutputKindRow{
        OutputKind::Avi, "film", "Full Frames Uncompressed AVI",
        "Highest quality, no compression: files will be VERY large.",
        "(Output HxW is maintained)\r\n"
        "Highest quality output as no compression is applied but file sizes will be VERY large - Use "
        "this if you want to compress to the highest quality movies in an alternative format such as "
        "MPEG,  DivX, QuickTime or RealMedia."},
    OutputKindRow{OutputKind::Wmv, "movie", "Windows Media Format (WMV)",
                  "For programs that want Windows Media. Choose the quality from the list.", ""},
    OutputKindRow{OutputKind::Wma, "music", "Windows Media Audio (WMA)", "The sound of the movie alone.", ""},
    OutputKindRow{
        OutputKind::Wav, "vol", "44.1Khz Stereo WAV",
        "Exceptional sound, large files. For compressing later to another format.",
        "A 44.1Khz Stereo PCM format WAV file will be created. Use this format if you wish to compress "
        "later to a different format such as WM9 Professional or RealAudio. 44.1Khz WAV files offer "
        "exceptional quality but require large amounts of disk space."},
    OutputKindRow{
        OutputKind::WebM, "movie", "WebM movie", "For web pages. Free of patents; takes its time.",
        "VP9 and Opus.\r\nFor web pages: small and free of patents. Making it takes several times as long "
        "as an MP4."},
    OutputKindRow{
        OutputKind::Mov, "film", "MOV for editing elsewhere", "ProRes: hardly any loss, large files.",
        "ProRes 422 HQ and PCM.\r\nFor going on in another editing program: hardly any loss, and every "
        "picture stands on its own. Files are large."},
    OutputKindRow{
        OutputKind::Gif, "film", "Moving GIF", "A short silent loop for pages and messages.",
        "256 colours, no sound.\r\nA silent loop for pages and messages. Keep it small and short: 10 "
        "frames a second and 480 pixels are plenty."},
    OutputKindRow{OutputKind::Mp3, "music", "MP3 sound", "The sound alone, for any player.",
                  "192 kbit a second, stereo.\r\nThe sound of the movie alone, for any player."},
    OutputKindRow{
        OutputKind::M4a, "music", "M4A sound", "The sound alone, finer than MP3 at the same size.",
        "AAC, 192 kbit a second, stereo.\r\nThe sound of the movie alone, for phones and most players."},
    OutputKindRow{
        OutputKind::Flac, "vol", "FLAC sound", "The sound alone without any loss.",
        "16 bits, stereo.\r\nThe sound of the movie alone, as exact as a WAV file in about half the room."}};

}  // namespace

std::span<const OutputKindRow> outputKinds() { return kOutputKinds; }

const OutputKindRow& kindRow(OutputKind kind) {
  return *std::find_if(kOutputKinds.begin(), kOutputKinds.end() - 1,
                       [&](const auto& row) { return row.kind == kind; });
}

}  // namespace kvo
