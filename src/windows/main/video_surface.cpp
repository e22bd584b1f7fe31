#include "windows/main/video_surface.h"

#include <QPainter>
#include <QWindow>
#include <memory>

namespace kvo {
namespace {

constexpr std::size_t kAlignment = 64;  // bytes: the engine is fastest with rows that begin so

}  // namespace

VideoFeed::VideoFeed(VideoOutput& output) : output_(output) {
  output_.whenPictureDue([this] {
    bool drawn = false;
    for (auto* surface : surfaces_) drawn |= surface->pictureDue();
    return drawn;
  });
}

VideoFeed::~VideoFeed() { output_.whenPictureDue({}); }

VideoSurface::VideoSurface(VideoFeed& feed, QWidget* parent) : QWidget(parent), feed_(feed) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_TransparentForMouseEvents);  // the box below is what the user acts on
  feed_.add(*this);
}

VideoSurface::~VideoSurface() { feed_.remove(*this); }

bool VideoSurface::pictureDue() {
  due_ = true;
  const auto* handle = window()->windowHandle();
  if (!isVisible() || handle == nullptr || !handle->isExposed()) return false;
  update();
  return true;
}

void VideoSurface::resizeEvent(QResizeEvent* /*event*/) { due_ = true; }

void VideoSurface::takePicture() {
  const auto size = this->size() * devicePixelRatio();
  if (picture_.size() != size) {
    const auto stride =
        (static_cast<std::size_t>(size.width()) * 4 + kAlignment - 1) / kAlignment * kAlignment;
    rows_.resize(stride * static_cast<std::size_t>(size.height()) + kAlignment);
    void* first = rows_.data();
    auto room = rows_.size();
    std::align(kAlignment, 1, first, room);
    picture_ = QImage(static_cast<std::uint8_t*>(first), size.width(), size.height(),
                      static_cast<qsizetype>(stride), QImage::Format_RGB32);
    picture_.setDevicePixelRatio(devicePixelRatio());
  }
  feed_.output().draw({picture_.bits(), picture_.width(), picture_.height(),
                       static_cast<std::size_t>(picture_.bytesPerLine())});
}

void VideoSurface::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (!feed_.output().hasPicture() || size().isEmpty()) return painter.fillRect(event->rect(), Qt::black);
  if (due_ || picture_.devicePixelRatio() != devicePixelRatio()) takePicture();
  due_ = false;
  painter.drawImage(0, 0, picture_);
}

}  // namespace kvo
