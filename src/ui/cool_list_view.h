// The list control on the screen: draws a CoolList and brings it what keyboard, mouse and drops do.
#pragma once

#include "ui/accessible_rows.h"
#include "ui/cool_list.h"
#include "ui/cool_list_rows.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QFrame>
#include <QPixmap>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QMimeData;
class QPlainTextEdit;
class QScrollBar;

namespace kvo {

class CoolListView : public QFrame, public AccessibleRows {
 public:
  /// What the list tells its window. Each may be empty.
  struct Events {
    std::function<void()> Click, DblClick, ListIndexChange;
    std::function<void(const QKeyEvent&)> KeyDown, KeyPress, KeyUp;
    std::function<void(const QMouseEvent&)> MouseDown, MouseMove, MouseUp;
    std::function<void()> SelectionChange{};
    std::function<void(int index)> Edited{};
  };

  /// What a window adds to the look of the rows.
  struct Look {
    QString emptyText;                            ///< stands in a list without rows
    int iconLeft = 0;                             ///< pixels from the row's left
    Qt::TextElideMode elide = Qt::ElideRight;     ///< of text that is too long, without WordWrap
    std::function<QString(int index)> trailing;   ///< a number or time at the row's right
    bool toolTips = true;                         ///< that show the whole of a text that was cut
    std::function<QString(int index)> toolTip{};  ///< of a row; empty for that of a text that was cut
    /// Stands in the place of an item's icon; a null one leaves the icon there. Asked for as the row is
    /// drawn.
    std::function<QPixmap(int index)> picture{};
    int pictureLeft = 0;  ///< pixels from the row's left
  };

  explicit CoolListView(QWidget* parent = nullptr, const CoolListProperties& properties = {});

  /// What it draws. What is done to it shows at once.
  [[nodiscard]] CoolList& list() { return list_; }
  [[nodiscard]] const CoolList& list() const { return list_; }
  void setProperties(const CoolListProperties& properties);
  /// The pictures that ItemIcon counts from 1.
  void SetImageList(std::vector<QPixmap> images);
  /// Of style 6.
  void setSelectionPicture(const QPixmap& picture);
  void setLook(Look look);

  Events events;
  /// Where set, letters, digits and Space without Ctrl, Alt or Meta are commands of the window and go here;
  /// what it does not take goes on to the list's parent. Otherwise they find the item that begins with them.
  std::function<bool(const QKeyEvent&)> commandKey;
  /// Where set, a drag carries this out of the list instead of selecting on. Null carries nothing.
  std::function<std::unique_ptr<QMimeData>(int index)> dragOut;
  /// Where set, what it accepts may be dropped, ahead of item `before` (ListCount: at the end).
  std::function<bool(const QMimeData&)> accepts;
  std::function<void(const QMimeData&, int before)> dropped;

  /// The text of an item, in the place of the widget; empty for one out of view.
  [[nodiscard]] QRect itemRect(int index) const;
  [[nodiscard]] int rowCount() const override { return list_.ListCount(); }
  [[nodiscard]] QString rowName(int row) const override;
  [[nodiscard]] QRect rowPlace(int row) const override { return itemRect(row); }
  [[nodiscard]] RowState rowState(int row) const override;
  [[nodiscard]] int rowAt(const QPoint& at) const override;
  [[nodiscard]] int rowInHand() const override { return list_.ListIndex(); }
  [[nodiscard]] QSize sizeHint() const override { return {200, 180}; }
  /// The place of the keyboard, where its menu opens, is the row of ListIndex.
  [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void takeStored(const CoolListProperties& wanted);
  [[nodiscard]] int yInside(const QPointF& position) const;
  [[nodiscard]] std::chrono::milliseconds now() const;
  [[nodiscard]] CoolListRow drawing(int index) const;
  void layOut();
  void showBar();
  void showEdit();
  void waitForStep();
  bool navigate(const QKeyEvent& event);
  bool find(const QString& typed);
  void carryOut();
  [[nodiscard]] int dropEdge() const;
  void scrollToDrop();
  void showDropPlace();
  void endDrop();
  void showDropPlace(std::optional<int> before);
  void drawDropPlace(QPainter& painter) const;

  CoolList list_;
  Look look_;
  std::vector<QPixmap> images_;
  QPixmap selectionPicture_;
  QScrollBar* bar_;
  QPlainTextEdit* edit_;
  bool hasSize_ = false;
  QElapsedTimer clock_;
  QBasicTimer step_;
  QString typed_;
  std::chrono::milliseconds typedAt_{};
  std::optional<QPointF> pressedAt_;  // where a drag out may begin
  bool pressWaits_ = false;           // whether that press selects only when it is let go
  int dropAt_ = 0;                    // where the pointer is with what is dragged, pixels from the top
  QBasicTimer dropScroll_;
  std::optional<int> dropBefore_;
};

}  // namespace kvo
