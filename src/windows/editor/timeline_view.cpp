#include "windows/editor/timeline_view.h"

#include "editor/tabs/clip_checks.h"
#include "ui/focus_ring.h"
#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/editor/refusal.h"
#include "windows/editor/timeline_painter.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolTip>
#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr int kUsualHeight = 202;
constexpr int kLeastHeight = 134;
constexpr int kBarHeight = 10;
constexpr int kBarFoot = 6;

QRect pixels(const TimelineBox& box) {
  const double size = themeSize();
  return QRectF(box.x * size, box.y * size, box.width * size, box.height * size).toAlignedRect();
}

Qt::CursorShape pointerFor(TimelinePart part) {
  switch (part) {
    case TimelinePart::MarkIn:
    case TimelinePart::MarkOut:
    case TimelinePart::WedgeEnd:
    case TimelinePart::FadeIn:
    case TimelinePart::FadeOut:
    case TimelinePart::RangeFrom:
    case TimelinePart::RangeTo:
      return Qt::SizeHorCursor;
    case TimelinePart::Wedge:
    case TimelinePart::Effects:
    case TimelinePart::Keyframes:
    case TimelinePart::Colours:
    case TimelinePart::Overlay:
      return Qt::PointingHandCursor;
    default:
      return Qt::ArrowCursor;
  }
}

}  // namespace

TimelineView::TimelineView(Logic logic, QWidget* parent)
    : QFrame(parent),
      logic_(std::move(logic)),
      sketches_(logic_.sketches),
      bar_(made<QScrollBar>(Qt::Horizontal, this)) {
  installAccessibleRows();
  setAccessibleName(tr("Timeline"));
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAcceptDrops(true);
  bar_->setFocusPolicy(Qt::NoFocus);
  connect(bar_, &QScrollBar::valueChanged, [this](int value) {
    if (showingBar_) return;
    logic_.hand.scroll(value / (logic_.state.sight.scale * themeSize()));
    settle();
  });
}

QSize TimelineView::sizeHint() const { return {themed(1280), themed(kUsualHeight)}; }

QSize TimelineView::minimumSizeHint() const { return {themed(320), themed(kLeastHeight)}; }

TimelinePoint TimelineView::pointOf(const QPointF& at) const {
  return {at.x() / themeSize(), at.y() / themeSize()};
}

TimelineView::Drawn TimelineView::wanted() const {
  const auto& state = logic_.state;
  return {state.revision, state.sight, state.marks, state.onlyShows, state.isComing};
}

void TimelineView::draw() {
  tellClip();
  if (drawn_ == wanted()) return;
  shown();
}

// The screen follows the state.
void TimelineView::shown() {
  drawn_ = wanted();
  showBar();
  showPointer();
  update();
}

// Behind an act: the same, and whoever else shows it.
void TimelineView::settle() {
  shown();
  tellClip();
  tellReason();
  if (logic_.acted) logic_.acted();
}

// What was refused is said as everywhere in the window; readings of what goes on are painted.
void TimelineView::tellReason() {
  const auto& state = logic_.state;
  if (std::exchange(refused_, state.refusals) == state.refusals || !state.saying) return;
  const auto& at = state.saying->at;
  refuse(*this, QPointF(at.x * themeSize(), at.y * themeSize()).toPoint(), kvo::shown(state.saying->reason));
}

void TimelineView::tellClip() {
  if (std::exchange(toldClip_, logic_.state.marks.clip) != logic_.state.marks.clip)
    tellRowInHand(*this, *this);
}

void TimelineView::sketchesCame(const std::string& file) {
  const auto isIt = [&](const SeenBlock& seen) { return seen.block->file == file; };
  const auto& state = logic_.state;
  const auto clips = clipsInSight(state.blocks, state.sight);
  const auto music = musicInSight(state.blocks, state.sight);
  if (std::any_of(clips.begin(), clips.end(), isIt) || std::any_of(music.begin(), music.end(), isIt))
    update();
}

void TimelineView::resizeEvent(QResizeEvent* /*event*/) {
  const double size = themeSize();
  logic_.hand.resize(width() / size, height() / size);
  placeBar();
  shown();
}

void TimelineView::placeBar() {
  const int left = themed(kLanesLeft);
  const int high = themed(kBarHeight);
  bar_->setGeometry(left, height() - high - themed(kBarFoot),
                    std::max(1, width() - left - themed(kLanesRight)), high);
}

