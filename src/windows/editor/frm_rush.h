// The editor's window: its frame and the places of its parts. Pages, preview and timeline are given to it.
#pragma once

#include "windows/editor/rush_acts.h"
#include "windows/place/window_place.h"

#include <QCoreApplication>
#include <QPointer>
#include <QWidget>
#include <array>
#include <functional>
#include <string>

class QScrollArea;
class QSplitter;
class QStackedWidget;
class QVBoxLayout;

namespace kvo {

class ClipDetailsPart;
class ClipKeysPart;
class ClipSlidersPart;
class EditorPage;
class JogWheelPart;
class RushTabs;

class FrmRush final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::FrmRush)

 public:
  /// `place` keeps where it stands; `pictures` is the folder of the keys' pictures, with its separator.
  FrmRush(const RushState& state, RushActs acts, WindowPlace place, std::string pictures);
  ~FrmRush() override;

  // What is given becomes the window's; each is told to draw itself by the window's own draw().

  /// The page of a tab, 1 to 7.
  void setPage(int tab, EditorPage* page, std::function<void()> draw);
  /// The picture, which takes the room that there is, and the row below it.
  void setPreview(QWidget* picture, QWidget* positionRow, std::function<void()> draw);
  void setTimeline(QWidget* timeline, std::function<void()> draw);
  /// What lies over page and picture while a movie is made, and all else then stands back. `draw` tells
  /// whether it is to be seen.
  void setRender(QWidget* card, std::function<bool()> draw);

  /// Brings it in line with the state; it appears where it was.
  void draw();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  static constexpr int kPages = 7;

  QWidget* makeUpper();
  QWidget* makeRight();
  QWidget* makeLower();
  void makeShortcuts();
  [[nodiscard]] QSize roomOnScreen() const;
  void layOut();
  void shareRoom();
  void giveRoom(int high);
  void appear();
  void keep() const;
  void orderFocus();
  void drawRender();
  void save(const std::function<std::string()>& act);
  [[nodiscard]] QWidget& focused() const;
  void leaveTools();
  void takeTools();
  [[nodiscard]] bool takes(int key, Qt::KeyboardModifiers with);

  RushState state_;
  RushActs acts_;
  WindowPlace place_;
  std::string pictures_;
  RushTabs* tabs_ = nullptr;
  QSplitter* splitter_ = nullptr;
  QWidget* upper_ = nullptr;
  QWidget* lower_ = nullptr;
  int wantedLower_ = 0;  // height of the timeline, as in the state, while it is in the hand
  QStackedWidget* pages_ = nullptr;
  QWidget* middle_ = nullptr;
  QWidget* card_ = nullptr;
  std::array<QWidget*, 3> veils_{};  // over what stands back
  bool hadTools_ = true;
  int raises_ = 0;
  QPointer<QWidget> lastFocus_;  // that the keyboard was with when the tools went off
  QVBoxLayout* below_ = nullptr;
  QScrollArea* right_ = nullptr;
  ClipDetailsPart* details_ = nullptr;
  ClipSlidersPart* sliders_ = nullptr;
  JogWheelPart* wheel_ = nullptr;
  ClipKeysPart* keys_ = nullptr;
  std::array<QScrollArea*, kPages> pageOf_{};
  std::array<std::function<void()>, kPages> drawPage_;
  std::function<void()> drawPreview_ = [] {};
  std::function<void()> drawTimeline_ = [] {};
  std::function<bool()> drawCard_ = [] { return false; };
};

}  // namespace kvo
