#include "ui/tool_tips.h"

#include "ui/theme.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

namespace kvo {
namespace {

constexpr const char* kKeysProperty = "keys";
constexpr const char* kOffProperty = "toolTipsOff";  // of the application

QString withChip(const QString& tip, const QString& keys) {
  const QString chip(
      "<p style=\"white-space: pre\">%1  <span style=\"background: %2; color: %3\"> %4 </span>");
  return chip.arg(Qt::mightBeRichText(tip) ? tip : tip.toHtmlEscaped(), toColour(token("ink3")).name(),
                  toColour(token("text2")).name(), keys.toHtmlEscaped());
}

}  // namespace

ToolTips::ToolTips(QApplication& application) : QObject(&application) {
  application.installEventFilter(this);
}

bool ToolTips::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ToolTip || !watched->isWidgetType()) return false;
  if (parent()->property(kOffProperty).toBool()) return true;
  auto& widget = *static_cast<QWidget*>(watched);
  const auto keys = widget.property(kKeysProperty).toString();
  if (keys.isEmpty() || widget.toolTip().isEmpty()) return false;
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), withChip(widget.toolTip(), keys), &widget);
  return true;
}

void showToolTips(QApplication& application, bool shown) { application.setProperty(kOffProperty, !shown); }

void setKeys(QWidget& widget, const QString& keys) { widget.setProperty(kKeysProperty, keys); }

}  // namespace kvo
