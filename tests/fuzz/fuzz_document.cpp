// Any bytes as a timeline document. What the reader lets through has to be fit to render.
#include "engine/document/document_reader.h"
#include "fuzz/fuzz.h"

#include <cmath>

namespace {

void check(const kvo::engine::Clip& clip) {
  kvo::require(!clip.src.empty() && clip.stop > clip.start && clip.ratio() > 0 &&
               std::isfinite(clip.ratio()));
}

}  // namespace

void kvo::fuzz(std::string_view bytes) {
  const auto timeline = engine::readDocument(std::string(bytes));
  if (!timeline) return;
  for (const auto& clip : timeline->video) {
    check(clip);
    for (const auto& transition : clip.transitions) require(std::isfinite(transition.progressAt(0.5)));
  }
  for (const auto& clip : timeline->audio) {
    check(clip);
    for (const auto& envelope : clip.envelopes) require(std::isfinite(envelope.at(0.5)));
  }
  require(!timeline->hasVideo ||
          (timeline->width >= 2 && timeline->height >= 2 && timeline->frameRate.perSecond() > 0));
}
