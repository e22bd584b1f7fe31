// The parts of a window as a screen reader finds them.
#pragma once

#include <QAccessible>
#include <QLabel>
#include <QWidget>
#include <string>

#include <gtest/gtest.h>

namespace kvo::test {

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
