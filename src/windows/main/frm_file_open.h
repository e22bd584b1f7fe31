// The main window: draws its state and hands on what the user does. It decides nothing.
#pragma once

#include "program/main_window_state.h"

#include <QMainWindow>
#include <functional>
#include <string>

class QLabel;
class QListView;
class QPushButton;
class QStackedWidget;
class QStringListModel;

namespace kvo {

class FrmFileOpen : public QMainWindow {
 public:
  /// What the user can ask for.
  struct Commands {
    std::function<void()> New;
    std::function<void()> Open;
    std::function<void()> Save;
    std::function<bool()> Exit;  ///< false: the program goes on
    std::function<void()> AddMedia;
    std::function<void(std::vector<std::string>)> takeDropped;
    std::function<void(int)> selectClip;  ///< its number
  };

  FrmFileOpen(MainWindowState& state, Commands commands);

  /// Brings the widgets in line with the state.
  void draw();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void makeMenus();
  void makePanel();
  void drawList();
  void drawDetails();

  MainWindowState& state_;
  Commands commands_;
  std::vector<std::string> shownClips_;
  QStackedWidget* panel_ = nullptr;
  QPushButton* emptyPane_ = nullptr;
  QLabel* listCaption_ = nullptr;
  QListView* fillist_ = nullptr;
  QStringListModel* clips_ = nullptr;
  QLabel* details_ = nullptr;
  QLabel* status_ = nullptr;
  QPushButton* abort_ = nullptr;
};

}  // namespace kvo
