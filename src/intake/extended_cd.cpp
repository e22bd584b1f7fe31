#include "intake/extended_cd.h"

#include "base/numbers.h"

namespace kvo {
namespace {

constexpr double kSectors = 75;  // a second
constexpr std::size_t kLengthAt = 32;
constexpr std::size_t kCdFile = 44;  // bytes

void takeSeconds(Movie& clip, double seconds) {
  clip.DurationTime(Value(ToNumber(FormatMask(seconds, "0.000"))));
  clip.DurationFrames(Value("N/A"));
  clip.LoopStart(Value(0));
  clip.LoopEnd(clip.DurationTime());
}

}  // namespace

std::string cdTrackName(int track) { return "Track" + FormatMask(track, "00") + ".cda"; }

std::vector<Movie> PopulateFromExtendedCD(const DiscTable& table, const std::string& folder) {
  std::vector<Movie> clips;
  for (std::size_t i = 0; i < table.tracks.size(); ++i) {
    const auto& track = table.tracks[i];
    if (!track.isSound) continue;
    const int end = i + 1 < table.tracks.size() ? table.tracks[i + 1].TrackOffSet : table.end;
    Movie clip;
    clip.MovieName(cdTrackName(static_cast<int>(i) + 1));
    clip.Path(folder);
    clip.AudioOutputLevel(1.0F);
    clip.IsTrueQT4(true);
    clip.IsExtendedCD(true);
    clip.Playspeed(kExtendedCdSpeed);
    clip.HasAudio(true);
    takeSeconds(clip, (end - track.TrackOffSet) / kSectors);
    clips.push_back(std::move(clip));
  }
  return clips;
}

void takeCdFile(Movie& clip, std::string_view bytes) {
  double sectors = 0;
  if (bytes.size() >= kCdFile && bytes.starts_with("RIFF") && bytes.substr(8, 8) == "CDDAfmt ") {
    for (std::size_t i = 4; i-- > 0;)
      sectors = sectors * 256 + static_cast<unsigned char>(bytes[kLengthAt + i]);
  }
  clip.HasAudio(true);
  takeSeconds(clip, sectors / kSectors);
}

}  // namespace kvo
