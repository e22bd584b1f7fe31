// The window of keyframes, Frm_Keyframe: the values of one effect of the clip in hand from frame to frame.
#pragma once

#include "editor/tabs/clip_lists.h"
#include "editor/tabs/editor_parts_state.h"
#include "editor/tabs/tab_host.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace kvo {

/// Which controls the window has.
enum class KeyframeControls {
  Blur,        ///< its radius
  MotionBlur,  ///< strength, direction, whether it is added
  Table,       ///< level, eight controls, four colours
};

/// How many sliders, and whether the box that lays the blur over the picture, and lists of colours.
struct KeyframeParts {
  std::size_t sliders = 0;
  bool additive = false;
  bool colours = false;
  bool operator==(const KeyframeParts&) const = default;
};
KeyframeParts partsOf(KeyframeControls controls);

inline constexpr std::size_t kKeyframeSliders = 9;  ///< level and eight controls
inline constexpr std::size_t kKeyframeColours = 4;  ///< fore, back, extra, texture

struct KeyframeColour {
  int chosen = 0;      ///< of the list of colours
  std::string whyNot;  ///< it is off; whole, empty where it is not
};

/// A keyframe in the strip.
struct KeyframePoint {
  int line = 0;      ///< of Lst_Keyframes, from 0
  Long frame = 0;    ///< of the clip
  double level = 0;  ///< 0 to 1
  bool operator==(const KeyframePoint&) const = default;
};

struct KeyframeWindow {
  bool visible = false;
  KeyframeControls controls = KeyframeControls::Table;
  int clipNo = 0;
  Long clipKey = 0;  ///< by which the clip is known where it moves
  int effectNo = 0;
  std::string clipName;
  std::string effectName;

  ListBox Lst_Keyframes;
  std::vector<bool> ignored;  ///< by line: beyond the clip's marks
  std::string whyNoDelete;    ///< whole; empty where there are more than one

  ClipSlider Sld_FramePosMaster;      ///< frames
  std::string Lbl_Frame;              ///< composed: "Current Frame = 000134 of 000260"
  std::vector<KeyframePoint> points;  ///< in the order of their frames

  /// Blur: its radius. MotionBlur: strength and direction. Table: level, then the eight controls.
  std::array<ClipSlider, kKeyframeSliders> sliders;
  std::array<std::string, kKeyframeSliders> readings;  ///< beside them
  bool Chk_MblurAddative = false;
  std::vector<std::string> colours;  ///< names; the first is "None"
  std::array<KeyframeColour, kKeyframeColours> Cmb_ParamColor;

  bool instantPreview = true;
};

/// Opens it for the clip in hand and the effect that is worked on (KeyframeEffectNo). False, with a box, for
/// a still without a length.
bool ActivateKeyFrameForm(const Editing& e, KeyframeWindow& window, TabHost& host);
void SuspendKeyframeForm(const Editing& e, KeyframeWindow& window);

/// Brings an open window in line with records that have changed under it; closes it where the clip in hand
/// is another, or has the effect no more.
void followKeyframes(const Editing& e, KeyframeWindow& window);

/// Sld_FramePosMaster: the frame where a new keyframe would be.
void moveToFrame(KeyframeWindow& window, int frame);

/// A line of the list, from 0; goes to its frame.
void chooseKeyframe(const Editing& e, KeyframeWindow& window, TabHost& host, int line);

/// "Add a new keyframe at this frame", with the values that the controls have.
void addKeyframeHere(const Editing& e, KeyframeWindow& window, TabHost& host);
/// The chosen one; the only one stays.
void deleteChosenKeyframe(const Editing& e, KeyframeWindow& window, TabHost& host);
/// All but the base keyframe.
void deleteAllKeyframes(const Editing& e, KeyframeWindow& window, TabHost& host);

/// A diamond of the strip is dragged to a frame and a level (0 to 1). The base keyframe keeps its frame, and
/// one that is on its way to another's frame stays where it is.
void dragKeyframe(const Editing& e, KeyframeWindow& window, TabHost& host, int line, Long frame,
                  double level);

/// Slider `index` of `sliders`. Without keyframes what it means is the same for all clips: the row of the
/// effects table, or the clip's own blur.
void moveKeyframeSlider(const Editing& e, KeyframeWindow& window, TabHost& host, std::size_t index,
                        int value);
void tickMblurAddative(const Editing& e, KeyframeWindow& window, TabHost& host, bool on);
/// List `index` of Cmb_ParamColor; `chosen` of the list of colours.
void chooseParamColor(const Editing& e, KeyframeWindow& window, TabHost& host, std::size_t index, int chosen);

void tickInstantPreview(const Editing& e, KeyframeWindow& window, TabHost& host, bool on);

}  // namespace kvo
