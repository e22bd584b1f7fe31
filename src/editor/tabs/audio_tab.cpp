#include "editor/tabs/audio_tab.h"

#include "base/text.h"
#include "core/records/media_kinds.h"
#include "core/telling/translated.h"
#include "editor/compiler/durations.h"
#include "editor/tabs/operations.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr Integer kLevelChanged = 98;  // change code
constexpr int kFadeTenths = 50;
constexpr int kFullLevel = 10;
constexpr int kMostLevel = 20;
constexpr int kTrackFadeTenths = 25;
constexpr double kSameLength = 0.0005;  // seconds: what the totals show

int tenthsOf(double value) { return toLongClamped(RoundToWhole(value)); }

ClipSlider audioSlider(int max, double tenths, bool enabled, std::string heading) {
  const int value = std::max(tenthsOf(tenths), 0);
  return {0, std::max(max, value), value, enabled, std::move(heading)};
}

bool isHeard(const Editing& e, const Movie& clip) {
  if (clip.IsStill()) return false;
  const auto facts = e.streams.facts(clipFile(clip));
  return facts && facts->hasAudio;
}

AudioNotice noticeOf(const Editing& e, bool hasMusic) {
  using Kind = AudioNotice::Kind;
  if (const int clipNo = misplacedSound(TimelineClips(e.collection, e.streams)); clipNo > 0) {
    return {Kind::Bad, "Audio tracks should be grouped together and placed at the end of the collection !",
            translated("Please move the audio track :- <%1> to the end of the collection.",
                       {e.clips()[clipNo].MovieName()})};
  }
  if (!hasMusic) return {};
  if (std::abs(musicTotal(e) - ToNumber(e.editor.VideoTotalTime)) < kSameLength) {
    return {Kind::Good, "Audio length matches video length",
            "Audio tracks stand at the end of the collection, as they should."};
  }
  return {Kind::Bad, "Audio Length does not match video Length",
          "Either trim manually or use 'Auto trim' in the Audio options tab"};
}

void readClip(const Editing& e, AudioTab& tab) {
  const int clipNo = chosenClip(tab.Lst_AudioMovies);
  const bool has = clipNo >= 1 && clipNo <= e.clips().count();
  const Movie none;
  const auto& clip = has ? e.clips()[clipNo] : none;
  tab.hasSound = has && isHeard(e, clip);
  tab.fades = {tab.hasSound && clip.RenderAudio(), decimal(clip.AudioFadeInTime()) * kFullLevel,
               decimal(clip.AudioFadeOutTime()) * kFullLevel};
  const auto titles = UpdateAudioFadeSliderTxt(tab.fades);
  tab.fadeIn = audioSlider(kFadeTenths, tab.fades.fadeIn, tab.fades.renderAudio, titles.fadeIn);
  tab.fadeOut = audioSlider(kFadeTenths, tab.fades.fadeOut, tab.fades.renderAudio, titles.fadeOut);
  tab.level = audioSlider(kMostLevel, decimal(clip.AudioOutputLevel()) * kFullLevel, tab.hasSound, {});
  tab.level.heading = audioLevelHeading(tab.level.Value);
  tab.soundWhyNot = tab.level.whyNot = tab.hasSound ? "" : "This clip has no sound";
  tab.fadeIn.whyNot = tab.fadeOut.whyNot =
      tab.hasSound ? "Put this sound in the movie first" : tab.soundWhyNot;
}

void readMovie(const Editing& e, AudioTab& tab) {
  const auto options = optionsOf(e);
  const bool hasVideo = !e.editor.hasNoVideo;
  tab.hasMusic = CheckForAudiotrack(e);
  tab.clipAudioWhyNot = hasVideo ? "" : "No clip has a picture";
  tab.orderWhyNot = tab.hasMusic ? "" : "There is no music in this collection";
  tab.trimWhyNot = tab.hasMusic ? tab.clipAudioWhyNot : tab.orderWhyNot;
  tab.Opt_StackOverlay = options.overlayOrder;
  tab.Chk_AutoTrim = trimsMusic(e);
  tab.Chk_RenderClipAudio = options.clipAudio && hasVideo;
  const double fade = decimal(options.trackFade);
  tab.trackFade = audioSlider(kTrackFadeTenths, fade, tab.Chk_RenderClipAudio, {});
  tab.trackFade.heading =
      translated("Fade between clips - %1s", {FormatMask(std::max(fade, 0.0) / 10, "0.0##")});
  tab.trackFade.whyNot = hasVideo ? "The clips' own audio is not in the movie" : tab.clipAudioWhyNot;
}

void readNotice(const Editing& e, AudioTab& tab) { tab.notice = noticeOf(e, tab.hasMusic); }

