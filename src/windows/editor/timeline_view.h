// The timeline on the screen: draws a TimelineState, and brings what pointer, wheel, keys and drops do there
// to its hand.
#pragma once

#include "editor/timeline/timeline_hand.h"
#include "ui/accessible_rows.h"
#include "windows/editor/timeline_sketches.h"

#include <QBasicTimer>
#include <QCoreApplication>
#include <QFrame>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

class QMimeData;
class QNativeGestureEvent;
class QScrollBar;

namespace kvo {

class TimelineView : public QFrame, public AccessibleRows {
  Q_DECLARE_TR_FUNCTIONS(kvo::TimelineView)

 public:
  struct Logic {
    const TimelineState& state;
    TimelineHand& hand;
    Sketches& sketches;
    std::function<void()> acted;  ///< behind each act that may have changed more than the timeline
  };

  /// All that `logic` names outlives it.
  explicit TimelineView(Logic logic, QWidget* parent = nullptr);

  /// Draws what the state has otherwise than what is on the screen.
  void draw();
  /// A picture or the sound of this file has come.
  void sketchesCame(const std::string& file);

  [[nodiscard]] const TimelineState& state() const { return logic_.state; }
  /// The block of a clip in pixels of the widget, as far as it is in sight.
  [[nodiscard]] QRect blockRect(int clip) const;
  /// The clip at a place of the widget; 0 for none.
  [[nodiscard]] int clipAt(const QPoint& at) const;
  // To a screen reader: the clips, and behind them the music.
  [[nodiscard]] int rowCount() const override;
  [[nodiscard]] QString rowName(int row) const override;
  [[nodiscard]] QRect rowPlace(int row) const override;
  [[nodiscard]] RowState rowState(int row) const override;
  [[nodiscard]] int rowAt(const QPoint& at) const override { return rowOf(clipAt(at)); }
  [[nodiscard]] int rowInHand() const override { return rowOf(logic_.state.marks.clip); }
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  /// What the desk writes of the state: the hand's own acts are drawn as they are done.
  struct Drawn {
    std::uint64_t revision = 0;
    TimelineSight sight;
    TimelineMarks marks;
    bool onlyShows = false;
    bool operator==(const Drawn&) const = default;
  };

  [[nodiscard]] const TimelineBlock& blockOf(int row) const;
  [[nodiscard]] int rowOf(int clip) const;
  [[nodiscard]] Drawn wanted() const;
  [[nodiscard]] TimelinePoint pointOf(const QPointF& at) const;
  void placeBar();
  void showBar();
  void showPointer();
  void shown();
  void settle();
  void tellClip();
  void tellReason();
  bool pinch(const QNativeGestureEvent& event);
  void showTip(const QPoint& at, const QPoint& global);

  Logic logic_;
  TimelineSketches sketches_;
  QScrollBar* bar_;
  std::optional<Drawn> drawn_;
  int toldClip_ = 0;
  int refused_ = 0;
  QBasicTimer scrolling_;  // while a drag rests at an edge
  bool showingBar_ = false;
};

}  // namespace kvo
