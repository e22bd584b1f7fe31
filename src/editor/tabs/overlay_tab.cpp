#include "editor/tabs/overlay_tab.h"

#include "base/text.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/durations.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace kvo {
namespace {

constexpr Integer kMarkChanged = 96;  // change code
constexpr int kAllOfIt = 100;
constexpr int kFadeStep = 50;  // milliseconds

// By a copy, as reading it takes RenderAudio away from a record whose file is still to be looked into.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
AudioBox audioBox(std::string_view kind, Movie clip) {
  if (!clip.HasAudio()) return {"Clip has no Audio", false};
  return {"Add Audio from " + std::string(kind) +
              " Clip - ( Level = " + shortNumber(decimal(clip.AudioOutputLevel()) * 100) + "% )",
          true};
}

// Ranges, labels and audio boxes, as the two clips and the look have them.
void buildControls(const Editing& e, OverlayTab& tab) {
  const int backdropNo = chosenClip(tab.Lst_PicinPicBackdrop);
  const int overlayNo = chosenClip(tab.Lst_PicinPicOverlays);
  tab.enabled = backdropNo > 0;
  tab.Pic_NoPinp = tab.enabled && overlayNo == 0;
  tab.whyNot = tab.enabled ? "" : "Choose a backdrop first";
  tab.pairWhyNot = tab.look.overlayClip > 0 ? "" : "This backdrop has no overlay";
  tab.notice = tab.Pic_NoPinp ? "Choose a clip to lay over the backdrop."
                              : "The new clip is an uncompressed 32-bit movie, large on disk.";
  const Movie none;
  const auto& backdrop = backdropNo > 0 ? e.clips()[backdropNo] : none;
  const auto& overlay = overlayNo > 0 ? e.clips()[overlayNo] : backdrop;
  const int longest = fadeSliderMaximum(backdrop, overlay);
  const auto texts = SetPicInPicSliderTexts(tab.look);
  const auto slider = [&](int max, int value, const std::string& heading) {
    return ClipSlider{0, std::max(max, value), value, tab.enabled, heading, tab.whyNot};
  };
  tab.Sld_MaxTransparency = slider(kAllOfIt, tab.look.maxOpacity, texts[0]);
  tab.Sld_OverlayIn = slider(longest, tab.look.fadeIn, texts[1]);
  tab.Sld_OverlayOut = slider(longest, tab.look.fadeOut, texts[2]);
  tab.overlaySound.box =
      overlayNo > 0 ? overlayAudioBox(overlay) : AudioBox{"Add Audio from Overlay Clip", false};
  tab.backdropSound.box = backdropAudioBox(backdrop);
  for (auto* sound : {&tab.overlaySound, &tab.backdropSound})
    sound->whyNot = sound->box.enabled ? "" : "Clip has no Audio";
}

// The controls as the backdrop's record has them; without an overlay as they begin.
void PopulateOverlayInterface(const Editing& e, OverlayTab& tab) {
  const int backdropNo = chosenClip(tab.Lst_PicinPicBackdrop);
  tab.look = {};
  if (backdropNo > 0) {
    if (const auto kept = readPicInPic(e.clips()[backdropNo].HasPicInPic())) tab.look = *kept;
  }
  chooseClip(tab.Lst_PicinPicOverlays, tab.look.overlayClip);
  buildControls(e, tab);
}

// The backdrop may have another overlay by an undo. What waits for an overlay stays.
void readBackdrop(const Editing& e, OverlayTab& tab) {
  const int backdropNo = chosenClip(tab.Lst_PicinPicBackdrop);
  if (backdropNo < 1 || backdropNo > e.clips().count()) return;
  if (e.clips()[backdropNo].HasPicInPic() != picInPicText(tab.look)) PopulateOverlayInterface(e, tab);
}

void fillOverlayLists(const Editing& e, OverlayTab& tab) {
  tab.Lst_PicinPicBackdrop.texts.assign(PopulateMovieListBoxes(e, ListedClips::WithPicture));
  tab.Lst_PicinPicOverlays.texts = tab.Lst_PicinPicBackdrop.texts;
}

// To whole steps, but not off the end of the slider.
int fadeStep(int milliseconds, const ClipSlider& slider) {
  return std::min((milliseconds + kFadeStep / 2) / kFadeStep * kFadeStep, slider.Max);
}

void showSample(const OverlayTab& tab, TabHost& host) {
  if (tab.enabled) host.sample(Sample::PictureInPicture, chosenClip(tab.Lst_PicinPicBackdrop));
}

void tickSound(const OverlayTab& tab, TabHost& host, std::string_view act, OverlaySound& sound, bool on) {
  if (!sound.box.enabled) return;
  host.edit(act, chosenClip(tab.Lst_PicinPicBackdrop), 0, [&] { sound.ticked = on; });
  showSample(tab, host);
}

// Packs the controls into the backdrop's record; without an overlay nothing is stored.
void CreatePicInPicEffectWordFromInterface(const Editing& e, OverlayTab& tab, TabHost& host,
                                           std::string_view act) {
  tab.look.overlayClip = chosenClip(tab.Lst_PicinPicOverlays);
  if (tab.enabled && tab.look.overlayClip > 0) {
    const int backdropNo = chosenClip(tab.Lst_PicinPicBackdrop);
    host.edit(act, backdropNo, 0, [&] { e.clips()[backdropNo].HasPicInPic(picInPicText(tab.look)); });
    PopulateOverlayInterface(e, tab);
    showSample(tab, host);
    return;
  }
  buildControls(e, tab);
}

}  // namespace

