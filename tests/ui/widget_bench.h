// A widget as a hand, an eye and a screen reader meet it, and what a test of widgets stands on.
#pragma once

#include "support/memory_store.h"
#include "support/plain_desktop.h"
#include "ui/made.h"
#include "ui/theme.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace kvo::test {

/// What a part asks for, as one line.
struct Told {
  std::string line;  ///< "save key3 ", in order

  /// Hears an act, whatever comes with it.
  auto act(const std::string& name) {
    return [this, name](const auto&...) { line += name + " "; };
  }
  /// Hears one with the number that comes with it.
  auto number(const std::string& name) {
    return [this, name](auto value) { line += name + std::to_string(static_cast<int>(value)) + " "; };
  }
  /// What has been told since the last look.
  std::string look() { return std::exchange(line, {}); }
};

inline void movePointer(QWidget& part, const QPoint& at, Qt::MouseButton held = Qt::NoButton,
                        Qt::KeyboardModifiers with = {}) {
  QMouseEvent move(QEvent::MouseMove, at, part.mapToGlobal(at), Qt::NoButton, held, with);
  QCoreApplication::sendEvent(&part, &move);
}

/// By notches, upwards.
inline void turnWheel(QWidget& part, const QPoint& at, int notches, Qt::KeyboardModifiers with = {}) {
  QWheelEvent turn(at, part.mapToGlobal(at), {}, {0, 120 * notches}, {}, with, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&part, &turn);
}

inline void openMenu(QWidget& part, const QPoint& at) {
  QContextMenuEvent ask(QContextMenuEvent::Mouse, at, part.mapToGlobal(at));
  QCoreApplication::sendEvent(&part, &ask);
}

/// What the pointer is told when it rests there.
inline std::string tipAt(QWidget& part, const QPoint& at) {
  QToolTip::hideText();
  QHelpEvent help(QEvent::ToolTip, at, part.mapToGlobal(at));
  QCoreApplication::sendEvent(&part, &help);
  return QToolTip::text().toStdString();
}

inline QString nameOf(QWidget& part) {
  const auto given = part.accessibleName();
  return given.isEmpty() ? QAccessible::queryAccessibleInterface(&part)->text(QAccessible::Name) : given;
}

/// The part of this name; null, and the test fails, where there is none.
template <class Part = QWidget>
Part* named(const QWidget& window, const QString& name) {
  for (auto* part : window.findChildren<QWidget*>()) {
    auto* found = dynamic_cast<Part*>(part);
    if (found != nullptr && nameOf(*part) == name) return found;
  }
  ADD_FAILURE() << "no part " << name.toStdString();
  return nullptr;
}

/// The names of all that Tab reaches, from this part on.
inline std::string tabOrder(QWidget& first) {
  std::string order;
  first.setFocus(Qt::TabFocusReason);
  do {
    auto* at = first.window()->focusWidget();
    order += at->accessibleName().toStdString() + ", ";
    QTest::keyClick(at, Qt::Key_Tab);
  } while (first.window()->focusWidget() != &first && order.size() < 5000);
  return order;
}

/// Whether a label with this text is seen.
inline bool says(const QWidget& window, const std::string& text) {
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (label->isVisible() && label->text().toStdString() == text) return true;
  }
  return false;
}

/// Each part that is seen and takes the keyboard has a name and is large enough to hit. How many there are.
inline int expectNamed(const QWidget& window, int leastHeight = 0) {
  int seen = 0;
  for (auto* part : window.findChildren<QWidget*>()) {
    if (!part->isVisibleTo(&window) || (part->focusPolicy() & Qt::TabFocus) == 0 ||
        part->objectName().startsWith("qt_"))
      continue;
    EXPECT_NE(nameOf(*part), "") << part->metaObject()->className();
    EXPECT_GE(part->height(), leastHeight) << nameOf(*part).toStdString();
    ++seen;
  }
  return seen;
}

}  // namespace kvo::test
