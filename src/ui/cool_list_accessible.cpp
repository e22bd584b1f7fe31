#include "ui/cool_list_accessible.h"

#include "ui/cool_list_view.h"
#include "ui/made.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <map>

namespace kvo {
namespace {

// The item that stands at an index now.
class ItemAccess : public QAccessibleInterface {
 public:
  ItemAccess(CoolListView& view, int index) : view_(&view), index_(index) {}

  [[nodiscard]] bool isValid() const override {
    return view_ != nullptr && index_ < view_->list().ListCount();
  }
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
    if (kind != QAccessible::Name || !isValid()) return {};
    return QString::fromStdString(view_->list().item(index_).ItemText);
  }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  [[nodiscard]] QRect rect() const override {
    if (!isValid()) return {};
    const auto inside = view_->itemRect(index_);
    return inside.isEmpty() ? QRect() : QRect(view_->mapToGlobal(inside.topLeft()), inside.size());
  }

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) {
      state.invalid = true;
      return state;
    }
    const auto& list = view_->list();
    state.selectable = true;
    state.focusable = true;
    state.selected = list.item(index_).ItemSelected;
    state.focused = view_->hasFocus() && list.ListIndex() == index_;
    state.offscreen = !list.isInView(index_);
    state.disabled = !view_->isEnabled();
    state.multiSelectable = list.properties().SelectMode != 0;
    return state;
  }

 private:
  QPointer<CoolListView> view_;
  int index_;
};

class ListAccess : public QAccessibleWidget {
 public:
  explicit ListAccess(CoolListView& view) : QAccessibleWidget(&view, QAccessible::List), view_(view) {}
  ListAccess(const ListAccess&) = delete;
  ListAccess& operator=(const ListAccess&) = delete;
  ~ListAccess() override {
    for (const auto& [index, id] : items_) QAccessible::deleteAccessibleInterface(id);
  }

  [[nodiscard]] int childCount() const override { return view_.list().ListCount(); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    auto found = items_.find(index);
    if (found == items_.end()) {
      // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the register owns it
      const auto id = QAccessible::registerAccessibleInterface(made<ItemAccess>(view_, index));
      found = items_.emplace(index, id).first;
    }
    return QAccessible::accessibleInterface(found->second);
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    const auto inside = view_.mapFromGlobal(QPoint(x, y));
    if (!view_.rect().contains(inside)) return nullptr;
    const auto index = view_.list().itemAt(inside.y() - view_.contentsRect().top());
    return index ? child(*index) : nullptr;
  }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* wanted) const override {
    for (const auto& [index, id] : items_) {
      if (QAccessible::accessibleInterface(id) == wanted) return index;
    }
    return -1;
  }
  [[nodiscard]] QAccessibleInterface* focusChild() const override {
    return view_.hasFocus() ? child(view_.list().ListIndex()) : nullptr;
  }

 private:
  CoolListView& view_;
  mutable std::map<int, QAccessible::Id> items_;
};

QAccessibleInterface* makeAccess(const QString& /*className*/, QObject* object) {
  auto* view = dynamic_cast<CoolListView*>(object);
  return view == nullptr ? nullptr : made<ListAccess>(*view);
}

}  // namespace

void installCoolListAccessibility() {
  QAccessible::removeFactory(makeAccess);
  QAccessible::installFactory(makeAccess);
}

void tellItemFocus(const CoolListView& view, int index) {
  QAccessibleEvent event(const_cast<CoolListView*>(&view), QAccessible::Focus);
  event.setChild(index);
  QAccessible::updateAccessibility(&event);
}

}  // namespace kvo
