// A picture on black, in its own shape.
#pragma once

#include "ports/media_contents.h"

#include <QImage>
#include <QWidget>
#include <memory>

namespace kvo {

class PicturePane final : public QWidget {
 public:
  PicturePane(const QString& name, QWidget* parent);

  void draw(const QImage& image);
  void draw(const std::shared_ptr<const FramePicture>& picture);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QImage image_;
  std::shared_ptr<const FramePicture> picture_;  // whose bytes the image shows
};

}  // namespace kvo
