#include "windows/main/face_menu.h"

#include "ui/compositing.h"
#include "ui/made.h"
#include "windows/main/texts.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QPainterPath>
#include <QShortcut>
#include <utility>

namespace kvo {
namespace {

constexpr double kMenuCorner = 9;  // pixels

// With round corners: by a ground that can be seen through, or else by its shape.
class RoundMenu : public QMenu {
 public:
  RoundMenu(const QString& title, QWidget* parent) : QMenu(title, parent), shaped_(!hasCompositor()) {
    setToolTipsVisible(true);
    setWindowFlag(Qt::NoDropShadowWindowHint);
    setWindowFlag(Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QMenu::resizeEvent(event);
    if (!shaped_) return;
    QPainterPath outline;
    outline.addRoundedRect(rect(), kMenuCorner, kMenuCorner);
    setMask(QRegion(outline.toFillPolygon().toPolygon()));
  }

 private:
  bool shaped_;
};

void mark(QAction& action, MenuMark mark, QActionGroup& dots) {
  if (mark == MenuMark::None) return;
  action.setCheckable(true);
  action.setChecked(true);
  if (mark == MenuMark::Dot) action.setActionGroup(&dots);
}

}  // namespace

FaceMenu::FaceMenu(MainMenu& menu, std::function<void()> acted) : menu_(menu), acted_(std::move(acted)) {}

void FaceMenu::choose(MenuId id) {
  menu_.choose(id);
  acted_();
}

void FaceMenu::fill(QMenu& menu, const std::vector<MenuEntry>& entries) {
  auto* dots = made<QActionGroup>(&menu);
  for (const auto& entry : entries) {
    if (entry.caption.empty()) {
      menu.addSeparator();
      continue;
    }
    if (!entry.entries.empty()) {
      auto* below = made<RoundMenu>(shown(entry.caption), &menu);
      below->setEnabled(entry.enabled);
      fill(*below, entry.entries);
      menu.addMenu(below);
      continue;
    }
    // The text behind a tab stands at the right; the shortcut itself is not the menu's.
    const auto shortcut = entry.shortcut.empty() ? QString() : '\t' + shown(entry.shortcut);
    auto* action = menu.addAction(shown(entry.caption) + shortcut);
    action->setEnabled(entry.enabled);
    action->setToolTip(plainTip(entry.tip));
    mark(*action, entry.mark, *dots);
    connect(action, &QAction::triggered, this, [this, id = entry.id] { choose(id); });
  }
}

void FaceMenu::open(const std::vector<MenuEntry>& entries, const QPoint& at, QWidget* window) {
  RoundMenu menu({}, window);
  fill(menu, entries);
  menu.exec(at);
}

void FaceMenu::openWindowMenu(const QPoint& at, QWidget* window) { open(menu_.windowMenu(), at, window); }
void FaceMenu::openListMenu(const QPoint& at, QWidget* window) { open(menu_.listMenu(), at, window); }
void FaceMenu::openSortMenu(const QPoint& at, QWidget* window) { open(menu_.sortMenu(), at, window); }

void FaceMenu::addShortcuts(QWidget& window) { addShortcuts(window, menu_.windowMenu()); }

void FaceMenu::addShortcuts(QWidget& window, const std::vector<MenuEntry>& entries) {
  for (const auto& entry : entries) {
    addShortcuts(window, entry.entries);
    if (entry.shortcut.empty()) continue;
    auto* shortcut = made<QShortcut>(QKeySequence(shown(entry.shortcut)), &window);
    connect(shortcut, &QShortcut::activated, this, [this, id = entry.id] { choose(id); });
  }
}

}  // namespace kvo
