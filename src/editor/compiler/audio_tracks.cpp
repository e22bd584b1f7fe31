#include "editor/compiler/audio_tracks.h"

#include "base/text.h"
#include "editor/compiler/clip_kinds.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/volume_envelope.h"

#include <algorithm>

namespace kvo {
namespace {

std::string trackHead(std::string_view file, double mstart, double mstop) {
  return blanks(10) + "<track>\r\n" + blanks(10) + "<clip src=" + quoted(file) +
         " mstart=" + quoted(fixedText(mstart)) + " mstop=" + quoted(fixedText(mstop)) + " ";
}

std::string placeText(std::string_view startText, std::string_view stopText) {
  return std::string(startText).append(" ").append(stopText);
}

std::string trackEnd() { return blanks(10) + "</track>\r\n\r\n\r\n"; }

bool anyClip(const Compilation& c, bool (*is)(const Compilation&, const Movie&)) {
  for (int i = 1; i <= c.clips().count(); ++i) {
    if (is(c, c.clips()[i])) return true;
  }
  return false;
}

std::string stopOfClipAudio(const Movie& clip, int number) {
  if (clip.Playspeed() != 10) return clip.TimeLineStop().text();
  return FormatMask(clip.TimeLineStop().number(), number == 1 ? "0.00" : "0.0000");
}

void addClipAudio(const Compilation& c, int number) {
  auto& clip = c.clips()[number];
  if (clip.AudioOutputLevel() == 0 || !clip.RenderAudio()) return;
  bool hasSound = false;
  if (!clip.IsStill()) {
    const auto facts = c.streams.facts(clipFile(clip));
    hasSound = facts && facts->hasAudio;
  }
  clip.HasAudio(hasSound);
  clip.RenderAudio(hasSound);

  auto& text = c.editor.texts.AudioTrackText;
  text += trackHead(hasSound ? clipFile(clip) : c.folder.beside("\\silence.wav"), clip.LoopStart().number(),
                    clip.LoopEnd().number());
  const auto start = "start=" + quoted(number == 1 ? "0" : startText(clip.TimeLineStart().number()));
  const auto stop = "stop=" + quoted(stopOfClipAudio(clip, number));
  text += placeText(start, stop) + "  >\r\n";
  if (!hasSound) {
    AddLevelingInfo(c, text,
                    {.ClipNo = number,
                     .StartText = "0",
                     .StopText = "1",
                     .FadeIn = secondsFromTenths(clip.TransIn()),
                     .FadeOut = secondsFromTenths(clip.TransOut()),
                     .Silent = true,
                     .WithFades = false});
  } else {
    const auto fade = CalcAutofade(start, stop, c.settings.preferences().VideoTrackFadeAmt / 10);
    AddLevelingInfo(c, text,
                    {.ClipNo = number,
                     .StartText = start,
                     .StopText = stop,
                     .FadeIn = ToNumber(ShortText(clip.AudioFadeInTime())),
                     .FadeOut = ToNumber(ShortText(clip.AudioFadeOutTime())),
                     .AutoFadeIn = fade.FadeTime,
                     .AutoFadeOut = fade.FadeOutStart,
                     .Silent = false,
                     .WithFades = true});
  }
  text += trackEnd();
}

constexpr double kShortestSeconds = 0.00005;  // less is nothing at the four decimals of a document

// The running end of the overlay tracks and what holds them.
struct OverlayPass {
  double end = 0;        // seconds: where the next track in sequence starts
  double videoEnd = 0;   // 0 when nothing is trimmed
  bool stopped = false;  // a track was cut at the video's end; later ones are left out
  std::string lastStop;
};

struct Place {
  std::string start;
  double startSeconds = 0;
  double stopSeconds = 0;
};

Place nextPlace(const Compilation& c, const Movie& clip, OverlayPass& pass) {
  const double length = timelineLength(clip);
  const bool trim = pass.videoEnd > 0;
  const auto held = [&](double t) { return trim ? std::min(t, pass.videoEnd) : t; };
  if (c.editor.controls.Opt_StackOverlay == OverlayOrder::Stacked) return {"0", 0, held(length)};
  const double start = held(pass.end);
  if (trim && start + length > pass.videoEnd) pass.stopped = true;
  pass.end = start + length;
  return {ShortText(start), start, held(pass.end)};
}

void addOverlay(const Compilation& c, int number, OverlayPass& pass) {
  auto& clip = c.clips()[number];
  const auto place = nextPlace(c, clip, pass);
  // The ratio of source range to timeline range is the speed, so a track that is cut loses source in step.
  const double mstart = clip.LoopStart().number();
  const double mstop = pass.videoEnd > 0 ? mstart + (place.stopSeconds - place.startSeconds) * speedOf(clip)
                                         : clip.LoopEnd().number();
  auto& text = c.editor.texts.AudioTrackText;
  pass.lastStop = fixedText(place.stopSeconds);
  const auto start = "start=" + quoted(place.start);
  const auto stop = "stop=" + quoted(pass.lastStop);
  const bool inSequence = c.editor.controls.Opt_StackOverlay == OverlayOrder::InSequence;
  text += trackHead(clipFile(clip), mstart, mstop) + placeText(start, stop) +
          (inSequence ? "   >\r\n" : "  >\r\n");
  clip.TimeLineStart(Value(place.start));
  clip.TimeLineStop(Value(pass.lastStop));

  if (clip.HasAudioFade()) {
    const auto fade = CalcAutofade(start, stop, clip.AudioFadeInTime());
    AddLevelingInfo(c, text,
                    {.ClipNo = number,
                     .StartText = start,
                     .StopText = stop,
                     .FadeIn = ToNumber(ShortText(clip.AudioFadeInTime())),
                     .FadeOut = ToNumber(ShortText(clip.AudioFadeOutTime())),
                     .AutoFadeIn = fade.FadeTime,
                     .AutoFadeOut = fade.FadeOutStart,
                     .Silent = false,
                     .WithFades = true});
  } else {
    if (clip.AudioOutputLevel() != 1) {
      text += constantEnvelope(place.stopSeconds - place.startSeconds, clip.AudioOutputLevel());
    }
    text += blanks(10) + "</clip>\r\n";
  }
  text += trackEnd();
}

}  // namespace

void CreateAudioGroup(EditorState& editor, std::string_view rate) {
  editor.AudioLevelingCount = 0;
  editor.texts.AudioGroupText = "<group type=" + quoted("audio") + " SamplingRate=" + quoted(rate) +
                                " name=" + quoted("AUDIO") + ">\r\n";
}

void CreateAudioClipLine(const Compilation& c) {
  c.editor.texts.AudioTrackText = kCrLf;
  c.editor.controls.Lbl_Status = "Analysing Audio";
  for (int i = 1; i <= c.clips().count(); ++i) {
    auto& clip = c.clips()[i];
    if (isSound(c, clip) || extensionOf(clip.MovieName()) == "ZZX") continue;
    const bool wasDirty = clip.IsDirty();
    addClipAudio(c, i);
    clip.IsDirty(wasDirty);
  }
}

void AddOverlayAudioTracks(const Compilation& c, bool quiet) {
  auto& editor = c.editor;
  if (!quiet) editor.controls.Lbl_Status = "Analysing Overlay Audio";
  editor.texts.AudioTrackText += kCrLf;
  OverlayPass pass;
  if (c.settings.preferences().AutoTrimAudio) pass.videoEnd = ToNumber(editor.LastClipStop);
  for (int i = 1; i <= c.clips().count() && !pass.stopped; ++i) {
    const auto& clip = c.clips()[i];
    if (!clip.RenderAudio() || !isMusic(c, clip)) continue;
    const bool inSequence = editor.controls.Opt_StackOverlay == OverlayOrder::InSequence;
    const double left = pass.videoEnd - pass.end;
    if (inSequence && pass.videoEnd > 0 && left < kShortestSeconds) break;  // the video is covered
    addOverlay(c, i, pass);
  }
  editor.AudioTotalTime = ShortText(ToNumber(pass.lastStop));
  if (c.settings.preferences().AutoTrimAudio && ToNumber(editor.VideoTotalTime) >= ToNumber(pass.lastStop)) {
    editor.AudioTotalTime = editor.VideoTotalTime;
  }
  editor.controls.Lbl_AudTotal = FormatMask(ToNumber(editor.AudioTotalTime), "000.000");
  editor.controls.Lbl_Status.clear();
}

int GetNumAudioTracks(const Compilation& c) {
  int count = 0;
  for (int i = 1; i <= c.clips().count(); ++i) {
    const auto& clip = c.clips()[i];
    if (clip.IsHTML() || clip.IsStill() || clip.IsTrueQT4()) continue;
    const auto size = clip.Resolution().text();
    if (holdsText(size, "N/A")) continue;
    if (trimmed(size).empty() && isMusic(c, clip)) ++count;  // not looked into yet
    if (holdsText(size, "KHZ") || holdsText(size, "UNKNOWN") || holdsText(trimmed(size), "0 X 0")) ++count;
  }
  return count;
}

bool CheckForAudiotrack(const Compilation& c) { return anyClip(c, isMusic); }

bool AtLeastOneAudioInCollection(const Compilation& c) { return anyClip(c, isSound); }

int misplacedSound(const Compilation& c) {
  int sound = 0;
  for (int i = 1; i <= c.clips().count(); ++i) {
    if (!isSound(c, c.clips()[i])) {
      if (sound > 0) return sound;
    } else if (sound == 0) {
      sound = i;
    }
  }
  return 0;
}

bool IsAudioBeforeVideo(const Compilation& c) {
  for (int i = 1; i <= c.clips().count(); ++i) {
    if (extensionOf(c.clips()[i].MovieName()) == "WAV") c.clips()[i].MovieHeight(0);
  }
  const int misplaced = misplacedSound(c);
  if (misplaced == 0) return false;
  c.boxes.show({"KVO - Incorrectly placed Audio track",
                "Audio tracks should be grouped together and placed at the end of the collection !\r\n"
                "Please move the audio track :-\r\n<" +
                    c.clips()[misplaced].MovieName() + ">\r\nto the end of the collection.",
                BoxButtons::Ok, BoxIcon::Warning});
  return true;
}

}  // namespace kvo
