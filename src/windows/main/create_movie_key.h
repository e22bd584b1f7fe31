// The one filled key of the main window: it opens the editor.
#pragma once

#include "program/main_window_state.h"
#include "ui/hover_key.h"
#include "windows/main/face_scale.h"

#include <QCoreApplication>

namespace kvo {

class CreateMovieKey : public HoverKey {
  Q_DECLARE_TR_FUNCTIONS(kvo::CreateMovieKey)

 public:
  /// It can be pressed while there is a clip.
  CreateMovieKey(const MenuState& menu, QWidget* parent);

  void layOut(const FaceScale& scale);
  void draw();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const MenuState& menu_;
  FaceScale scale_;
};

}  // namespace kvo
