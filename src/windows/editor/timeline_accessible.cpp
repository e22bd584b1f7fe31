#include "windows/editor/timeline_accessible.h"

#include "ui/made.h"
#include "windows/editor/timeline_view.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <map>

namespace kvo {
namespace {

// Clips first, then music.
const TimelineBlock* blockAt(const TimelineBlocks& blocks, int index) {
  const auto i = static_cast<std::size_t>(index);
  if (index < 0 || i >= blocks.clips.size() + blocks.music.size()) return nullptr;
  return i < blocks.clips.size() ? &blocks.clips[i] : &blocks.music[i - blocks.clips.size()];
}

int countOf(const TimelineBlocks& blocks) {
  return static_cast<int>(blocks.clips.size() + blocks.music.size());
}

int indexOf(const TimelineBlocks& blocks, int clip) {
  const auto* block = blocks.of(clip);
  if (block == nullptr) return -1;
  const auto* first = blocks.clips.data();
  if (block >= first && block < first + blocks.clips.size()) return static_cast<int>(block - first);
  return static_cast<int>(blocks.clips.size()) + static_cast<int>(block - blocks.music.data());
}

// The block that stands at an index now.
class BlockAccess : public QAccessibleInterface {
 public:
  BlockAccess(TimelineView& view, int index) : view_(&view), index_(index) {}

  [[nodiscard]] bool isValid() const override { return block() != nullptr; }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(view_.data());
  }
  [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    const auto* shown = block();
    if (kind != QAccessible::Name || shown == nullptr) return {};
    const bool isMusic = index_ >= static_cast<int>(view_->state().blocks.clips.size());
    return QString::fromStdString(spokenName(*shown, isMusic));
  }
  [[nodiscard]] QRect rect() const override {
    if (!isValid()) return {};
    const auto inside = view_->blockRect(block()->clip);
    return inside.isEmpty() ? QRect() : QRect(view_->mapToGlobal(inside.topLeft()), inside.size());
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    const auto* shown = block();
    if (shown == nullptr) {
      state.invalid = true;
      return state;
    }
    const bool inHand = shown->clip == view_->state().marks.clip;
    state.selectable = true;
    state.focusable = true;
    state.selected = inHand;
    state.focused = inHand && view_->hasFocus();
    state.offscreen = view_->blockRect(shown->clip).isEmpty();
    return state;
  }

 private:
  [[nodiscard]] const TimelineBlock* block() const {
    return view_ == nullptr ? nullptr : blockAt(view_->state().blocks, index_);
  }

  QPointer<TimelineView> view_;
  int index_;
};

class TimelineAccess : public QAccessibleWidget {
 public:
  explicit TimelineAccess(TimelineView& view) : QAccessibleWidget(&view, QAccessible::List), view_(view) {}
  TimelineAccess(const TimelineAccess&) = delete;
  TimelineAccess& operator=(const TimelineAccess&) = delete;
  ~TimelineAccess() override {
    for (const auto& [index, id] : items_) QAccessible::deleteAccessibleInterface(id);
  }

  [[nodiscard]] int childCount() const override { return countOf(view_.state().blocks); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    auto found = items_.find(index);
    if (found == items_.end()) {
      // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the register owns it
      const auto id = QAccessible::registerAccessibleInterface(made<BlockAccess>(view_, index));
      found = items_.emplace(index, id).first;
    }
    return QAccessible::accessibleInterface(found->second);
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    return child(indexOf(view_.state().blocks, view_.clipAt(view_.mapFromGlobal(QPoint(x, y)))));
  }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* wanted) const override {
    for (const auto& [index, id] : items_) {
      if (QAccessible::accessibleInterface(id) == wanted) return index;
    }
    return -1;
  }
  [[nodiscard]] QAccessibleInterface* focusChild() const override {
    return view_.hasFocus() ? child(indexOf(view_.state().blocks, view_.state().marks.clip)) : nullptr;
  }

 private:
  TimelineView& view_;
  mutable std::map<int, QAccessible::Id> items_;
};

QAccessibleInterface* makeTimelineAccess(const QString& /*className*/, QObject* object) {
  auto* view = dynamic_cast<TimelineView*>(object);
  return view == nullptr ? nullptr : made<TimelineAccess>(*view);
}

}  // namespace

void installTimelineAccessibility() {
  QAccessible::removeFactory(makeTimelineAccess);
  QAccessible::installFactory(makeTimelineAccess);
}

void tellClipInHand(TimelineView& view) {
  const int index = indexOf(view.state().blocks, view.state().marks.clip);
  if (!view.hasFocus() || index < 0) return;
  QAccessibleEvent event(&view, QAccessible::Focus);
  event.setChild(index);
  QAccessible::updateAccessibility(&event);
}

}  // namespace kvo
