// What the editor holds between two compiles: the working texts and totals of the last one, and the state of
// the controls that steer it. Plain data; a window draws the controls, nothing here knows one.
#pragma once

#include "base/revised_list.h"
#include "editor/compiler/compile.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kvo {

/// A slider of the editor, in tenths of a second.
struct Slider {
  double Value = 0;
  int Max = 1;
};

struct EditorControls {
  Slider Sld_In;
  bool Opt_Preset = false;  ///< the output size comes from Cmb_Res, else from the two boxes
  std::string Cmb_Res;      ///< "640 x 480"
  int txtHeight = 240;
  int txtWidth = 320;
  std::string Fra_Preview;  ///< what the last compile has of the movie: "0 to 51.90 (s)"
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
  bool hasNoVideo = false;  ///< the last look found no clip with a picture
  std::vector<float> ClipStopList;
  RevisedList<std::string> missingFiles;  ///< of the clips, sorted, that were not there at the last look

  [[nodiscard]] bool isMissing(const std::string& file) const {
    return std::ranges::binary_search(missingFiles.rows(), file);
  }
};

}  // namespace kvo
