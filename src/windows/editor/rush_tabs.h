// The strip at the top of the editor: its seven tabs, and what goes on in the background, and the keys of
// undo and redo with the list of what they can take back.
#pragma once

#include "windows/editor/rush_acts.h"

#include <QCoreApplication>
#include <QWidget>

class QMenu;
class QTabBar;

namespace kvo {

class KVOBut;
class WorkKey;

class RushTabs final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::RushTabs)

 public:
  static constexpr int kTabs = 7;
  static constexpr int kHeight = 44;  ///< pixels at size 1

  /// Both outlive it.
  RushTabs(const RushState& state, const RushActs& acts, QWidget* parent);

  void draw();

  /// Ctrl+Z and its like: below 0 undoes, above 0 redoes; where it cannot it says why.
  void goInHistory(int steps);
  /// The keys of the tabs, 1 to 7: likewise.
  void goTo(int tab);

  /// What a tab is called, 1 to 7.
  [[nodiscard]] QString nameOf(int tab) const;

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  KVOBut* makeKey(const char* icon, const char* keys);
  void layOut();
  void showHistory();

  const RushState& state_;
  const RushActs& acts_;
  QTabBar* Tb_FileTab_;
  WorkKey* queue_;
  KVOBut* undo_;
  KVOBut* redo_;
  KVOBut* list_;
  QMenu* menu_;
  bool isDrawing_ = false;
};

}  // namespace kvo
