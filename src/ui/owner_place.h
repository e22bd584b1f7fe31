// Where a window goes by the one that it belongs to, as far as the screen has room. Pixels of the desktop.
#pragma once

#include <QPoint>
#include <QRect>

namespace kvo {

/// The corner of a window of `size` with its middle over `part` of the owner, which counts from 0 to 1 each
/// way. One that is larger than the room begins at the room's upper left.
[[nodiscard]] QPoint overOwner(const QRect& owner, const QRect& room, const QSize& size,
                               const QPointF& part = {0.5, 0.5});

/// The same beside the owner with their heads in line: at the right, and where there is no room at the left.
[[nodiscard]] QPoint besideOwner(const QRect& owner, const QRect& room, const QSize& size, int gap);

/// The same where it covers no picture of the owner's: beside the owner, and where there is no room in the
/// corner of the screen in which least of `picture` lies below it, low and left ones first.
[[nodiscard]] QPoint offPicture(const QRect& owner, const QRect& picture, const QRect& room,
                                const QSize& size);

}  // namespace kvo
