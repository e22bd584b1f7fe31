// What the editor holds while it compiles a collection: the working texts, the totals that come out of a
// pass, and the state of the controls that steer it. Plain data; a window draws the controls, nothing here
// knows one.
#pragma once

#include "editor/compiler/effects_table.h"

#include <string>
#include <vector>

namespace kvo {

/// The four texts of a timeline document in the making, and the values that a compile leaves behind.
struct WorkingTexts {
  std::string VideoGroupText;
  std::string VideoTrackText;
  std::string AudioGroupText;
  std::string AudioTrackText;
};

/// A slider of the editor, in tenths of a second.
struct Slider {
  double Value = 0;
  int Max = 1;
};

enum class OverlayOrder {
  InSequence = 0,  ///< one track after the other
  Stacked = 1,     ///< all from the start of the movie
};

struct EditorControls {
  bool Chk_RenderClipAudio = true;  ///< the clips' own sound goes into the movie
  bool Chk_AutoTrim = true;
  bool Chk_AutoTrimEnabled = true;
  OverlayOrder Opt_StackOverlay = OverlayOrder::InSequence;
  Slider Sld_In;
  bool Opt_Preset = false;  ///< the output size comes from Cmb_Res, else from the two boxes
  std::string Cmb_Res;      ///< "640 x 480"
  int txtHeight = 240;
  int txtWidth = 320;
  std::string Lbl_Status;
  std::string Lbl_AudTotal;
  std::string Fra_Preview;
  std::string progressCaption;
  int progressValue = 0;  ///< clip number at work
  bool progressVisible = false;
};

struct EditorState {
  EffectsTable effects;
  WorkingTexts texts;
  EditorControls controls;
  std::string VideoTotalTime = "0";  ///< seconds: the last clip's stop
  std::string AudioTotalTime;        ///< seconds
  std::string LastClipStop;          ///< seconds: the largest stop seen
  int OutputWidth = 0;
  int OutputHeight = 0;
  int AudioLevelingCount = 0;  ///< envelopes of the running pass
  bool hasNoVideo = false;     ///< the last look found no clip with a picture
  std::vector<float> ClipStopList;
};

}  // namespace kvo
