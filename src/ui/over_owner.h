// A small window that belongs to another.
#pragma once

class QWidget;

namespace kvo {

/// Shows `window` over the middle of `owner`, which it stays above, within the screen.
void showOverOwner(QWidget& window, QWidget& owner);

}  // namespace kvo
