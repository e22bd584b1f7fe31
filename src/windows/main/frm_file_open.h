// The main window: puts its parts together. Each part draws its struct of the state and calls the logic for
// what the user does there; nothing is decided here.
#pragma once

#include "program/list_commands.h"
#include "program/media_commands.h"
#include "program/shut_down.h"

#include <QMainWindow>

class QStackedWidget;

namespace kvo {

class ClipListPart;
class DetailsPart;
class EmptyPanePart;
class ProgressPart;

class FrmFileOpen : public QMainWindow {
 public:
  /// Whom the parts ask.
  struct Logic {
    CollectionCommands& collection;
    MediaCommands& media;
    ListCommands& list;
    Mailbox& mailbox;
    ShutDown& shutDown;
  };

  FrmFileOpen(MainWindowState& state, const Logic& logic);

  /// Brings the widgets in line with the state.
  void draw();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void drawFace();

  MainWindowState& state_;
  Logic logic_;
  QStackedWidget* panel_;
  EmptyPanePart* emptyPane_;
  ClipListPart* list_;
  DetailsPart* details_;
  ProgressPart* progress_;
};

}  // namespace kvo
