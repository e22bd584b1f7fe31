// What the parts of the window are made with.
#pragma once

#include <QString>
#include <string>

namespace kvo {

/// A widget that belongs to its parent, which comes last.
template <class Widget, class... Arguments>
Widget* made(Arguments... arguments) {
  return new Widget(arguments...);  // NOLINT(cppcoreguidelines-owning-memory)
}

inline QString shown(const std::string& text) { return QString::fromStdString(text); }

}  // namespace kvo
