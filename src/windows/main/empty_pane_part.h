// The pane that is shown while there is no clip: one large key that adds media.
#pragma once

#include "program/media_commands.h"

#include <QPushButton>
#include <functional>

namespace kvo {

class EmptyPanePart : public QPushButton {
 public:
  /// `acted` is called behind each addition.
  EmptyPanePart(const EmptyPaneState& state, MediaCommands& media, std::function<void()> acted,
                QWidget* parent);

  void draw();

 private:
  const EmptyPaneState& state_;
};

}  // namespace kvo
