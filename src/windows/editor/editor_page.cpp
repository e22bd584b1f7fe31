#include "windows/editor/editor_page.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QAbstractButton>
#include <QEvent>
#include <QLabel>
#include <QScrollArea>
#include <QStyle>
#include <algorithm>

namespace kvo {
namespace {

constexpr double kMostHeight = 10;  // times its own: as high as there is room

}  // namespace

EditorPage::EditorPage(QWidget* parent, QSize size, const char* role) : QFrame(parent), size_(size) {
  setProperty("role", role);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  again_.setSingleShot(true);
  connect(&again_, &QTimer::timeout, this, [this] { layOut(); });
  resize(themed(size_.width()), themed(size_.height()));
  layOut();
}

QScrollArea* EditorPage::scrolled(EditorPage* page, const QString& name, QWidget* parent, QSize least) {
  auto* area = made<QScrollArea>(parent);
  area->setAccessibleName(name);
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);  // what has the keyboard comes into view by itself
  const auto part = [](int small, int whole) { return std::min(1.0, static_cast<double>(small) / whole); };
  page->mayBe(part(least.height(), page->size_.height()), kMostHeight,
              part(least.width(), page->size_.width()));
  area->setWidget(page);
  area->setWidgetResizable(true);
  return area;
}

QLabel* EditorPage::write(const QString& text, const char* role, const QRect& place, const Share& share) {
  auto* label = put(made<QLabel>(text, this), place, share);
  label->setProperty("role", role);
  label->setTextFormat(Qt::PlainText);
  return label;
}

void EditorPage::mayBe(double least, double most, double leastWide) {
  least_ = least;
  leastWide_ = leastWide;
  most_ = most;
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  layOut();
}

QSize EditorPage::sizeHint() const { return {themed(size_.width()), themed(size_.height())}; }

void EditorPage::remember(QWidget* part, const QRect& place, const Share& share) {
  std::erase_if(places_, [&](const auto& kept) { return kept.part == part; });
  places_.push_back({part, place, share});
  lay(places_.back());
}

void EditorPage::layOut() {
  setMinimumSize(qRound(leastWide_ * themed(size_.width())), qRound(least_ * themed(size_.height())));
  if (isWindow()) setMaximumSize(minimumSize());
  if (most_ > 1) setMaximumHeight(qRound(most_ * themed(size_.height())));
  for (const auto& placed : places_) lay(placed);
}

void EditorPage::lay(const Placed& placed) const {
  const auto& [part, place, share] = placed;
  const auto more = size() - sizeHint();
  const auto part100 = [](int whole, int hundredths) { return whole * hundredths / 100; };
  part->setGeometry(themed(place.x()) + part100(more.width(), share.right),
                    themed(place.y()) + part100(more.height(), share.down),
                    themed(place.width()) + part100(more.width(), share.wider),
                    themed(place.height()) + part100(more.height(), share.taller));
}

void EditorPage::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  for (const auto& placed : places_) lay(placed);
}

void EditorPage::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) {
    layOut();
    // And once more when its parts have the new style, which tells how small they can be.
    again_.start(0);
  }
  QFrame::changeEvent(event);
}

void setTextOf(QLabel& label, const QString& text) {
  if (label.text() != text) label.setText(text);
}

void setTextOf(QAbstractButton& button, const QString& text) {
  if (button.text() != text) button.setText(text);
}

void setTipOf(QWidget& widget, const QString& tip) {
  if (const auto plain = plainTip(tip); widget.toolTip() != plain) widget.setToolTip(plain);
}

void markBad(QLabel& label, bool isBad) {
  const QString state(isBad ? "bad" : "");
  if (label.property("state").toString() == state) return;
  label.setProperty("state", state);
  label.style()->unpolish(&label);  // so that the sheet is read anew for it
  label.style()->polish(&label);
}

}  // namespace kvo
