#include "editor/samples/sample_pictures.h"

#include "media/bgr.h"

namespace kvo {
namespace {

constexpr int kBytes = 3;  // of a pixel

}  // namespace

media::Picture pictureOf(const FramePicture& picture) {
  auto canvas = media::Canvas::make(picture.width, picture.height);
  media::fromBgr(picture.bgr.data(), static_cast<std::size_t>(picture.width) * kBytes, canvas);
  return share(std::move(canvas));
}

FramePicture bytesOf(const media::Picture& picture) {
  FramePicture out{picture.width(), picture.height(), {}};
  const auto stride = static_cast<std::size_t>(out.width) * kBytes;
  out.bgr.resize(stride * static_cast<std::size_t>(out.height));
  media::toBgr(picture, out.bgr.data(), stride);
  return out;
}

FramePicture plainPicture(int width, int height, std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
  FramePicture picture{width, height, {}};
  const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  picture.bgr.reserve(pixels * kBytes);
  for (std::size_t i = 0; i < pixels; ++i) picture.bgr.insert(picture.bgr.end(), {blue, green, red});
  return picture;
}

}  // namespace kvo
