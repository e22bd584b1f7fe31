#include "windows/editor/frm_rush.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/clip_details_part.h"
#include "windows/editor/clip_keys_part.h"
#include "windows/editor/clip_sliders_part.h"
#include "windows/editor/refusal.h"
#include "windows/editor/rush_tabs.h"
#include "windows/editor/veil.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

namespace kvo {
namespace {

constexpr QSize kRushSize(1280, 764);
constexpr QSize kLeastRush(1024, 640);
constexpr QSize kSmallestRush(940, 480);  // on the smallest screen: the keys have their size
constexpr int kRushSide = 16;
constexpr int kRushGap = 12;
constexpr int kCardGap = 10;
constexpr int kColumnHeight = 448;
constexpr int kRightWidth = 260;
constexpr int kLowerHeight = 248;
// Of each pixel that there is more than in the usual window, so much goes to the columns' width, or to the
// timeline.
constexpr double kPageShare = 0.3;
constexpr int kMostPageMore = 200;
constexpr double kRightShare = 0.12;
constexpr int kMostRightMore = 80;
constexpr double kLowerShare = 0.35;
constexpr int kLeastLower = 180;
constexpr int kMostLower = 420;
constexpr int kLeastUpper = 200;
constexpr QSize kCardRoom(914, 442);  // that the card of a render needs
constexpr int kSplitterHandle = 6;

// The keys of the clip in hand; those with Ctrl, Alt or Meta are not among them.
struct KeyOfClip {
  int key;
  bool shift;
  ClipKey act;
};
constexpr std::array<KeyOfClip, 10> kKeysOfClip{{{Qt::Key_I, false, ClipKey::SetIN},
                                                 {Qt::Key_O, false, ClipKey::SetOUT},
                                                 {Qt::Key_I, true, ClipKey::ResetIN},
                                                 {Qt::Key_O, true, ClipKey::ResetOUT},
                                                 {Qt::Key_X, false, ClipKey::Split},
                                                 {Qt::Key_C, false, ClipKey::Copy},
                                                 {Qt::Key_C, true, ClipKey::CopyEnd},
                                                 {Qt::Key_E, false, ClipKey::Equi},
                                                 {Qt::Key_T, false, ClipKey::Trimmer},
                                                 {Qt::Key_F2, false, ClipKey::Name}}};

}  // namespace

FrmRush::FrmRush(const RushState& state, RushActs acts, WindowPlace place, std::string pictures)
    : QWidget(nullptr, Qt::Window),
      state_(state),
      acts_(std::move(acts)),
      place_(std::move(place)),
      pictures_(std::move(pictures)) {
  setAttribute(Qt::WA_StyledBackground);
  tabs_ = made<RushTabs>(state_, acts_, this);
  splitter_ = made<QSplitter>(Qt::Vertical, this);
  splitter_->setChildrenCollapsible(false);
  splitter_->addWidget(makeUpper());
  splitter_->addWidget(makeLower());
  splitter_->setStretchFactor(0, 1);
  connect(splitter_, &QSplitter::splitterMoved,
          [this] { wantedLower_ = qRound(splitter_->sizes().back() / themeSize()); });
  auto* all = made<QVBoxLayout>(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  all->addWidget(tabs_);
  all->addWidget(splitter_, 1);
  makeShortcuts();
  sayWhyOff(*this);
  layOut();
}

FrmRush::~FrmRush() {
  if (isVisible()) keep();
}

QWidget* FrmRush::makeUpper() {
  upper_ = made<QWidget>(splitter_);
  auto* columns = made<QHBoxLayout>(upper_);
  columns->setSpacing(0);
  pages_ = made<QStackedWidget>(upper_);
  middle_ = made<QWidget>(upper_);
  auto* column = made<QVBoxLayout>(middle_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(themed(kCardGap));
  columns->addWidget(pages_);
  columns->addWidget(middle_, 1);
  columns->addSpacing(themed(kRushGap));
  columns->addWidget(makeRight());
  return upper_;
}

QWidget* FrmRush::makeRight() {
  right_ = made<QScrollArea>(upper_);
  right_->setAccessibleName(tr("The clip in hand"));
  right_->setFrameShape(QFrame::NoFrame);
  right_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  right_->setFocusPolicy(Qt::NoFocus);
  auto* cards = made<QWidget>(right_);
  auto* column = made<QVBoxLayout>(cards);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(themed(kCardGap));
  column->addWidget(details_ = made<ClipDetailsPart>(state_.stats, cards), 4);
  column->addWidget(sliders_ = made<ClipSlidersPart>(state_.sliders, acts_, cards), 2);
  column->addWidget(wheel_ = made<JogWheelPart>(state_.sliders, acts_, cards), 2);
  column->addStretch(0);
  right_->setWidget(cards);
  right_->setWidgetResizable(true);
  return right_;
}

QWidget* FrmRush::makeLower() {
  lower_ = made<QWidget>(splitter_);
  below_ = made<QVBoxLayout>(lower_);
  below_->setContentsMargins(0, 0, 0, 0);
  below_->setSpacing(0);
  below_->addWidget(keys_ = made<ClipKeysPart>(state_, acts_, pictures_, lower_));
  return lower_;
}

void FrmRush::makeShortcuts() {
  const auto on = [this](const QKeySequence& keys, const std::function<void()>& act) {
    auto* shortcut = made<QShortcut>(keys, this);
    connect(shortcut, &QShortcut::activated, act);
  };
  for (int tab = 1; tab <= kPages; ++tab)
    on(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + tab)), [this, tab] { tabs_->goTo(tab); });
  for (const auto* keys : {"Ctrl+Return", "Ctrl+Enter"})
    on(QKeySequence(keys), [this] {
      const auto why = shown(state_.frame.toolsOffBecause);
      why.isEmpty() ? acts_.renderToFile() : refuse(focused(), why);
    });
  on(QKeySequence("Ctrl+Z"), [this] { tabs_->goInHistory(-1); });
  on(QKeySequence("Ctrl+Shift+Z"), [this] { tabs_->goInHistory(1); });
  on(QKeySequence("Ctrl+Y"), [this] { tabs_->goInHistory(1); });
  on(QKeySequence("Ctrl+S"), [this] { save(acts_.save); });
  on(QKeySequence("Ctrl+Shift+S"), [this] { save(acts_.saveAs); });
}

// The key that does the same may lie on a page that is not open.
void FrmRush::save(const std::function<std::string()>& act) {
  const auto why = shown(state_.frame.whyNoSave());
  why.isEmpty() ? say(focused(), shown(act())) : refuse(focused(), why);
}

QWidget& FrmRush::focused() const {
  return focusWidget() != nullptr && focusWidget() != this ? *focusWidget() : *static_cast<QWidget*>(tabs_);
}

QSize FrmRush::roomOnScreen() const { return screen()->availableSize().shrunkBy(kFrameOfDesktop); }

void FrmRush::layOut() {
  // At a large interface its parts are squeezed: what lies beyond the screen cannot be reached at all.
  const QSize least(themed(kLeastRush.width()), themed(kLeastRush.height()));
  setMinimumSize(least.boundedTo(roomOnScreen().expandedTo(kSmallestRush)));
  splitter_->setHandleWidth(themed(kSplitterHandle));
  upper_->setMinimumHeight(themed(kLeastUpper));
  lower_->setMinimumHeight(themed(kLeastLower));
  lower_->setMaximumHeight(themed(kMostLower));
  shareRoom();
}

// The columns grow with a large window, and the timeline as long as they have their height. What the user has
// given it it keeps, as far as their least: they scroll then, but for the card of a render.
void FrmRush::shareRoom() {
  const double wide = width() / themeSize() - kRushSize.width();
  const auto share = [&](double part, int most) {
    return std::clamp(static_cast<int>(wide * part), 0, most);
  };
  // The bar of what has to scroll stands in the gap beside it.
  const int page = themed(EditorPage::kSize.width() + share(kPageShare, kMostPageMore));
  const int right = themed(kRightWidth + share(kRightShare, kMostRightMore));
  pages_->setFixedWidth(page + themed(kRushGap));
  right_->setFixedWidth(right + themed(kRushGap));
  for (auto* area : pageOf_) {
    if (area != nullptr) area->widget()->setFixedWidth(page);
  }
  right_->widget()->setFixedWidth(right);
  const int room = height() - themed(RushTabs::kHeight) - splitter_->handleWidth();
  const bool isLow = room < themed(kColumnHeight + 2 * kRushGap + kLeastLower);
  const int edge = themed(isLow ? kRushGap / 2 : kRushGap);
  upper_->layout()->setContentsMargins(themed(kRushSide), edge, themed(kRushSide - kRushGap), edge);
  const int tall = std::max(0, static_cast<int>(height() / themeSize()) - kRushSize.height());
  const int usual = kLowerHeight + static_cast<int>(tall * kLowerShare);
  const bool scrolls = wantedLower_ > 0 && (card_ == nullptr || card_->isHidden());
  const int columns = scrolls ? themed(kLeastUpper) : themed(kColumnHeight) + 2 * edge;
  const int most = std::max(room - columns, themed(kLeastLower));
  const int low = std::clamp(themed(wantedLower_ > 0 ? wantedLower_ : usual), themed(kLeastLower),
                             std::min(most, themed(kMostLower)));
  splitter_->setSizes({room - low, low});
  giveRoom(room - 2 * edge);
}

// Where there is too little for the card of a render it has the place of what it leaves without use, too.
void FrmRush::giveRoom(int high) {
  const bool isShown = card_ != nullptr && !card_->isHidden();
  const int wide = width() - 2 * themed(kRushSide) - right_->maximumWidth();
  right_->setVisible(!isShown || wide >= themed(kCardRoom.width()));
  lower_->setVisible(!isShown || high - themed(kLeastLower) >= themed(kCardRoom.height()));
}

void FrmRush::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  shareRoom();
}