AudioBox overlayAudioBox(const Movie& clip) { return audioBox("Overlay", clip); }

AudioBox backdropAudioBox(const Movie& clip) { return audioBox("Backdrop", clip); }

std::array<std::string, 3> SetPicInPicSliderTexts(const PicInPic& look) {
  const auto seconds = [](int milliseconds) { return FormatMask(milliseconds / 1000.0, "0.0##") + "s"; };
  return {"Max Opacity " + std::to_string(look.maxOpacity) + "%", "In over " + seconds(look.fadeIn),
          "Out over " + seconds(look.fadeOut)};
}

void enterTab(const Editing& e, OverlayTab& tab, TabHost& host) {
  host.KillPreview();
  fillOverlayLists(e, tab);
  SetMovieLstToMainIndex(e, tab.Lst_PicinPicBackdrop);
  if (!tab.Lst_PicinPicBackdrop.hasChoice() && !tab.Lst_PicinPicBackdrop.rows().empty())
    return chooseBackdrop(e, tab, host, 0);
  PopulateOverlayInterface(e, tab);
  showSample(tab, host);
}

void followTab(const Editing& e, OverlayTab& tab, TabHost& host, bool rebuild) {
  if (!rebuild) return readBackdrop(e, tab);
  if (e.settings.state.ObjectChange == kMarkChanged) return;
  host.KillPreview();
  const int row = tab.Lst_PicinPicBackdrop.ListIndex;
  fillOverlayLists(e, tab);
  const int last = static_cast<int>(tab.Lst_PicinPicBackdrop.rows().size()) - 1;
  tab.Lst_PicinPicBackdrop.ListIndex = std::min(row, last);
  PopulateOverlayInterface(e, tab);
  showSample(tab, host);
}

void chooseBackdrop(const Editing& e, OverlayTab& tab, TabHost& host, int row) {
  tab.Lst_PicinPicBackdrop.ListIndex = row;
  if (tab.Lst_PicinPicBackdrop.hasChoice())
    host.UpDateFrmFileOpen(chosenClip(tab.Lst_PicinPicBackdrop), false);
  PopulateOverlayInterface(e, tab);
  host.buildClipSliders();
  host.ShowClipStats();
  showSample(tab, host);
}

void chooseOverlay(const Editing& e, OverlayTab& tab, TabHost& host, int row) {
  tab.Lst_PicinPicOverlays.ListIndex = row;
  CreatePicInPicEffectWordFromInterface(e, tab, host, "Overlay");
}

void chooseOverlayStyle(const Editing& e, OverlayTab& tab, TabHost& host, OverlayStyle style) {
  tab.look.style = style;
  CreatePicInPicEffectWordFromInterface(e, tab, host, "Overlay transparency");
}

void chooseOverlayPosition(const Editing& e, OverlayTab& tab, TabHost& host, int position) {
  tab.look.position = position;
  CreatePicInPicEffectWordFromInterface(e, tab, host, "Overlay position");
}

void moveMaxOpacity(const Editing& e, OverlayTab& tab, TabHost& host, int percent) {
  tab.look.maxOpacity = percent;
  CreatePicInPicEffectWordFromInterface(e, tab, host, "Overlay opacity");
}

void moveOverlayIn(const Editing& e, OverlayTab& tab, TabHost& host, int milliseconds) {
  tab.look.fadeIn = fadeStep(milliseconds, tab.Sld_OverlayIn);
  CreatePicInPicEffectWordFromInterface(e, tab, host, "Overlay fade in");
}

void moveOverlayOut(const Editing& e, OverlayTab& tab, TabHost& host, int milliseconds) {
  tab.look.fadeOut = fadeStep(milliseconds, tab.Sld_OverlayOut);
  CreatePicInPicEffectWordFromInterface(e, tab, host, "Overlay fade out");
}

void tickTrimOverlay(const Editing& e, OverlayTab& tab, TabHost& host, bool on) {
  tab.look.trimToBackdrop = on;
  CreatePicInPicEffectWordFromInterface(e, tab, host, "Overlay trim");
}

void tickOverlaySound(const Editing& /*e*/, OverlayTab& tab, TabHost& host, bool on) {
  tickSound(tab, host, "Overlay sound", tab.overlaySound, on);
}

void tickBackdropSound(const Editing& /*e*/, OverlayTab& tab, TabHost& host, bool on) {
  tickSound(tab, host, "Backdrop sound", tab.backdropSound, on);
}

void clearPicInPic(const Editing& e, OverlayTab& tab, TabHost& host) {
  const int backdropNo = chosenClip(tab.Lst_PicinPicBackdrop);
  if (backdropNo == 0) return;
  host.edit("Clear overlay", backdropNo, 0, [&] { e.clips()[backdropNo].HasPicInPic(""); });
  PopulateOverlayInterface(e, tab);
  showSample(tab, host);
}

}  // namespace kvo
