#include "editor/compiler/video_group.h"

#include "base/text.h"
#include "editor/compiler/clip_kinds.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/preview_params.h"

namespace kvo {

void ClearGlobals(EditorState& editor) {
  editor.texts = {};
  editor.AudioLevelingCount = 0;
  editor.LastClipStop.clear();
}

void CreateVideoGroup(const Compilation& c, int& depth, int& width, int& height, Single& frameRate,
                      int mode) {
  auto& settings = c.settings;
  if (settings.preferences().PreviewCPU == 0) settings.change().PreviewCPU = 10;
  auto tail = "buffering=" + quoted(settings.preferences().DirectXPrebuffer) + " ";
  if (mode >= kRenderMode) {
    frameRate = settings.preferences().OutPutFrameRate;
  } else {
    const auto params = GetPreviewParams(c, mode);
    depth = params.Depth;
    frameRate = params.Rate;
    width = toLongClamped(width / params.Scale);
    height = toLongClamped(height / params.Scale);
    tail += "PreviewMode=" + quoted("True") + " ";
  }
  c.editor.texts.VideoGroupText =
      "<group type=" + quoted("video") + " bitdepth=" + quoted(std::to_string(depth)) +
      " width=" + quoted(std::to_string(width)) + " height=" + quoted(std::to_string(height)) +
      " framerate=" + quoted(ShortText(frameRate)) + " name=" + quoted("VIDEO") + " " + tail + " >\r\n";
  c.editor.OutputWidth = width;
  c.editor.OutputHeight = height;
}

bool HaveAtleastOneVidTrack(const Compilation& c) {
  c.editor.hasNoVideo = false;
  for (int i = 1; i <= c.clips().count(); ++i) {
    if (!isSound(c, c.clips()[i])) return true;
  }
  c.editor.hasNoVideo = true;
  c.editor.controls.Chk_RenderClipAudio = false;
  c.editor.controls.Chk_AutoTrim = false;
  c.editor.controls.Chk_AutoTrimEnabled = false;
  SetAutoTrim(c);
  return false;
}

void GetHeightWidth(EditorControls& controls, int& height, int& width) {
  constexpr int kLargest = 3000;
  if (controls.Opt_Preset) {
    if (controls.Cmb_Res.empty()) return;
    width = GetWidthFromString(controls.Cmb_Res);
    height = GetHeightFromString(controls.Cmb_Res);
    return;
  }
  if (controls.txtHeight > kLargest || controls.txtHeight < 0) controls.txtHeight = 320;
  if (controls.txtWidth > kLargest || controls.txtWidth < 0) controls.txtWidth = 240;
  height = controls.txtHeight;
  width = controls.txtWidth;
}

int GetWidthFromString(std::string_view text) { return toLongClamped(ToNumber(text)); }

int GetHeightFromString(std::string_view text) {
  const auto at = text.find_first_of("xX");
  return at == std::string_view::npos ? 0 : toLongClamped(ToNumber(text.substr(at + 1)));
}

}  // namespace kvo
