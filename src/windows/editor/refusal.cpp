#include "windows/editor/refusal.h"

#include "ui/made.h"
#include "ui/theme.h"
#include "windows/editor/editor_page.h"
#include "windows/editor/saying_plate.h"

#include <QAccessible>
#include <QApplication>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

namespace kvo {
namespace {

constexpr const char* kWhyNot = "whyNot";
constexpr const char* kOwnTip = "ownTip";
constexpr int kShownFor = 5000;    // milliseconds
constexpr qint64 kOwnPress = 150;  // milliseconds that the press which it answers may go on for

// The plate; there is one for each window.
class Refusal final : public QWidget {
 public:
  explicit Refusal(QWidget& window) : QWidget(&window) {
    setObjectName(kWhyNot);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    QApplication::instance()->installEventFilter(this);
  }

  void say(const QPoint& at, const QString& text, const QString& reason) {
    const double size = themeSize();
    const auto& all = *parentWidget();
    plate_ =
        SayingPlate({at.x() / size, at.y() / size}, {all.width() / size, all.height() / size}, text, reason);
    const auto box = plate_.box();
    setGeometry(QRectF(box.x() * size, box.y() * size, box.width() * size, box.height() * size)
                    .toAlignedRect()
                    .adjusted(-1, -1, 1, 1));
    setAccessibleName(text + reason);
    raise();
    show();
    update();
    leaving_.start(kShownFor, this);
    since_.start();
    QAccessibleEvent told(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    const auto type = event->type();
    const bool isAct =
        type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::WindowDeactivate;
    if (isAct && isVisible() && since_.elapsed() > kOwnPress) hide();
    return false;
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-pos());
    painter.scale(themeSize(), themeSize());
    plate_.draw(painter);
  }
  void timerEvent(QTimerEvent* event) override {
    if (event->timerId() == leaving_.timerId()) hide();
  }
  void hideEvent(QHideEvent* event) override {
    leaving_.stop();
    QWidget::hideEvent(event);
  }

 private:
  SayingPlate plate_;
  QBasicTimer leaving_;
  QElapsedTimer since_;
};

// Keys and boxes that are off take presses without a word, so these are met on their way there.
class OffWatch final : public QObject {
 public:
  explicit OffWatch(QWidget& window) : QObject(&window), window_(window) {
    QApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::MouseButtonPress || !watched->isWidgetType()) return false;
    auto& part = *static_cast<QWidget*>(watched);
    if (part.window() != &window_ || part.isEnabled()) return false;
    const auto at = static_cast<QMouseEvent*>(event)->position().toPoint();
    for (auto* of = &part; of != nullptr && of != &window_; of = of->parentWidget()) {
      if (const auto reason = whyNot(*of); !reason.isEmpty()) {
        refuse(part, at, reason);
        break;
      }
    }
    return false;
  }

 private:
  QWidget& window_;
};

Refusal& plateOf(QWidget& window) {
  auto* found = window.findChild<QWidget*>(kWhyNot, Qt::FindDirectChildrenOnly);
  return found != nullptr ? *static_cast<Refusal*>(found) : *made<Refusal>(window);
}

}  // namespace

void refuse(QWidget& where, const QPoint& at, const QString& reason) {
  if (!reason.isEmpty()) plateOf(*where.window()).say(where.mapTo(where.window(), at), {}, reason);
}

void say(QWidget& where, const QString& text) {
  const auto middle = where.mapTo(where.window(), where.rect().center());
  if (!text.isEmpty()) plateOf(*where.window()).say(middle, text, {});
}

void refuse(QWidget& where, const QString& reason) { refuse(where, where.rect().center(), reason); }

void noteWhyNot(QWidget& widget, const QString& reason) {
  if (whyNot(widget) != reason) widget.setProperty(kWhyNot, reason);
}

QString whyNot(const QWidget& widget) { return widget.property(kWhyNot).toString(); }

void setWhyNot(QWidget& widget, const QString& reason) {
  const auto own = widget.property(kOwnTip);
  if (!own.isValid()) widget.setProperty(kOwnTip, widget.toolTip());
  setWhyNot(widget, reason, own.isValid() ? own.toString() : widget.toolTip());
}

void setWhyNot(QWidget& widget, const QString& reason, const QString& tip) {
  noteWhyNot(widget, reason);
  if (widget.isEnabled() != reason.isEmpty()) widget.setEnabled(reason.isEmpty());
  setTipOf(widget, reason.isEmpty() ? tip : tip + "\n" + reason);
}

void sayWhyOff(QWidget& window) { made<OffWatch>(window); }

}  // namespace kvo
