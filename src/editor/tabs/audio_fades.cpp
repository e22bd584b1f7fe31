#include "editor/tabs/audio_fades.h"

#include "core/telling/failures.h"
#include "editor/compiler/durations.h"
#include "editor/tabs/operations.h"

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

void storeAudioFades(Movie& clip, const AudioFadeControls& controls) {
  clip.HasAudioFade(controls.renderAudio);
  if (!controls.renderAudio) return;
  clip.RenderAudio(true);
  clip.AudioFadeInTime(static_cast<Single>(controls.fadeIn / 10));
  clip.AudioFadeOutTime(static_cast<Single>(controls.fadeOut / 10));
}

void warnOfLongFades(const Editing& e, const Movie& clip, const AudioFadeControls& controls) {
  if (!controls.renderAudio || !trimsMusic(e)) return;
  const double length = timelineLength(clip);
  if (controls.fadeIn / 10 > length) warnOfLongFade(e, "IN", "In");
  if (controls.fadeOut / 10 > length) warnOfLongFade(e, "OUT", "OUT");
}

void AdjustAudioTrackFadeObjects(const Editing& e, AudioFadeControls& controls, bool fromSliders) {
  auto& clip = e.clips()[e.collection.icurMov];
  if (!fromSliders) {
    controls = {clip.RenderAudio(), decimal(clip.AudioFadeInTime()) * 10,
                decimal(clip.AudioFadeOutTime()) * 10};
    return;
  }
  storeAudioFades(clip, controls);
  warnOfLongFades(e, clip, controls);
}

AudioFadeTitles UpdateAudioFadeSliderTxt(const AudioFadeControls& controls) {
  const auto title = [](const std::string& words, double tenths) {
    return words + (tenths == 0 ? std::string("- Cut") : FormatMask(tenths / 10, "##0.0##s"));
  };
  return {title("Fade In Over ", controls.fadeIn), title("Fade Out Over ", controls.fadeOut)};
}

}  // namespace kvo
