// The look of the program's windows, made from the tokens: style, palette, sheet, type faces, icons, focus
// ring.
#pragma once

#include "ui/tokens.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QString>

class QApplication;

namespace kvo {

/// Gives the application its look. Once, ahead of the first window.
void applyTheme(QApplication& application);

/// The size of the interface that the theme is in, 1 to 2.
double themeSize();

/// Brings fonts, sheet and measures to another size; windows that are open follow.
void setThemeSize(QApplication& application, double size);

/// Pixels at the theme's size of a length that is `pixels` at size 1. What is there has 1 at least; a
/// hairline stays one until size 2.
int themed(double pixels);

inline QColor toColour(Rgb rgb) { return {static_cast<QRgb>(0xFF000000U | rgb)}; }

QPalette themePalette();

/// The sheet at a size of the interface, with the tokens' colours in the place of their names. What it speaks
/// of by property:
///   kind of a key: "primary" (one a window leads on), "danger", "quiet", "key" (square, an icon alone)
///   role of a label: "title", "caption", "hint", "value", "number"; of a frame: "card", "line", "list"
///   state of a label: "bad"
QString themeSheet(double size = 1);

/// The face of numbers that move: all digits equally wide. Pixels.
QFont numberFont(double pixels);

/// The font of `widget` in another height, in pixels at size 1, and weight.
QFont themedFont(const QWidget& widget, double pixels, QFont::Weight weight);

/// An icon of assets/art/icons by its file's name without ending, drawn in `colour`, `side` logical pixels
/// wide and high. Null for a name that there is not.
QPixmap iconPicture(const QString& name, Rgb colour, int side = 16, double pixelRatio = 1);

/// The same for a key: at rest, disabled, and lit when the key is checked.
QIcon themeIcon(const QString& name);

}  // namespace kvo
