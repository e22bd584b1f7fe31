#include "windows/main/face_menu.h"

#include "ui/compositing.h"
#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"

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

  void fill(const std::vector<MenuEntry>& entries, const std::function<void(const MenuId&)>& choose);

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QMenu::resizeEvent(event);
    if (!shaped_) return;
    QPainterPath outline;
    outline.addRoundedRect(rect(), themed(kMenuCorner), themed(kMenuCorner));
    setMask(QRegion(outline.toFillPolygon().toPolygon()));
  }

 private:
  bool shaped_;
  QActionGroup dots_{this};  // the entries of which one is chosen
};

void RoundMenu::fill(const std::vector<MenuEntry>& entries,
                     const std::function<void(const MenuId&)>& choose) {
  for (const auto& entry : entries) {
    if (entry.caption.empty()) {
      addSeparator();
      continue;
    }
    if (!entry.entries.empty()) {
      auto* below = made<RoundMenu>(told(entry.caption), this);
      below->setEnabled(entry.enabled);
      below->fill(entry.entries, choose);
      addMenu(below);
      continue;
    }
    // The text behind a tab stands at the right; the shortcut itself is not the menu's.
    const auto shortcut = entry.shortcut.empty() ? QString() : '\t' + shown(entry.shortcut);
    auto* action = addAction(told(entry.caption) + shortcut);
    action->setEnabled(entry.enabled);
    action->setToolTip(plainTip(shown(entry.tip)));
    action->setCheckable(entry.mark != MenuMark::None);
    action->setChecked(entry.mark != MenuMark::None);
    if (entry.mark == MenuMark::Dot) action->setActionGroup(&dots_);
    connect(action, &QAction::triggered, [choose, id = entry.id] { choose(id); });
  }
}

}  // namespace

FaceMenu::FaceMenu(MainMenu& menu, std::function<void()> acted) : menu_(menu), acted_(std::move(acted)) {}

void FaceMenu::choose(const MenuId& id) {
  menu_.choose(id);
  acted_();
}

void FaceMenu::open(const std::vector<MenuEntry>& entries, const QPoint& at, QWidget* window) {
  if (entries.empty()) return;
  RoundMenu menu({}, window);
  menu.fill(entries, [this](const MenuId& id) { choose(id); });
  menu.exec(at);
}

void FaceMenu::openWindowMenu(const QPoint& at, QWidget* window) { open(menu_.windowMenu(), at, window); }
void FaceMenu::openListMenu(const QPoint& at, QWidget* window) { open(menu_.listMenu(), at, window); }
void FaceMenu::openSortMenu(const QPoint& at, QWidget* window) { open(menu_.sortMenu(), at, window); }
void FaceMenu::openZoomMenu(const QPoint& at, QWidget* window) { open(menu_.zoomMenu(), at, window); }

void FaceMenu::addShortcuts(QWidget& window) { addShortcuts(window, menu_.windowMenu()); }

// The window owns them.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
void FaceMenu::addShortcuts(QWidget& window, const std::vector<MenuEntry>& entries) {
  for (const auto& entry : entries) {
    addShortcuts(window, entry.entries);
    if (entry.shortcut.empty()) continue;
    auto* shortcut = made<QShortcut>(QKeySequence(shown(entry.shortcut)), &window);
    connect(shortcut, &QShortcut::activated, this, [this, id = entry.id] { choose(id); });
  }
}
// NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)

}  // namespace kvo
