#include "windows/editor/rush_tabs.h"

#include "ui/kvo_but.h"
#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "ui/tool_tips.h"
#include "ui/work_key.h"
#include "windows/editor/editor_page.h"
#include "windows/editor/refusal.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QTabBar>
#include <array>

namespace kvo {
namespace {

struct TabRow {
  const char* name;
  const char* icon;
};
constexpr std::array<TabRow, RushTabs::kTabs> kTabRows{
    {{QT_TRANSLATE_NOOP("kvo::RushTabs", "Create"), "movie"},
     {QT_TRANSLATE_NOOP("kvo::RushTabs", "Audio"), "music"},
     {QT_TRANSLATE_NOOP("kvo::RushTabs", "Transition"), "trans"},
     {QT_TRANSLATE_NOOP("kvo::RushTabs", "Effect"), "fx"},
     {QT_TRANSLATE_NOOP("kvo::RushTabs", "Stills"), "still"},
     {QT_TRANSLATE_NOOP("kvo::RushTabs", "Color"), "color"},
     {QT_TRANSLATE_NOOP("kvo::RushTabs", "Overlay"), "overlay"}}};

constexpr int kTabsLeft = 11;
constexpr int kTabsTop = 6;
constexpr int kStripRight = 16;
constexpr int kStripKey = 28;
constexpr std::size_t kMostListed = 30;  // of each direction

}  // namespace

RushTabs::RushTabs(const RushState& state, const RushActs& acts, QWidget* parent)
    : QWidget(parent),
      state_(state),
      acts_(acts),
      Tb_FileTab_(made<QTabBar>(this)),
      queue_(made<WorkKey>(this)),
      undo_(makeKey("undo", "Ctrl+Z")),
      redo_(makeKey("redo", "Ctrl+Shift+Z")),
      list_(makeKey("chev", "")),
      menu_(made<QMenu>(this)) {
  setFocusProxy(Tb_FileTab_);
  Tb_FileTab_->setExpanding(false);
  Tb_FileTab_->setUsesScrollButtons(true);
  Tb_FileTab_->setAccessibleName(tr("Tabs of the editor"));
  for (std::size_t i = 0; i < kTabRows.size(); ++i) {
    Tb_FileTab_->addTab(tr(kTabRows[i].name));
    Tb_FileTab_->setTabToolTip(static_cast<int>(i), tr(kTabRows[i].name) + QString(" (Ctrl+%1)").arg(i + 1));
  }
  connect(Tb_FileTab_, &QTabBar::currentChanged, [this](int index) {
    if (!isDrawing_) goTo(index + 1);
  });
  connect(queue_, &WorkKey::clicked, [this] { acts_.showQueue(); });
  connect(undo_, &KVOBut::clicked, [this] { acts_.goInHistory(-1); });
  connect(redo_, &KVOBut::clicked, [this] { acts_.goInHistory(1); });
  connect(list_, &KVOBut::clicked, [this] { showHistory(); });
  auto* row = made<QHBoxLayout>(this);
  row->setSpacing(themed(3));
  row->setContentsMargins(themed(kTabsLeft), themed(kTabsTop), themed(kStripRight), 1);
  row->addWidget(Tb_FileTab_, 1, Qt::AlignBottom);
  row->addWidget(queue_, 0, Qt::AlignVCenter);
  for (auto* key : {undo_, redo_, list_}) row->addWidget(key, 0, Qt::AlignVCenter);
  layOut();
}

KVOBut* RushTabs::makeKey(const char* icon, const char* keys) {
  auto* key = made<KVOBut>(this);
  key->setIconName(icon);
  key->setFocusPolicy(Qt::TabFocus);
  setKeys(*key, keys);
  return key;
}

QString RushTabs::nameOf(int tab) const { return tr(kTabRows[static_cast<std::size_t>(tab - 1)].name); }

void RushTabs::layOut() {
  setFixedHeight(themed(kHeight));
  Tb_FileTab_->setIconSize(QSize(themed(16), themed(16)));
  for (std::size_t i = 0; i < kTabRows.size(); ++i) {
    QIcon icon;
    for (const auto& [colour, state] :
         {std::pair{token("text3"), QIcon::Off}, std::pair{token("teal"), QIcon::On}}) {
      icon.addPixmap(iconPicture(kTabRows[i].icon, colour, themed(16), devicePixelRatio()), QIcon::Normal,
                     state);
    }
    Tb_FileTab_->setTabIcon(static_cast<int>(i), icon);
  }
  for (auto* key : {undo_, redo_, list_}) key->setFixedSize(themed(kStripKey), themed(kStripKey));
}

void RushTabs::draw() {
  isDrawing_ = true;
  Tb_FileTab_->setCurrentIndex(state_.frame.CurrentTab - 1);
  isDrawing_ = false;
  const auto& queue = state_.queue;
  queue_->draw(shown(queue.text), shown(queue.about), queue.share, queue.isBad, themeSize());
  const auto& history = state_.history;
  const auto offer = [&](KVOBut& key, const QString& tip, int steps) {
    setWhyNot(key, shown(whyNoStep(state_.frame, history, steps)), tip);
  };
  const auto act = [](const QString& pattern, const auto& names) {
    return pattern.arg(names.empty() ? QString() : shown(names.back())).trimmed();
  };
  offer(*undo_, act(tr("Undo %1"), history.done), -1);
  offer(*redo_, act(tr("Redo %1"), history.undone), 1);
  offer(*list_, tr("What has been done"), 0);
}

void RushTabs::goInHistory(int steps) {
  const auto& key = steps < 0 ? undo_ : redo_;
  key->isEnabled() ? acts_.goInHistory(steps) : refuse(*key, whyNot(*key));
}

void RushTabs::goTo(int tab) {
  if (state_.frame.toolsOn) return acts_.Buildtabs(tab);
  draw();
  refuse(*Tb_FileTab_, Tb_FileTab_->tabRect(tab - 1).center(), shown(state_.frame.toolsOffBecause));
}

// From the farthest redo down to the farthest undo, the present place between them.
void RushTabs::showHistory() {
  menu_->clear();
  const auto& history = state_.history;
  const auto add = [this](const QString& text, int steps) {
    menu_->addAction(text, [this, steps] { acts_.goInHistory(steps); });
  };
  const auto redos = std::min(history.undone.size(), kMostListed);
  for (std::size_t i = redos; i > 0; --i) {
    add(tr("Redo %1").arg(shown(history.undone[history.undone.size() - i])), static_cast<int>(i));
  }
  if (redos > 0 && !history.done.empty()) menu_->addSeparator();
  const auto undos = std::min(history.done.size(), kMostListed);
  for (std::size_t i = 1; i <= undos; ++i)
    add(tr("Undo %1").arg(shown(history.done[history.done.size() - i])), -static_cast<int>(i));
  menu_->popup(list_->mapToGlobal(list_->rect().bottomLeft()));
}

void RushTabs::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange && menu_ != nullptr) layOut();
  QWidget::changeEvent(event);
}

// The line that the open tab stands on.
void RushTabs::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), toColour(token("ink1")));
  painter.fillRect(0, height() - 1, width(), 1, toColour(token("line1")));
}

}  // namespace kvo