// One step of the history on the chosen clip.
bool changeSound(const Editing& e, AudioTab& tab, TabHost& host, std::string_view act, Integer code,
                 const std::function<void(Movie&)>& work) {
  const int clipNo = chosenClip(tab.Lst_AudioMovies);
  if (!tab.hasSound) return false;
  const bool done = host.edit(act, clipNo, code, [&] { work(e.clips()[clipNo]); });
  readClip(e, tab);
  return done;
}

void moveFade(const Editing& e, AudioTab& tab, TabHost& host, std::string_view act,
              const AudioFadeControls& wanted) {
  if (!tab.fades.renderAudio) return;
  changeSound(e, tab, host, act, 0, [&](Movie& clip) { storeAudioFades(clip, wanted); });
}

}  // namespace

bool CheckForAudiotrack(const Editing& e) {
  for (int i = 1; i <= e.clips().count(); ++i) {
    const auto* kind = mediaKind(e.clips()[i].MovieName());
    if (kind != nullptr && kind->canBeInMovie && kind->mediaClass == MediaClass::Sound) return true;
  }
  return false;
}

std::string audioLevelHeading(int tenths) {
  return tenths == 0 ? translated("Clip Audio Level in Movie - Muted")
                     : translated("Clip Audio Level in Movie - %1%", {std::to_string(tenths * kFullLevel)});
}

void enterTab(const Editing& e, AudioTab& tab, TabHost& host) { followTab(e, tab, host, true); }

void followTab(const Editing& e, AudioTab& tab, TabHost& host, bool rebuild) {
  if (rebuild) tab.Lst_AudioMovies.texts.assign(PopulateMovieListBoxes(e, ListedClips::AndMusic));
  SetMovieLstToMainIndex(e, tab.Lst_AudioMovies);
  readClip(e, tab);
  readMovie(e, tab);
  if (rebuild) readNotice(e, tab);
  host.buildClipSliders();
}

void chooseAudioClip(const Editing& e, AudioTab& tab, TabHost& host, int row) {
  tab.Lst_AudioMovies.ListIndex = row;
  if (tab.Lst_AudioMovies.hasChoice()) host.UpDateFrmFileOpen(chosenClip(tab.Lst_AudioMovies), false);
  SetMovieLstToMainIndex(e, tab.Lst_AudioMovies);
  readClip(e, tab);
  host.buildClipSliders();
  host.ShowClipStats();
}

void tickClipSound(const Editing& e, AudioTab& tab, TabHost& host, bool on) {
  changeSound(e, tab, host, on ? "Sound on" : "Sound off", kLevelChanged, [&](Movie& clip) {
    clip.RenderAudio(on);
    storeAudioFades(clip, {on, tab.fades.fadeIn, tab.fades.fadeOut});
  });
}

void moveFadeIn(const Editing& e, AudioTab& tab, TabHost& host, int tenths) {
  moveFade(e, tab, host, "Fade in", {true, static_cast<double>(tenths), tab.fades.fadeOut});
}

void moveFadeOut(const Editing& e, AudioTab& tab, TabHost& host, int tenths) {
  moveFade(e, tab, host, "Fade out", {true, tab.fades.fadeIn, static_cast<double>(tenths)});
}

void letGoFade(const Editing& e, const AudioTab& tab) {
  const int clipNo = chosenClip(tab.Lst_AudioMovies);
  if (clipNo >= 1 && tab.fades.renderAudio) warnOfLongFades(e, e.clips()[clipNo], tab.fades);
}

void moveAudioLevel(const Editing& e, AudioTab& tab, TabHost& host, int tenths) {
  const bool done = changeSound(e, tab, host, "Level", kLevelChanged, [&](Movie& clip) {
    clip.AudioOutputLevel(static_cast<Single>(static_cast<double>(tenths) / kFullLevel));
  });
  if (!done) return;
  host.buildClipSliders();
  host.ShowClipStats();
}

void chooseOverlayOrder(const Editing& e, AudioTab& tab, TabHost& host, OverlayOrder order) {
  host.edit("Order of the music", 0, kLevelChanged,
            [&] { e.settings.change().ExternalAudioStack = order == OverlayOrder::InSequence; });
  readMovie(e, tab);
}

void tickAutoTrim(const Editing& e, AudioTab& tab, TabHost& host, bool on) {
  host.edit("Auto Trim", 0, kLevelChanged, [&] { SetAutoTrim(e, on); });
  readMovie(e, tab);
}

void tickRenderClipAudio(const Editing& e, AudioTab& tab, TabHost& host, bool on) {
  host.edit(on ? "Clips' own audio on" : "Clips' own audio off", 0, kLevelChanged,
            [&] { e.settings.adjust().RenderVideoAudio = on; });
  readMovie(e, tab);
}

void moveTrackFade(const Editing& e, AudioTab& tab, TabHost& host, int tenths) {
  host.edit("Fade between clips", 0, 0, [&] {
    e.settings.change().VideoTrackFadeAmt = static_cast<Single>(tenths);
    UpdateTrackFade(e, false);
  });
  readMovie(e, tab);
}

}  // namespace kvo
