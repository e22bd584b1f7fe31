#include "windows/editor/editor_page.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QAbstractButton>
#include <QEvent>
#include <QLabel>
#include <QScrollArea>
#include <QStyle>

namespace kvo {

EditorPage::EditorPage(QWidget* parent, QSize size, const char* role) : QFrame(parent), size_(size) {
  setProperty("role", role);
  again_.setSingleShot(true);
  connect(&again_, &QTimer::timeout, this, [this] { layOut(); });
  layOut();
}

QScrollArea* EditorPage::scrolled(EditorPage* page, const QString& name, QWidget* parent) {
  auto* area = made<QScrollArea>(parent);
  area->setAccessibleName(name);
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);  // what has the keyboard comes into view by itself
  area->setWidget(page);
  return area;
}

QLabel* EditorPage::write(const QString& text, const char* role, const QRect& place) {
  auto* label = put(made<QLabel>(text, this), place);
  label->setProperty("role", role);
  label->setTextFormat(Qt::PlainText);
  return label;
}

void EditorPage::remember(QWidget* part, const QRect& place) {
  std::erase_if(places_, [&](const auto& kept) { return kept.first == part; });
  places_.emplace_back(part, place);
  part->setGeometry(themed(place.x()), themed(place.y()), themed(place.width()), themed(place.height()));
}

void EditorPage::layOut() {
  setFixedSize(themed(size_.width()), themed(size_.height()));
  for (const auto& [part, place] : places_)
    part->setGeometry(themed(place.x()), themed(place.y()), themed(place.width()), themed(place.height()));
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
