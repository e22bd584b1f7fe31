#include "editor/tabs/audio_fades.h"

#include "core/telling/failures.h"
#include "editor/compiler/durations.h"

namespace kvo {
namespace {

void warnOfLongFade(const Editing& e, const std::string& which, const std::string& what) {
  e.boxes.show({std::string(kProductName) + " - Autotrim Fade Warning",
                "As the 'Auto Trim' feature is ON, the values you have set for the fade " + which +
                    " are longer than the clip. You must reduce the fade " + what +
                    " time or switch OFF the 'Auto Trim' feature.",
                BoxButtons::Ok, BoxIcon::Warning});
}

}  // namespace

void AdjustAudioTrackFadeObjects(const Editing& e, AudioFadeControls& controls, bool fromSliders) {
  auto& clip = e.clips()[e.collection.icurMov];
  if (!fromSliders) {
    controls = {clip.RenderAudio(), ToNumber(ShortText(clip.AudioFadeInTime())) * 10,
                ToNumber(ShortText(clip.AudioFadeOutTime())) * 10};
    return;
  }
  if (!controls.renderAudio) {
    clip.HasAudioFade(false);
    return;
  }
  clip.RenderAudio(true);
  clip.AudioFadeInTime(static_cast<Single>(controls.fadeIn / 10));
  clip.AudioFadeOutTime(static_cast<Single>(controls.fadeOut / 10));
  clip.HasAudioFade(true);
  if (!e.editor.controls.Chk_AutoTrim) return;
  const double length = timelineLength(clip);
  if (controls.fadeIn / 10 > length) warnOfLongFade(e, "IN", "In");
  if (controls.fadeOut / 10 > length) warnOfLongFade(e, "OUT", "OUT");
}

AudioFadeTitles UpdateAudioFadeSliderTxt(const AudioFadeControls& controls) {
  const auto title = [](const std::string& words, double tenths) {
    return words + (tenths == 0 ? std::string("- Cut") : FormatMask(tenths / 10, "##0.0##s"));
  };
  return {title("Fade In Over ", controls.fadeIn), title("Fade Out Over ", controls.fadeOut)};
}

}  // namespace kvo
