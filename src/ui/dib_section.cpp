#include "ui/dib_section.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <new>

namespace kvo {
namespace {

std::uint8_t met(RasterOperation operation, std::uint8_t target, std::uint8_t source) {
  switch (operation) {
    case RasterOperation::SRCAND:
      return target & source;
    case RasterOperation::SRCPAINT:
      return target | source;
    case RasterOperation::SRCCOPY:
      break;
  }
  return source;
}

}  // namespace

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

void cDIBSection::PaintPicture(cDIBSection& target, int x, int y, int width, int height, int sourceX,
                               int sourceY, RasterOperation operation) const {
  // First and last pixel of the rectangle, counted from its corner, that lie in both surfaces.
  const int left = std::max({0, -x, -sourceX});
  const int top = std::max({0, -y, -sourceY});
  const int right = std::min({width, target.width_ - x, width_ - sourceX});
  const int bottom = std::min({height, target.height_ - y, height_ - sourceY});
  if (right <= left) return;
  const auto bytes = static_cast<std::size_t>(right - left) * 3;
  for (int row = top; row < bottom; ++row) {
    const auto* from = bits_.data() + static_cast<std::size_t>(sourceY + row) * BytesPerScanLine() +
                       static_cast<std::size_t>(sourceX + left) * 3;
    auto* to = target.bits_.data() + static_cast<std::size_t>(y + row) * target.BytesPerScanLine() +
               static_cast<std::size_t>(x + left) * 3;
    std::transform(to, to + bytes, from, to, [&](auto t, auto s) { return met(operation, t, s); });
  }
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
