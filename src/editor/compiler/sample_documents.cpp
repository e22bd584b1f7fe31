#include "editor/compiler/sample_documents.h"

#include "base/file_print.h"
#include "base/text.h"
#include "editor/compiler/clip_kinds.h"
#include "editor/compiler/clip_line.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/effect_elements.h"
#include "editor/compiler/keep_records.h"
#include "editor/compiler/preview_params.h"
#include "editor/compiler/transition_element.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::size_t kMaxName = 80;     // characters
constexpr double kBehindTransition = 2;  // seconds of the first clip that are shown beside its transition

std::string shownName(const Movie& clip) { return std::string(cutTo(listedName(clip), kMaxName)); }

std::string effectText(const Compilation& c, const KeyframeIndex& keyframes, int clipNo, std::string stop) {
  const auto& clip = c.clips()[clipNo];
  if (ToNumber(clip.EffectWord()) == 0) return {};
  std::string block;
  CreateBasicImageStringFromEffectWord(c, keyframes, clipNo, clip.EffectWord(), "0", stop, block);
  return "\r\n" + blanks(15) + block;
}

std::string colourText(const Compilation& c, int clipNo) {
  return "\r\n" + blanks(15) + AddColorContrastAdjust(c, clipNo, "0");
}

// The beginning of the first clip, with the transition that leads into the movie.
std::string firstClipTrack(const Compilation& c) {
  auto& clip = c.clips()[1];
  SortTransitionTimes(c, 1);
  const double start = clip.LoopStart().number();
  const double duration = secondsFromTenths(clip.TransIn());
  const double end = std::min(clip.LoopEnd().number(), start + duration + kBehindTransition);
  const auto stop = fixedText(end - start);
  const auto file = clip.SrcPath().empty() ? clipFile(clip) : clip.SrcPath() + clip.SrcName();
  auto text = blanks(10) + "<track>\r\n" + blanks(10) + "<clip src=" + quoted(file) +
              " mstart=" + quoted(fixedText(start)) + " mstop=" + quoted(fixedText(end)) +
              " start=\"0\" stop=" + quoted(stop) + " > " + effectText(c, KeyframeIndex(c), 1, stop) +
              "\r\n" + blanks(10) + "</clip>\r\n\r\n";
  AddTransition(c, text, recordedTransition(c, 1, "0", ShortText(c.editor.controls.Sld_In.Max / 10.0)));
  return text;
}

std::string clipSample(const Compilation& c, int clipNo, int width, int height, bool showsStretch) {
  if (clipNo < 1 || clipNo > c.clips().count()) return {};
  const auto params = GetPreviewParams(c, c.settings.preferences().PreviewCPU);
  c.settings.state.PreviewFrameRate = params.Rate;
  c.settings.state.RenderEffects = true;
  const KeepRecords keep(c);
  auto& clip = c.clips()[clipNo];
  giveStillLength(c, clip);
  const double length = timelineLength(clip);
  const auto stop = ShortText(length);
  const auto& buffering = c.settings.preferences().DirectXPrebuffer;

  auto track = blanks(10) + "<track>\r\n" + blanks(10) + "<clip start=\"0\" stop=" + quoted(stop) +
               " src=" + quoted(clipFile(clip)) + " mstart=" + quoted(secondsText(clip.LoopStart())) +
               " mstop=" + quoted(secondsText(clip.LoopEnd()));
  if (showsStretch && clip.IsStill()) track += " stretchmode=" + quoted(stretchModeText(clip.stretchmode()));
  track += " >\r\n" + effectText(c, KeyframeIndex(c), clipNo, stop) + colourText(c, clipNo) + "\r\n" +
           blanks(10) + "</clip>\r\n" + blanks(10) + "</track>";

  FilePrint file;
  file.print("<timeline>");
  file.print(blanks(5) + "<group type=\"video\" bitdepth=\"24\" framerate=" + quoted(ShortText(params.Rate)) +
             (ToNumber(buffering) >= length ? " buffering=" + quoted(buffering) : std::string()) +
             " width=" + quoted(std::to_string(width)) + " height=" + quoted(std::to_string(height)) + " >");
  file.print(track);
  file.print(blanks(5) + "</group>");
  file.print("</timeline>");
  return file.bytes();
}

}  // namespace

std::string transitionClipsText(const Compilation& c, int clipNo) {
  const auto name = shownName(c.clips()[clipNo]);
  return (clipNo == 1 ? std::string("Movie Start") : shownName(c.clips()[clipNo - 1])) + " -->  " + name;
}

std::string Previewtransition(const Compilation& c, int clipNo) {
  const KeepRecords keep(c);
  for (int i = std::max(clipNo - 1, 1); i <= clipNo; ++i) giveStillLength(c, c.clips()[i]);
  constexpr int kWidth = 150;
  constexpr int kHeight = 90;
  auto& editor = c.editor;
  const auto params = GetPreviewParams(c, c.settings.preferences().PreviewCPU);
  c.settings.state.RenderTransitions = true;
  editor.OutputWidth = kWidth;
  editor.OutputHeight = kHeight;
  editor.texts.VideoTrackText.clear();
  const bool cut = isCut(c.clips()[clipNo].TransType());
  if (clipNo == 1 && !cut) {
    editor.texts.VideoTrackText = firstClipTrack(c);
  } else {
    CreateClipLine(c, {.Analysing = true,
                       .TransitionPreview = true,
                       .FirstClip = std::max(clipNo - 1, 1),
                       .LastClip = clipNo,
                       .TransitionZero = true,
                       .FixedDuration = cut && clipNo > 1,
                       .FixedSeconds = cut && clipNo > 1 ? CalcMinimumDur(c, clipNo - 1, clipNo) : 0});
  }
  FilePrint file;
  file.print("<timeline>\r\n");
  file.print(blanks(5) + "<group type=\"video\" bitdepth=" + quoted(std::to_string(params.Depth)) +
             " framerate=" + quoted(ShortText(params.Rate)) + " width=\"150\" height=\"90\" >\r\n\r\n");
  file.print(blanks(5) + editor.texts.VideoTrackText);
  file.print(blanks(5) + "</group>\r\n\r\n");
  file.print("</timeline>\r\n");
  return file.bytes();
}

std::string PreviewEffect(const Compilation& c, int clipNo) { return clipSample(c, clipNo, 140, 80, true); }

std::string PreviewColourAdjust(const Compilation& c, int clipNo) {
  return clipSample(c, clipNo, 175, 105, false);
}

}  // namespace kvo
