#include "windows/editor/effect_rows.h"

#include "ui/focus_ring.h"
#include "ui/kvo_style.h"
#include "ui/made.h"
#include "ui/painting.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QAccessible>
#include <QCheckBox>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <algorithm>

namespace kvo {
namespace {

constexpr int kRowPitch = 34;
constexpr QRect kRowPicture(28, 3, 48, 28);
constexpr int kRowName = 84;
constexpr int kRowEnd = 46;  // star and sign of keyframes
constexpr int kRowStar = 14;
constexpr int kStarHit = 26;

}  // namespace

/// One of them.
class EffectRowBox final : public QCheckBox {
 public:
  EffectRowBox(EffectRows& rows, int position) : QCheckBox(rows.sheet_), list_(rows), position_(position) {
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_Hover);
  }

  [[nodiscard]] const EffectSwitchFace& face() const {
    return list_.state_.faces[static_cast<std::size_t>(position_)];
  }
  [[nodiscard]] int position() const { return position_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& at) const override { return rect().contains(at) && !starPlace().contains(at); }
  void mousePressEvent(QMouseEvent* event) override {
    const auto at = event->position().toPoint();
    list_.setFocus(Qt::MouseFocusReason);
    if (const auto found = std::ranges::find(list_.shown_, this); found != list_.shown_.end())
      list_.current_ = static_cast<int>(found - list_.shown_.begin());
    if (event->button() == Qt::LeftButton && starPlace().contains(at))
      list_.acts_.toggleFavourite(face().caption);
    QCheckBox::mousePressEvent(event);
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    list_.motion_.stir();
    QCheckBox::mouseMoveEvent(event);
  }

 private:
  [[nodiscard]] QRect starPlace() const {
    return {width() - themed(kRowEnd), (height() - themed(kStarHit)) / 2, themed(kStarHit), themed(kStarHit)};
  }
  void paintPicture(QPainter& painter) const;
  void paintSigns(QPainter& painter) const;

  EffectRows& list_;
  int position_;
};

void EffectRowBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Painting kept(painter);
  if (isChecked() || underMouse()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(toColour(isChecked() ? token("tealBg") : token("ink2")));
    painter.drawRoundedRect(rect().adjusted(1, 0, -1, 0), themed(4), themed(4));
  }
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  option.rect = QRect(0, 0, themed(kRowPicture.left()), height());
  style()->drawControl(QStyle::CE_CheckBox, &option, &painter, this);
  paintPicture(painter);
  painter.setPen(toColour(!isEnabled() ? token("textOff") : isChecked() ? token("text1") : token("text2")));
  const QRect name(themed(kRowName), 0, width() - themed(kRowName + kRowEnd), height());
  painter.drawText(name, Qt::AlignVCenter, fontMetrics().elidedText(text(), Qt::ElideRight, name.width()));
  paintSigns(painter);
  if (list_.current() == this && showsFocus(list_))
    drawFocusRing(painter, rect().adjusted(3, 3, -3, -3), themed(4));
}

void EffectRowBox::paintPicture(QPainter& painter) const {
  const QRectF place(themed(kRowPicture.left()), themed(kRowPicture.top()), themed(kRowPicture.width()),
                     themed(kRowPicture.height()));
  list_.pixmaps_.paint(painter, place, std::to_string(position_), list_.motion_.step(underMouse()),
                       isEnabled());
}

void EffectRowBox::paintSigns(QPainter& painter) const {
  const bool isFavourite = list_.state_.names.isFavourite(face().caption);
  if (isFavourite || underMouse()) {
    const auto star = iconPicture("star", isFavourite ? token("amber") : token("text1"), themed(kRowStar),
                                  devicePixelRatioF());
    painter.drawPixmap(starPlace().center() - QPoint(themed(kRowStar), themed(kRowStar)) / 2, star);
  }
  if (!face().isKeyframed) return;
  painter.translate(width() - themed(10), height() / 2.0);
  painter.rotate(45);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(toColour(token("amber")), themed(3) / 2.0));
  const double half = themed(7) / 2.0;
  painter.drawRect(QRectF(-half, -half, 2 * half, 2 * half));
}

EffectRows::EffectRows(const EffectTab& state, MovingSamples& samples, Acts acts, QWidget* parent)
    : QScrollArea(parent),
      state_(state),
      acts_(std::move(acts)),
      sheet_(made<QWidget>(this)),
      samples_(samples),
      motion_(samples, [this] { sheet_->update(); }),
      pixmaps_(samples) {
  setProperty("role", "list");
  setAccessibleName(tr("Effects"));
  setToolTip(tr("Effects of the clip, each switched on and off by Space"));
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  for (int i = 1; i <= kRows; ++i) rows_.push_back(made<EffectRowBox>(*this, i));
  sheet_->setAutoFillBackground(false);
  setWidget(sheet_);
  viewport()->setAutoFillBackground(false);
}