void FrmRush::setPage(int tab, EditorPage* page, std::function<void()> draw) {
  const auto i = static_cast<std::size_t>(tab - 1);
  pageOf_[i] = EditorPage::scrolled(page, tabs_->nameOf(tab), pages_);
  drawPage_[i] = std::move(draw);
  pageOf_[i]->widget()->setFixedWidth(pages_->width() - themed(kRushGap));
  pages_->addWidget(pageOf_[i]);
  if (isVisible()) orderFocus();
}

void FrmRush::setPreview(QWidget* picture, QWidget* positionRow, std::function<void()> draw) {
  auto* column = static_cast<QVBoxLayout*>(middle_->layout());
  column->addWidget(picture, 1);
  column->addWidget(positionRow);
  drawPreview_ = std::move(draw);
}

void FrmRush::setTimeline(QWidget* timeline, std::function<void()> draw) {
  below_->addWidget(timeline, 1);
  drawTimeline_ = std::move(draw);
}

void FrmRush::setRender(QWidget* card, std::function<bool()> draw) {
  card_ = card;
  card_->hide();
  auto* columns = static_cast<QHBoxLayout*>(upper_->layout());
  columns->insertWidget(columns->indexOf(middle_) + 1, card_, 1);
  drawCard_ = std::move(draw);
  const std::array<QWidget*, 3> behind{tabs_, right_, lower_};
  for (std::size_t i = 0; i < behind.size(); ++i) veils_[i] = made<Veil>(*behind[i]);
}

