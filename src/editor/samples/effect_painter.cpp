#include "editor/samples/effect_painter.h"

#include "base/guarded.h"
#include "base/text.h"
#include "editor/compiler/effect_word.h"
#include "editor/compiler/sample_documents.h"
#include "editor/samples/sample_pictures.h"
#include "engine/document/document_reader.h"
#include "engine/effects/registry.h"

namespace kvo {
namespace {

constexpr double kEffectLength = 4;  // seconds of the clip
constexpr double kSeenFrom = 2;      // its end, as there is something to see of all effects

}  // namespace

Result<PaintEffect> prepareEffect(std::string_view number, const EffectsTable& effects, int width,
                                  int height) {
  const auto place = static_cast<int>(ToNumber(number));
  if (place < 1 || place > EffectWord::kSwitches)
    return Error{"There is no effect with the number " + std::string(number)};
  Collection one;
  auto& clip = one.MovieList.add({});
  clip.MovieName("a.avi");
  clip.LoopStart(Value(0));
  clip.LoopEnd(Value(kEffectLength));
  EffectWord word;
  word.set(place, true);
  clip.EffectWord(word.text());
  const auto document = clipSample(one, 1, {}, effects, {width, height, false}).text;
  auto timeline = guarded([&] { return engine::readDocument(document); });
  if (!timeline) return timeline.error();
  if (timeline->video.empty() || timeline->video.front().effects.empty())
    return Error{"There is no effect with the number " + std::string(number)};
  std::vector<engine::DrawEffect> draws;
  for (const auto& effect : timeline->video.front().effects)
    draws.push_back(effect.kind->drawn.make(effect.params, width, height));
  return PaintEffect([draws = std::move(draws)](const FramePicture& picture, double part) {
    auto drawn = pictureOf(picture);
    const engine::EffectMoment moment{kSeenFrom + part * (kEffectLength - kSeenFrom), kEffectLength};
    for (const auto& draw : draws) drawn = draw(drawn, moment);
    return bytesOf(drawn);
  });
}

}  // namespace kvo
