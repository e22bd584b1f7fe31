// Why something cannot be done, or that it has been, said where the hand is: on a plate over the place, until
// the next key or click.
#pragma once

#include <QString>

class QPoint;
class QWidget;

namespace kvo {

/// Says it over a place of a widget, or over its middle; for a screen reader too. An empty reason says
/// nothing.
void refuse(QWidget& where, const QPoint& at, const QString& reason);
void refuse(QWidget& where, const QString& reason);

/// The same of what has been done and is not seen.
void say(QWidget& where, const QString& text);

/// Why a widget, and what lies in it, is off: said when it is clicked. Empty for none.
void noteWhyNot(QWidget& widget, const QString& reason);
QString whyNot(const QWidget& widget);
/// The same of a widget that is off for a reason alone; its tip tells the reason too, behind the one that it
/// has, or has from now on.
void setWhyNot(QWidget& widget, const QString& reason);
void setWhyNot(QWidget& widget, const QString& reason, const QString& tip);

/// From now on a press on anything in `window` that is off says why it is.
void sayWhyOff(QWidget& window);

}  // namespace kvo
