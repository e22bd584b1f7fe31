// The menus of the window, made from data each time that one is opened; and the shortcuts, which live while
// none is.
#pragma once

#include "program/menus.h"

#include <QObject>
#include <functional>
#include <vector>

class QPoint;
class QWidget;

namespace kvo {

class FaceMenu : public QObject {
 public:
  /// `acted` is called behind each command.
  FaceMenu(MainMenu& menu, std::function<void()> acted);

  // Each opens with its corner at that place of the screen, and gives back when it is closed.
  void openWindowMenu(const QPoint& at, QWidget* window);
  void openListMenu(const QPoint& at, QWidget* window);
  void openSortMenu(const QPoint& at, QWidget* window);
  void openZoomMenu(const QPoint& at, QWidget* window);

  /// Makes the shortcuts of all entries work in `window`.
  void addShortcuts(QWidget& window);

 private:
  void open(const std::vector<MenuEntry>& entries, const QPoint& at, QWidget* window);
  void addShortcuts(QWidget& window, const std::vector<MenuEntry>& entries);
  void choose(const MenuId& id);

  MainMenu& menu_;
  std::function<void()> acted_;
};

}  // namespace kvo
