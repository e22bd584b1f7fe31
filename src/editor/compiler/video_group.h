// The opening tag of the video group, the output size, and whether there is a picture at all.
#pragma once

#include "editor/compiler/compilation.h"

namespace kvo {

/// Power values of 10 and above compile at full size and rate, as for a render.
inline constexpr int kRenderMode = 10;

/// Empties the working texts and counters ahead of a compile.
void ClearGlobals(EditorState& editor);

/// Writes VideoGroupText and keeps the final size as OutputWidth and OutputHeight. `mode` is the power value;
/// below 10 the picture is reduced as the preview table says, and depth, size and rate are changed in place.
void CreateVideoGroup(const Compilation& c, int& depth, int& width, int& height, Single& frameRate, int mode);

/// True if any clip is a video or a still. If none is, the clip audio and auto-trim boxes go off.
bool HaveAtleastOneVidTrack(const Compilation& c);

/// The output size by the preset list or the two boxes. With an empty preset both are left as they were.
void GetHeightWidth(EditorControls& controls, int& height, int& width);

/// The numbers of "640 x 480"; 0 where there is none.
int GetWidthFromString(std::string_view text);
int GetHeightFromString(std::string_view text);

}  // namespace kvo
