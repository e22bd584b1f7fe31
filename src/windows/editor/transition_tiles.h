// The names of transitions as tiles, three in a row, each with a small picture of what it does. One stop of
// the keyboard: the arrows go from tile to tile.
#pragma once

#include "editor/tabs/transition_tab.h"
#include "ui/accessible_rows.h"
#include "windows/editor/sample_motion.h"

#include <QCoreApplication>
#include <QScrollArea>
#include <cstdint>
#include <functional>

namespace kvo {

class TransitionTiles final : public QScrollArea, public AccessibleRows {
  Q_DECLARE_TR_FUNCTIONS(kvo::TransitionTiles)

 public:
  /// What the user does; none may be empty.
  struct Acts {
    std::function<void(const std::string& name)> pick;
    std::function<void(int steps)> pickNext;
    std::function<void(const std::string& name)> toggleFavourite;
  };

  /// State and samples outlive the tiles.
  TransitionTiles(const TransitionTab& state, MovingSamples& samples, Acts acts, QWidget* parent);

  void draw();

  [[nodiscard]] int rowCount() const override { return static_cast<int>(state_.names.shown.rows().size()); }
  [[nodiscard]] QString rowName(int row) const override;
  [[nodiscard]] QRect rowPlace(int row) const override;
  [[nodiscard]] RowState rowState(int row) const override;
  [[nodiscard]] int rowAt(const QPoint& at) const override { return tileAt(sheet_->mapFrom(this, at)); }
  [[nodiscard]] int rowInHand() const override { return chosen(); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void layOut();
  void paint(QPainter& painter, const QRect& region);
  void paintTile(QPainter& painter, int index);
  bool pressed(const QPoint& at, Qt::MouseButton button);
  void hover(int index);
  void showTip(const QPoint& at, const QPoint& global);
  void offerFavourite(int index, const QPoint& global);
  void bringChoiceInSight();
  [[nodiscard]] int heightOfAll() const;
  [[nodiscard]] int columns() const;
  [[nodiscard]] int wider() const;
  [[nodiscard]] int tileHeight() const;
  [[nodiscard]] QRect tileRect(int index) const;
  [[nodiscard]] QRect starRect(int index) const;
  [[nodiscard]] int tileAt(const QPoint& at) const;
  [[nodiscard]] int chosen() const;

  const TransitionTab& state_;
  MovingSamples& samples_;
  Acts acts_;
  QWidget* sheet_;
  std::uint64_t drawnNames_ = 0;
  std::string drawnChoice_;
  std::uint64_t drawnFavourites_ = 0;
  int drawnRevision_ = -1;
  int room_ = 0;  // in which the tiles are laid out, from side to side
  int hovered_ = -1;
  SampleMotion motion_;
  SamplePixmaps pixmaps_;
};

}  // namespace kvo
