#include "editor/compiler/clip_line.h"

#include "editor/compiler/document_text.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/transition_element.h"

#include <algorithm>

namespace kvo {
namespace {

struct ClipTimes {
  Value mstart;  // as it stands in the record, where it does
  double mstop = 0;
  double start = 0;
  double stop = 0;
};

// Place of clip i in a whole-collection pass; `running` comes in as the end of the clip before and goes out
// as the clip's start.
ClipTimes placeOnTimeline(TimelineClips& clips, int i, double& running) {
  auto& clip = clips[i];
  if (i > 1 && !isCut(clip.TransType) && clip.TransIn != 0) {
    const double end = clip.record->Playspeed() == 10 ? clips[i - 1].place.stop : running;
    running = end - secondsFromTenths(clip.TransIn);
  }
  clip.place = {i > 1 ? asWritten(running, Digits::Four) : 0,
                asWritten((i > 1 ? running : 0) + timelineLength(clip), Digits::Four)};
  clip.placed = true;
  return {clip.LoopStart, clip.LoopEnd.number(), clip.place.start, clip.place.stop};
}

// The section of clip i that a transition preview shows.
ClipTimes placeInPreview(const TimelineClips& clips, int i, const ClipLineOptions& o) {
  const auto& clip = clips[i];
  const auto& last = clips[o.LastClip];
  const double start = clip.LoopStart.number();
  const double end = clip.LoopEnd.number();
  const double speed = speedOf(clip);
  const bool isFirst = i == o.FirstClip;
  if (o.FixedDuration) {
    const double d = decimal(o.FixedSeconds);
    return isFirst ? ClipTimes{Value(end - speed * d), end, 0, d}
                   : ClipTimes{clip.LoopStart, start + speed * d, d, 2 * d};
  }
  if (o.FirstClip == o.LastClip) return {clip.LoopStart, end, 0, timelineLength(clip)};
  const double t = secondsFromTenths(last.TransIn);
  const double stop = t / speedOf(last);
  return isFirst ? ClipTimes{Value(end - t * speed), end, 0, stop}
                 : ClipTimes{clip.LoopStart, start + t * speed, 0, stop};
}

std::string clipElement(const Movie& clip, const ClipTimes& times, const std::string& file,
                        const std::string& effects) {
  const bool isStill = clip.IsStill();
  auto text = std::string(tag::kTrack) +
              tag::clip({{"src", file},
                         {isStill ? "stretchmode" : "", std::string(stretchModeText(clip.stretchmode())), 2},
                         {"mstart", secondsText(times.mstart), isStill ? 2 : 1},
                         {"mstop", fixedText(times.mstop)},
                         {"start", shortNumber(times.start)},
                         {"stop", fixedText(times.stop)}},
                        " >");
  // The closing tag stands one column further in than its opening one.
  return text.append("\r\n").append(effects).append("\r\n ").append(tag::kEndClip).append("\r\n");
}

// All that the steps read is in order ahead of them, so that none sees a clip in two states. Of a preview the
// transition into the last clip alone is shown.
void bringInOrder(const EffectSources& sources, TimelineClips& clips, const ClipLineOptions& o) {
  const auto stillDuration = sources.options.stillDuration;
  for (auto& clip : clips) {
    giveStillLength(clip, stillDuration);
    if (sources.keyframes.has(clip.record->KeyID())) clip.HasKeyFrames = true;
  }
  for (auto& clip : clips) {
    const bool isShown = !o.TransitionPreview || clip.number == o.LastClip;
    if (isShown && !clip.isSound && !isCut(clip.TransType)) holdTransition(clips, clip.number, stillDuration);
  }
}

// What a clip is heard with, before it is written.
void prepare(TimelineClip& clip, bool isWhole) {
  if (clip.record->IsStill()) {
    clip.HasAudio = false;
    clip.RenderAudio = false;
  } else if (isWhole) {
    clip.HasAudio = clip.hasSound;
  }
}

}  // namespace

VideoLine videoLine(const EffectSources& sources, TimelineClips& clips, const ClipLineOptions& o) {
  const auto& options = sources.options;
  const auto endTrack = std::string(tag::kEndTrack) + "\r\n\r\n";
  const bool isWhole = o.Text == LineText::Whole;
  const int first = o.TransitionPreview ? o.FirstClip : 1;
  const int last = o.TransitionPreview ? o.LastClip : clips.count();
  bringInOrder(sources, clips, o);
  setAudioFades(clips);
  VideoLine line;
  double running = 0;
  bool leadsIn = o.TransitionPreview;  // the clip ahead of the transition, which has its end only
  for (int i = first; i <= last; ++i) {
    auto& clip = clips[i];
    if (clip.isSound) continue;
    prepare(clip, isWhole);
    const auto times = o.TransitionPreview ? placeInPreview(clips, i, o) : placeOnTimeline(clips, i, running);
    const double stop = asWritten(times.stop, Digits::Four);
    line.stop = stop;
    if (o.Text != LineText::None)
      line.tracks += clipElement(*clip.record, times,
                                 o.UseSourceFile ? sourceFile(*clip.record) : clipFile(*clip.record),
                                 isWhole ? effectLines(sources, clip, stop) : std::string());
    if (clip.TransType.empty()) clip.TransType = "CUT";

    const bool cut = isCut(clip.TransType);
    if (!cut && std::exchange(leadsIn, false) && i == o.FirstClip) {
      line.tracks += endTrack;
      continue;
    }
    if (cut || !isWhole) {
      if (o.Text != LineText::None) line.tracks += endTrack;
    } else {
      const double start = o.TransitionZero || i == 1 ? 0 : running;
      const auto end = o.TransitionZero ? Stamp{o.TransitionSeconds} : Stamp{stop, Digits::Four};
      line.tracks += AddTransition(options, clips, i, recordedTransition(clip, options, start, end));
    }
    running = o.FixedDuration ? static_cast<double>(o.FixedSeconds) : running + timelineLength(clip);
    line.largestStop = clip.place.stop;
  }
  line.largestStop = std::max(line.largestStop, line.stop.value_or(0));
  return line;
}

std::string_view stretchModeText(Integer mode) {
  switch (mode) {
    case 1:
      return "preserveaspectratio";
    case 2:
      return "preserveaAspectrationoletterbox";
    case 3:
      return "crop";
    default:
      return "stretch";
  }
}

std::string sourceFile(const Movie& clip) {
  return clip.SrcPath().empty() ? clipFile(clip) : clip.SrcPath() + clip.SrcName();
}

}  // namespace kvo
