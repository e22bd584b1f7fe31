#include "ui/cool_list_view.h"

#include "ui/focus_ring.h"
#include "ui/made.h"
#include "ui/painting.h"
#include "ui/theme.h"

#include <QApplication>
#include <QCursor>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyle>
#include <QTextDocument>
#include <QTextOption>
#include <QToolTip>
#include <algorithm>
#include <optional>
#include <utility>

namespace kvo {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kTypingPause{1000};
constexpr auto kCommandModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

template <class... Arguments>
void tell(const std::function<void(Arguments...)>& event,
          const std::type_identity_t<Arguments>&... arguments) {
  if (event) event(arguments...);
}

bool isCommand(const QKeyEvent& event) {
  if ((event.modifiers() & kCommandModifiers) != Qt::NoModifier || event.text().isEmpty()) return false;
  const auto first = event.text().front();
  return first.isLetterOrNumber() || first == ' ';
}

CoolList::Reach reachOf(Qt::KeyboardModifiers held) {
  if (held.testFlag(Qt::ShiftModifier)) return CoolList::Reach::Range;
  return held.testFlag(Qt::ControlModifier) ? CoolList::Reach::Another : CoolList::Reach::One;
}

std::optional<CoolList::Key> listKey(int key) {
  switch (key) {
    case Qt::Key_Up:
      return CoolList::Key::Up;
    case Qt::Key_Down:
      return CoolList::Key::Down;
    case Qt::Key_Left:
      return CoolList::Key::Left;
    case Qt::Key_Right:
      return CoolList::Key::Right;
    case Qt::Key_PageUp:
      return CoolList::Key::PageUp;
    case Qt::Key_PageDown:
      return CoolList::Key::PageDown;
    case Qt::Key_Home:
      return CoolList::Key::Home;
    case Qt::Key_End:
      return CoolList::Key::End;
    default:
      return std::nullopt;
  }
}

// By the numbers that stored forms have for pointers.
std::optional<QCursor> pointerOf(const CoolListProperties& properties) {
  switch (properties.MousePointer) {
    case 1:
      return Qt::ArrowCursor;
    case 2:
      return Qt::CrossCursor;
    case 3:
      return Qt::IBeamCursor;
    case 11:
      return Qt::WaitCursor;
    case 12:
      return Qt::ForbiddenCursor;
    case 99:
      if (const QPixmap icon(QString::fromStdString(properties.MouseIcon)); !icon.isNull())
        return QCursor(icon);
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

}  // namespace

CoolListView::CoolListView(QWidget* parent, const CoolListProperties& properties)
    : QFrame(parent), bar_(made<QScrollBar>(this)), edit_(made<QPlainTextEdit>(this)) {
  installAccessibleRows();
  setFocusPolicy(Qt::StrongFocus);
  setAcceptDrops(true);
  clock_.start();
  bar_->setObjectName("Bar");
  bar_->hide();
  bar_->setFocusPolicy(Qt::NoFocus);
  edit_->setObjectName("txtEdit");
  edit_->setAccessibleName(tr("Text of the item"));
  edit_->hide();
  edit_->installEventFilter(this);
  edit_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  edit_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  edit_->document()->setDocumentMargin(0);
  connect(bar_, &QScrollBar::valueChanged, [this](int value) { list_.setTopIndex(value); });
  connect(edit_, &QPlainTextEdit::textChanged,
          [this] { list_.editText = edit_->toPlainText().toStdString(); });
  list_.events.rowChanged = [this](int index) { update(itemRect(index)); };
  list_.events.allChanged = [this] { showBar(); };
  list_.events.editChanged = [this] { showEdit(); };
  list_.events.Click = [this] { tell(events.Click); };
  list_.events.ListIndexChange = [this] {
    tellRowInHand(*this, *this);
    tell(events.ListIndexChange);
  };
  list_.events.SelectionChange = [this] { tell(events.SelectionChange); };
  list_.events.Edited = [this](int index) { tell(events.Edited, index); };
  setProperties(properties);
}

void CoolListView::takeStored(const CoolListProperties& wanted) {
  const auto& now = list_.properties();
  if (QFont font; wanted.Font != now.Font && font.fromString(QString::fromStdString(wanted.Font)))
    setFont(font);
  if (wanted.SelectionPicture != now.SelectionPicture)
    setSelectionPicture(QPixmap(QString::fromStdString(wanted.SelectionPicture)));
  if (wanted.MousePointer == now.MousePointer && wanted.MouseIcon == now.MouseIcon) return;
  const auto pointer = pointerOf(wanted);
  pointer ? setCursor(*pointer) : unsetCursor();
}

void CoolListView::setProperties(const CoolListProperties& properties) {
  auto wanted = properties;
  takeStored(wanted);
  if (wanted.ItemHeightAuto) wanted.ItemHeight = fontMetrics().height();
  const bool hasFrame = wanted.BorderStyle != 0;
  const auto role = hasFrame ? QVariant("list") : QVariant();
  if (property("role") != role) {
    setProperty("role", role);
    if (testAttribute(Qt::WA_WState_Polished)) {  // the sheet goes by it
      style()->unpolish(this);
      style()->polish(this);
    }
  }
  setFrameShape(hasFrame ? QFrame::StyledPanel : QFrame::NoFrame);
  setFrameShadow(wanted.Appearance != 0 ? QFrame::Sunken : QFrame::Plain);
  setEnabled(wanted.Enabled);
  setMouseTracking(true);  // MouseMove is told of with no key down, too
  list_.setProperties(wanted);
  layOut();
}

void CoolListView::SetImageList(std::vector<QPixmap> images) {
  images_ = std::move(images);
  update();
}

void CoolListView::setSelectionPicture(const QPixmap& picture) {
  selectionPicture_ = picture;
  update();
}

void CoolListView::setLook(Look look) {
  look_ = std::move(look);
  update();
}

int CoolListView::yInside(const QPointF& position) const {
  return qRound(position.y()) - contentsRect().top();
}

milliseconds CoolListView::now() const { return milliseconds(clock_.elapsed()); }

QRect CoolListView::itemRect(int index) const {
  if (!list_.isInView(index)) return {};
  return toRect(list_.rowRect(index - list_.TopIndex())).translated(contentsRect().topLeft());
}

QString CoolListView::rowName(int row) const { return QString::fromStdString(list_.item(row).ItemText); }

RowState CoolListView::rowState(int row) const {
  return {.selected = list_.item(row).ItemSelected,
          .inSight = list_.isInView(row),
          .multiSelectable = list_.properties().SelectMode != 0};
}

int CoolListView::rowAt(const QPoint& at) const {
  return list_.itemAt(at.y() - contentsRect().top()).value_or(-1);
}

QVariant CoolListView::inputMethodQuery(Qt::InputMethodQuery query) const {
  return query == Qt::ImCursorRectangle ? itemRect(list_.ListIndex()) : QFrame::inputMethodQuery(query);
}

void CoolListView::layOut() {
  if (!hasSize_) return;  // what is in view shall not be decided by a size that it never has
  const auto inside = contentsRect();
  const int width = list_.properties().ScrollBarWidth;
  bar_->setGeometry(inside.right() + 1 - width, inside.top(), width, inside.height());
  list_.setSize(inside.width(), inside.height());
}

void CoolListView::showBar() {
  bar_->setVisible(list_.hasBar());
  bar_->setRange(0, list_.barMax());
  bar_->setPageStep(std::max(list_.rowsThatFit(), 1));
  bar_->setValue(list_.TopIndex());
  update();
}

void CoolListView::showEdit() {
  if (!list_.editing()) {
    if (edit_->hasFocus()) setFocus(Qt::OtherFocusReason);
    edit_->hide();
    return;
  }
  const auto& p = list_.properties();
  const int row = list_.ListIndex() - list_.TopIndex();
  auto place = toRect(p.WordWrap ? list_.rowRect(row) : list_.textRect(row));
  const auto back =
      resolved(list_.item(list_.ListIndex()).ItemSelected ? p.BackSelected : p.BackNormal, palette());
  // One line stands where the row's own text stood.
  const int spare = p.WordWrap ? 0 : std::max(place.height() - fontMetrics().height(), 0) / 2;
  place.adjust(0, spare, 0, -spare);
  edit_->setGeometry(place.translated(contentsRect().topLeft()));
  edit_->setFont(font());
  edit_->setStyleSheet(
      QString("border: none; padding: 0; background: %1; selection-background-color: %2; "
              "selection-color: %3")
          .arg(back.name(), toColour(token("teal")).name(), toColour(token("onTeal")).name()));
  edit_->setLineWrapMode(p.WordWrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
  auto lines = edit_->document()->defaultTextOption();
  lines.setAlignment(p.WordWrap ? sideOf(p) : Qt::AlignLeft);
  edit_->document()->setDefaultTextOption(lines);
  edit_->setPlainText(QString::fromStdString(list_.editText));
  edit_->selectAll();
  edit_->show();
  edit_->setFocus(Qt::OtherFocusReason);
}

bool CoolListView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != edit_) return QFrame::eventFilter(watched, event);
  if (event->type() == QEvent::FocusOut) list_.EndEdit(false);
  if (event->type() != QEvent::KeyPress) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  if (key.key() == Qt::Key_Escape) {
    list_.EndEdit(false);
    return true;
  }
  if (!isEnter) return false;
  // With Ctrl it is a line feed, which ends a line where lines are wrapped and the edit where they are not.
  if (list_.properties().WordWrap && key.modifiers().testFlag(Qt::ControlModifier)) {
    edit_->insertPlainText("\n");
  } else {
    list_.EndEdit(true);
  }
  return true;
}

CoolListRow CoolListView::drawing(int index) const {
  const auto& item = list_.item(index);
  const auto number = item.ItemSelected && item.ItemIconSelected > 0 ? item.ItemIconSelected : item.ItemIcon;
  auto picture = look_.picture ? look_.picture(index) : QPixmap();
  const bool hasPicture = !picture.isNull();
  const bool hasIcon = number > 0 && static_cast<std::size_t>(number) <= images_.size();
  if (hasIcon && !hasPicture) picture = images_[static_cast<std::size_t>(number) - 1];
  const auto from = contentsRect().topLeft();
  const int row = index - list_.TopIndex();
  return {toRect(list_.rowRect(row)).translated(from),
          toRect(list_.textRect(row)).translated(from),
          QString::fromStdString(item.ItemText),
          look_.trailing ? look_.trailing(index) : QString(),
          std::move(picture),
          hasPicture ? look_.pictureLeft : look_.iconLeft,
          item.ItemSelected,
          look_.elide};
}

void CoolListView::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  const auto inside = contentsRect();
  painter.setClipRect(inside);
  painter.fillRect(inside, resolved(list_.properties().BackNormal, palette()));
  if (list_.ListCount() == 0) {
    painter.setPen(toColour(token("text3")));
    painter.drawText(inside, Qt::AlignCenter | Qt::TextWordWrap, look_.emptyText);
  }
  const int end = std::min(list_.TopIndex() + list_.rowsThatFit(), list_.ListCount());
  for (int index = list_.TopIndex(); index < end; ++index) {
    if (!event->region().intersects(itemRect(index))) continue;
    drawRow(painter, drawing(index), list_.properties(), palette(), selectionPicture_);
  }
  const auto current = itemRect(list_.ListIndex());
  if (list_.properties().Focus && showsFocus(*this) && !current.isEmpty()) {
    const Painting kept(painter);
    painter.setPen(toColour(token("focus")));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(onPixels(current), 4, 4);
  }
  drawDropPlace(painter);
}

