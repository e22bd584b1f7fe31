#include "ui/load_jpeg.h"

#include "base/text.h"
#include "ui/dib_section.h"

namespace kvo {

Outcome loadJpeg(const Jpeg& jpeg, cDIBSection& surface, std::string_view file, int scale) {
  surface.ClearUp();
  const auto size = jpeg.size(file);
  if (!size) return size.error();
  if (!surface.Create(jpegSide(size->width, scale), jpegSide(size->height, scale)))
    return Error{"the picture is too large"};
  auto done = jpeg.decode(file, scale, surface.DIBSectionBitsPtr(), surface.BytesPerScanLine());
  if (!done) surface.ClearUp();
  return done;
}

int LoadJpeg(const PictureReading& reading, cDIBSection& surface, const std::string& path, int scale) {
  surface.ClearUp();
  if (scale != 1 && scale != 2 && scale != 4 && scale != 8) return 0;
  const auto file = reading.files.read(path, kMostPictureFile);
  return file && loadJpeg(reading.jpeg, surface, *file, scale) ? 1 : 0;
}

bool CanLoadStill(const PictureReading& reading, const std::string& path) {
  if (extensionOf(path) == "BMP") return true;
  cDIBSection surface;
  return LoadJpeg(reading, surface, path, 1) > 0;
}

}  // namespace kvo
