#include "editor/compiler/audio_tracks.h"

#include "base/text.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/volume_envelope.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr double kShortestSeconds = 0.00005;  // less is nothing at the four decimals of a document

struct TrackTimes {
  double mstart = 0;
  double mstop = 0;
  Stamp start;
  Stamp stop;
};

std::string trackHead(std::string file, const TrackTimes& t, std::string_view end) {
  return std::string(tag::kTrack) +
         tag::clip({{"src", std::move(file)},
                    {"mstart", fixedText(t.mstart)},
                    {"mstop", fixedText(t.mstop)},
                    {"start", stampText(t.start)},
                    {"stop", stampText(t.stop)}},
                   end) +
         "\r\n";
}

std::string trackEnd() { return std::string(tag::kEndTrack) + "\r\n\r\n\r\n"; }

// The envelope of a clip that is heard, between the times of its tag; `amount` is that of the automatic fade.
LevelingOptions heardLevels(const TimelineClip& clip, const TrackTimes& t, Single amount) {
  const double start = asWritten(t.start);
  const double stop = asWritten(t.stop);
  const auto fade = CalcAutofade(start, stop, amount);
  return {.Start = start,
          .Stop = stop,
          .FadeIn = decimal(clip.record->AudioFadeInTime()),
          .FadeOut = decimal(clip.record->AudioFadeOutTime()),
          .AutoFadeIn = fade.FadeTime,
          .AutoFadeOut = fade.FadeOutStart,
          .WithFades = true};
}

std::string clipAudio(const CompileOptions& options, TimelineClip& clip, int& counter) {
  const auto& record = *clip.record;
  const bool hasSound = !record.IsStill() && clip.hasSound;
  clip.HasAudio = hasSound;
  clip.RenderAudio = hasSound;
  const bool isFirst = clip.number == 1;
  const auto digits = isFirst && record.Playspeed() == 10 ? Digits::Two : Digits::Four;
  const TrackTimes t{clip.LoopStart.number(),
                     clip.LoopEnd.number(),
                     {isFirst ? 0 : asWritten(clip.place.start, Digits::Four)},
                     {clip.place.stop, digits}};
  const LevelingOptions silence{.Stop = 1,
                                .FadeIn = secondsFromTenths(clip.TransIn),
                                .FadeOut = secondsFromTenths(record.TransOut()),
                                .Silent = true};
  return trackHead(hasSound ? clipFile(record) : options.silence, t, "  >") +
         AddLevelingInfo(clip, counter, hasSound ? heardLevels(clip, t, options.trackFade / 10) : silence) +
         trackEnd();
}

// The running end of the overlay tracks and what holds them.
struct OverlayPass {
  double end = 0;       // seconds: where the next track in sequence starts
  double videoEnd = 0;  // 0 when nothing is trimmed
};

TimelinePlace nextPlace(const TimelineClip& clip, OverlayOrder order, OverlayPass& pass) {
  const double length = timelineLength(clip);
  const bool trim = pass.videoEnd > 0;
  const auto held = [&](double t) { return trim ? std::min(t, pass.videoEnd) : t; };
  if (order == OverlayOrder::Stacked) return {0, held(length)};
  const double start = held(pass.end);
  pass.end = start + length;
  return {start, held(pass.end)};
}

std::string overlay(TimelineClip& clip, OverlayOrder order, OverlayPass& pass, int& counter) {
  const auto place = nextPlace(clip, order, pass);
  // The ratio of source range to timeline range is the speed, so a track that is cut loses source in step.
  const double mstart = clip.LoopStart.number();
  const double mstop =
      pass.videoEnd > 0 ? mstart + (place.stop - place.start) * speedOf(clip) : clip.LoopEnd.number();
  const TrackTimes t{mstart, mstop, {place.start}, {place.stop, Digits::Four}};
  clip.place = {asWritten(t.start), asWritten(t.stop)};
  clip.placed = true;
  auto text = trackHead(clipFile(*clip.record), t, order == OverlayOrder::InSequence ? "   >" : "  >");
  if (clip.HasAudioFade) {
    text += AddLevelingInfo(clip, counter, heardLevels(clip, t, clip.record->AudioFadeInTime()));
  } else {
    const auto level = clip.record->AudioOutputLevel();
    if (level != 1) text += constantEnvelope(place.stop - place.start, level);
    text += tag::kEndClip;
  }
  return text + trackEnd();
}

}  // namespace

std::string audioGroupTag(std::string_view rate) {
  return tag::group({{"type", "audio"}, {"SamplingRate", std::string(rate)}, {"name", "AUDIO"}}, ">\r\n");
}

std::string clipAudioTracks(const CompileOptions& options, TimelineClips& clips) {
  std::string text(kCrLf);
  int counter = 0;
  for (auto& clip : clips) {
    if (clip.isSound || extensionOf(clip.record->MovieName()) == "ZZX") continue;
    if (clip.record->AudioOutputLevel() != 0 && clip.RenderAudio) text += clipAudio(options, clip, counter);
  }
  return text;
}

OverlayTracks overlayTracks(const CompileOptions& options, TimelineClips& clips,
                            const std::optional<VideoEnd>& video) {
  const double videoEnd = video ? video->largestStop : 0;
  OverlayTracks all{std::string(kCrLf)};
  OverlayPass pass{.videoEnd = videoEnd};
  int counter = 0;
  for (auto& clip : clips) {
    if (!clip.RenderAudio || !clip.isMusic) continue;
    const bool inSequence = options.overlayOrder == OverlayOrder::InSequence;
    if (inSequence && videoEnd > 0 && videoEnd - pass.end < kShortestSeconds) break;  // the video is covered
    all.tracks += overlay(clip, options.overlayOrder, pass, counter);
    all.stop = clip.place.stop;
  }
  all.stopsWithVideo = video && video->stop >= all.stop;
  if (all.stopsWithVideo) all.stop = video->stop;
  return all;
}

int GetNumAudioTracks(const TimelineClips& clips) {
  int count = 0;
  for (const auto& clip : clips) {
    const auto& record = *clip.record;
    if (record.IsHTML() || record.IsStill() || record.IsTrueQT4()) continue;
    const auto size = record.Resolution().text();
    if (holdsText(size, "N/A")) continue;
    if (holdsText(size, "KHZ") || holdsText(size, "UNKNOWN") || holdsText(trimmed(size), "0 X 0")) ++count;
  }
  return count;
}

}  // namespace kvo
