// The plate with the clip's picture, its name above it and what it is like below it.
#pragma once

#include "windows/main/picture_box.h"
#include "windows/main/plate.h"

#include <string>
#include <vector>

namespace kvo {

/// The chips below the picture: short facts of the clip.
class ChipsPart : public QWidget {
 public:
  ChipsPart(const MainWindowState& state, QWidget* parent);
  void layOut(const FaceScale& scale);
  void draw();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void drawAnim(QPainter& painter) const;

  const MainWindowState& state_;
  FaceScale scale_;
  std::vector<std::string> drawn_;
  bool animDrawn_ = false;
  bool animOnDrawn_ = false;
};

class PicturePart : public Plate {
 public:
  PicturePart(const MainWindowState& state, ClipPicture& pictures, QWidget* parent);
  void layOut(const FaceScale& scale);
  void draw();
  [[nodiscard]] PictureBox& box() const { return *box_; }

 private:
  const MainWindowState& state_;
  FaceLabel* name_;
  PictureBox* box_;
  ChipsPart* chips_;
};

/// The picture alone, as large as the face has room for.
class LargePicturePart : public Plate {
 public:
  LargePicturePart(const MainWindowState& state, ClipPicture& pictures, QWidget* parent);
  void layOut(const FaceScale& scale);
  void draw();
  [[nodiscard]] PictureBox& box() const { return *box_; }

 private:
  PictureBox* box_;
};

}  // namespace kvo