void FrmRush::appear() {
  const QSize whole(themed(kRushSize.width()), themed(kRushSize.height()));
  resize(whole.boundedTo(roomOnScreen()));
  place_.restoreWithSize(*this);
  wantedLower_ = state_.frame.timelineHeight;
  shareRoom();
  orderFocus();
  show();
}

// From the tabs through the columns down to the timeline, though the parts were made in another order.
void FrmRush::orderFocus() {
  QWidget* before = nullptr;
  for (auto* part : std::array<QWidget*, 5>{tabs_, pages_, middle_, right_, lower_}) {
    for (auto* widget : part->findChildren<QWidget*>()) {
      if (widget->window() != this || (widget->focusPolicy() & Qt::TabFocus) == 0) continue;
      if (before != nullptr) setTabOrder(before, widget);
      before = widget;
    }
  }
}

void FrmRush::keep() const {
  place_.keep(*this, pos());
  if (wantedLower_ > 0) acts_.keepTimelineHeight(wantedLower_);
}

void FrmRush::draw() {
  if (!state_.frame.visible) return hide();
  if (const auto caption = shown(state_.frame.caption); windowTitle() != caption) setWindowTitle(caption);
  leaveTools();
  tabs_->draw();
  const auto front = static_cast<std::size_t>(state_.frame.CurrentTab - 1);
  if (pageOf_[front] != nullptr) {
    // Else the keyboard would go on to the first field of the page that comes, which takes Space and letters.
    const bool turns = pages_->currentWidget() != pageOf_[front];
    if (turns && pages_->isAncestorOf(focusWidget())) tabs_->setFocus();
    pages_->setCurrentWidget(pageOf_[front]);
    drawPage_[front]();
  }
  pages_->setEnabled(state_.frame.pageOn());
  for (auto* part : std::array<QWidget*, 2>{pages_, sliders_})
    noteWhyNot(*part, shown(state_.frame.toolsOffBecause));
  details_->draw();
  sliders_->draw();
  wheel_->draw();
  sliders_->setEnabled(state_.frame.toolsOn);
  keys_->draw();
  drawPreview_();
  drawTimeline_();
  drawRender();
  takeTools();
  if (!isVisible()) appear();
  if (std::exchange(raises_, state_.frame.raises) == state_.frame.raises) return;
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
}

