#include "app/render_pictures.h"

#include "base/guarded.h"
#include "engine/document/document_reader.h"
#include "engine/picture/compositor.h"
#include "media/bgr.h"

#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr std::chrono::milliseconds kPictureEvery{500};
constexpr int kRestTimes = 4;             // of the time that the last picture took
constexpr int kRenderPictureWidth = 640;  // pixels: as it is shown in a large window

// Smaller by whole steps, so that it is quick.
std::shared_ptr<const FramePicture> small(const media::Picture& picture) {
  constexpr std::size_t kPixel = 3;  // bytes
  const auto stride = static_cast<std::size_t>(picture.width()) * kPixel;
  std::vector<std::uint8_t> bgr(stride * static_cast<std::size_t>(picture.height()));
  media::toBgr(picture, bgr.data(), stride);
  const int step = std::max(1, picture.width() / kRenderPictureWidth);
  auto made = std::make_shared<FramePicture>();
  made->width = picture.width() / step;
  made->height = picture.height() / step;
  made->bgr.reserve(static_cast<std::size_t>(made->width) * static_cast<std::size_t>(made->height) * kPixel);
  for (int y = 0; y < made->height; ++y) {
    for (int x = 0; x < made->width; ++x) {
      const auto* from =
          &bgr[static_cast<std::size_t>(y * step) * stride + static_cast<std::size_t>(x * step) * kPixel];
      made->bgr.insert(made->bgr.end(), from, from + kPixel);
    }
  }
  return made;
}

}  // namespace

RenderPictures::RenderPictures(RenderState& state, EventLoop& loop, std::function<void()> came)
    : state_(state),
      loop_(loop),
      came_(std::move(came)),
      film_(std::make_shared<Film>()),
      maker_(
          loop, [film = film_](const Wish& wish) { return find(*film, wish); },
          [this](const Wish& wish, Found found) {
            isAsked_ = false;
            next_ = loop_.now() + std::max(kPictureEvery, found.took * kRestTimes);
            if (wish.document != state_.document || found.picture == nullptr) return;
            state_.picture = std::move(found.picture);
            came_();
          }) {}

RenderPictures::~RenderPictures() = default;

// A document that cannot be read, or a file that is gone, shows nothing here: the render itself tells of it.
RenderPictures::Found RenderPictures::find(Film& film, const Wish& wish) {
  const auto begun = std::chrono::steady_clock::now();
  Found found;
  if (wish.document == nullptr) {
    film = {};
    return found;
  }
  if (film.document != wish.document) {
    film = {};
    film.document = wish.document;
    auto timeline = guarded([&] { return engine::readDocument(*wish.document); });
    if (timeline && timeline->hasVideo) {
      film.timeline = std::make_unique<engine::Timeline>(std::move(*timeline));
      film.compositor = std::make_unique<engine::Compositor>(*film.timeline);
    }
  }
  if (film.compositor != nullptr && film.timeline->frames() > 0) {
    const auto wanted = static_cast<std::int64_t>(wish.seconds * film.timeline->frameRate.perSecond());
    const auto picture =
        film.compositor->frame(std::clamp<std::int64_t>(wanted, 0, film.timeline->frames() - 1));
    if (picture) found.picture = small(*picture);
  }
  found.took =
      std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begun);
  return found;
}

void RenderPictures::settle() {
  if (state_.document == nullptr) {
    if (shown_ >= 0) maker_.want(Wish{});  // lets go of the files
    shown_ = -1;
    return;
  }
  if (isAsked_ || state_.movieSeconds == shown_ || loop_.now() < next_) return;
  isAsked_ = true;
  shown_ = state_.movieSeconds;
  maker_.want(Wish{state_.document, shown_});
}

}  // namespace kvo
