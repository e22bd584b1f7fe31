// The options of a render: which kind, which profile.
#include "base/text.h"
#include "editor/tabs/operations.h"
#include "render/movie_render.h"
#include "render/render_texts.h"

namespace kvo {

OutputSize MovieRender::outputSize() const {
  OutputSize size;
  GetHeightWidth(ports_.editing.editor.controls, size.height, size.width);
  return size;
}

void MovieRender::show(RenderFrame frame) {
  state_.frame = frame;
  state_.heading = frame == RenderFrame::Estimate    ? "Pre-Render - Phase 1"
                   : frame == RenderFrame::Rendering ? "Rendering - Phase 2"
                                                     : "";
  ports_.host.renderChanged();
}

void MovieRender::Rendertofile() {
  if (state_.isRunning) return;
  if (ports_.editing.clips().empty()) {
    ports_.editing.boxes.show(nothingToCreateBox());
    return;
  }
  ports_.host.PlayerStop();
  ports_.host.ApplyStillSettings();
  if (!HaveAtleastOneVidTrack(ports_.editing) && movieFileOf(state_.kind).hasPicture)
    state_.kind = OutputKind::Wav;
  chooseKind(state_.kind);
  show(RenderFrame::Options);
}

void MovieRender::leave() {
  if (!state_.isRunning) show(RenderFrame::None);
}

void MovieRender::chooseKind(OutputKind kind) {
  if (state_.isRunning) return;
  const bool isSound = kind == OutputKind::Wma;
  const bool isListed = isSound || kind == OutputKind::Wmv;
  const bool keepsRow = kind == state_.kind && !state_.Lst_WMVFormats.empty();
  state_.kind = kind;
  state_.Lst_WMVFormats = isListed ? PopulateWMVProfileOpts(isSound) : std::vector<std::string>();
  if (!keepsRow) state_.profileRow = isListed ? static_cast<int>(state_.Lst_WMVFormats.size()) - 1 : -1;
  // The last row with a picture is of a size that few movies have.
  if (!keepsRow && kind == OutputKind::Wmv) {
    constexpr int kBestQuality = 38;
    for (std::size_t row = 0; row < state_.Lst_WMVFormats.size(); ++row) {
      if (GetWMVRenderProfileInt(state_.Lst_WMVFormats[row]) == kBestQuality)
        state_.profileRow = static_cast<int>(row);
    }
  }
  describe();
}

void MovieRender::chooseProfile(int row) {
  if (state_.isRunning || row < 0 || row >= static_cast<int>(state_.Lst_WMVFormats.size())) return;
  state_.profileRow = row;
  describe();
  const int number = GetWMVRenderProfileInt(state_.Lst_WMVFormats[static_cast<std::size_t>(row)]);
  const auto told = ShowProfileDescription(number, outputSize(), state_.Chk_UseCodecOutputDimensions);
  for (const auto& warning : told.warnings) ports_.editing.boxes.show(warning);
}

void MovieRender::tickCodecDimensions(bool on) {
  if (state_.isRunning) return;
  state_.Chk_UseCodecOutputDimensions = on;
  describe();
}

void MovieRender::describe() {
  state_.profileDescription.clear();
  if (state_.profileRow >= 0) {
    const auto& row = state_.Lst_WMVFormats[static_cast<std::size_t>(state_.profileRow)];
    state_.profileDescription =
        ShowProfileDescription(GetWMVRenderProfileInt(row), outputSize(), state_.Chk_UseCodecOutputDimensions)
            .text;
  }
  ports_.host.renderChanged();
}

}  // namespace kvo
