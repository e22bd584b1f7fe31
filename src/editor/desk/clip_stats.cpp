#include "editor/desk/clip_stats.h"

#include "base/text.h"
#include "core/records/media_kinds.h"
#include "core/telling/translated.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/effect_word.h"
#include "editor/desk/snapshot.h"
#include "editor/tabs/audio_tab.h"
#include "editor/tabs/preview.h"
#include "program/clip_texts.h"

#include <cmath>

namespace kvo {
namespace {

constexpr double kTenths = 10;
constexpr double kPercent = 100;

std::string rateText(const Movie& clip) {
  const double seconds = clip.DurationTime().number();
  return FormatMask(seconds > 0 ? clip.DurationFrames().number() / seconds : 0, "0.00") + " fps";
}

std::string soundText(const Editing& e, const Movie& clip) {
  const auto facts = e.streams.facts(clipFile(clip));
  std::string text;
  for (const auto& chip : chipsOf(clip, facts ? &*facts : nullptr)) text += (text.empty() ? "" : ", ") + chip;
  return text.empty() ? kNotApplicable : text;
}

std::string sectionText(const Movie& clip) {
  return FormatMask(clip.LoopStart().number(), "0.00") + " to " +
         FormatMask(clip.LoopEnd().number(), "0.00") + " (s)";
}

std::string transitionText(const Movie& clip) {
  if (clip.IsStill() && clip.Resolution().text() == kNotApplicable) return kNotApplicable;
  if (sameText(trimmed(clip.TransType()), "CUT") || trimmed(clip.TransType()).empty()) return "CUT";
  return clip.TransType() + " over " + FormatMask(secondsFromTenths(clip.TransIn()), "0.0") + " (s)";
}

const Movie* clipOf(const Editing& e, int clipNo) {
  return clipNo >= 1 && clipNo <= e.clips().count() ? &e.clips()[clipNo] : nullptr;
}

}  // namespace

ClipStats clipStats(const Editing& e, int clipNo, bool previewing) {
  ClipStats stats;
  const auto* clip = clipOf(e, clipNo);
  if (clip == nullptr) return stats;
  const bool still = clip->IsStill();
  const auto number = std::to_string(clipNo);
  stats.lbl_ClipStats = previewing ? "Previewing - Cut " + number : "Cut " + number + " Details";
  stats.clipName = listedName(*clip);
  stats.isSound = isSoundByName(clip->MovieName());
  stats.Lbl_FrameDets = still           ? std::string(kNotApplicable)
                        : stats.isSound ? sectionText(*clip)
                                        : std::to_string(clip->LoopStartFrames()) + " to " +
                                              std::to_string(clip->LoopEndFrames());
  stats.Lbl_Durdets = FormatMask(timelineLength(*clip), "0.000") + " (s)";
  stats.Lbl_Timelinedets = FormatMask(clip->TimeLineStart().number(), "0.00") + " - " +
                           FormatMask(clip->TimeLineStop().number(), "0.00") + (still ? " (s)" : " (s) ");
  stats.Lbl_Speeddets = still ? kNotApplicable : ShortText(decimal(clip->Playspeed()) / kTenths) + "x Speed";
  stats.Lbl_Framratedets = still ? kNotApplicable : stats.isSound ? soundText(e, *clip) : rateText(*clip);
  stats.Lbl_Transdets = transitionText(*clip);
  stats.Lbl_EffectDets = EffectWord(clip->EffectWord()).any() ? "Effects applied" : "No Effects";
  stats.Lbl_AudioDets =
      still ? kNotApplicable : ShortText(decimal(clip->AudioOutputLevel()) * kPercent) + "%";
  return stats;
}

std::string rateHeading(int hundredths) {
  return translated("Clip Speed - %1x", {FormatMask(hundredths / kPercent, "0.00")});
}

ClipSliders clipSliders(const Editing& e, int clipNo) {
  ClipSliders sliders;
  sliders.jogHeading = e.settings.state.ShuttleProInstalled ? "Clip Pos \\ Mouse (ShuttlePro is Enabled)"
                                                            : "Clip Position \\ Mousewheel Control";
  const auto* clip = clipOf(e, clipNo);
  sliders.Sld_Rate.whyNot = clip == nullptr ? "There is no clip" : "A still has no speed";
  sliders.Sld_AudioOut.whyNot = clip == nullptr ? "There is no clip" : "A still has no sound";
  if (clip != nullptr) {
    const bool moves = !clip->IsStill();
    sliders.Sld_Rate.Enabled = sliders.Sld_AudioOut.Enabled = moves;
    if (moves) sliders.Sld_Rate.Value = static_cast<int>(std::lround(decimal(clip->Playspeed()) * kTenths));
    sliders.Sld_AudioOut.Value = static_cast<int>(std::lround(decimal(clip->AudioOutputLevel()) * kTenths));
  }
  sliders.Sld_Rate.heading = rateHeading(sliders.Sld_Rate.Value);
  sliders.Sld_AudioOut.heading = audioLevelHeading(sliders.Sld_AudioOut.Value);
  return sliders;
}

ClipKeys clipKeys(const Editing& e, int clipNo, const KeyFacts& facts) {
  ClipKeys keys;
  const auto* clip = clipOf(e, clipNo);
  if (clip == nullptr || !facts.toolsOff.empty()) {
    keys.whyNot.fill(facts.toolsOff.empty() ? translated("There is no clip") : facts.toolsOff);
    return keys;
  }
  if (!hasSnapshot(*clip)) keys.of(ClipKey::AddSnapShot) = translated("This clip has no frames");
  if (clip->IsStill()) {
    const auto still = translated("A still has no marks");
    for (const auto key :
         {ClipKey::SetIN, ClipKey::SetOUT, ClipKey::ResetIN, ClipKey::ResetOUT, ClipKey::Trimmer})
      keys.of(key) = still;
  }
  keys.of(ClipKey::Split) = facts.Split;
  keys.of(ClipKey::Copy) = facts.Copy;
  keys.of(ClipKey::CopyEnd) = facts.CopyEnd;
  keys.of(ClipKey::Equi) = facts.Equi;
  return keys;
}

EditorTotals editorTotals(const EditorState& editor) {
  const auto labels = labelsOf(editor);
  return {.lbl_VideoTotTime = labels.lbl_VideoTotTime,
          .Lbl_AudTotal = FormatMask(ToNumber(editor.AudioTotalTime), kTotalMask) + "(s)",
          .audioToolTip = labels.audioToolTip,
          .audioIsRed = labels.audioIsRed,
          .Fra_Preview = editor.controls.Fra_Preview};
}

EditorTotals previewTotals(const EditorState& editor) {
  auto totals = editorTotals(editor);
  if (ToNumber(editor.AudioTotalTime) <= 0) totals.Lbl_AudTotal = labelsOf(editor).Lbl_AudTotal;
  return totals;
}

}  // namespace kvo