void TimelineView::showBar() {
  const auto& state = logic_.state;
  const double scale = state.sight.scale * themeSize();
  showingBar_ = true;
  bar_->setRange(0, static_cast<int>(std::min(1e9, lastFrom(state.sight, state.blocks.end()) * scale)));
  bar_->setPageStep(static_cast<int>(std::max(1.0, state.sight.seconds() * scale)));
  bar_->setSingleStep(themed(60));
  bar_->setValue(static_cast<int>(std::min(1e9, state.sight.from * scale)));
  bar_->setVisible(!state.blocks.empty());
  showingBar_ = false;
}

void TimelineView::showPointer() {
  const auto& state = logic_.state;
  const auto wantedShape =
      state.drag && state.drag->hit.clip != 0 && state.drag->hit.part == TimelinePart::Clip
          ? Qt::ClosedHandCursor
          : pointerFor(state.drag ? state.drag->hit.part : state.hover.part);
  if (cursor().shape() != wantedShape) setCursor(wantedShape);
}

void TimelineView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const double size = themeSize();
  const auto& state = logic_.state;
  sketches_.setHeight(bandsOf(state.sight, state.blocks.lanes).pictures.height, devicePixelRatioF() * size);
  painter.scale(size, size);
  TimelinePainter(state, sketches_, painter).draw(showsFocus(*this));
  sketches_.frameDrawn();
}

QRect TimelineView::blockRect(int clip) const {
  const auto& state = logic_.state;
  for (const auto& blocks :
       {clipsInSight(state.blocks, state.sight), musicInSight(state.blocks, state.sight)}) {
    for (const auto& seen : blocks) {
      if (seen.block->clip == clip) return pixels(seen.box).intersected(rect());
    }
  }
  return {};
}

int TimelineView::clipAt(const QPoint& at) const {
  return hitAt(logic_.state.blocks, logic_.state.sight, logic_.state.marks, pointOf(at)).clip;
}

int TimelineView::rowCount() const {
  const auto& blocks = logic_.state.blocks;
  return static_cast<int>(blocks.clips.size() + blocks.music.size());
}

const TimelineBlock& TimelineView::blockOf(int row) const {
  const auto& blocks = logic_.state.blocks;
  const auto index = static_cast<std::size_t>(row);
  return index < blocks.clips.size() ? blocks.clips[index] : blocks.music[index - blocks.clips.size()];
}

int TimelineView::rowOf(int clip) const {
  for (int row = 0; row < rowCount(); ++row)
    if (blockOf(row).clip == clip) return row;
  return -1;
}

QString TimelineView::rowName(int row) const {
  const bool isMusic = row >= static_cast<int>(logic_.state.blocks.clips.size());
  return kvo::shown(spokenName(blockOf(row), isMusic));
}

QRect TimelineView::rowPlace(int row) const { return blockRect(blockOf(row).clip); }

RowState TimelineView::rowState(int row) const {
  const int clip = blockOf(row).clip;
  return {.selected = clip == logic_.state.marks.clip, .inSight = !blockRect(clip).isEmpty()};
}

QVariant TimelineView::inputMethodQuery(Qt::InputMethodQuery query) const {
  return query == Qt::ImCursorRectangle ? blockRect(logic_.state.marks.clip)
                                        : QFrame::inputMethodQuery(query);
}

void TimelineView::focusInEvent(QFocusEvent* event) {
  QFrame::focusInEvent(event);
  tellRowInHand(*this, *this);
  update();
}

void TimelineView::focusOutEvent(QFocusEvent* event) {
  QFrame::focusOutEvent(event);
  update();
}

void TimelineView::showTip(const QPoint& at, const QPoint& global) {
  const auto& state = logic_.state;
  const auto hit = hitAt(state.blocks, state.sight, state.marks, pointOf(at));
  const auto* block = state.blocks.of(hit.clip);
  QString tip;
  if (block != nullptr) {
    const bool isTransition = hit.part == TimelinePart::Wedge || hit.part == TimelinePart::WedgeEnd;
    if (isTransition) {
      tip = tr("%1 over %2 s").arg(kvo::shown(block->transition)).arg(block->overlap, 0, 'f', 1);
    } else if (const auto badge = badgeOf(hit.part)) {
      tip = kvo::shown(badgeName(*block, *badge));
    } else {
      tip = kvo::shown(block->isMissing ? missingText(block->name) : block->name);
    }
  }
  QToolTip::showText(global, plainTip(tip), this);
}

bool TimelineView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    if (const auto* help = dynamic_cast<QHelpEvent*>(event)) showTip(help->pos(), help->globalPos());
    return true;
  }
  if (event->type() == QEvent::NativeGesture) {
    const auto* gesture = dynamic_cast<QNativeGestureEvent*>(event);
    if (gesture != nullptr && pinch(*gesture)) return true;
  }
  if (event->type() == QEvent::StyleChange) placeBar();
  return QFrame::event(event);
}

}  // namespace kvo
