#include "app/colour_pictures.h"

#include "base/guarded.h"
#include "editor/compiler/sample_documents.h"
#include "editor/tabs/operations.h"
#include "engine/document/document_reader.h"
#include "engine/picture/compositor.h"
#include "media/bgr.h"

#include <utility>

namespace kvo {
namespace {

constexpr int kColourDepth = 24;  // bits

std::string lookOf(const Movie& clip, int width, int height) {
  std::string look = clipFile(clip) + "|" + clip.LoopStart().text() + "|" + std::to_string(width) + "x" +
                     std::to_string(height) + (clip.Sepia() ? "|sepia" : "");
  for (const Single level : {clip.Red(), clip.Green(), clip.Blue(), clip.Threshold(), clip.Contrast(),
                             clip.Brightness(), clip.Gamma()})
    look += "|" + ShortText(level);
  return look;
}

// A document of that clip alone.
std::string colourDocument(const Editing& e, const Movie& clip, int width, int height) {
  Collection one;
  auto& copy = one.MovieList.add(clip);
  copy.listener(nullptr);
  copy.EffectWord("");
  auto options = optionsOf(e);
  options.output.depth = kColourDepth;
  return clipSample(one, 1, options, e.editor.effects, {width, height, false}).text;
}

// The first picture of a document.
Result<FramePicture> firstPicture(const std::string& document) {
  const auto timeline = engine::readDocument(document);
  if (!timeline) return timeline.error();
  engine::Compositor compositor(*timeline);
  const auto picture = compositor.frame(0);
  if (!picture) return picture.error();
  FramePicture shown{picture->width(), picture->height(), {}};
  constexpr std::size_t kPixel = 3;  // bytes
  const auto stride = static_cast<std::size_t>(shown.width) * kPixel;
  shown.bgr.resize(stride * static_cast<std::size_t>(shown.height));
  media::toBgr(*picture, shown.bgr.data(), stride);
  return shown;
}

}  // namespace

ColourPictures::ColourPictures(const Editing& editing, EventLoop& loop, std::function<void()> came)
    : e_(editing),
      came_(std::move(came)),
      maker_(
          loop, [](const Wish& wish) { return guarded([&] { return firstPicture(wish.document); }); },
          [this](const Wish& wish, const Result<FramePicture>& picture) {
            if (wish.look != look_) return;
            picture_ = picture ? std::make_shared<const FramePicture>(*picture) : nullptr;
            came_();
          }) {}

ColourPictures::Picture ColourPictures::of(int clipNo, int width, int height) {
  if (clipNo < 1 || clipNo > e_.clips().count()) return nullptr;
  const auto& clip = e_.clips()[clipNo];
  if (auto look = lookOf(clip, width, height); look != look_) {
    look_ = std::move(look);
    if (std::exchange(file_, clipFile(clip)) != file_) picture_ = nullptr;
    maker_.want(Wish{look_, colourDocument(e_, clip, width, height)});
  }
  return picture_;
}

}  // namespace kvo
