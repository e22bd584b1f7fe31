#include "app/colour_pictures.h"

#include "editor/compiler/sample_documents.h"
#include "editor/tabs/operations.h"
#include "engine/run/strip.h"

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

}  // namespace

ColourPictures::ColourPictures(const Editing& editing, EventLoop& loop, std::function<void()> came)
    : e_(editing),
      came_(std::move(came)),
      maker_(
          loop, [](const Wish& wish) { return engine::drawStrip(wish.document, 1); },
          [this](const Wish& wish, const Frames& frames) {
            if (wish.look != look_) return;
            picture_ =
                frames && !frames->empty() ? std::make_shared<const FramePicture>(frames->front()) : nullptr;
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
