// A label on the toolbar of Free Zoom, with its glyph.
#pragma once

#include "windows/main/face_scale.h"
#include "windows/main/toolbar_picture.h"

#include <QAbstractButton>

namespace kvo {

class ToolKey : public QAbstractButton {
 public:
  /// `picture` outlives the key. Left and width of the glyph in it are parts of its width.
  ToolKey(const ToolbarPicture& picture, double glyphLeft, double glyphWidth, const QString& name,
          QWidget* parent);

  void layOut(const FaceScale& scale);
  void setLit(bool lit);

 protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  const ToolbarPicture& picture_;
  double glyphLeft_;
  double glyphWidth_;
  FaceScale scale_;
  bool lit_ = false;
};

}  // namespace kvo
