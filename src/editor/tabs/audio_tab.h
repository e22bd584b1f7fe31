// The tab Audio: sound and fades of the chosen clip, the music under the movie, and whether the two are of
// one length.
#pragma once

#include "editor/tabs/audio_fades.h"
#include "editor/tabs/clip_lists.h"
#include "editor/tabs/editor_parts_state.h"
#include "editor/tabs/tab_host.h"

#include <string>

namespace kvo {

/// What stands at the foot of the tab.
struct AudioNotice {
  enum class Kind { Nothing, Good, Bad };
  Kind kind = Kind::Nothing;
  std::string title;
  std::string text;  ///< composed where it names a clip
  bool operator==(const AudioNotice&) const = default;
};

struct AudioTab {
  ListBox Lst_AudioMovies;

  // The chosen clip.
  bool hasSound = false;
  std::string soundWhyNot;  ///< it cannot be put in the movie; whole, empty where it can
  AudioFadeControls fades;
  ClipSlider fadeIn;   ///< tenths of a second
  ClipSlider fadeOut;  ///< tenths of a second
  ClipSlider level;    ///< tenths of full level

  // The music.
  bool hasMusic = false;
  std::string orderWhyNot;  ///< Opt_StackOverlay is off; whole, empty where it is not
  std::string trimWhyNot;   ///< Chk_AutoTrim is; likewise
  OverlayOrder Opt_StackOverlay = OverlayOrder::InSequence;
  bool Chk_AutoTrim = false;

  bool Chk_RenderClipAudio = false;
  std::string clipAudioWhyNot;  ///< Chk_RenderClipAudio is off; likewise
  ClipSlider trackFade;         ///< tenths of a second
  AudioNotice notice;
};

/// True if any clip is music by its name.
bool CheckForAudiotrack(const Editing& e);

/// "Clip Audio Level in Movie - 50%", or "- Muted" at 0.
std::string audioLevelHeading(int tenths);

/// The tab is opened, or a change was heard of while it is open.
void enterTab(const Editing& e, AudioTab& tab, TabHost& host);
void followTab(const Editing& e, AudioTab& tab, TabHost& host, bool rebuild);

/// A row of Lst_AudioMovies, from 0.
void chooseAudioClip(const Editing& e, AudioTab& tab, TabHost& host, int row);

/// The chosen clip's sound goes into the movie.
void tickClipSound(const Editing& e, AudioTab& tab, TabHost& host, bool on);

/// A fade is being dragged, in tenths of a second.
void moveFadeIn(const Editing& e, AudioTab& tab, TabHost& host, int tenths);
void moveFadeOut(const Editing& e, AudioTab& tab, TabHost& host, int tenths);
/// It was let go: one that is longer than the clip is warned of.
void letGoFade(const Editing& e, const AudioTab& tab);

void moveAudioLevel(const Editing& e, AudioTab& tab, TabHost& host, int tenths);

void chooseOverlayOrder(const Editing& e, AudioTab& tab, TabHost& host, OverlayOrder order);
void tickAutoTrim(const Editing& e, AudioTab& tab, TabHost& host, bool on);
void tickRenderClipAudio(const Editing& e, AudioTab& tab, TabHost& host, bool on);
/// Held within the shortest clip.
void moveTrackFade(const Editing& e, AudioTab& tab, TabHost& host, int tenths);

}  // namespace kvo
