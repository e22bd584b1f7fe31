// Texts of the state as widgets take them.
#pragma once

#include "ports/translations.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QTextDocument>  // Qt::mightBeRichText
#include <string>

namespace kvo {

/// What the user or a file says, and what the logic has composed: as it is.
inline QString shown(const std::string& text) { return QString::fromStdString(text); }

/// A whole text of the program's own: in the user's language.
inline QString told(const std::string& text) {
  return text.empty() ? QString() : QCoreApplication::translate(kTextContext, text.c_str());
}

/// The lines of a text, whichever of LF and CR LF ends them.
inline QStringList shownLines(QString text) { return text.remove('\r').split('\n'); }

/// For a tool tip: never taken for markup.
inline QString plainTip(const QString& tip) { return Qt::mightBeRichText(tip) ? tip.toHtmlEscaped() : tip; }

}  // namespace kvo
