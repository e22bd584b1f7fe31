#include "windows/editor/transition_tiles.h"

#include "ui/focus_ring.h"
#include "ui/kvo_style.h"
#include "ui/made.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

namespace kvo {
namespace {

constexpr QSize kTile(75, 68);  // at the least: they grow with the list
constexpr int kTilePitch = 74;  // they touch, as only one of them has a rim
constexpr int kTilesSide = 1;
constexpr int kTilesTop = 6;
constexpr QRectF kTilePicture(6.5, 8, 62, 35);
constexpr QRectF kTileName(2, 45, 71, 18);
constexpr double kTileRadius = 5;
constexpr int kStarSide = 14;
constexpr double kTileText = 10.2;

}  // namespace

TransitionTiles::TransitionTiles(const TransitionTab& state, MovingSamples& samples, Acts acts,
                                 QWidget* parent)
    : QScrollArea(parent),
      state_(state),
      samples_(samples),
      acts_(std::move(acts)),
      sheet_(made<QWidget>(this)),
      motion_(samples, [this] { sheet_->update(); }),
      pixmaps_(samples) {
  installAccessibleRows();
  setProperty("role", "list");
  setAccessibleName(tr("Transitions"));
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  sheet_->setMouseTracking(true);
  sheet_->setAutoFillBackground(false);
  sheet_->installEventFilter(this);
  setWidget(sheet_);
  viewport()->setAutoFillBackground(false);
}

int TransitionTiles::columns() const {
  return std::max(1, (room_ - themed(kTilesSide)) / themed(kTilePitch));
}

// Of a tile beyond its least width; its picture keeps its shape.
int TransitionTiles::wider() const {
  return std::max(0, (room_ - themed(kTilesSide)) / columns() - themed(kTilePitch));
}

int TransitionTiles::tileHeight() const {
  return themed(kTile.height()) + qRound(wider() * kTilePicture.height() / kTilePicture.width());
}

QRect TransitionTiles::tileRect(int index) const {
  const int left = themed(kTilesSide) + (themed(kTilePitch) + wider()) * (index % columns());
  return {left, themed(kTilesTop) + tileHeight() * (index / columns()), themed(kTile.width()) + wider(),
          tileHeight()};
}

QRect TransitionTiles::starRect(int index) const {
  const auto tile = tileRect(index);
  const int side = themed(kStarSide + 10);  // what takes the mouse is larger than the star
  return {tile.right() - side, tile.top(), side, side};
}

int TransitionTiles::tileAt(const QPoint& at) const {
  for (int i = 0; i < static_cast<int>(state_.names.shown.rows().size()); ++i)
    if (tileRect(i).contains(at)) return i;
  return -1;
}

int TransitionTiles::chosen() const {
  const auto found =
      std::find(state_.names.shown.rows().begin(), state_.names.shown.rows().end(), state_.panel.selected);
  return found == state_.names.shown.rows().end()
             ? -1
             : static_cast<int>(found - state_.names.shown.rows().begin());
}

QString TransitionTiles::rowName(int row) const {
  const auto& name = state_.names.shown.rows()[static_cast<std::size_t>(row)];
  return state_.names.isFavourite(name) ? tr("%1, a favourite").arg(shown(name)) : shown(name);
}

QRect TransitionTiles::rowPlace(int row) const {
  const auto place = tileRect(row).translated(sheet_->mapTo(this, QPoint()));
  return place.intersected(QRect(viewport()->mapTo(this, QPoint()), viewport()->size()));
}

RowState TransitionTiles::rowState(int row) const {
  return {.selected = row == chosen(), .inSight = !rowPlace(row).isEmpty()};
}

int TransitionTiles::heightOfAll() const {
  const int rows = (static_cast<int>(state_.names.shown.rows().size()) + columns() - 1) / columns();
  return 2 * themed(kTilesTop) + tileHeight() * rows;
}

// There is a bar where the tiles would not fit without one.
void TransitionTiles::layOut() {
  const auto whole = maximumViewportSize();
  room_ = whole.width();
  setVerticalScrollBarPolicy(heightOfAll() > whole.height() ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  room_ = viewport()->width();
  sheet_->resize(room_, std::max(heightOfAll(), state_.names.shown.rows().empty() ? whole.height() : 0));
  verticalScrollBar()->setSingleStep(tileHeight() / 2);
}

void TransitionTiles::bringChoiceInSight() {
  const int index = chosen();
  if (index < 0) return;
  const auto tile = tileRect(index);
  ensureVisible(tile.center().x(), tile.center().y(), 0, tile.height());
}

void TransitionTiles::draw() {
  const bool otherNames = drawnNames_ != state_.names.shown.revision();
  const bool otherChoice = drawnChoice_ != state_.panel.selected;
  const int revision = samples_.revision();
  if (!otherNames && !otherChoice && drawnRevision_ == revision &&
      drawnFavourites_ == state_.names.favourites.revision())
    return;
  if (otherNames) {
    drawnNames_ = state_.names.shown.revision();
    hover(-1);
    layOut();
  }
  drawnChoice_ = state_.panel.selected;
  drawnFavourites_ = state_.names.favourites.revision();
  drawnRevision_ = revision;
  if (otherNames || otherChoice) bringChoiceInSight();
  setAccessibleDescription(shown(state_.panel.selected));
  if (otherChoice) tellRowInHand(*this, *this);
  sheet_->update();
}

void TransitionTiles::paint(QPainter& painter, const QRect& region) {
  if (state_.names.shown.rows().empty()) {
    painter.setPen(toColour(token("text3")));
    painter.drawText(sheet_->rect().adjusted(0, themed(40), 0, 0), Qt::AlignHCenter | Qt::AlignTop,
                     tr("No transition of that name"));
  }
  for (int i = 0; i < static_cast<int>(state_.names.shown.rows().size()); ++i)
    if (tileRect(i).intersects(region)) paintTile(painter, i);
}

void TransitionTiles::paintTile(QPainter& painter, int index) {
  const Painting kept(painter);
  const auto& name = state_.names.shown.rows()[static_cast<std::size_t>(index)];
  const QRectF tile = tileRect(index);
  const bool isChosen = index == chosen(), isHovered = index == hovered_;
  const double rim = themed(2);
  const auto inner = tile.adjusted(rim / 2, rim / 2, -rim / 2, -rim / 2);
  painter.setPen(isChosen ? QPen(toColour(token("teal")), rim) : QPen(Qt::NoPen));
  painter.setBrush(isChosen    ? QBrush(toColour(token("tealBg")))
                   : isHovered ? QBrush(toColour(token("ink2")))
                               : QBrush(Qt::NoBrush));
  painter.drawRoundedRect(inner, themed(kTileRadius), themed(kTileRadius));
  const auto placed = [&](const QRectF& part, int down, int taller) {
    return QRectF(tile.x() + themed(part.x()), tile.y() + themed(part.y()) + down,
                  themed(part.width()) + wider(), themed(part.height()) + taller);
  };
  const int taller = tileHeight() - themed(kTile.height());
  pixmaps_.paint(painter, placed(kTilePicture, 0, taller), name, motion_.step(isHovered), isEnabled());
  QFont font(painter.font());
  font.setPixelSize(qRound(themed(kTileText * 10) / 10.0));
  font.setWeight(isChosen ? QFont::DemiBold : QFont::Normal);
  painter.setFont(font);
  painter.setPen(toColour(!isEnabled() ? token("textOff") : isChosen ? token("text1") : token("text2")));
  const auto line = placed(kTileName, taller, 0);
  painter.drawText(line, Qt::AlignCenter,
                   QFontMetricsF(font).elidedText(shown(name), Qt::ElideMiddle, line.width()));
  if (isHovered || state_.names.isFavourite(name)) {
    const auto star = starRect(index);
    painter.drawPixmap(star.center() - QPoint(themed(kStarSide), themed(kStarSide)) / 2,
                       iconPicture("star", state_.names.isFavourite(name) ? token("amber") : token("text1"),
                                   themed(kStarSide), devicePixelRatio()));
  }
  if (isChosen && showsFocus(*this)) drawFocusRing(painter, tile, themed(kTileRadius + 2));
}

void TransitionTiles::hover(int index) {
  index >= 0 ? motion_.stir() : motion_.rest();
  if (std::exchange(hovered_, index) != index) sheet_->update();
}

bool TransitionTiles::pressed(const QPoint& at, Qt::MouseButton button) {
  const int index = tileAt(at);
  if (index < 0 || button != Qt::LeftButton) return false;
  const auto name = state_.names.shown.rows()[static_cast<std::size_t>(index)];
  starRect(index).contains(at) ? acts_.toggleFavourite(name) : acts_.pick(name);
  return true;
}

void TransitionTiles::offerFavourite(int index, const QPoint& global) {
  if (index < 0) return;
  const auto name = state_.names.shown.rows()[static_cast<std::size_t>(index)];
  QMenu menu(this);
  menu.addAction(state_.names.isFavourite(name) ? tr("No longer a favourite") : tr("Add to the favourites"),
                 [this, name] { acts_.toggleFavourite(name); });
  menu.exec(global);
}

void TransitionTiles::showTip(const QPoint& at, const QPoint& global) {
  const int index = tileAt(at);
  if (index < 0) return QToolTip::hideText();
  const bool onStar = starRect(index).contains(at);
  QToolTip::showText(
      global, onStar ? tr("Favourite") : shown(state_.names.shown.rows()[static_cast<std::size_t>(index)]),
      sheet_, onStar ? starRect(index) : tileRect(index));
}

bool TransitionTiles::eventFilter(QObject* watched, QEvent* event) {
  if (watched != sheet_) return QScrollArea::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::Paint: {
      QPainter painter(sheet_);
      paint(painter, static_cast<QPaintEvent*>(event)->rect());
      return true;
    }
    case QEvent::MouseButtonPress: {
      const auto* mouse = static_cast<QMouseEvent*>(event);
      setFocus(Qt::MouseFocusReason);
      return pressed(mouse->position().toPoint(), mouse->button());
    }
    case QEvent::MouseMove:
      hover(tileAt(static_cast<QMouseEvent*>(event)->position().toPoint()));
      return false;
    case QEvent::Leave:
      hover(-1);
      return false;
    case QEvent::ContextMenu: {
      const auto* menu = static_cast<QContextMenuEvent*>(event);
      offerFavourite(tileAt(menu->pos()), menu->globalPos());
      return true;
    }
    case QEvent::ToolTip: {
      const auto* help = static_cast<QHelpEvent*>(event);
      showTip(help->pos(), help->globalPos());
      return true;
    }
    default:
      return QScrollArea::eventFilter(watched, event);
  }
}

void TransitionTiles::keyPressEvent(QKeyEvent* event) {
  const int all = static_cast<int>(state_.names.shown.rows().size());
  const int page = std::max(1, viewport()->height() / tileHeight()) * columns();
  motion_.stir();
  switch (event->key()) {
    case Qt::Key_Left:
      return acts_.pickNext(-1);
    case Qt::Key_Right:
      return acts_.pickNext(1);
    case Qt::Key_Up:
      return acts_.pickNext(-columns());
    case Qt::Key_Down:
      return acts_.pickNext(columns());
    case Qt::Key_PageUp:
      return acts_.pickNext(-page);
    case Qt::Key_PageDown:
      return acts_.pickNext(page);
    case Qt::Key_Home:
      return acts_.pickNext(-all);
    case Qt::Key_End:
      return acts_.pickNext(all);
    case Qt::Key_Menu: {
      const int index = chosen();
      return offerFavourite(index, index < 0 ? QPoint() : sheet_->mapToGlobal(tileRect(index).center()));
    }
    default:
      event->ignore();  // on to the window, not to the bar
  }
}

void TransitionTiles::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  layOut();
  bringChoiceInSight();
}

void TransitionTiles::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange || event->type() == QEvent::EnabledChange) {
    layOut();
    sheet_->update();
  }
  QScrollArea::changeEvent(event);
}

void TransitionTiles::focusInEvent(QFocusEvent* event) {
  QScrollArea::focusInEvent(event);
  tellRowInHand(*this, *this);
  sheet_->update();
}

void TransitionTiles::focusOutEvent(QFocusEvent* event) {
  QScrollArea::focusOutEvent(event);
  sheet_->update();
}

}  // namespace kvo