bool CoolListView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QFrame::event(event);
  const auto& help = *static_cast<QHelpEvent*>(event);
  const auto index = list_.itemAt(yInside(help.pos()));
  if (!look_.toolTips || !index || !list_.isInView(*index)) return QFrame::event(event);
  const auto row = drawing(*index);
  const auto own = look_.toolTip ? look_.toolTip(*index) : QString();
  if (own.isEmpty() && !isCut(row, list_.properties(), font())) return QFrame::event(event);
  const auto& text = own.isEmpty() ? row.shown : own;
  const auto plain = Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
  QToolTip::showText(help.globalPos(), plain, this, row.row);
  return true;
}

void CoolListView::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::FontChange && list_.properties().ItemHeightAuto)
    setProperties(list_.properties());
  if (event->type() == QEvent::StyleChange) layOut();
}

void CoolListView::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  hasSize_ = true;
  layOut();
}

void CoolListView::focusInEvent(QFocusEvent* event) {
  QFrame::focusInEvent(event);
  tellRowInHand(*this, *this);
  update();
}

void CoolListView::focusOutEvent(QFocusEvent* event) {
  QFrame::focusOutEvent(event);
  update();
}

// A list without an index gets one by the first key that moves, so that it can be reached without a mouse.
// Left and Right mean nothing here and may mean something to the window.
bool CoolListView::navigate(const QKeyEvent& event) {
  if ((event.modifiers() & kCommandModifiers) != Qt::NoModifier) return false;
  const bool isSpace = event.key() == Qt::Key_Space && list_.properties().SelectMode == 1 && !commandKey;
  const auto key = isSpace ? std::optional(CoolList::Key::Space) : listKey(event.key());
  if (!key || *key == CoolList::Key::Left || *key == CoolList::Key::Right) return false;
  if (list_.ListIndex() < 0 && list_.ListCount() > 0) {
    return list_.goTo(*key == CoolList::Key::End ? list_.ListCount() - 1 : 0).ok();
  }
  list_.keyDown(*key, reachOf(event.modifiers()));
  return true;
}

