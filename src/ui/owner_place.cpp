#include "ui/owner_place.h"

#include <algorithm>

namespace kvo {
namespace {

int within(int wanted, int first, int end, int length) {
  return std::clamp(wanted, first, std::max(first, end - length));
}

}  // namespace

QPoint overOwner(const QRect& owner, const QRect& room, const QSize& size, const QPointF& part) {
  const int left = owner.left() + qRound(owner.width() * part.x()) - size.width() / 2;
  const int top = owner.top() + qRound(owner.height() * part.y()) - size.height() / 2;
  return {within(left, room.left(), room.right(), size.width()),
          within(top, room.top(), room.bottom(), size.height())};
}

QPoint besideOwner(const QRect& owner, const QRect& room, const QSize& size, int gap) {
  const int right = owner.right() + gap;
  if (right + size.width() <= room.right()) return {right, owner.top()};
  return {std::max(room.left(), owner.left() - gap - size.width()), owner.top()};
}

}  // namespace kvo
