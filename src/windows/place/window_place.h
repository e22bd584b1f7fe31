// Remembers where a window stands on the desktop, for the user and from one run to the next.
#pragma once

#include "ports/desktop.h"
#include "ports/user_store.h"

#include <QMargins>
#include <QPoint>
#include <string>

class QWidget;

namespace kvo {

/// What a desktop may put around a window, pixels.
inline constexpr QMargins kFrameOfDesktop(4, 32, 4, 4);

class WindowPlace {
 public:
  /// `name` is that of the value in the store. Both ports outlive the object.
  WindowPlace(UserStore& store, const Desktop& desktop, std::string name)
      : store_(store), desktop_(desktop), name_(std::move(name)) {}

  /// True when there is a place that has been kept.
  [[nodiscard]] bool isKept() const;
  /// Moves a window that is about to be shown for the first time to where it was, as far as that is on a
  /// screen now; else to the middle of the first screen.
  void restore(QWidget& window) const;
  /// The same with the size that it had, as far as the screen has room for it and a desktop's frame about it.
  void restoreWithSize(QWidget& window) const;
  /// Moves a window to `corner`, and back onto the screen as far as it or its frame lies outside.
  void moveTo(QWidget& window, const QPoint& corner) const;
  /// Keeps that the window stands at `corner`.
  void keep(const QWidget& window, const QPoint& corner) const;

 private:
  UserStore& store_;
  const Desktop& desktop_;
  std::string name_;
};

}  // namespace kvo
