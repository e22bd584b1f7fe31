// The names of transitions as tiles, three in a row, each with a small picture of what it does. One stop of
// the keyboard: the arrows go from tile to tile.
#pragma once

#include "editor/tabs/transition_samples.h"
#include "editor/tabs/transition_tab.h"

#include <QBasicTimer>
#include <QCoreApplication>
#include <QPixmap>
#include <QScrollArea>
#include <functional>
#include <map>

namespace kvo {

class TransitionTiles final : public QScrollArea {
  Q_DECLARE_TR_FUNCTIONS(kvo::TransitionTiles)

 public:
  /// What the user does; none may be empty.
  struct Acts {
    std::function<void(const std::string& name)> pick;
    std::function<void(int steps)> pickNext;
    std::function<void(const std::string& name)> toggleFavourite;
  };

  static constexpr int kColumns = 3;

  /// State and samples outlive the tiles.
  TransitionTiles(const TransitionTab& state, TransitionSamples& samples, Acts acts, QWidget* parent);

  void draw();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void layOut();
  void paint(QPainter& painter, const QRect& region);
  void paintTile(QPainter& painter, int index);
  void paintSample(QPainter& painter, const QRectF& place, const std::string& name, int step);
  bool pressed(const QPoint& at, Qt::MouseButton button);
  void hover(int index);
  void showTip(const QPoint& at, const QPoint& global);
  void offerFavourite(int index, const QPoint& global);
  [[nodiscard]] QRect tileRect(int index) const;
  [[nodiscard]] QRect starRect(int index) const;
  [[nodiscard]] int tileAt(const QPoint& at) const;
  [[nodiscard]] int chosen() const;
  [[nodiscard]] bool isFavourite(const std::string& name) const;

  const TransitionTab& state_;
  TransitionSamples& samples_;
  Acts acts_;
  QWidget* sheet_;
  std::vector<std::string> drawnNames_;
  std::string drawnChoice_;
  std::vector<std::string> drawnFavourites_;
  int drawnRevision_ = -1;
  int hovered_ = -1;
  int step_ = 0;  // of the sample that moves below the pointer
  QBasicTimer moving_;
};

}  // namespace kvo
