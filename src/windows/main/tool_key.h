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
  /// `picture` outlives the key. Left and width of the glyph in it are parts of its width.
  ToolKey(const ToolbarPicture& picture, double glyphLeft, double glyphWidth, const QString& name,
          QWidget* parent);

  void layOut(const FaceScale& scale);
  void setLit(bool lit);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const ToolbarPicture& picture_;
  double glyphLeft_;
  double glyphWidth_;
  FaceScale scale_;
  bool lit_ = false;
};

}  // namespace kvo