bool CoolListView::find(const QString& typed) {
  if (list_.ListCount() == 0) return false;
  if (now() - typedAt_ > kTypingPause) typed_.clear();
  if (typed_.isEmpty() && typed == " ") return false;
  // A letter typed again goes on to the next item; a longer beginning stays where it still fits.
  const bool goesOn = typed_.isEmpty() || typed_ == typed;
  if (typed_ != typed) typed_ += typed;
  typedAt_ = now();
  const int from =
      (std::max(list_.ListIndex(), 0) + (goesOn && list_.ListIndex() >= 0 ? 1 : 0)) % list_.ListCount();
  for (int start : {from, 0}) {
    const auto found = list_.FindFirst(typed_.toStdString(), start, true);
    if (found && *found >= 0) return list_.goTo(*found).ok();
  }
  return true;
}

void CoolListView::keyPressEvent(QKeyEvent* event) {
  tell(events.KeyDown, *event);
  if (!event->text().isEmpty()) tell(events.KeyPress, *event);
  if (navigate(*event)) return;
  if (event->matches(QKeySequence::SelectAll) && list_.selectAll()) return;
  if (isCommand(*event) && (commandKey ? commandKey(*event) : find(event->text()))) return;
  event->ignore();
}

void CoolListView::keyReleaseEvent(QKeyEvent* event) {
  tell(events.KeyUp, *event);
  QFrame::keyReleaseEvent(event);
}

