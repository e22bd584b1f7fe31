#include "ui/owner_place.h"

#include <algorithm>
#include <array>

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

QPoint offPicture(const QRect& owner, const QRect& picture, const QRect& room, const QSize& size) {
  const int right = std::max(room.left(), room.right() + 1 - size.width());
  const int low = std::max(room.top(), room.bottom() + 1 - size.height());
  const int top = std::min(owner.top(), low);
  if (owner.right() < right) return {owner.right() + 1, top};
  if (owner.left() - size.width() >= room.left()) return {owner.left() - size.width(), top};
  const auto covers = [&](const QPoint& corner) {
    const auto both = QRect(corner, size).intersected(picture);
    return both.isEmpty() ? 0 : both.width() * both.height();
  };
  return std::ranges::min(
      std::array{QPoint(room.left(), low), QPoint(right, low), room.topLeft(), QPoint(right, room.top())}, {},
      covers);
}

}  // namespace kvo
