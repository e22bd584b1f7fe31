#include "program/picture_sign.h"

#include "program/clip_picture.h"

namespace kvo {

bool showsLabel(const MainWindowState& state) {
  return state.mode.panels.Pic_NoVid && !state.transport.lbl_Novid.text.empty();
}

PictureSign pictureSign(const MainWindowState& state) {
  using Icon = PictureSign::Icon;
  using Tone = PictureSign::Tone;
  const auto* clip = rowOnShow(state);
  if (clip == nullptr) return {};
  if (showsLabel(state)) {
    const auto& label = state.transport.lbl_Novid;
    const auto plain = label.stream ? Tone::Stream : Tone::Trouble;
    return {label.stream ? Icon::Address : Icon::Trouble, label.text, label.lit ? Tone::Lit : plain,
            label.stops};
  }
  switch (clip->kind) {
    case ClipKind::Sound:
      return {Icon::Sound, "Sound"};
    case ClipKind::Page:
      return {Icon::Address, "Web page"};
    case ClipKind::Stream:
      return {Icon::Address, "Stream"};
    default:
      return state.picture.fault.empty() ? PictureSign{} : PictureSign{Icon::Trouble, "No picture"};
  }
}

}  // namespace kvo
