// One window with the widgets that windows are made of, each in all its states, to look at beside the
// drawings.
#pragma once

#include <QTabWidget>

namespace kvo {

class Gallery : public QTabWidget {
 public:
  explicit Gallery(QWidget* parent = nullptr);
};

}  // namespace kvo
