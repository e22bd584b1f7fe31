// What a screen reader is told of widgets that draw rows, blocks or tiles which are no widgets themselves: a
// list whose items have names, places and states.
#pragma once

#include <QRect>
#include <QString>

class QWidget;

namespace kvo {

struct RowState {
  bool selected = false;
  bool inSight = true;
  bool multiSelectable = false;
};

/// A widget that is such a list; rows count from 0.
class AccessibleRows {
 public:
  AccessibleRows() = default;
  AccessibleRows(const AccessibleRows&) = delete;
  AccessibleRows& operator=(const AccessibleRows&) = delete;
  virtual ~AccessibleRows() = default;

  [[nodiscard]] virtual int rowCount() const = 0;
  [[nodiscard]] virtual QString rowName(int row) const = 0;
  /// Pixels of the widget; empty for one out of sight.
  [[nodiscard]] virtual QRect rowPlace(int row) const = 0;
  [[nodiscard]] virtual RowState rowState(int row) const = 0;
  /// At a place of the widget; -1 for none.
  [[nodiscard]] virtual int rowAt(const QPoint& at) const = 0;
  /// That the keyboard is at; -1 for none.
  [[nodiscard]] virtual int rowInHand() const = 0;
};

/// Makes widgets that are AccessibleRows known to assistive programs. More than once does nothing more.
void installAccessibleRows();

/// Tells them that the keyboard is at another row, or has come to the widget; nothing while it is elsewhere.
void tellRowInHand(QWidget& view, const AccessibleRows& rows);

}  // namespace kvo
