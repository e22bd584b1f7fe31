#include "editor/samples/transition_painter.h"

#include "base/guarded.h"
#include "editor/compiler/sample_documents.h"
#include "editor/samples/sample_pictures.h"
#include "engine/document/document_reader.h"
#include "engine/transitions/registry.h"

namespace kvo {
namespace {

constexpr double kSampleClip = 4;    // seconds of each of the two clips
constexpr double kSampleLength = 2;  // seconds of the transition
constexpr double kMargin = 0.125;    // seconds by which a document ends it earlier

// Says of both clips that they have a picture; no file is read for the document.
class OnlyPictures final : public MediaContents {
 public:
  Result<StreamFacts> facts(const std::string& /*path*/) override {
    return StreamFacts{.hasVideo = true, .frameRate = 25};
  }
  Result<FramePicture> frame(const std::string& path, double, int, int) override { return Error{path}; }
};

// Two clips, the transition between them.
std::string documentOf(std::string_view name, const SampleForm& form) {
  Collection collection;
  for (const auto* file : {"a.avi", "b.avi"}) {
    auto& clip = collection.MovieList.add({});
    clip.MovieName(file);
    clip.LoopStart(Value(0));
    clip.LoopEnd(Value(kSampleClip));
    clip.TransType("CUT");
  }
  collection.MovieList[2].TransType(std::string(name));
  collection.MovieList[2].TransIn(static_cast<Single>(kSampleLength * 10));
  OnlyPictures streams;
  const EffectsTable effects;
  return transitionSample(collection, 2, {}, {streams, effects}, kSampleLength, form).text;
}

const engine::Transition* transitionIn(const std::vector<engine::Layer>& layers) {
  for (const auto& layer : layers) {
    if (!layer.transitions.empty()) return &layer.transitions.front();
    if (const auto* inside = transitionIn(layer.inside)) return inside;
  }
  return nullptr;
}

}  // namespace

Result<PaintMoment> preparePainting(std::string_view name, const FramePicture& below,
                                    const FramePicture& above) {
  auto timeline = guarded([&] {
    return engine::readDocument(documentOf(name, {below.width, below.height}));
  });
  if (!timeline) return timeline.error();
  const auto* found = transitionIn(timeline->video);
  if (found == nullptr) return Error{"There is no transition of the name " + std::string(name)};
  auto paint = found->kind->drawn.make(found->params, below.width, below.height);
  if (!paint) return paint.error();
  return PaintMoment([transition = *found, paint = std::move(*paint), from = pictureOf(below),
                      to = pictureOf(above)](double part) {
    const double since = part * (kSampleLength - kMargin);
    const bool isPlaced = transition.kind->drawn.coversAll != nullptr;  // has no way of its own
    auto canvas = media::Canvas::makeLike(from);
    paint(from, to, {isPlaced ? 0.5 : transition.progressAt(transition.start + since), since}, canvas);
    return bytesOf(share(std::move(canvas)));
  });
}

}  // namespace kvo
