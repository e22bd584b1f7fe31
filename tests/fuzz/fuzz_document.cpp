// Any bytes as a timeline document. What the reader lets through has to be fit to render.
#include "engine/document/document_reader.h"

#include <cstdint>
#include <cstdlib>

namespace {

void check(const kvo::engine::Clip& clip) {
  if (clip.src.empty() || !(clip.stop > clip.start) || !(clip.ratio() > 0) || !std::isfinite(clip.ratio())) {
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto timeline = kvo::engine::readDocument(std::string(reinterpret_cast<const char*>(data), size));
  if (!timeline) return 0;
  for (const auto& clip : timeline->video) {
    check(clip);
    for (const auto& transition : clip.transitions) {
      if (!std::isfinite(transition.progressAt(0.5))) std::abort();
    }
  }
  for (const auto& clip : timeline->audio) {
    check(clip);
    for (const auto& envelope : clip.envelopes) {
      if (!std::isfinite(envelope.at(0.5))) std::abort();
    }
  }
  if (timeline->hasVideo &&
      (timeline->width < 2 || timeline->height < 2 || !(timeline->frameRate.perSecond() > 0))) {
    std::abort();
  }
  return 0;
}
