#include "program/face_parts.h"

#include "program/picture_sign.h"

namespace kvo {

FaceParts faceParts(const MainWindowState& state, bool tellsOfWork) {
  if (tellsOfWork) return {};
  FaceParts parts;
  const auto& panels = state.mode.panels;
  parts.empty = state.emptyPane.visible;
  if (state.list.visible) {
    parts.list = panels.Fillist.visible;
    parts.picture = panels.FraDets;
    parts.largePicture = !panels.FraDets;
    parts.collection = panels.CollDets;
    return parts;
  }
  const bool playsIntro = state.mode.player.shows();  // while there is no list yet
  const bool streamComes = !parts.empty && showsLabel(state);
  parts.largePicture = playsIntro || streamComes;
  return parts;
}

bool saysStreamOnPicture(const MainWindowState& state) {
  const auto& labels = state.transport.stream;
  const bool hasNoLabels = state.mode.IsMiniMode || state.mode.pictureAlone;
  return labels.Lbl_StreamInfo && labels.buffer && hasNoLabels && !labels.comesIn().empty();
}

}  // namespace kvo
