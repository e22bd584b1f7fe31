// A label on the toolbar of Free Zoom, with its glyph.
#pragma once

#include "ui/hover_key.h"
#include "windows/main/face_scale.h"
#include "windows/main/toolbar_picture.h"

#include <QCoreApplication>

namespace kvo {

class ToolKey : public HoverKey {
  Q_DECLARE_TR_FUNCTIONS(kvo::ToolKey)

 public:
  /// `picture` outlives the key.
  ToolKey(const ToolbarPicture& picture, const QString& name, QWidget* parent);

  void layOut(const FaceScale& scale);
  /// The glyph in the picture; left and width are parts of its width.
  void setGlyph(double left, double width);
  void setLit(bool lit);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const ToolbarPicture& picture_;
  double glyphLeft_ = 0;
  double glyphWidth_ = 0;
  FaceScale scale_;
  bool lit_ = false;
};

}  // namespace kvo
