#include "editor/samples/sample_art.h"

#include "core/records/media_kinds.h"
#include "editor/compiler/sample_documents.h"
#include "editor/samples/effect_painter.h"
#include "editor/samples/transition_painter.h"
#include "editor/tabs/moving_samples.h"

#include <algorithm>
#include <memory>
#include <mutex>

namespace kvo {
namespace {

constexpr double kFromEnd = 1;  // seconds: films begin and end black
constexpr double kStretch = 2;  // seconds of a clip that are seen of it

bool hasPictureByName(const Movie& clip) {
  const auto* kind = mediaKind(clip.MovieName());
  return kind != nullptr && kind->mediaClass != MediaClass::Sound;
}

// As many as are asked for, of plain colour.
SamplePlaces plainPlaces(std::size_t count, const KVO2& settings, int width, int height) {
  const auto& preferences = settings.preferences();
  OutputForm movie;
  movie.width = heldWidth(preferences.RenderWidth);
  movie.height = heldHeight(preferences.RenderHeight);
  const auto form = shapedLike(movie, width, height);
  return SamplePlaces(count, {"", 0, form.width, form.height});
}

// Near an end of the section that is played.
void stand(SamplePlace& place, const Movie& clip, bool atEnd) {
  const double start = clip.LoopStart().number();
  const double end = std::max(clip.LoopEnd().number(), start);
  const double inside = std::min(kFromEnd, (end - start) / 2);
  place.path = clipFile(clip);
  place.seconds = clip.IsStill() ? 0 : atEnd ? end - inside : start + inside;
}

const Movie* clipInHand(const Collection& collection) {
  const int number = collection.icurMov;
  const auto& clips = collection.MovieList;
  return number >= 1 && number <= clips.count() && hasPictureByName(clips[number]) ? &clips[number] : nullptr;
}

SamplePlaces placesOfTransition(const Collection& collection, const KVO2& settings) {
  auto places = plainPlaces(2, settings, kTransitionSampleWidth, kTransitionSampleHeight);
  const auto* second = clipInHand(collection);
  if (second == nullptr) return places;
  stand(places[1], *second, false);
  for (int before = collection.icurMov - 1; before >= 1; --before) {
    if (!hasPictureByName(collection.MovieList[before])) continue;
    stand(places[0], collection.MovieList[before], true);
    break;
  }
  return places;
}

SamplePlaces placesOfEffect(const Collection& collection, const KVO2& settings) {
  auto places = plainPlaces(1, settings, kEffectSampleWidth, kEffectSampleHeight);
  const auto* clip = clipInHand(collection);
  if (clip == nullptr) return places;
  stand(places[0], *clip, false);
  if (clip->IsStill()) return places;
  const double left = std::max(0.0, clip->LoopEnd().number() - places[0].seconds);
  places.resize(kSampleSteps, SamplePlace(places[0]));
  for (std::size_t i = 0; i < places.size(); ++i)
    places[i].seconds += std::min(kStretch, left) * static_cast<double>(i) / kSampleSteps;
  return places;
}

// The table as it was when the places became others: the editor writes the table, another thread paints.
struct KnownEffects {
  std::mutex mutex;
  EffectsTable table;
  SamplePlaces places;
};

}  // namespace

SampleArt transitionArt(const Collection& collection, const KVO2& settings) {
  return {.places = [&collection, &settings] { return placesOfTransition(collection, settings); },
          .prepare = [](std::string_view name, const GroundPicture& ground) -> Result<PaintStep> {
            auto paint = preparePainting(name, ground(0), ground(1));
            if (!paint) return paint.error();
            return PaintStep(
                [paint = std::move(*paint)](int step) { return paint((step + 0.5) / kSampleSteps); });
          }};
}

SampleArt effectArt(const Collection& collection, const KVO2& settings, const EffectsTable& effects) {
  auto known = std::make_shared<KnownEffects>();
  return {.places =
              [&collection, &settings, &effects, known] {
                auto places = placesOfEffect(collection, settings);
                const std::lock_guard lock(known->mutex);
                if (std::exchange(known->places, places) != places) known->table = effects;
                return places;
              },
          .prepare = [known](std::string_view name, const GroundPicture& ground) -> Result<PaintStep> {
            const auto table = [&] {
              const std::lock_guard lock(known->mutex);
              return std::pair(known->table, known->places.size());
            }();
            const auto& size = ground(0);
            auto paint = prepareEffect(name, table.first, size.width, size.height);
            if (!paint) return paint.error();
            return PaintStep(
                [paint = std::move(*paint), ground, places = static_cast<int>(table.second)](int step) {
                  return paint(ground(static_cast<std::size_t>(std::min(step, places - 1))),
                               (step + 0.5) / kSampleSteps);
                });
          }};
}

}  // namespace kvo