void CoolListView::mousePressEvent(QMouseEvent* event) {
  tell(events.MouseDown, *event);
  if (event->button() != Qt::LeftButton) return;
  const int y = yInside(event->position());
  const auto index = list_.itemAt(y);
  pressedAt_ = dragOut && index ? std::optional(event->position()) : std::nullopt;
  pressWaits_ = pressedAt_ && list_.properties().SelectMode != 0 && list_.item(*index).ItemSelected;
  if (!pressWaits_) list_.mouseDown(y, reachOf(event->modifiers()));
}

void CoolListView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) tell(events.DblClick);
}

void CoolListView::mouseMoveEvent(QMouseEvent* event) {
  tell(events.MouseMove, *event);
  if (pressedAt_) {
    const auto way = (event->position() - *pressedAt_).manhattanLength();
    if (way >= QApplication::startDragDistance()) carryOut();
    return;
  }
  list_.mouseMove(yInside(event->position()), now());
  waitForStep();
}

void CoolListView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    if (std::exchange(pressWaits_, false)) {
      list_.mouseDown(yInside(event->position()), reachOf(event->modifiers()));
    }
    pressedAt_.reset();
    list_.mouseUp();
    step_.stop();
  }
  tell(events.MouseUp, *event);
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) tell(events.Click);
}

void CoolListView::wheelEvent(QWheelEvent* event) { QCoreApplication::sendEvent(bar_, event); }

void CoolListView::waitForStep() {
  const auto next = list_.nextStep();
  if (!next) return step_.stop();
  step_.start(static_cast<int>(std::max(*next - now(), milliseconds(0)).count()), Qt::PreciseTimer, this);
}

void CoolListView::timerEvent(QTimerEvent* event) {
  if (event->timerId() == dropScroll_.timerId()) return scrollToDrop();
  if (event->timerId() != step_.timerId()) return QFrame::timerEvent(event);
  list_.advance(now());
  waitForStep();
}

}  // namespace kvo
