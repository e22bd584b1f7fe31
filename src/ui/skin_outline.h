// The outline of a skinned window by a mask picture: what is black in that is not of the window.
#pragma once

#include "base/result.h"
#include "ui/dib_section_region.h"
#include "ui/face_size.h"
#include "ui/load_jpeg.h"

#include <QImage>
#include <string>

class QPainter;

namespace kvo {

class SkinOutline {
 public:
  explicit SkinOutline(const PictureReading& reading) : reading_(reading) {}

  /// Takes the mask of that file, stretched to a window of this size; an empty path is the whole rectangle.
  /// Fails, with a line for the log and the whole rectangle, where there is no such picture and where it
  /// leaves nothing of the window.
  Outcome load(std::string path, const FaceSize& size);

  /// What was asked for last.
  [[nodiscard]] const std::string& path() const { return path_; }

  /// The shape in logical pixels, to be applied to the window; nothing is held for the whole rectangle.
  cDIBSectionRegion& region() { return region_; }

  /// A dark line along the outline and a light one within it. Above the skin and below the buttons.
  void paintRim(QPainter& painter) const;

  /// Takes away what lies outside, with a soft edge. Last of all that is painted on the window, which has
  /// Qt::WA_TranslucentBackground; only where there is a compositor.
  void soften(QPainter& painter) const;

 private:
  Outcome read();

  PictureReading reading_;
  std::string path_;
  FaceSize size_;
  cDIBSectionRegion region_;
  QImage inside_;  // in device pixels: how much of each is inside; null for the whole rectangle
  QImage rim_;
};

}  // namespace kvo