void FrmRush::drawRender() {
  if (card_ == nullptr) return;
  const bool isShown = drawCard_();
  if (isShown == !card_->isHidden()) return;
  setFocus();  // what is hidden would pass the keyboard on to whatever comes next
  pages_->setVisible(!isShown);
  middle_->setVisible(!isShown);
  card_->setVisible(isShown);
  for (auto* veil : veils_) veil->setVisible(isShown);
  shareRoom();
  if (isShown) drawCard_();
}

// While tools are off the keyboard is the window's: what it was with could not take it, and the next in the
// order would.
void FrmRush::leaveTools() {
  if (state_.frame.toolsOn || !hadTools_) return;
  hadTools_ = false;
  lastFocus_ = focusWidget();
  setFocus();
}

void FrmRush::takeTools() {
  if (!state_.frame.toolsOn || hadTools_) return;
  hadTools_ = true;
  if (lastFocus_ != nullptr && focusWidget() == this) lastFocus_->setFocus();
}

bool FrmRush::takes(int key, Qt::KeyboardModifiers with) {
  if (key == Qt::Key_Space) {
    acts_.preview();
    return true;
  }
  for (const auto& entry : kKeysOfClip) {
    if (entry.key != key || entry.shift != with.testFlag(Qt::ShiftModifier)) continue;
    state_.keys.of(entry.act).empty() ? acts_.clipKey(entry.act) : keys_->refuse(entry.act);
    return true;
  }
  if (!state_.frame.toolsOn) {
    if (key == Qt::Key_Escape) acts_.stop();
    return key == Qt::Key_Escape;
  }
  switch (key) {
    case Qt::Key_D:
      if (!with.testFlag(Qt::ShiftModifier)) acts_.transition();
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      acts_.zoom(state_.frame.zoomBy(1));
      return true;
    case Qt::Key_Minus:
      acts_.zoom(state_.frame.zoomBy(-1));
      return true;
    case Qt::Key_0:
      acts_.wholeMovie();
      return true;
    case Qt::Key_Delete:  // elsewhere it is not the clip that one would expect to go
      refuse(focused(), tr("Click a clip on the timeline first"));
      return true;
    default:
      return false;
  }
}

// Here comes what the part with the keyboard has no use for.
void FrmRush::keyPressEvent(QKeyEvent* event) {
  const auto with = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (with == Qt::NoModifier && takes(event->key(), event->modifiers())) return event->accept();
  QWidget::keyPressEvent(event);
}

void FrmRush::closeEvent(QCloseEvent* event) {
  event->ignore();  // it goes when the editor has closed
  acts_.close();
}

void FrmRush::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (!event->spontaneous()) keep();
}

void FrmRush::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange && right_ != nullptr) layOut();
  QWidget::changeEvent(event);
}

}  // namespace kvo
