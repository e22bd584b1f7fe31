// The face of the skinned window: its picture, the small pictures that are drawn into it, the side logo, and
// its outline.
#pragma once

#include "ports/skin_pictures.h"
#include "ui/dib_section_region.h"
#include "ui/load_jpeg.h"

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <array>
#include <cstdint>
#include <map>
#include <string>

class QPainter;

namespace kvo {

class KVOBut;

/// From a colour with red in the low byte, as settings and masks have it.
QColor colourOf(std::uint32_t colorRef);

/// The measures of a skinned window.
struct FaceSize {
  QSize window;  ///< logical pixels
  double interfaceSize = 1;
  double pixelRatio = 1;  ///< device pixels in a logical one
  bool operator==(const FaceSize&) const = default;
};

/// The picture behind everything.
class SkinFace : public SkinPictures {
 public:
  explicit SkinFace(const PictureReading& reading) : reading_(reading) {}

  /// The window's size from now on; what is held is read anew for it when it is next painted.
  void resize(const FaceSize& size);
  [[nodiscard]] const FaceSize& size() const { return size_; }

  [[nodiscard]] std::optional<std::string> find(const std::string& path) const override;
  Outcome load(const std::string& path) override;

  /// Paints the picture of the file at left -100, top 0 (units of 1/15 pixel at size 1) at the window's size.
  /// The strip that this leaves at the right shows the picture's edge mirrored. Without a picture it is the
  /// ground of the program's windows.
  void PaintPicture(QPainter& painter, const std::string& path);

  /// Gives the memory of the picture back; it is read anew when it is next painted.
  void KillStrecher();

 private:
  PictureReading reading_;
  FaceSize size_;
  std::string path_;
  QImage img_Strecher_;
};

/// The numbered pictures of the buttons, each as it stands in the file of its number; what its pixel 1, 1
/// says to be transparent shows the skin.
class ImageList1 {
 public:
  /// `folder` is the one of the pictures: "/prog/ImageList1/".
  ImageList1(const PictureReading& reading, std::string folder)
      : reading_(reading), folder_(std::move(folder)) {}

  /// Draws picture `number` with its left upper corner at `left`, `top`, in logical pixels. False where there
  /// is no such picture.
  bool CreateActbut(QPainter& painter, int left, int top, int number, double interfaceSize);

  /// The picture, to be measured or drawn in other places; null where there is none.
  const QPixmap& picture(int number, double interfaceSize, double pixelRatio);

 private:
  struct Key {
    int number = 0;
    double scale = 1;
    double interfaceSize = 1;
    auto operator<=>(const Key&) const = default;
  };
  PictureReading reading_;
  std::string folder_;
  std::map<Key, QPixmap> pictures_;
};

/// The side logo: a box filled band by band from one colour to another, and a caption that reads downward.
class cLogo {
 public:
  QString Caption;
  QPainter* DrawingObject = nullptr;  ///< outlives the call of Draw
  QRect box;                          ///< where, in logical pixels
  QColor StartColor;
  QColor EndColor;
  double interfaceSize = 1;
  double captionShift = 0;  ///< logical pixels by which a caption that is too long has been moved up

  void Draw() const;

  /// The height that the caption takes, in logical pixels.
  [[nodiscard]] double captionLength() const;
};

/// The outline of a window by a mask picture: what is black there is not of the window.
class SkinOutline {
 public:
  explicit SkinOutline(const PictureReading& reading) : reading_(reading) {}

  /// Takes the mask of that file for a window of this size; an empty path is the whole rectangle. Fails, with
  /// a line for the log and the whole rectangle, where it cannot be read or leaves nothing of the window.
  Outcome load(const std::string& maskPath, const FaceSize& size);

  /// The shape in logical pixels; give windows their shape through it.
  [[nodiscard]] cDIBSectionRegion& region() { return region_; }

  /// Takes away what lies outside, with a soft edge: last of all that is painted on a window with
  /// Qt::WA_TranslucentBackground, where a compositor shows it.
  void soften(QPainter& painter) const;

 private:
  PictureReading reading_;
  std::string path_;
  FaceSize size_;
  cDIBSectionRegion region_;
  QImage edge_;  // alpha of the window's device pixels; null for the whole rectangle
};

/// Gives the five keys of the list, up, down, add, cross and sort, their pictures from `buttonPath`, a
/// folder.
void LoadPlayListImages(const std::array<KVOBut*, 5>& keys, const std::string& buttonPath,
                        double interfaceSize);

/// The key that opens the drive.
void LoadEject(KVOBut& key, const std::string& buttonPath, double interfaceSize);

}  // namespace kvo
