// What all faces of the main window do alike: its menus, keys, drops, and its end.
#pragma once

#include "playback/display/display.h"
#include "playback/positions/positions.h"
#include "program/mailbox.h"
#include "program/main_window_state.h"
#include "program/shut_down.h"
#include "windows/main/face_menu.h"

#include <QObject>
#include <functional>
#include <vector>

class QKeyEvent;

namespace kvo {

class WindowActs : public QObject {
 public:
  struct Logic {
    MainMenu& menu;
    Positions& positions;
    Mailbox& mailbox;
    ShutDown& shutDown;
    Display& display;
  };

  /// `acted` is called behind each act.
  WindowActs(const MainWindowState& state, const Logic& logic, std::function<void()> acted);

  /// Serves this window, which takes drops from now on. While a load or a command is under way its children
  /// hear neither mouse nor keyboard, but for `always` and what is within them.
  void serve(QWidget& window, const std::vector<QWidget*>& always = {});

  void openMenu(const QPoint& at, QWidget& window);
  void openListMenu(const QPoint& at, QWidget& window);
  void openSortMenu(const QPoint& at, QWidget& window);
  void openZoomMenu(const QPoint& at, QWidget& window);
  /// An entry of the menu, by a key of the window.
  void choose(MenuCommand command);
  /// What a letter, digit or blank does; false for nothing, and while a load or a command is under way.
  bool key(const QString& typed);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool windowEvent(QWidget& window, QEvent& event);
  bool keyCommand(int key);
  bool pressKey(QWidget& window, const QKeyEvent& event);
  void close(QEvent& event);

  const MainWindowState& state_;
  Logic logic_;
  std::function<void()> acted_;
  FaceMenu menu_;
};

}  // namespace kvo
