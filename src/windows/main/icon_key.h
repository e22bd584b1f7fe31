// A small key without a plate of its own: an icon that lights up under the pointer.
#pragma once

#include "ui/hover_key.h"
#include "ui/tokens.h"
#include "windows/main/face_scale.h"

namespace kvo {

class IconKey : public HoverKey {
 public:
  /// `units` is what takes the mouse; the icon, `side` pixels at size 1, stands in its middle. `name` is what
  /// a screen reader is told.
  IconKey(const QString& icon, const QString& name, const QRectF& units, double side, QWidget* parent);

  void layOut(const FaceScale& scale);
  void setIconName(const QString& icon);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString icon_;
  QRectF units_;
  double side_;
  FaceScale scale_;
};

}  // namespace kvo
