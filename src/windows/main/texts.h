// Texts of the state as widgets take them.
#pragma once

#include <QString>
#include <QTextDocument>  // Qt::mightBeRichText
#include <string>

namespace kvo {

inline QString shown(const std::string& text) { return QString::fromStdString(text); }

/// For a tool tip: never taken for markup.
inline QString plainTip(const std::string& text) {
  const auto tip = shown(text);
  return Qt::mightBeRichText(tip) ? tip.toHtmlEscaped() : tip;
}

}  // namespace kvo