QCheckBox* EffectRows::box(int position) const { return rows_[static_cast<std::size_t>(position - 1)]; }

EffectRowBox* EffectRows::current() const {
  return current_ < static_cast<int>(shown_.size()) ? shown_[static_cast<std::size_t>(current_)] : nullptr;
}

void EffectRows::draw() {
  const auto& names = state_.names;
  if (std::exchange(drawnNames_, names.shown.revision()) != names.shown.revision()) layOut();
  const bool otherSamples = std::exchange(drawnRevision_, samples_.revision()) != samples_.revision();
  const bool otherStars =
      std::exchange(drawnFavourites_, names.favourites.revision()) != names.favourites.revision();
  if (otherSamples || otherStars) sheet_->update();
}

// Rows whose names do not pass the search are out of sight, those behind them move up.
void EffectRows::layOut() {
  const auto* was = current();
  shown_.clear();
  for (const auto& name : state_.names.shown.rows()) {
    const auto named = [&](const EffectRowBox* row) { return row->face().caption == name; };
    const auto found = std::ranges::find_if(rows_, named);
    if (found != rows_.end()) shown_.push_back(*found);
  }
  const int high = themed(kRowPitch);
  for (auto* row : rows_) {
    const auto found = std::ranges::find(shown_, row);
    row->setVisible(found != shown_.end());
    if (found == shown_.end()) continue;
    row->setGeometry(0, static_cast<int>(found - shown_.begin()) * high, viewport()->width(), high);
  }
  current_ = static_cast<int>(std::ranges::find(shown_, was) - shown_.begin());
  if (current_ == static_cast<int>(shown_.size())) current_ = 0;
  sheet_->resize(viewport()->width(), static_cast<int>(shown_.size()) * high);
  verticalScrollBar()->setSingleStep(high / 2);
}

void EffectRows::goTo(int row) {
  if (shown_.empty()) return;
  current_ = std::clamp(row, 0, static_cast<int>(shown_.size()) - 1);
  ensureWidgetVisible(current(), 0, 0);
  motion_.stir();
  tellFocus();
  sheet_->update();
}

void EffectRows::tellFocus() {
  if (!hasFocus() || current() == nullptr) return;
  QAccessibleEvent event(current(), QAccessible::Focus);
  QAccessible::updateAccessibility(&event);
}

// What the pointer does with the other button and with the star.
void EffectRows::openMenu() {
  auto* row = current();
  if (row == nullptr) return;
  const auto name = row->face().caption;
  QMenu menu(this);
  menu.addAction(tr("Keyframes"), [this, row] { acts_.configure(row->position()); });
  menu.addAction(state_.names.isFavourite(name) ? tr("No longer a favourite") : tr("Add to the favourites"),
                 [this, name] { acts_.toggleFavourite(name); });
  menu.exec(row->mapToGlobal(row->rect().center()));
}

void EffectRows::keyPressEvent(QKeyEvent* event) {
  const int page = std::max(1, viewport()->height() / themed(kRowPitch));
  switch (event->key()) {
    case Qt::Key_Up:
      return goTo(current_ - 1);
    case Qt::Key_Down:
      return goTo(current_ + 1);
    case Qt::Key_PageUp:
      return goTo(current_ - page);
    case Qt::Key_PageDown:
      return goTo(current_ + page);
    case Qt::Key_Home:
      return goTo(0);
    case Qt::Key_End:
      return goTo(kRows);
    case Qt::Key_Space:
      if (current() != nullptr) current()->click();
      return;
    case Qt::Key_Menu:
      return openMenu();
    default:
      event->ignore();  // on to the window, not to the bar
  }
}

void EffectRows::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  layOut();
}

void EffectRows::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange) layOut();
  QScrollArea::changeEvent(event);
}

void EffectRows::focusInEvent(QFocusEvent* event) {
  QScrollArea::focusInEvent(event);
  tellFocus();
  sheet_->update();
}

void EffectRows::focusOutEvent(QFocusEvent* event) {
  QScrollArea::focusOutEvent(event);
  sheet_->update();
}

void EffectRows::leaveEvent(QEvent* event) {
  motion_.rest();
  QScrollArea::leaveEvent(event);
}

}  // namespace kvo
