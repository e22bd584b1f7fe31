#include "ui/dib_section.h"

#include <QImage>
#include <QPainter>
#include <new>

namespace kvo {
bool cDIBSection::Create(int width, int height) {
  ClearUp();
  if (width < 1 || height < 1) return false;
  const auto bytes = bytesPerScanLine(width) * static_cast<std::size_t>(height);
  if (bytes > kMostBytes) return false;
  try {
    bits_.resize(bytes);
  } catch (const std::bad_alloc&) {
    return false;
  }
  width_ = width;
  height_ = height;
  return true;
}

bool cDIBSection::CreateFromPicture(const QImage& picture) {
  if (!Create(picture.width(), picture.height())) return false;
  QImage flat(bits_.data(), width_, height_, static_cast<qsizetype>(BytesPerScanLine()),
              QImage::Format_BGR888);
  QPainter(&flat).drawImage(flat.rect(), picture, picture.rect());
  return true;
}

void cDIBSection::ClearUp() {
  width_ = 0;
  height_ = 0;
  bits_ = {};
}

std::span<const std::uint8_t> cDIBSection::row(int y) const {
  return std::span(bits_).subspan(static_cast<std::size_t>(y) * BytesPerScanLine(),
                                  static_cast<std::size_t>(width_) * 3);
}

}  // namespace kvo
