// The pane that is shown while there is no clip: one large key that adds media, and says what comes after.
#pragma once

#include "program/main_window_state.h"
#include "ui/hover_key.h"
#include "windows/main/face_scale.h"

namespace kvo {

class EmptyPanePart : public HoverKey {
 public:
  /// `folder` has the picture: "/prog/Parts/".
  EmptyPanePart(const EmptyPaneState& state, const std::string& folder, QWidget* parent);

  void layOut(const FaceScale& scale);
  void draw();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void drawSteps(QPainter& painter) const;

  const EmptyPaneState& state_;
  std::string folder_;
  FaceScale scale_;
  QPixmap picture_;
};

}  // namespace kvo
