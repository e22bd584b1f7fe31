#include "ui/accessible_rows.h"

#include "ui/made.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <map>

namespace kvo {
namespace {

// The row that stands at an index now. It goes with the list's own interface, which goes with the widget.
class RowAccess : public QAccessibleInterface {
 public:
  RowAccess(QWidget& view, const AccessibleRows& rows, int index)
      : view_(&view), rows_(rows), index_(index) {}

  [[nodiscard]] bool isValid() const override { return view_ != nullptr && index_ < rows_.rowCount(); }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(view_.data());
  }
  [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name && isValid() ? rows_.rowName(index_) : QString();
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  [[nodiscard]] QRect rect() const override {
    const auto inside = isValid() ? rows_.rowPlace(index_) : QRect();
    return inside.isEmpty() ? QRect() : QRect(view_->mapToGlobal(inside.topLeft()), inside.size());
  }

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    const auto row = rows_.rowState(index_);
    state.selectable = true;
    state.focusable = true;
    state.selected = row.selected;
    state.focused = view_->hasFocus() && rows_.rowInHand() == index_;
    state.offscreen = !row.inSight;
    state.disabled = !view_->isEnabled();
    state.multiSelectable = row.multiSelectable;
    return state;
  }

 private:
  QPointer<QWidget> view_;
  const AccessibleRows& rows_;
  int index_;
};

class RowsAccess : public QAccessibleWidget {
 public:
  RowsAccess(QWidget& view, const AccessibleRows& rows)
      : QAccessibleWidget(&view, QAccessible::List), view_(view), rows_(rows) {}
  RowsAccess(const RowsAccess&) = delete;
  RowsAccess& operator=(const RowsAccess&) = delete;
  ~RowsAccess() override {
    for (const auto& [index, id] : items_) QAccessible::deleteAccessibleInterface(id);
  }

  [[nodiscard]] int childCount() const override { return rows_.rowCount(); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    auto found = items_.find(index);
    if (found == items_.end()) {
      // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the register owns it
      const auto id = QAccessible::registerAccessibleInterface(made<RowAccess>(view_, rows_, index));
      found = items_.emplace(index, id).first;
    }
    return QAccessible::accessibleInterface(found->second);
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    const auto inside = view_.mapFromGlobal(QPoint(x, y));
    return view_.rect().contains(inside) ? child(rows_.rowAt(inside)) : nullptr;
  }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* wanted) const override {
    for (const auto& [index, id] : items_) {
      if (QAccessible::accessibleInterface(id) == wanted) return index;
    }
    return -1;
  }
  [[nodiscard]] QAccessibleInterface* focusChild() const override {
    return view_.hasFocus() ? child(rows_.rowInHand()) : nullptr;
  }

 private:
  QWidget& view_;
  const AccessibleRows& rows_;
  mutable std::map<int, QAccessible::Id> items_;
};

QAccessibleInterface* makeRowsAccess(const QString& /*className*/, QObject* object) {
  const auto* rows = dynamic_cast<AccessibleRows*>(object);
  auto* view = dynamic_cast<QWidget*>(object);
  return rows == nullptr || view == nullptr ? nullptr : made<RowsAccess>(*view, *rows);
}

}  // namespace

void installAccessibleRows() {
  QAccessible::removeFactory(makeRowsAccess);
  QAccessible::installFactory(makeRowsAccess);
}

void tellRowInHand(QWidget& view, const AccessibleRows& rows) {
  if (!view.hasFocus() || rows.rowInHand() < 0) return;
  QAccessibleEvent event(&view, QAccessible::Focus);
  event.setChild(rows.rowInHand());
  QAccessible::updateAccessibility(&event);
}

}  // namespace kvo
