#include "editor/tabs/preview.h"

#include "base/text.h"
#include "editor/compiler/document_check.h"
#include "editor/tabs/operations.h"

#include <cmath>

namespace kvo {

PreviewLabels labelsOf(const EditorState& editor) {
  const double video = ToNumber(editor.VideoTotalTime);
  const double audio = ToNumber(editor.AudioTotalTime);
  PreviewLabels labels;
  labels.lbl_VideoTotTime = FormatMask(video, kTotalMask);
  labels.FSB_RenderRangeMax = static_cast<int>(std::floor(video > 0 ? video : audio));
  if (audio <= 0) {
    labels.Lbl_AudTotal = "No Audio";
    labels.audioToolTip = "The final movie will not have an audio track";
    return labels;
  }
  labels.Lbl_AudTotal = FormatMask(audio, kTotalMask);
  labels.audioIsRed = editor.AudioTotalTime != editor.VideoTotalTime;  // as texts
  labels.audioToolTip =
      labels.audioIsRed
          ? "Audio Length does not match video Length - Either trim manually or use 'Auto trim' in "
            "the Audio options tab"
          : "Total length of the audio to be rendered";
  return labels;
}

std::string powerToolTip(int power) { return std::to_string(power * 10) + "% CPU"; }

std::string powerCaption(int power) {
  return powerToolTip(power) + " - " + "Preview Performance \\ CPU Power Required";
}

Result<PreviewLabels> CreatePreview(const Editing& e, const StillControls& stills) {
  if (e.clips().empty()) {
    e.boxes.show({"KVO - Nothing to Render", "Nothing to render", BoxButtons::Ok, BoxIcon::Information});
    return Error{"Nothing to render"};
  }
  ApplyStillSettings(e, stills);
  const int power = e.settings.preferences().PreviewCPU == 0 ? 10 : e.settings.preferences().PreviewCPU;
  const auto path = e.folder.beside("\\KVORender.xtl");
  if (auto done = writeDocument(e.files, path, compilePreviewText(e, power)); !done) return done.error();
  return labelsOf(e.editor);
}

}  // namespace kvo
