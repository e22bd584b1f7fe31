// The picture behind everything on the main window, and the pictures of the keys of its list.
#pragma once

#include "ports/skin_pictures.h"
#include "ui/face_size.h"
#include "ui/load_jpeg.h"
#include "ui/skin_outline.h"

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

class QPainter;

namespace kvo {

class KVOBut;

class SkinFace : public SkinPictures {
 public:
  using Log = std::function<void(const std::string&)>;

  /// Pictures below the folder `shipped` may be there for several interface sizes; a user's is one alone.
  /// `log` takes a line where one that has been painted cannot be read again for another size.
  SkinFace(
      const PictureReading& reading, const FaceSize& size, std::string shipped = {},
      Log log = [](const std::string&) {})
      : reading_(reading),
        size_(size),
        shipped_(std::move(shipped)),
        log_(std::move(log)),
        outline_(reading) {}

  /// The window's size from now on. The picture is read anew for it when it is next painted, the outline at
  /// once. A picture that is gone by then is stretched as it was painted last.
  void resize(const FaceSize& size);

  [[nodiscard]] std::optional<std::string> find(const std::string& path) const override;
  Outcome load(const std::string& path) override;
  Outcome loadMask(const std::string& path) override;

  /// Paints the picture of the file `path` at left -100, top 0, in units of 1/15 pixel, at the window's size;
  /// the strip that this leaves at the right shows the edge of the picture mirrored. The ground of the
  /// program's windows where there is no picture.
  void PaintPicture(QPainter& painter, const std::string& path);

  /// The outline by the mask that was loaded last; an empty path makes it the whole rectangle.
  SkinOutline& outline() { return outline_; }

 private:
  void KillStrecher();
  void paintGround();

  PictureReading reading_;
  FaceSize size_;
  std::string shipped_;
  Log log_;
  SkinOutline outline_;
  QImage img_Strecher_;  // what has been read and not been painted yet, in device pixels
  QPixmap face_;         // the whole ground of the window, with the picture of the file at path_
  bool fits_ = false;    // it has the window's size
  std::string path_;
};

/// From a colour with red in the low byte, then green, then blue.
QColor colourOf(std::uint32_t colorRef);

/// Gives the five keys of the list, up, down, add, cross and sort, their pictures from the folder
/// `buttonPath`.
void LoadPlayListImages(const std::array<KVOBut*, 5>& keys, const std::string& buttonPath,
                        double interfaceSize);

}  // namespace kvo
