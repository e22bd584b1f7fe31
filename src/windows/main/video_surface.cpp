#include "windows/main/video_surface.h"

#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOpenGLWidget>
#include <QPaintEvent>
#include <QPainter>
#include <QWindow>
#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

namespace kvo {
namespace {

constexpr std::size_t kAlignment = 64;  // bytes: the engine is fastest with rows that begin so

// What is hidden, or minimized, is not painted.
bool isSeen(const QWidget& widget) {
  const auto* window = widget.window()->windowHandle();
  return widget.isVisible() && window != nullptr && window->isExposed();
}

bool isRealOpenGl() {
  QOpenGLContext context;
  QOffscreenSurface nowhere;
  nowhere.create();
  if (!context.create() || !context.makeCurrent(&nowhere)) return false;
  const auto* name = context.functions()->glGetString(GL_RENDERER);
  const std::string_view renderer = name == nullptr ? "" : reinterpret_cast<const char*>(name);
  context.doneCurrent();
  for (const std::string_view software : {"llvmpipe", "softpipe", "swrast", "Software"}) {
    if (renderer.find(software) != std::string_view::npos) return false;
  }
  return !renderer.empty();
}

class RowsSurface : public QWidget, public VideoSurface {
 public:
  RowsSurface(VideoFeed& feed, QWidget* parent) : QWidget(parent), feed_(feed) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);  // the box below is what the user acts on
    feed_.add(*this);
  }
  ~RowsSurface() override { feed_.remove(*this); }

  QWidget& widget() override { return *this; }
  bool pictureDue() override {
    due_ = true;
    if (!isSeen(*this)) return false;
    update();
    return true;
  }

 protected:
  void resizeEvent(QResizeEvent* /*event*/) override { due_ = true; }
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    if (!feed_.output().hasPicture() || size().isEmpty()) return painter.fillRect(event->rect(), Qt::black);
    if (due_ || picture_.devicePixelRatio() != devicePixelRatio()) takePicture();
    due_ = false;
    painter.drawImage(0, 0, picture_);
  }

 private:
  void takePicture() {
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
    }
    picture_.setDevicePixelRatio(devicePixelRatio());
    feed_.output().draw({picture_.bits(), picture_.width(), picture_.height(),
                         static_cast<std::size_t>(picture_.bytesPerLine())});
  }

  VideoFeed& feed_;
  std::vector<std::uint8_t> rows_;
  QImage picture_;  // of the rows
  bool due_ = true;
};

class OpenGlSurface : public QOpenGLWidget, public VideoSurface {
 public:
  OpenGlSurface(VideoFeed& feed, QWidget* parent) : QOpenGLWidget(parent), feed_(feed) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    feed_.add(*this);
  }
  ~OpenGlSurface() override {
    if (context() != nullptr) disconnect(context(), nullptr, this, nullptr);
    feed_.endOpenGl(*this);
    feed_.remove(*this);
  }

  QWidget& widget() override { return *this; }
  bool pictureDue() override {
    if (!isSeen(*this)) return false;
    update();
    return true;
  }

 protected:
  void initializeGL() override {
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, [this] { feed_.endOpenGl(*this); });
  }
  void paintGL() override {
    auto& functions = *context()->functions();
    functions.glClearColor(0, 0, 0, 1);
    functions.glClear(GL_COLOR_BUFFER_BIT);
    if (!feed_.output().hasPicture() || feed_.drawnBy() != VideoFeed::DrawnBy::OpenGl) return;
    const bool ready =
        feed_.useOpenGl(*this, {[this] { makeCurrent(); },
                                [](const char* function) {
                                  auto* current = QOpenGLContext::currentContext();
                                  return reinterpret_cast<void*>(current->getProcAddress(function));
                                }});
    if (!ready) return feed_.refuseOpenGl();
    const auto size = this->size() * devicePixelRatio();
    feed_.output().draw(static_cast<int>(defaultFramebufferObject()), size.width(), size.height());
  }

 private:
  VideoFeed& feed_;
};

}  // namespace

// Loading an OpenGL that is only software takes longer than a start may.
VideoFeed::DrawnBy VideoFeed::best(bool graphicsDevice) {
  return graphicsDevice && isRealOpenGl() ? DrawnBy::OpenGl : DrawnBy::Rows;
}

VideoFeed::VideoFeed(VideoOutput& output, DrawnBy by) : output_(output), drawnBy_(by) {
  output_.whenPictureDue([this] {
    bool drawn = false;
    for (auto* surface : surfaces_) drawn |= surface->pictureDue();
    return drawn;
  });
}

VideoFeed::~VideoFeed() { output_.whenPictureDue({}); }

std::unique_ptr<VideoSurface> VideoFeed::surface(QWidget* parent) {
  if (drawnBy_ == DrawnBy::OpenGl) return std::make_unique<OpenGlSurface>(*this, parent);
  return std::make_unique<RowsSurface>(*this, parent);
}

void VideoFeed::remove(const VideoSurface& surface) { std::erase(surfaces_, &surface); }

bool VideoFeed::useOpenGl(const VideoSurface& surface, VideoOutput::OpenGl gl) {
  if (drawing_ == &surface) return true;
  if (!output_.useOpenGl(std::move(gl))) return false;
  drawing_ = &surface;
  return true;
}

void VideoFeed::endOpenGl(const VideoSurface& surface) {
  if (drawing_ != &surface) return;
  drawing_ = nullptr;
  output_.useSoftware();
}

}  // namespace kvo
