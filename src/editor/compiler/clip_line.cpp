#include "editor/compiler/clip_line.h"

#include "base/text.h"
#include "core/telling/deployment.h"
#include "editor/compiler/audio_tracks.h"
#include "editor/compiler/clip_kinds.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/effect_elements.h"
#include "editor/compiler/effect_panel.h"
#include "editor/compiler/keep_records.h"
#include "editor/compiler/preview_params.h"
#include "editor/compiler/transition_element.h"

#include <string>

namespace kvo {
namespace {

constexpr int kQuietChange = 98;  // change codes from here on run without the progress display

struct ClipTimes {
  std::string mstart;
  std::string mstop;
  std::string start;
  std::string stop;
};

// Place of clip i in a whole-collection pass; `running` comes in as the end of the clip before and goes out
// as the clip's start.
ClipTimes placeOnTimeline(const Compilation& c, int i, double& running) {
  auto& clip = c.clips()[i];
  if (i > 1 && !isCut(clip.TransType()) && clip.TransIn() != 0) {
    const double end = clip.Playspeed() == 10 ? c.clips()[i - 1].TimeLineStop().number() : running;
    running = end - secondsFromTenths(clip.TransIn());
  }
  ClipTimes times{secondsText(clip.LoopStart()), fixedText(clip.LoopEnd().number()), "0", ""};
  if (i > 1) times.start = startText(running);
  times.stop = fixedText((i > 1 ? running : 0) + timelineLength(clip));
  clip.TimeLineStart(Value(times.start));
  clip.TimeLineStop(Value(times.stop));
  return times;
}

// The section of clip i that a transition preview shows.
ClipTimes placeInPreview(const Compilation& c, int i, const ClipLineOptions& o) {
  const auto& clip = c.clips()[i];
  const auto& last = c.clips()[o.LastClip];
  const double start = clip.LoopStart().number();
  const double end = clip.LoopEnd().number();
  const double speed = speedOf(clip);
  const bool isFirst = i == o.FirstClip;
  if (o.FixedDuration) {
    const double d = ToNumber(ShortText(o.FixedSeconds));
    if (isFirst) return {ShortText(end - speed * d), fixedText(end), "0", fixedText(d)};
    return {secondsText(clip.LoopStart()), fixedText(start + speed * d), ShortText(d), fixedText(2 * d)};
  }
  if (o.FirstClip == o.LastClip) {
    return {secondsText(clip.LoopStart()), fixedText(end), "0", fixedText(timelineLength(clip))};
  }
  const double t = secondsFromTenths(last.TransIn());
  const auto stop = fixedText(t / speedOf(last));
  if (isFirst) return {ShortText(end - t * speed), fixedText(end), "0", stop};
  return {secondsText(clip.LoopStart()), fixedText(start + t * speed), "0", stop};
}

// The effect blocks of a clip, each on a line of its own; the colour block's line stands even when it has
// nothing to say.
std::string effectBlocks(const Compilation& c, const KeyframeIndex& keyframes, int clipNo, std::string stop) {
  const auto& clip = c.clips()[clipNo];
  std::string text;
  if (ToNumber(clip.EffectWord()) != 0) {
    std::string block;
    CreateBasicImageStringFromEffectWord(c, keyframes, clipNo, clip.EffectWord(), "0", stop, block);
    text += "\r\n" + blanks(15) + block;
  }
  return text + "\r\n" + blanks(15) + AddColorContrastAdjust(c, clipNo, "0");
}

std::string clipElement(const Movie& clip, const ClipTimes& times, bool useSourceFile,
                        const std::string& effects) {
  const auto file =
      useSourceFile && !clip.SrcPath().empty() ? clip.SrcPath() + clip.SrcName() : clipFile(clip);
  auto text = blanks(10) + "<track>\r\n" + blanks(10) + "<clip src=" + quoted(file) + " ";
  if (clip.IsStill()) text += " stretchmode=" + quoted(stretchModeText(clip.stretchmode())) + "  ";
  text += "mstart=" + quoted(times.mstart) + " mstop=" + quoted(times.mstop) +
          " start=" + quoted(times.start) + " stop=" + quoted(times.stop) + " >\r\n";
  text += effects;
  return text + "\r\n" + blanks(10) + " </clip>\r\n\r\n";
}

}  // namespace

void CreateClipLine(const Compilation& c, ClipLineOptions o) {
  const KeepRecords keep(c);
  auto& editor = c.editor;
  auto& settings = c.settings;
  if (GetNumAudioTracks(c) >= 1) settings.change().DubInPlaylistAudioTrks = true;
  UpdateTrackFade(c, true);
  const bool preview = o.TransitionPreview;
  if (o.Analysing) {
    static_cast<void>(GetPreviewParams(c, settings.preferences().PreviewCPU));
  } else {
    settings.state.RenderEffects = true;
    settings.state.RenderTransitions = true;
  }
  const bool showProgress = !preview && settings.state.ObjectChange < kQuietChange;
  if (preview) {
    settings.state.RenderTransitions = true;
  } else {
    editor.AudioTotalTime.clear();
    editor.controls.progressVisible = showProgress;
    editor.controls.Lbl_Status = o.Analysing ? "Analysing Video" : "Preparing Video";
    editor.controls.progressCaption = "Analysing";
  }

  const KeyframeIndex keyframes(c);
  const int first = preview ? o.FirstClip : 1;
  const int last = preview ? o.LastClip : c.clips().count();
  const bool fullCompile = settings.state.ObjectChange == 0;
  auto& tracks = editor.texts.VideoTrackText;
  const auto endTrack = [&] { tracks += blanks(10) + "</track>\r\n\r\n"; };
  double running = 0;
  std::string lastStop;
  for (int i = first; i <= last; ++i) {
    auto& clip = c.clips()[i];
    if (fullCompile && editor.controls.progressVisible) editor.controls.progressValue = i;
    ResetObjForNonEffectOs(clip, kSystemTag);
    if (isSound(c, clip)) continue;
    if (clip.IsStill()) {
      clip.HasAudio(false);
      clip.RenderAudio(false);
      giveStillLength(c, clip);
    } else if (fullCompile) {
      const auto facts = c.streams.facts(clipFile(clip));
      clip.HasAudio(facts && facts->hasAudio);
    }

    const auto times = preview ? placeInPreview(c, i, o) : placeOnTimeline(c, i, running);
    lastStop = times.stop;
    tracks += clipElement(clip, times, o.UseSourceFile,
                          fullCompile ? effectBlocks(c, keyframes, i, times.stop) : std::string());
    if (clip.TransType().empty()) clip.TransType("CUT");

    if (isCut(clip.TransType())) {
      endTrack();
    } else if (o.TransitionPreview && i == o.FirstClip) {
      o.TransitionPreview = false;
      endTrack();
      continue;
    } else {
      o.TransitionPreview = false;
      if (!fullCompile) {
        endTrack();
      } else if (o.TransitionZero) {
        AddTransition(c, tracks, recordedTransition(c, i, "0", ShortText(editor.controls.Sld_In.Value / 10)));
      } else {
        AddTransition(c, tracks, recordedTransition(c, i, i == 1 ? "0" : ShortText(running), times.stop));
      }
    }
    running = o.FixedDuration ? static_cast<double>(o.FixedSeconds) : running + timelineLength(clip);
    editor.LastClipStop = clip.TimeLineStop().text();
  }

  editor.VideoTotalTime = lastStop.empty() ? "0" : lastStop;
  editor.controls.progressVisible = false;
  if (ToNumber(lastStop) > ToNumber(editor.LastClipStop)) editor.LastClipStop = lastStop;
  editor.controls.Fra_Preview = "0 to " + FormatMask(ToNumber(editor.LastClipStop), "0.00") + " (s)";
}

}  // namespace kvo
