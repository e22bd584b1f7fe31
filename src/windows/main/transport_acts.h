// What the mouse has done, as the transport takes it.
#pragma once

#include "playback/transport/transport.h"

#include <QGuiApplication>

namespace kvo {

inline PictureButton pictureButton(Qt::MouseButton button) {
  return button == Qt::MiddleButton ? PictureButton::Middle : PictureButton::Left;
}

/// The play key, with what is held on the keyboard.
inline void pressPlay(Transport& transport, bool right) {
  const bool shift = QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
  transport.playPressed({.right = right, .shift = shift});
}

}  // namespace kvo
